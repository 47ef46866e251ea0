#include "win32/mouse_presses.h"

#include <windows.h>

#include <utility>

namespace nv
{

namespace
{

struct Button {
    UINT down;
    UINT up;
    UINT doubleClick;
    UINT frameDown;
    UINT frameDoubleClick;
    bool pressed = false; // in the program
};

// The platform hands a hook no object.
thread_local Button buttons[] = {
    {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_NCLBUTTONDOWN, WM_NCLBUTTONDBLCLK},
    {WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_NCRBUTTONDOWN, WM_NCRBUTTONDBLCLK},
    {WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDBLCLK, WM_NCMBUTTONDOWN, WM_NCMBUTTONDBLCLK},
};
thread_local int pickers = 0;

GUITHREADINFO ThreadState()
{
    GUITHREADINFO state = {};
    state.cbSize = sizeof state;
    GetGUIThreadInfo(GetCurrentThreadId(), &state);
    return state;
}

bool IsInMenu(const GUITHREADINFO& state)
{
    return (state.flags & (GUI_INMENUMODE | GUI_SYSTEMMENUMODE | GUI_POPUPMENUMODE)) != 0;
}

// A frame that is dragged, a scroll bar, a menu: somebody asked for every message of the mouse.
bool IsCaptured()
{
    const GUITHREADINFO state = ThreadState();
    return state.hwndCapture != nullptr || (state.flags & GUI_INMOVESIZE) != 0 || IsInMenu(state);
}

// Any of them: for left-handed users the system swaps the keys of two buttons.
bool AnyButtonIsHeld()
{
    return GetKeyState(VK_LBUTTON) < 0 || GetKeyState(VK_RBUTTON) < 0 ||
           GetKeyState(VK_MBUTTON) < 0;
}

// Whether the message that input has become is to be dropped.
bool OnInput(UINT message)
{
    for (Button& button : buttons) {
        if (message == button.down || message == button.doubleClick) {
            button.pressed = pickers == 0 && !IsInMenu(ThreadState());
        } else if (message == button.frameDown || message == button.frameDoubleClick) {
            button.pressed = false;
        } else if (message == button.up) {
            return !std::exchange(button.pressed, false) && pickers == 0 && !IsCaptured();
        } else if (message == WM_MOUSEMOVE && button.pressed && !AnyButtonIsHeld()) {
            button.pressed = false; // let go over another program
        }
    }
    return false;
}

// The system calls it for input only, not for messages that were sent or posted.
LRESULT CALLBACK OnMouse(int code, WPARAM message, LPARAM info)
{
    if (code == HC_ACTION && OnInput(static_cast<UINT>(message))) {
        return 1;
    }
    return CallNextHookEx(nullptr, code, message, info);
}

} // namespace

MousePresses::MousePresses()
    : hook_(SetWindowsHookExA(WH_MOUSE, OnMouse, nullptr, GetCurrentThreadId()))
{
}

MousePresses::~MousePresses()
{
    UnhookWindowsHookEx(static_cast<HHOOK>(hook_));
}

PressesInPicker::PressesInPicker()
{
    ++pickers;
}

PressesInPicker::~PressesInPicker()
{
    --pickers;
}

} // namespace nv
