#include "controls/kel_button_window.h"

#include "platform/system_colors.h"
#include "win32/screen.h"
#include "win32/window_text.h"

#include <windows.h>

#include <oleacc.h>

namespace nv
{

namespace
{

constexpr char kClass[] = "KelButton";
constexpr UINT kPress = WM_APP + 1;

} // namespace

KelButtonWindow::KelButtonWindow(GdiText& text, Pictures& pictures)
    : PaintedWindow(text, pictures), button_(text)
{
}

void KelButtonWindow::RegisterWindowClass()
{
    RegisterBare(kClass);
}

bool KelButtonWindow::Create(HWND parent)
{
    RegisterWindowClass();
    const HWND window = CreateWindowExA(0, kClass, "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0,
                                        0, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (window != nullptr) {
        Attach(window);
    }
    return window != nullptr;
}

void KelButtonWindow::AttachTo(HWND window)
{
    Attach(window);
    RECT client = {};
    GetClientRect(window, &client);
    const TwipRect area = ToTwips(client, text_.Scale());
    button_.Resize({area.width, area.height});
}

void KelButtonWindow::Refresh()
{
    if (TextOf(Handle()) != button_.Caption()) {
        SetWindowTextA(Handle(), button_.Caption().c_str());
        TellChange(EVENT_OBJECT_NAMECHANGE, Handle(), CHILDID_SELF);
    }
    const bool hadFocus = GetFocus() == Handle();
    const bool wasEnabled = EnableWindow(Handle(), button_.EnabledM()) == FALSE;
    if (wasEnabled != button_.EnabledM()) {
        TellChange(EVENT_OBJECT_STATECHANGE, Handle(), CHILDID_SELF);
    }
    if (hadFocus && !button_.EnabledM()) {
        // A disabled window that keeps the focus leaves the keyboard dead.
        const HWND top = GetAncestor(Handle(), GA_ROOT);
        SetFocus(GetNextDlgTabItem(top, Handle(), FALSE));
    }
    InvalidateRect(Handle(), nullptr, FALSE);
}

void KelButtonWindow::MoveTo(const TwipRect& area)
{
    MoveWindowTo(Handle(), area, text_.Scale());
    button_.Resize({area.width, area.height});
}

std::optional<LRESULT> KelButtonWindow::RouteInput(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_MOUSEMOVE:
        OnMouseMove();
        return 0;
    case WM_MOUSELEAVE:
        SetLook({false, false, look_.focused});
        return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        OnMouseMove(); // a press may come first, where a box was closed over the button
        SetFocus(Handle());
        SetLook({true, true, look_.focused});
        button_.Press();
        return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        OnMouseMove();
        SetLook({true, false, look_.focused});
        button_.Release();
        return 0;
    case WM_GETDLGCODE:
        return wParam == VK_RETURN ? DLGC_BUTTON | DLGC_WANTMESSAGE : DLGC_BUTTON;
    case WM_KEYDOWN:
    case WM_KEYUP:
        // A key that is held presses once.
        if (message == WM_KEYUP || (HIWORD(lParam) & KF_REPEAT) == 0) {
            OnKey(wParam, message == WM_KEYDOWN);
        }
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        OnFocus(message == WM_SETFOCUS);
        return 0;
    case WM_SETCURSOR:
        SetCursor(LoadCursorA(nullptr, button_.HandPointer() ? IDC_HAND : IDC_ARROW));
        return 1;
    case kPress:
        if (TakesInput(Handle())) {
            button_.Release();
        }
        return 0;
    default:
        return std::nullopt;
    }
}

void KelButtonWindow::Paint(Canvas& canvas, const TwipRect& clip)
{
    canvas.Fill(clip, kButtonFace);
    const TwipSize size = button_.Size();
    button_.Paint(canvas, {0, 0, size.width, size.height}, clip, look_);
}

void KelButtonWindow::SetShownFont(const Font& font)
{
    button_.SetFont(font);
    button_.ReCalc();
    if (button_.FixedSize()) {
        const RECT pixels =
            ToPixels({0, 0, button_.Size().width, button_.Size().height}, text_.Scale());
        SetWindowPos(Handle(), nullptr, 0, 0, pixels.right, pixels.bottom,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

// A dialog is told as it is by the platform's own buttons: it frames the one that Enter presses.
void KelButtonWindow::OnFocus(bool focused)
{
    SetLook({look_.hover, false, focused});
    SendMessageA(GetParent(Handle()), WM_COMMAND,
                 MAKEWPARAM(GetDlgCtrlID(Handle()), focused ? BN_SETFOCUS : BN_KILLFOCUS),
                 reinterpret_cast<LPARAM>(Handle()));
}

void KelButtonWindow::OnMouseMove()
{
    if (!look_.hover) {
        TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE, Handle(), 0};
        TrackMouseEvent(&track);
        SetLook({true, look_.pressed, look_.focused});
    }
}

void KelButtonWindow::OnKey(WPARAM key, bool down)
{
    if (key == VK_RETURN && down) {
        button_.Release();
    } else if (key == VK_SPACE && down) {
        SetLook({look_.hover, true, look_.focused});
    } else if (key == VK_SPACE && look_.pressed) {
        SetLook({look_.hover, false, look_.focused});
        button_.Release();
    }
}

void KelButtonWindow::SetLook(const ButtonLook& look)
{
    look_ = look;
    InvalidateRect(Handle(), nullptr, FALSE);
}

LONG KelButtonWindow::Role(LONG) const
{
    return ROLE_SYSTEM_PUSHBUTTON;
}

LONG KelButtonWindow::State(LONG) const
{
    // In a dialog the Enter key presses the one that has this number.
    const bool byDefault = GetDlgCtrlID(Handle()) == IDOK;
    return STATE_SYSTEM_FOCUSABLE | (look_.pressed ? STATE_SYSTEM_PRESSED : 0) |
           (byDefault ? STATE_SYSTEM_DEFAULT : 0);
}

void KelButtonWindow::DoDefaultAction(LONG)
{
    PostMessageA(Handle(), kPress, 0, 0);
}

} // namespace nv
