#include "mainwindow/menu_view.h"

#include "controls/kel_pic.h"
#include "win32/dropped_files.h"
#include "win32/screen.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace nv
{

namespace
{

constexpr UINT_PTR kTypingTimer = 1;
constexpr UINT_PTR kPictureTimer = 2;
constexpr UINT kSoon = 10;           // milliseconds: input and painting come first
constexpr DWORD kPicturesAtOnce = 8; // milliseconds
constexpr Twips kWheelLine = 360;
constexpr std::size_t kLongestTip = 1000;

std::optional<PaneKey> PaneKeyOf(WPARAM key)
{
    switch (key) {
    case VK_UP:
        return PaneKey::up;
    case VK_DOWN:
        return PaneKey::down;
    case VK_PRIOR:
        return PaneKey::pageUp;
    case VK_NEXT:
        return PaneKey::pageDown;
    case VK_HOME:
        return PaneKey::home;
    case VK_END:
        return PaneKey::end;
    case VK_RETURN:
    case VK_SPACE:
        return PaneKey::press;
    default:
        return std::nullopt;
    }
}

bool Pressed(int key)
{
    return GetKeyState(key) < 0;
}

} // namespace

MenuView::MenuView(GdiText& text, Pictures& pictures, LinkPictures& links, const CodePage& codePage,
                   const MenuLines& lines, const Font& defaultFont)
    : PaintedWindow(text, pictures), pane_(*this, text, links, codePage, lines, defaultFont)
{
}

bool MenuView::Create(HWND parent)
{
    // A thin sunken border; the bar shows itself when the column is high enough.
    return Window::Create({"NavrixMenuView", WS_CHILD | WS_TABSTOP, WS_EX_STATICEDGE}, parent);
}

// When it is first needed: the start does not wait for it.
void MenuView::CreateTip()
{
    tip_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                           WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, Handle(), nullptr,
                           GetModuleHandleA(nullptr), nullptr);
    TTTOOLINFOA tool = {};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = Handle();
    tool.lpszText = LPSTR_TEXTCALLBACKA;
    SendMessageA(tip_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    // A width turns line breaks on.
    SendMessageA(tip_, TTM_SETMAXTIPWIDTH, 0, text_.Scale().PixelsX(9000));
}

std::optional<LRESULT> MenuView::RouteInput(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE:
        OnSize();
        return 0;
    case WM_VSCROLL:
        OnScroll(LOWORD(wParam));
        return 0;
    case WM_TIMER:
        OnTimer(wParam);
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
        return OnKey(wParam, (HIWORD(lParam) & KF_REPEAT) != 0) ? std::optional<LRESULT>(0)
                                                                : std::nullopt;
    case WM_SETFOCUS:
        OnSetFocus();
        return 0;
    case WM_KILLFOCUS:
        pane_.SetHasFocus(false);
        return 0;
    case WM_NOTIFY:
        return OnNotify(lParam);
    case WM_DROPFILES:
        OnDropFiles(reinterpret_cast<HDROP>(wParam));
        return 0;
    case kSynchronize:
        Synchronize();
        return 0;
    case kOpenRow:
        if (TakesInput(Handle())) {
            pane_.ClickRow(static_cast<std::uint32_t>(wParam), static_cast<std::uint32_t>(lParam));
        }
        return 0;
    default:
        return RouteMouse(message, wParam, lParam);
    }
}

