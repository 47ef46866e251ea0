// The main window's messages: layout, keyboard, focus.
#include "mainwindow/form1.h"
#include "win32/screen.h"

#include <algorithm>

namespace nv
{

namespace
{

// The window's parts, in twips of its client area. The heights of the toolbar and the gaps around
// it add up to what the smallest window leaves: 6195 twips, in locked mode 3095.
constexpr Twips kMargin = 120;
constexpr Twips kHeaderHeight = 480;
constexpr Twips kBodyTop = 700;
constexpr Twips kBodyBottom = 195;

Key KeyOf(WPARAM key)
{
    switch (key) {
    case VK_BACK:
        return Key::backspace;
    case VK_LEFT:
        return Key::left;
    case VK_HOME:
        return Key::home;
    case VK_F5:
        return Key::f5;
    default:
        return Key::other;
    }
}

} // namespace

std::optional<LRESULT> Form1::Route(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        OnSize();
        return 0;
    case WM_CLOSE:
        OnClose();
        return 0;
    case WM_QUERYENDSESSION:
        return document_.MayClose();
    case WM_ENDSESSION:
        if (wParam != 0) {
            StorePlacement();
        }
        return 0;
    case WM_DESTROY:
        OnDestroy();
        return 0;
    case WM_GETMINMAXINFO:
        if (minTrack_) {
            OnGetMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        }
        return std::nullopt;
    case WM_ACTIVATE:
        OnActivate(LOWORD(wParam) != WA_INACTIVE);
        return std::nullopt;
    case WM_SETFOCUS:
        SetFocus(lastFocus_ != nullptr && IsWindowEnabled(lastFocus_) ? lastFocus_
                                                                      : view_.Handle());
        return 0;
    case WM_MOUSEWHEEL:
        return SendMessageA(view_.Handle(), message, wParam, lParam);
    case WM_ERASEBKGND: {
        RECT client = {};
        GetClientRect(Handle(), &client);
        FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_BTNFACE));
        return 1;
    }
    default:
        return std::nullopt;
    }
}

void Form1::OnSize()
{
    if (IsIconic(Handle())) {
        return; // there is nothing to lay out, and the menu keeps its place
    }
    RECT pixels = {};
    GetClientRect(Handle(), &pixels);
    const TwipRect client = ToTwips(pixels, scale_);
    const auto move = [this](HWND window, const TwipRect& area) {
        const RECT place = ToPixels(area, scale_);
        SetWindowPos(window, nullptr, place.left, place.top,
                     std::max<int>(place.right - place.left, 0),
                     std::max<int>(place.bottom - place.top, 0), SWP_NOZORDER | SWP_NOACTIVATE);
    };
    move(header_.Handle(), {kMargin, kMargin, client.width - 2 * kMargin, kHeaderHeight});
    move(strip_.Handle(), {kMargin, kBodyTop, ToolStrip::kWidth,
                           locked_ ? ToolStrip::kLockedHeight : ToolStrip::kHeight});
    const Twips left = kMargin + ToolStrip::kWidth + kMargin;
    move(view_.Handle(),
         {left, kBodyTop, client.width - left - kMargin, client.height - kBodyTop - kBodyBottom});
}

void Form1::OnGetMinMaxInfo(MINMAXINFO& info)
{
    info.ptMinTrackSize = {minTrack_->cx, minTrack_->cy};
}

void Form1::OnActivate(bool active)
{
    const HWND focus = GetFocus();
    if (!active && focus != nullptr && IsChild(Handle(), focus)) {
        lastFocus_ = focus;
    }
}

bool Form1::FilterMessage(MSG& message)
{
    if (Handle() == nullptr || (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd))) {
        return false;
    }
    if ((message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) && OnKeyDown(message)) {
        return true;
    }
    return IsDialogMessageA(Handle(), &message) != 0;
}

bool Form1::OnKeyDown(const MSG& message)
{
    const auto pressed = [](int key) { return GetKeyState(key) < 0; };
    // The message says whether Alt is held; the key state may be that of a later moment.
    const bool alt = (HIWORD(message.lParam) & KF_ALTDOWN) != 0;
    const auto command =
        CommandOfKey(KeyOf(message.wParam), alt, pressed(VK_CONTROL), pressed(VK_SHIFT));
    if (!command) {
        return false;
    }
    if (message.message == WM_SYSKEYDOWN) {
        // The platform must see that Alt was held for a key, or it opens the system menu.
        DefWindowProcA(Handle(), message.message, message.wParam, message.lParam);
    }
    Run(*command);
    return true;
}

} // namespace nv
