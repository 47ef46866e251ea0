#include "robot/desktop.h"

#include <algorithm>

namespace nv::robot
{

using namespace e2e;

namespace
{

constexpr int kBoxText = 0xFFFF; // the ids that the system gives
constexpr int kFileName = 0x47c;
constexpr int kFaceName = 0x470;

std::vector<HWND> ModalsOver(HWND main)
{
    std::vector<HWND> modals = TopWindowsBeside(main);
    std::erase_if(modals, [](HWND window) {
        const std::string className = ClassOf(window);
        return (className != "#32768" && className != "#32770") || !IsWindowVisible(window) ||
               !IsWindowEnabled(window);
    });
    return modals;
}

} // namespace

LRESULT Tell(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    DWORD_PTR result = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, kPatience, &result);
    return static_cast<LRESULT>(result);
}

void SetText(HWND window, const std::string& text)
{
    Tell(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

std::vector<HWND> TopWindowsBeside(HWND main)
{
    DWORD process = 0;
    GetWindowThreadProcessId(main, &process);
    return TopWindowsOf(process);
}

HWND ModalOver(HWND main)
{
    const std::vector<HWND> modals = ModalsOver(main);
    return modals.empty() ? nullptr : modals.front();
}

bool BoxIsNotAlone(HWND main)
{
    int boxes = 0;
    int others = 0;
    for (const HWND modal : ModalsOver(main)) {
        boxes += KindOf(modal) == ModalKind::box ? 1 : 0;
        others += KindOf(modal) > ModalKind::box ? 1 : 0;
    }
    return boxes > 0 && boxes + others > 1;
}

ModalKind KindOf(HWND modal)
{
    const auto has = [modal](int id) { return GetDlgItem(modal, id) != nullptr; };
    return modal == nullptr             ? ModalKind::none
           : ClassOf(modal) == "#32768" ? ModalKind::menu
           : has(kBoxText)              ? ModalKind::box
           : has(kFileName)             ? ModalKind::fileNames
           : has(kFaceName)             ? ModalKind::fonts
                                        : ModalKind::dialog;
}

void Dismiss(HWND modal)
{
    const ModalKind kind = KindOf(modal);
    if (kind == ModalKind::menu) {
        return PressKey(VK_ESCAPE);
    }
    // No before Cancel: what cannot be saved would be asked for ever.
    const bool asks = GetDlgItem(modal, IDNO) != nullptr;
    PostMessageA(modal, WM_COMMAND, asks ? IDNO : kind == ModalKind::box ? IDOK : IDCANCEL, 0);
}

std::vector<HWND> EnabledChildren(HWND parent, const std::string& className,
                                  const std::string& text)
{
    std::vector<HWND> children = ChildrenOf(parent);
    std::erase_if(children, [&](HWND child) {
        return !IsWindowVisible(child) || !IsWindowEnabled(child) ||
               (!className.empty() && ClassOf(child) != className) ||
               (!text.empty() && TextOf(child) != text);
    });
    return children;
}

} // namespace nv::robot