std::optional<LRESULT> MenuView::RouteMouse(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_MOUSEMOVE:
        TrackMouse();
        pane_.MouseMove(PointOf(lParam, text_.Scale()));
        return 0;
    case WM_MOUSELEAVE:
        tracking_ = false;
        pane_.MouseLeave();
        return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        TrackMouse();
        pane_.MouseDown(PointOf(lParam, text_.Scale()));
        return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        TrackMouse();
        pane_.MouseUp(PointOf(lParam, text_.Scale()));
        return 0;
    case WM_MOUSEWHEEL:
        OnWheel(static_cast<short>(HIWORD(wParam)));
        return 0;
    case WM_SETCURSOR:
        if (LOWORD(lParam) == HTCLIENT) {
            SetCursor(LoadCursorA(nullptr, pane_.HoveredArea() ? IDC_HAND : IDC_ARROW));
            return 1;
        }
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

void MenuView::Paint(Canvas& canvas, const TwipRect& clip)
{
    pane_.Paint(canvas, clip);
}

int MenuView::BarWidth() const
{
    return GetSystemMetrics(SM_CXVSCROLL);
}

void MenuView::OnSize()
{
    RECT client = {};
    GetClientRect(Handle(), &client);
    // The bar's place is kept free when it is hidden: labels must not break anew as it comes and
    // goes.
    const bool bar = (GetWindowLongPtrA(Handle(), GWL_STYLE) & WS_VSCROLL) != 0;
    const int width = std::max<int>(client.right - (bar ? 0 : BarWidth()), 0);
    pane_.SetViewSize({text_.Scale().TwipsX(width), text_.Scale().TwipsY(client.bottom)});
}

void MenuView::OnScroll(WORD request)
{
    const Scrolling& scroll = pane_.Scroll();
    switch (request) {
    case SB_LINEUP:
        pane_.ScrollBy(-scroll.SmallChange());
        break;
    case SB_LINEDOWN:
        pane_.ScrollBy(scroll.SmallChange());
        break;
    case SB_PAGEUP:
        pane_.ScrollBy(-scroll.LargeChange());
        break;
    case SB_PAGEDOWN:
        pane_.ScrollBy(scroll.LargeChange());
        break;
    case SB_TOP:
        pane_.ScrollBy(-scroll.Value());
        break;
    case SB_BOTTOM:
        pane_.ScrollBy(scroll.Maximum());
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: {
        SCROLLINFO info = {};
        info.cbSize = sizeof info;
        info.fMask = SIF_TRACKPOS;
        GetScrollInfo(Handle(), SB_VERT, &info);
        pane_.Drag(info.nTrackPos);
        break;
    }
    case SB_ENDSCROLL:
        pane_.EndDrag();
        break;
    default:
        break;
    }
}

void MenuView::OnWheel(short delta)
{
    UINT lines = 3;
    SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const Twips notch = lines == WHEEL_PAGESCROLL ? pane_.ViewSize().height
                                                  : static_cast<Twips>(lines) * kWheelLine;
    wheelRest_ += delta;
    const int turns = wheelRest_ / WHEEL_DELTA;
    wheelRest_ %= WHEEL_DELTA;
    if (turns != 0 && notch > 0) {
        pane_.ScrollTwips(-static_cast<Twips>(turns) * notch);
    }
}

void MenuView::OnTimer(UINT_PTR timer)
{
    if (timer == kTypingTimer) {
        pane_.Tick();
        return;
    }
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < kPicturesAtOnce) {
        if (!pane_.FindNextPicture(
                reinterpret_cast<WindowHandle>(GetAncestor(Handle(), GA_ROOT)))) {
            KillTimer(Handle(), kPictureTimer);
            return;
        }
    }
}

// Any mouse message may be the first one, and its end is to be told.
void MenuView::TrackMouse()
{
    if (!std::exchange(tracking_, true)) {
        TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE, Handle(), 0};
        TrackMouseEvent(&track);
    }
}

bool MenuView::OnKey(WPARAM key, bool repeated)
{
    if (Pressed(VK_CONTROL)) {
        return false;
    }
    if (key == VK_TAB) {
        OnTab();
        return true;
    }
    const auto paneKey = PaneKeyOf(key);
    if (paneKey == PaneKey::press && repeated) {
        return true; // a key that is held starts one program, not twenty
    }
    return paneKey && pane_.Key(*paneKey);
}

void MenuView::OnTab()
{
    const bool back = Pressed(VK_SHIFT);
    if (!pane_.Key(back ? PaneKey::previousLink : PaneKey::nextLink)) {
        SetFocus(GetNextDlgTabItem(GetAncestor(Handle(), GA_ROOT), Handle(), back));
    }
}

void MenuView::OnSetFocus()
{
    pane_.SetHasFocus(true);
    FocusMoved(); // it is not the window that has the keyboard, but a link
    // Who comes with the Tab key comes to the first link, or backwards to the last one.
    if (Pressed(VK_TAB) && !Pressed(VK_MENU)) {
        if (Pressed(VK_SHIFT)) {
            pane_.FocusLastLink();
        } else {
            pane_.FocusFirstLink();
        }
    }
}

LRESULT MenuView::OnNotify(LPARAM lParam)
{
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->hwndFrom == tip_ && header->code == TTN_GETDISPINFOA) {
        tipText_ = ProcessCodePage().FirstCharacters(pane_.HoveredTip(), kLongestTip);
        reinterpret_cast<NMTTDISPINFOA*>(lParam)->lpszText = tipText_.data();
    }
    return 0;
}

