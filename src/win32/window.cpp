#include "win32/window.h"

#include <new>

namespace nv
{

Window::~Window()
{
    if (window_ != nullptr) {
        // Its messages would go to an object that is half gone.
        SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
    }
}

bool Window::Create(const Style& style, HWND parent, const char* text)
{
    WNDCLASSEXA windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hIcon = style.icon;
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = style.className;
    RegisterClassExA(&windowClass); // a class that is there already stays as it is
    const bool child = (style.style & WS_CHILD) != 0;
    CreateWindowExA(style.extendedStyle, style.className, text, style.style,
                    child ? 0 : CW_USEDEFAULT, 0, 0, 0, parent, nullptr, windowClass.hInstance,
                    this);
    return window_ != nullptr;
}

void Window::RegisterBare(const char* className)
{
    WNDCLASSEXA windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = className;
    RegisterClassExA(&windowClass); // a class that is there already stays as it is
}

void Window::Attach(HWND window)
{
    window_ = window;
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
}

LRESULT CALLBACK Window::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        static_cast<Window*>(create->lpCreateParams)->window_ = window;
        SetWindowLongPtrA(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self != nullptr) {
        if (message == WM_NCDESTROY) {
            SetWindowLongPtrA(window, GWLP_USERDATA, 0);
            self->window_ = nullptr;
        } else {
            try {
                if (const auto result = self->Route(message, wParam, lParam)) {
                    return *result;
                }
            } catch (const std::bad_alloc&) {
                // No exception may get into the platform. What was asked for is not done; what
                // stands unsaved can still be saved.
                MessageBeep(MB_ICONHAND);
                return 0;
            }
        }
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace nv
