// Painting of the view panel: only what is in view is decoded, measured and drawn.
#include "controls/kel_line.h"
#include "controls/kel_pic.h"
#include "controls/text_layout.h"
#include "mainwindow/menu_pane.h"
#include "platform/mark.h"
#include "platform/system_colors.h"

namespace nv
{

namespace
{

// Rows whose look is kept at hand; more than any screen shows at once.
constexpr std::size_t kKeptVisuals = 512;

} // namespace

MenuPane::RowRange MenuPane::RowsBetween(Twips top, Twips bottom) const
{
    const auto& rows = column_.Rows();
    const auto first = column_.FirstRowBelow(
        static_cast<Twips>(double{top} - static_cast<double>(scrolling_.Top())));
    std::size_t end = first;
    while (end < rows.size() && YOf(rows[end]) < bottom) {
        ++end;
    }
    return {static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(end)};
}

void MenuPane::Paint(Canvas& canvas, const TwipRect& clip)
{
    canvas.Fill(clip, kButtonFace);
    if (column_.Rows().empty()) {
        canvas.Text({MenuColumn::Left(RowKind::label), 250}, defaultFont_, kGrayText, emptyText_);
    }
    bool picturesWanted = false;
    const RowRange range = RowsBetween(clip.top, clip.top + clip.height);
    for (std::uint32_t row = range.first; row < range.end; ++row) {
        PaintRow(canvas, row, clip);
        const MenuItem& item = VisualOf(row).item;
        picturesWanted = picturesWanted ||
                         (item.type == ItemType::vLink && pictures_.Known(item.link) == nullptr);
    }
    if (picturesWanted) {
        host_.PicturesWanted();
    }
    if (hasFocus_ && column_.Links().empty()) {
        canvas.FocusFrame({0, 0, view_.width, view_.height});
    }
}

void MenuPane::PaintRow(Canvas& canvas, std::uint32_t index, const TwipRect& clip)
{
    const Row& row = column_.Rows()[index];
    const Visual& visual = VisualOf(index);
    const TwipPoint origin{MenuColumn::Left(row.kind), YOf(row)};
    switch (row.kind) {
    case RowKind::title: {
        const auto shown = KelPic::ShownAfter(visual.item.caption, tick_ - row.bornTick, codePage_);
        PaintLines(canvas, measure_, TextLines(shown), origin, visual.item.font,
                   visual.item.fontColor, clip);
        break;
    }
    case RowKind::label:
        visual.label->Paint(canvas, origin, clip);
        break;
    case RowKind::line:
        KelLine::Paint(canvas, origin, column_.LineWidth());
        break;
    case RowKind::link: {
        const bool focused = hasFocus_ && focusedLink_ && column_.Links()[*focusedLink_] == index;
        visual.link->Paint(canvas, origin, clip, {hovered_ == index, pressed_ == index, focused});
        break;
    }
    }
}

MenuPane::Visual& MenuPane::VisualOf(std::uint32_t row)
{
    const auto known = visuals_.find(row);
    if (known != visuals_.end()) {
        return known->second;
    }
    if (visuals_.size() >= kKeptVisuals) {
        visuals_.clear(); // here, as not only painting asks for rows
    }
    return visuals_.emplace(row, MakeVisual(column_.Rows()[row])).first->second;
}

MenuPane::Visual MenuPane::MakeVisual(const Row& row)
{
    Visual visual{ShownItem(lines_[row.entry], defaultFont_), nullptr, nullptr};
    const MenuItem& item = visual.item;
    if (row.kind == RowKind::label) {
        visual.label = std::make_unique<KelLabel>(measure_, codePage_, item.caption, item.font,
                                                  item.fontColor, column_.LabelWidth());
    } else if (row.kind == RowKind::link) {
        visual.link = std::make_unique<KelItem>(measure_, codePage_);
        visual.link->SetFont(item.font);
        visual.link->SetFontColor(item.fontColor);
        visual.link->Command = item.link;
        visual.link->SetCaption(item.caption);
        const Picture* picture = pictures_.Known(item.link);
        if (picture == nullptr) {
            visual.link->SetBImage({}); // keeps the place until the shell has been asked
        } else if (picture->source != Picture::Source::none) {
            visual.link->SetBImage(*picture);
        }
    }
    return visual;
}

bool MenuPane::FindNextPicture(WindowHandle owner)
{
    if (findingPicture_) {
        return false; // the shell let events through while it was asked: that call goes on
    }
    const RowRange range = RowsBetween(0, view_.height);
    for (std::uint32_t row = range.first; row < range.end; ++row) {
        const MenuItem& item = VisualOf(row).item;
        if (item.type != ItemType::vLink || pictures_.Known(item.link) != nullptr) {
            continue;
        }
        const std::string command = item.link;
        const std::uint32_t generation = generation_;
        {
            const Mark finding(findingPicture_);
            pictures_.Find(owner, command);
        }
        if (generation == generation_) {
            std::erase_if(visuals_, [&command](const auto& entry) {
                return entry.second.item.link == command; // of more than one link, perhaps
            });
            RedrawAll();
        }
        return true;
    }
    return false;
}

void MenuPane::RedrawRow(std::optional<std::uint32_t> row)
{
    if (row) {
        host_.Redraw(AreaOf(*row));
    }
}

void MenuPane::RedrawAll()
{
    host_.Redraw({0, 0, view_.width + kBesidePanel, view_.height});
}

} // namespace nv
