// The main window's messages: layout, keyboard, focus.
#include "mainwindow/form1.h"
#include "win32/handle_counts.h"
#include "win32/screen.h"

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

constexpr LPARAM kForced = ENDSESSION_CRITICAL; // flag of the messages that end a session

constexpr DWORD kDialogAtom = 32770; // of the platform's class of dialogs

Key KeyOf(WPARAM key)
{
    switch (key) {
    case VK_BACK:
        return Key::backspace;
    case VK_LEFT:
        return Key::left;
    case VK_HOME:
        return Key::home;
    case VK_UP:
        return Key::up;
    case VK_DOWN:
        return Key::down;
    case VK_INSERT:
        return Key::insert;
    case VK_DELETE:
        return Key::del;
    case 'E':
        return Key::e;
    case 'N':
        return Key::n;
    case 'O':
        return Key::o;
    case 'S':
        return Key::s;
    case 'Y':
        return Key::y;
    case 'Z':
        return Key::z;
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
        return OnQueryEndSession((lParam & kForced) != 0);
    case WM_ENDSESSION:
        if (wParam != 0) {
            OnEndSession((lParam & kForced) != 0);
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
    case WM_HELP: // the key F1, here or in a dialog
        Run(Command::helpPages);
        return TRUE;
    case WM_ACTIVATE:
        OnActivate(LOWORD(wParam) != WA_INACTIVE);
        return std::nullopt;
    case WM_SETFOCUS:
        SetFocus(IsWindowEnabled(lastFocus_) && IsWindowVisible(lastFocus_) ? lastFocus_
                                                                            : PanelInView());
        return 0;
    case WM_MOUSEWHEEL:
        // In edit mode what has the keyboard turns with the wheel.
        return mode_ == Mode::edit ? 0 : SendMessageA(view_.Handle(), message, wParam, lParam);
    case WM_ERASEBKGND: {
        RECT client = {};
        GetClientRect(Handle(), &client);
        FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_BTNFACE));
        return 1;
    }
    default:
        return AnswerHandleCount(message, wParam);
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
        MoveWindowTo(window, area, scale_);
    };
    move(header_.Handle(), {kMargin, kMargin, client.width - 2 * kMargin, kHeaderHeight});
    move(strip_.Handle(), {kMargin, kBodyTop, ToolStrip::kWidth,
                           locked_ ? ToolStrip::kLockedHeight : ToolStrip::kHeight});
    const Twips left = kMargin + ToolStrip::kWidth + kMargin;
    const TwipRect body = {left, kBodyTop, client.width - left - kMargin,
                           client.height - kBodyTop - kBodyBottom};
    move(view_.Handle(), body);
    if (panel_.IsCreated()) {
        move(panel_.Handle(), body);
    }
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

// The user may be in a dialog, a picker or a box: the question comes over that, which then has to
// wait. A session that is forced to end leaves no time for it.
bool Form1::OnQueryEndSession(bool forced)
{
    if (forced) {
        document_.KeepUnsaved();
        return true;
    }
    const HWND top = GetLastActivePopup(Handle());
    const HWND owner = prompts_.Owner();
    prompts_.SetOwner(top);
    const bool may = document_.MayClose();
    prompts_.SetOwner(owner);
    if (!may) {
        SetForegroundWindow(top);
    }
    return may;
}

void Form1::OnEndSession(bool forced)
{
    // Or Windows did not wait for the answer.
    if (forced || document_.AskingToSave()) {
        document_.KeepUnsaved();
    }
    StorePlacement();
}

bool Form1::FilterMessage(MSG& message)
{
    if (Handle() == nullptr) {
        return false;
    }
    const HWND top = GetAncestor(message.hwnd, GA_ROOT);
    if (top != Handle()) {
        // A dialog that opens a menu, while the menu loads.
        return GetClassLongA(top, GCW_ATOM) == kDialogAtom && IsDialogMessageW(top, &message) != 0;
    }
    if (panel_.OnCaptionKey(message)) {
        return true;
    }
    if ((message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) && OnKeyDown(message)) {
        return true;
    }
    return IsDialogMessageW(Handle(), &message) != 0;
}

bool Form1::OnKeyDown(const MSG& message)
{
    const auto pressed = [](int key) { return GetKeyState(key) < 0; };
    KeyPress press;
    press.key = KeyOf(message.wParam);
    press.control = pressed(VK_CONTROL);
    press.shift = pressed(VK_SHIFT);
    // The message says whether Alt is held, the key state may be that of a later moment; but with
    // Ctrl held, too, the message does not say so.
    press.alt = (HIWORD(message.lParam) & KF_ALTDOWN) != 0 || (press.control && pressed(VK_MENU));
    const Facts facts = CurrentFacts();
    const auto command = CommandOfKey(press, facts, GetFocus() == panel_.ItemListWindow());
    if (!command) {
        return false;
    }
    if (!Available(*command, facts)) {
        // A box would take back what it remembers by itself.
        return facts.editing && (*command == Command::undo || *command == Command::redo);
    }
    if (message.message == WM_SYSKEYDOWN) {
        // The platform must see that Alt was held for a key, or it opens the system menu.
        DefWindowProcA(Handle(), message.message, message.wParam, message.lParam);
    }
    Run(*command);
    return true;
}

} // namespace nv