void MenuView::OnDropFiles(HDROP drop)
{
    const DroppedFiles dropped = TakeDroppedFiles(Handle(), drop);
    if (!dropped.paths.empty() && TakesInput(Handle())) {
        // It was another program's window that had the keyboard; boxes are to be seen.
        SetForegroundWindow(GetAncestor(Handle(), GA_ROOT));
        FileDropped(dropped.paths.front());
    }
}

// Brings the scroll bar, the picture and what screen readers know up to date with the column.
void MenuView::Synchronize()
{
    synchronizing_ = false;
    ShowScroll();
    TellChanges();
}

void MenuView::ShowScroll()
{
    const Scrolling scroll = pane_.Scroll();
    const Twips height = pane_.Column().Height();
    const double seenTo = double{pane_.ViewSize().height} - static_cast<double>(scroll.Top());
    if (std::min(shownHeight_, height) < seenTo && shownHeight_ != height) {
        InvalidateRect(Handle(), nullptr, FALSE); // rows came or went within what is seen
    }
    shownHeight_ = height;
    if (scroll == shownScroll_) {
        return;
    }
    const bool wasShown = std::exchange(shownScroll_, scroll).Shown();
    if (scroll.Shown()) {
        SCROLLINFO info = {};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        const double page = double{pane_.ViewSize().height} / static_cast<double>(scroll.Steps());
        info.nPage = static_cast<UINT>(std::max(page, 1.0));
        // The platform's bar ends a page before its maximum.
        info.nMax = scroll.Maximum() + static_cast<int>(info.nPage) - 1;
        info.nPos = scroll.Value();
        SetScrollInfo(Handle(), SB_VERT, &info, TRUE);
    }
    if (scroll.Shown() != wasShown) {
        ShowScrollBar(Handle(), SB_VERT, scroll.Shown());
    }
}

// Without a window the platform would take these calls for all windows, or for the whole thread.
void MenuView::Redraw(const TwipRect& area)
{
    if (Handle() == nullptr) {
        return;
    }
    const RECT pixels = ToPixels(area, text_.Scale());
    InvalidateRect(Handle(), &pixels, FALSE);
}

void MenuView::ColumnChanged()
{
    SynchronizeSoon();
}

void MenuView::ColumnReplaced()
{
    replaced_ = true;
    SynchronizeSoon();
}

void MenuView::FocusMoved()
{
    focusMoved_ = true;
    SynchronizeSoon();
}

void MenuView::SynchronizeSoon()
{
    // Once for all the lines that are added until the message arrives.
    if (Handle() != nullptr && !std::exchange(synchronizing_, true)) {
        PostMessageA(Handle(), kSynchronize, 0, 0);
    }
}

void MenuView::TakeFocus()
{
    // A wheel turned over a window in the background must not bring it forward, and a hidden view,
    // whose menu loads while the editor is shown, must not take the keys.
    if (IsWindowVisible(Handle()) && GetActiveWindow() == GetAncestor(Handle(), GA_ROOT)) {
        SetFocus(Handle());
    }
}

void MenuView::SetTicking(bool ticking)
{
    if (ticking && Handle() != nullptr) {
        SetTimer(Handle(), kTypingTimer, kTypingInterval, nullptr);
    } else {
        KillTimer(Handle(), kTypingTimer);
    }
}

void MenuView::PicturesWanted()
{
    SetTimer(Handle(), kPictureTimer, kSoon, nullptr);
}

void MenuView::HoverChanged()
{
    const auto area = pane_.HoveredArea();
    if (tip_ == nullptr) {
        if (!area) {
            return;
        }
        CreateTip();
    }
    TTTOOLINFOA tool = {};
    tool.cbSize = sizeof tool;
    tool.hwnd = Handle();
    tool.rect = area ? ToPixels(*area, text_.Scale()) : RECT{};
    SendMessageA(tip_, TTM_POP, 0, 0);
    SendMessageA(tip_, TTM_NEWTOOLRECTA, 0, reinterpret_cast<LPARAM>(&tool));
}

void MenuView::EntryClicked(std::uint32_t entry)
{
    if (EntryClick) {
        EntryClick(entry);
    }
}

} // namespace nv
