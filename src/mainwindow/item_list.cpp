#include "mainwindow/item_list.h"

#include "platform/ansi_text.h"
#include "win32/gdi_text.h"
#include "win32/screen.h"

#include <algorithm>
#include <windowsx.h>

namespace nv
{

namespace
{

// More than a line of any screen shows.
constexpr std::size_t kLongestText = 1000;
constexpr int kPadding = 2; // pixels beside and between the texts

// Where on the screen the mouse was when the message came that is being handled.
POINT MessagePoint()
{
    const auto at = static_cast<LPARAM>(GetMessagePos());
    return {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
}

} // namespace

bool ItemList::Create(HWND panel, int id)
{
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY |
                        LBS_OWNERDRAWFIXED | LBS_NODATA | LBS_NOINTEGRALHEIGHT;
    list_ = CreateWindowExA(WS_EX_CLIENTEDGE, "LISTBOX", "", style, 0, 0, 0, 0, panel,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            GetModuleHandleA(nullptr), nullptr);
    return list_ != nullptr && MakeDragList(list_) &&
           SetWindowSubclass(list_, Procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

void ItemList::SetCount(std::size_t count)
{
    const LRESULT top = SendMessageA(list_, LB_GETTOPINDEX, 0, 0);
    SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list_, LB_SETCOUNT, count, 0);
    SendMessageA(list_, LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
    SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}

void ItemList::Select(std::optional<std::size_t> index)
{
    SendMessageA(list_, LB_SETCURSEL, index ? *index : static_cast<WPARAM>(-1), 0);
}

std::optional<std::size_t> ItemList::Selected() const
{
    const LRESULT index = SendMessageA(list_, LB_GETCURSEL, 0, 0);
    return index < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(index));
}

std::size_t ItemList::Count() const
{
    return static_cast<std::size_t>(std::max<LRESULT>(SendMessageA(list_, LB_GETCOUNT, 0, 0), 0));
}

void ItemList::Redraw(std::size_t first, std::size_t last)
{
    RECT area = {};
    RECT end = {};
    SendMessageA(list_, LB_GETITEMRECT, first, reinterpret_cast<LPARAM>(&area));
    SendMessageA(list_, LB_GETITEMRECT, last, reinterpret_cast<LPARAM>(&end));
    area.bottom = end.bottom;
    InvalidateRect(list_, &area, FALSE);
}

void ItemList::FitFont()
{
    const HDC dc = GetDC(list_);
    const HGDIOBJ old =
        SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(list_, WM_GETFONT, 0, 0)));
    TEXTMETRICA metrics = {};
    GetTextMetricsA(dc, &metrics);
    SelectObject(dc, old);
    ReleaseDC(list_, dc);
    SendMessageA(list_, LB_SETITEMHEIGHT, 0, metrics.tmHeight + 2 * kPadding);
}

std::optional<std::size_t> ItemList::GapAt(POINT screen) const
{
    RECT area = {};
    GetWindowRect(list_, &area);
    if (!PtInRect(&area, screen)) {
        return std::nullopt;
    }
    ScreenToClient(list_, &screen);
    const auto height = static_cast<int>(SendMessageA(list_, LB_GETITEMHEIGHT, 0, 0));
    const auto top = static_cast<std::size_t>(SendMessageA(list_, LB_GETTOPINDEX, 0, 0));
    const auto rows = static_cast<std::size_t>(std::max<int>(screen.y + height / 2, 0) / height);
    return std::min(top + rows, Count());
}

std::string ItemList::ShownText(std::size_t index) const
{
    const std::string whole = Text(index);
    return OneLine(ProcessCodePage().WholeCharacters(whole, kLongestText));
}

void ItemList::Draw(const DRAWITEMSTRUCT& item) const
{
    if (static_cast<std::size_t>(item.itemID) >= Count()) {
        return; // an empty list only shows its focus
    }
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetTextColor(item.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkMode(item.hDC, TRANSPARENT);
    const std::string text = ShownText(item.itemID);
    RECT area = item.rcItem;
    area.left += 2 * kPadding;
    constexpr UINT kHow = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    if (const auto wide = WideOfUtf8(text, ProcessCodePage())) {
        DrawTextW(item.hDC, wide->data(), static_cast<int>(wide->size()), &area, kHow);
    } else {
        DrawTextA(item.hDC, text.data(), static_cast<int>(text.size()), &area, kHow);
    }
    if ((item.itemState & ODS_FOCUS) != 0) {
        DrawFocusRect(item.hDC, &item.rcItem);
    }
    const auto markAt = [&](std::size_t gap, LONG top) {
        const RECT line = {item.rcItem.left, top, item.rcItem.right, top + kPadding};
        if (mark_ == gap) {
            FillRect(item.hDC, &line, GetSysColorBrush(COLOR_WINDOWTEXT));
        }
    };
    markAt(item.itemID, item.rcItem.top);
    markAt(std::size_t{item.itemID} + 1, item.rcItem.bottom - kPadding);
}

UINT ItemList::DragMessage()
{
    return RegisterWindowMessageA(DRAGLISTMSGSTRING);
}

LRESULT ItemList::OnDrag(const DRAGLISTINFO& info)
{
    // Asked also for its scrolling, which it does while the mouse is held above or below the list.
    int under = LBItemFromPt(list_, info.ptCursor, info.uNotification == DL_DRAGGING);
    switch (info.uNotification) {
    case DL_BEGINDRAG:
        // A quick mouse has left the entry by now: it is the one that was pressed.
        under = LBItemFromPt(list_, MessagePoint(), FALSE);
        dragged_ = under < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(under));
        return dragged_.has_value();
    case DL_DRAGGING: {
        const auto gap = GapAt(info.ptCursor);
        const bool elsewhere = gap && *gap != *dragged_ && *gap != *dragged_ + 1;
        Mark(elsewhere ? gap : std::nullopt);
        return gap ? DL_CURSORSET : DL_STOPCURSOR;
    }
    case DL_DROPPED: {
        const auto gap = mark_;
        Mark(std::nullopt);
        if (gap) {
            Dropped(*dragged_, *gap);
        }
        return 0;
    }
    default:
        Mark(std::nullopt);
        return 0;
    }
}

void ItemList::Mark(std::optional<std::size_t> gap)
{
    if (mark_ != gap) {
        mark_ = gap;
        InvalidateRect(list_, nullptr, FALSE);
    }
}

} // namespace nv
