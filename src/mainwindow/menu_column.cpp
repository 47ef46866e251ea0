#include "mainwindow/menu_column.h"

#include "controls/kel_button.h"
#include "controls/kel_item.h"
#include "controls/kel_line.h"
#include "controls/text_layout.h"
#include "docs/menu_line.h"

#include <algorithm>

namespace nv
{

namespace
{

constexpr double kLargestFont = 100; // points
constexpr Twips kGap = 50;           // above and below titles, lines and links
constexpr Twips kLabelGap = 150;     // above labels
constexpr Twips kSpace = 500;

} // namespace

MenuItem ShownItem(std::string_view line, const Font& defaultFont)
{
    MenuItem item = DecodeLine(line, defaultFont);
    item.font.size = std::min(item.font.size, kLargestFont);
    return item;
}

MenuColumn::MenuColumn(TextMeasure& measure, const CodePage& codePage)
    : measure_(measure), codePage_(codePage)
{
}

void MenuColumn::FClear()
{
    rows_.clear();
    links_.clear();
    hasLabels_ = false;
    position_ = kFirstPosition;
    height_ = position_;
}

Twips MenuColumn::Left(RowKind kind)
{
    switch (kind) {
    case RowKind::label:
        return 240;
    case RowKind::link:
        return 540;
    case RowKind::title:
    case RowKind::line:
        break;
    }
    return 120;
}

void MenuColumn::Add(std::uint32_t index, const MenuItem& item, std::uint32_t tick)
{
    switch (item.type) {
    case ItemType::vTitle:
        LoadTIT(index, item, tick);
        break;
    case ItemType::vLabel:
        LoadLAB(index, item);
        break;
    case ItemType::vLink:
        LoadLink(index, item);
        break;
    case ItemType::vSpace:
        position_ += kSpace;
        height_ = position_;
        break;
    case ItemType::vLine:
        LoadLN(index);
        break;
    case ItemType::vNotVisible:
    default: // a hand-edited file may hold other codes
        break;
    }
}

void MenuColumn::LoadTIT(std::uint32_t index, const MenuItem& item, std::uint32_t tick)
{
    const Twips height = AutoHeight(measure_, item.font, item.caption);
    AddRow({0, height, index, tick, RowKind::title}, kGap, kGap);
}

void MenuColumn::LoadLAB(std::uint32_t index, const MenuItem& item)
{
    hasLabels_ = true;
    AddRow({0, LabelHeight(item), index, 0, RowKind::label}, kLabelGap, 0);
}

void MenuColumn::LoadLN(std::uint32_t index)
{
    AddRow({0, KelLine::kHeight, index, 0, RowKind::line}, kGap, kGap);
}

void MenuColumn::LoadLink(std::uint32_t index, const MenuItem& item)
{
    // Only the height is needed here: a link's width is measured when it comes into view.
    const auto text = KelItem::ShownText(item.caption, item.link, codePage_);
    const Twips height = KelButton::FixedHeight(AutoHeight(measure_, item.font, text));
    links_.push_back(static_cast<std::uint32_t>(rows_.size()));
    AddRow({0, height, index, 0, RowKind::link}, kGap, kGap);
}

void MenuColumn::AddRow(Row row, Twips above, Twips below)
{
    row.top = position_ + above;
    position_ = row.top + row.height + below;
    height_ = position_;
    rows_.push_back(row);
}

Twips MenuColumn::LabelHeight(const MenuItem& item) const
{
    const auto lines = WrapText(measure_, codePage_, item.font, item.caption, LabelWidth());
    return static_cast<Twips>(lines.size()) * measure_.LineHeight(item.font);
}

void MenuColumn::Rewrap(const MenuLines& lines, const Font& defaultFont)
{
    double moved = 0;
    for (Row& row : rows_) {
        row.top = static_cast<Twips>(row.top + moved);
        if (row.kind == RowKind::label) {
            const Twips height = LabelHeight(ShownItem(lines[row.entry], defaultFont));
            moved += double{height} - double{row.height};
            row.height = height;
        }
    }
    position_ = static_cast<Twips>(position_ + moved);
    height_ = position_;
}

std::size_t MenuColumn::FirstRowBelow(Twips y) const
{
    const auto row = std::partition_point(rows_.begin(), rows_.end(), [y](const Row& candidate) {
        return candidate.top + candidate.height <= y;
    });
    return static_cast<std::size_t>(row - rows_.begin());
}

} // namespace nv
