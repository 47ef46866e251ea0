// What the view panel says about single rows to who does not see them.
#include "mainwindow/menu_pane.h"

#include <algorithm>

namespace nv
{

MenuItem MenuPane::ItemOf(std::uint32_t row) const
{
    return ShownItem(lines_[column_.Rows()[row].entry], defaultFont_);
}

std::string MenuPane::NameOf(std::uint32_t row) const
{
    const RowKind kind = column_.Rows()[row].kind;
    if (kind == RowKind::line) {
        return "Line";
    }
    const MenuItem item = ItemOf(row);
    if (kind != RowKind::link) {
        return OneLine(item.caption);
    }
    const auto shown = KelItem::ShownText(item.caption, item.link, codePage_);
    return OneLine(shown.empty() ? item.link : shown);
}

std::string MenuPane::CommandOf(std::uint32_t row) const
{
    return column_.Rows()[row].kind == RowKind::link ? OneLine(ItemOf(row).link) : std::string();
}

std::optional<std::uint32_t> MenuPane::FocusedRow() const
{
    return focusedLink_ ? std::optional(column_.Links()[*focusedLink_]) : std::nullopt;
}

bool MenuPane::FocusRow(std::uint32_t row)
{
    const auto& links = column_.Links();
    const auto link = std::lower_bound(links.begin(), links.end(), row);
    if (link == links.end() || *link != row) {
        return false;
    }
    FocusLink(static_cast<std::size_t>(link - links.begin()));
    return true;
}

void MenuPane::ClickRow(std::uint32_t row, std::uint32_t generation)
{
    if (generation == generation_ && row < column_.Rows().size() &&
        column_.Rows()[row].kind == RowKind::link) {
        host_.EntryClicked(column_.Rows()[row].entry);
    }
}

} // namespace nv
