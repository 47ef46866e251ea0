// What the view panel tells screen readers: the column is a list, its rows are the list's parts.
#include "mainwindow/menu_view.h"
#include "win32/screen.h"

#include <windows.h>

#include <oleacc.h>
#include <utility>

namespace nv
{

namespace
{

std::uint32_t RowOf(LONG part)
{
    return static_cast<std::uint32_t>(part - 1);
}

LONG PartOf(std::uint32_t row)
{
    return static_cast<LONG>(row) + 1;
}

} // namespace

void MenuView::SetMenuName(std::string name)
{
    if (std::exchange(menuName_, std::move(name)) != menuName_) {
        TellChange(EVENT_OBJECT_NAMECHANGE, Handle(), CHILDID_SELF);
    }
}

void MenuView::SetEmptyText(const std::string& text)
{
    emptyText_ = text;
    pane_.SetEmptyText(text);
}

void MenuView::TellChanges()
{
    const bool replaced = std::exchange(replaced_, false);
    if (replaced) {
        TellChange(EVENT_OBJECT_REORDER, Handle(), CHILDID_SELF);
    }
    const bool moved = std::exchange(focusMoved_, false);
    if ((moved || replaced) && GetFocus() == Handle()) {
        TellChange(EVENT_OBJECT_FOCUS, Handle(), FocusedChild().value_or(CHILDID_SELF));
    }
}

LONG MenuView::ChildCount() const
{
    return static_cast<LONG>(pane_.Column().Rows().size());
}

LONG MenuView::Role(LONG part) const
{
    if (part == CHILDID_SELF) {
        return ROLE_SYSTEM_LIST;
    }
    switch (pane_.Column().Rows()[RowOf(part)].kind) {
    case RowKind::link:
        return ROLE_SYSTEM_LINK;
    case RowKind::line:
        return ROLE_SYSTEM_SEPARATOR;
    case RowKind::title:
    case RowKind::label:
        break;
    }
    return ROLE_SYSTEM_STATICTEXT;
}

LONG MenuView::State(LONG part) const
{
    if (part == CHILDID_SELF) {
        return STATE_SYSTEM_FOCUSABLE;
    }
    const bool link = Role(part) == ROLE_SYSTEM_LINK;
    const LONG state = link ? STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_LINKED : STATE_SYSTEM_READONLY;
    return pane_.InView(RowOf(part)) ? state : state | STATE_SYSTEM_OFFSCREEN;
}

std::string MenuView::Name(LONG part) const
{
    return part == CHILDID_SELF ? menuName_ : pane_.NameOf(RowOf(part));
}

// A row's is that of its picture: menus from elsewhere have character sets of their own.
UINT MenuView::PageOfName(LONG part, const std::string& name) const
{
    return part == CHILDID_SELF ? CP_ACP : text_.PageOf(pane_.FontOf(RowOf(part)), name);
}

// Of a link its command, as in the tooltip; of an empty menu what stands in its place.
std::string MenuView::Description(LONG part) const
{
    if (part == CHILDID_SELF) {
        return ChildCount() == 0 ? emptyText_ : std::string();
    }
    return pane_.CommandOf(RowOf(part));
}

RECT MenuView::Area(LONG part)
{
    return ToPixels(pane_.AreaOf(RowOf(part)), text_.Scale());
}

LONG MenuView::ChildAt(POINT at)
{
    const auto row = pane_.RowAt({text_.Scale().TwipsX(at.x), text_.Scale().TwipsY(at.y)});
    return row ? PartOf(*row) : CHILDID_SELF;
}

std::optional<LONG> MenuView::FocusedChild() const
{
    const auto row = pane_.FocusedRow();
    return row ? std::optional(PartOf(*row)) : std::nullopt;
}

std::string MenuView::DefaultAction(LONG part) const
{
    return part != CHILDID_SELF && Role(part) == ROLE_SYSTEM_LINK ? "Open" : "";
}

void MenuView::DoDefaultAction(LONG part)
{
    PostMessageA(Handle(), kOpenRow, RowOf(part), static_cast<LPARAM>(pane_.Generation()));
}

bool MenuView::FocusChild(LONG part)
{
    return pane_.FocusRow(RowOf(part));
}

} // namespace nv
