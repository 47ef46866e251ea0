// What the item list tells screen readers.
#include "mainwindow/item_list.h"

#include <windows.h>

#include <new>
#include <oleacc.h>

namespace nv
{

namespace
{

constexpr UINT kSelect = WM_APP + 1; // wParam: the item

} // namespace

ItemList::~ItemList()
{
    if (list_ != nullptr) {
        RemoveWindowSubclass(list_, Procedure, 0);
    }
}

// The list box's own procedure is called for all but a few messages.
LRESULT CALLBACK ItemList::Procedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam,
                                     UINT_PTR, DWORD_PTR object)
{
    auto* self = reinterpret_cast<ItemList*>(object);
    switch (message) {
    case WM_GETOBJECT:
        try {
            if (const auto result = self->accessible_.OnGetObject(list, *self, wParam, lParam)) {
                return *result;
            }
        } catch (const std::bad_alloc&) {
            return 0; // no exception may get into the platform
        }
        break;
    case kSelect:
        if (TakesInput(list)) {
            self->Choose(wParam);
        }
        return 0;
    case WM_NCDESTROY:
        self->accessible_.Disconnect();
        RemoveWindowSubclass(list, Procedure, 0);
        self->list_ = nullptr;
        break;
    default:
        break;
    }
    return DefSubclassProc(list, message, wParam, lParam);
}

// As the user does: the panel is told.
void ItemList::Choose(std::size_t item)
{
    if (item < Count()) {
        Select(item);
        SendMessageA(GetParent(list_), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list_), LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(list_));
    }
}

LONG ItemList::Role(LONG part) const
{
    return part == CHILDID_SELF ? ROLE_SYSTEM_LIST : ROLE_SYSTEM_LISTITEM;
}

LONG ItemList::State(LONG part) const
{
    if (part == CHILDID_SELF) {
        return STATE_SYSTEM_FOCUSABLE;
    }
    LONG state = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
    if (SelectedChild() == part) {
        state |= STATE_SYSTEM_SELECTED;
    }
    RECT client = {};
    GetClientRect(list_, &client);
    const RECT area = AreaOf(part);
    RECT seen = {};
    return IntersectRect(&seen, &area, &client) ? state : state | STATE_SYSTEM_OFFSCREEN;
}

std::string ItemList::Name(LONG part) const
{
    return part == CHILDID_SELF ? "Entries" : ShownText(static_cast<std::size_t>(part) - 1);
}

RECT ItemList::AreaOf(LONG part) const
{
    RECT area = {};
    SendMessageA(list_, LB_GETITEMRECT, static_cast<WPARAM>(part) - 1,
                 reinterpret_cast<LPARAM>(&area));
    return area;
}

LONG ItemList::ChildAt(POINT at)
{
    // The platform's own message for it counts with 16 bits.
    const LRESULT height = SendMessageA(list_, LB_GETITEMHEIGHT, 0, 0);
    if (height <= 0) {
        return CHILDID_SELF;
    }
    const LRESULT item = SendMessageA(list_, LB_GETTOPINDEX, 0, 0) + at.y / height;
    return item < ChildCount() ? static_cast<LONG>(item) + 1 : CHILDID_SELF;
}

std::optional<LONG> ItemList::FocusedChild() const
{
    const LRESULT item = SendMessageA(list_, LB_GETCARETINDEX, 0, 0);
    return item >= 0 && item < ChildCount() ? std::optional(static_cast<LONG>(item) + 1)
                                            : std::nullopt;
}

std::optional<LONG> ItemList::SelectedChild() const
{
    const auto item = Selected();
    return item ? std::optional(static_cast<LONG>(*item) + 1) : std::nullopt;
}

std::string ItemList::DefaultAction(LONG part) const
{
    return part == CHILDID_SELF ? "" : "Select";
}

void ItemList::DoDefaultAction(LONG part)
{
    PostMessageA(list_, kSelect, static_cast<WPARAM>(part) - 1, 0);
}

bool ItemList::FocusChild(LONG part)
{
    DoDefaultAction(part);
    return true;
}

} // namespace nv
