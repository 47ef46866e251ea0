#include "mainwindow/menu_pane.h"

#include "controls/kel_pic.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace nv
{

MenuPane::MenuPane(PaneHost& host, TextMeasure& measure, LinkPictures& pictures,
                   const CodePage& codePage, const MenuLines& lines, const Font& defaultFont)
    : host_(host), measure_(measure), pictures_(pictures), codePage_(codePage), lines_(lines),
      defaultFont_(defaultFont), column_(measure, codePage)
{
}

void MenuPane::FClear()
{
    column_.FClear();
    visuals_.clear();
    hovered_.reset();
    pressed_.reset();
    focusedLink_.reset();
    typingUntil_ = tick_;
    ++generation_;
    scrolledBack_ = scrolling_.SetValue(0) || scrolledBack_;
    SC();
    FollowMouse();
    RedrawAll();
    host_.ColumnReplaced();
}

bool MenuPane::LoadFields(EventPump& pump)
{
    FClear();
    pictures_.Clear();
    for (std::size_t index = 0; index < lines_.size(); ++index) {
        const MenuItem item = ShownItem(lines_[index], defaultFont_);
        column_.Add(static_cast<std::uint32_t>(index), item, tick_);
        StartTyping(item);
        SC();
        if (!pump.LetEventsThrough()) {
            return false;
        }
    }
    if (!focusedLink_ && !column_.Links().empty()) {
        SetFocusedLink(0);
    }
    const bool moved = std::exchange(scrolledBack_, false);
    if (scrolling_.SetValue(0) || moved) {
        ValueChanged();
    }
    SC();
    RedrawAll();
    FollowMouse();
    host_.ColumnReplaced();
    return true;
}

void MenuPane::StartTyping(const MenuItem& item)
{
    if (item.type != ItemType::vTitle) {
        return;
    }
    typingUntil_ = std::max(typingUntil_, tick_ + KelPic::TicksFor(item.caption, codePage_));
    if (!std::exchange(ticking_, true)) {
        host_.SetTicking(true);
    }
}

void MenuPane::Tick()
{
    ++tick_;
    const RowRange range = RowsBetween(0, view_.height);
    for (std::uint32_t row = range.first; row < range.end; ++row) {
        const Row& title = column_.Rows()[row];
        if (title.kind == RowKind::title &&
            tick_ - title.bornTick <= KelPic::TicksFor(VisualOf(row).item.caption, codePage_)) {
            RedrawRow(row);
        }
    }
    if (tick_ >= typingUntil_ && std::exchange(ticking_, false)) {
        host_.SetTicking(false);
    }
}

void MenuPane::SetViewSize(TwipSize size)
{
    view_ = size;
    if (column_.Width() != size.width) {
        column_.SetWidth(size.width);
        visuals_.clear();
        if (column_.HasLabels()) {
            column_.Rewrap(lines_, defaultFont_);
        }
    }
    SC();
    RedrawAll();
    FollowMouse();
}

void MenuPane::SetEmptyText(std::string text)
{
    emptyText_ = std::move(text);
    RedrawAll();
}

void MenuPane::SC()
{
    scrolling_.SC(view_.height, column_.Height());
    host_.ColumnChanged();
}

// Scrolling

void MenuPane::ScrollBy(std::int64_t change)
{
    MoveTo(scrolling_.Value() + change);
}

void MenuPane::ScrollTwips(Twips down)
{
    const auto steps = std::llrint(double{down} / static_cast<double>(scrolling_.Steps()));
    ScrollBy(steps != 0 ? steps : (down < 0 ? -1 : 1));
}

void MenuPane::Drag(int value)
{
    if (scrolling_.SetValue(value)) {
        dragged_ = true;
        SC();
        RedrawAll();
        FollowMouse();
    }
}

void MenuPane::EndDrag()
{
    if (std::exchange(dragged_, false)) {
        ValueChanged();
    }
}

void MenuPane::MoveTo(std::int64_t value)
{
    if (scrolling_.SetValue(value)) {
        ValueChanged();
    }
}

void MenuPane::ValueChanged()
{
    SC();
    RedrawAll();
    FollowMouse();
    if (column_.Links().size() >= 2) {
        SetFocusedLink(0);
        host_.TakeFocus();
    }
}

// Mouse

std::optional<std::uint32_t> MenuPane::RowAt(TwipPoint at)
{
    const Twips y = static_cast<Twips>(double{at.y} - static_cast<double>(scrolling_.Top()));
    const auto row = static_cast<std::uint32_t>(column_.FirstRowBelow(y));
    return row < column_.Rows().size() && AreaOf(row).Contains(at) ? std::optional(row)
                                                                   : std::nullopt;
}

std::optional<std::uint32_t> MenuPane::LinkAt(TwipPoint at)
{
    const auto row = RowAt(at);
    return row && column_.Rows()[*row].kind == RowKind::link ? row : std::nullopt;
}

void MenuPane::MouseMove(TwipPoint at)
{
    mouse_ = at;
    FollowMouse();
}

// Another link may be under the mouse because it moved, or because the column did.
void MenuPane::FollowMouse()
{
    const auto row = mouse_ ? LinkAt(*mouse_) : std::nullopt;
    const auto area = row ? std::optional(AreaOf(*row)) : std::nullopt;
    if (row != hovered_) {
        RedrawRow(std::exchange(hovered_, row));
        RedrawRow(row);
    }
    if (std::exchange(hoveredArea_, area) != area) {
        host_.HoverChanged();
    }
}

void MenuPane::MouseLeave()
{
    mouse_.reset();
    RedrawRow(std::exchange(pressed_, std::nullopt));
    FollowMouse();
}

void MenuPane::MouseDown(TwipPoint at)
{
    MouseMove(at);
    host_.TakeFocus();
    pressed_ = hovered_;
    if (pressed_) {
        const auto& links = column_.Links();
        const auto link = std::lower_bound(links.begin(), links.end(), *pressed_);
        SetFocusedLink(static_cast<std::size_t>(link - links.begin()));
        RedrawRow(pressed_);
    }
}

void MenuPane::MouseUp(TwipPoint at)
{
    MouseMove(at);
    RedrawRow(std::exchange(pressed_, std::nullopt));
    // A release is a click, wherever the button was pressed.
    if (hovered_) {
        host_.EntryClicked(column_.Rows()[*hovered_].entry);
    }
}

std::string MenuPane::HoveredTip()
{
    return hovered_ ? VisualOf(*hovered_).link->L1().ToolT() : std::string();
}

// Keyboard

void MenuPane::SetHasFocus(bool hasFocus)
{
    hasFocus_ = hasFocus;
    if (focusedLink_) {
        RedrawRow(column_.Links()[*focusedLink_]);
    } else {
        RedrawAll();
    }
}

void MenuPane::SetFocusedLink(std::optional<std::size_t> link)
{
    const auto old = std::exchange(focusedLink_, link);
    for (const auto& changed : {old, link}) {
        if (changed) {
            RedrawRow(column_.Links()[*changed]);
        }
    }
    if (old != link) {
        host_.FocusMoved();
    }
}

void MenuPane::FocusFirstLink()
{
    if (!column_.Links().empty()) {
        FocusLink(0);
    }
}

void MenuPane::FocusLastLink()
{
    if (!column_.Links().empty()) {
        FocusLink(column_.Links().size() - 1);
    }
}

void MenuPane::FocusLink(std::size_t link)
{
    const auto& links = column_.Links();
    const Row& row = column_.Rows()[links[link]];
    // The first link brings what stands above it into view, the last one what stands below.
    const Twips top = link == 0 ? 0 : row.top - 50;
    const Twips bottom = link + 1 == links.size() ? column_.Height() : row.top + row.height + 50;
    const bool high = bottom - top > view_.height;
    MoveTo(scrolling_.ValueShowing(high ? row.top - 50 : top,
                                   high ? row.top + row.height + 50 : bottom, view_.height));
    // Scrolling has moved the focus; the link that the keyboard went to keeps it.
    SetFocusedLink(link);
}

bool MenuPane::Key(PaneKey key)
{
    const bool hasLinks = !column_.Links().empty();
    switch (key) {
    case PaneKey::up:
    case PaneKey::down:
        StepLink(key == PaneKey::down);
        return true;
    case PaneKey::pageUp:
    case PaneKey::pageDown:
        PageLink(key == PaneKey::pageDown);
        return true;
    case PaneKey::home:
        FocusFirstLink();
        if (!hasLinks) {
            MoveTo(0);
        }
        return true;
    case PaneKey::end:
        FocusLastLink();
        if (!hasLinks) {
            MoveTo(scrolling_.Maximum());
        }
        return true;
    case PaneKey::press:
        if (focusedLink_) {
            host_.EntryClicked(column_.Rows()[column_.Links()[*focusedLink_]].entry);
        }
        return true;
    case PaneKey::nextLink:
    case PaneKey::previousLink:
        return TabLink(key == PaneKey::nextLink);
    }
    return false;
}

bool MenuPane::TabLink(bool down)
{
    const std::size_t last = column_.Links().size() - 1; // not used when there is none
    if (!focusedLink_ || column_.Links().empty() || *focusedLink_ == (down ? last : 0)) {
        return false;
    }
    FocusLink(down ? *focusedLink_ + 1 : *focusedLink_ - 1);
    return true;
}

void MenuPane::StepLink(bool down)
{
    constexpr Twips kStep = 600;
    const auto& links = column_.Links();
    if (focusedLink_ && !InView(links[*focusedLink_])) {
        // The wheel left the focus behind: go on from what the user sees.
        const auto seen = std::partition_point(links.begin(), links.end(), [&](std::uint32_t row) {
            return YOf(column_.Rows()[row]) < (down ? 0 : view_.height);
        });
        if (down ? seen != links.end() : seen != links.begin()) {
            const auto link = static_cast<std::size_t>(seen - links.begin()) - (down ? 0 : 1);
            if (InView(links[link])) {
                FocusLink(link);
                return;
            }
        }
    }
    const auto kept = focusedLink_;
    if (!TabLink(down)) {
        ScrollTwips(down ? kStep : -kStep);
        SetFocusedLink(kept);
    }
}

void MenuPane::PageLink(bool down)
{
    const auto from = focusedLink_;
    const auto target = from ? LinkAPageFrom(*from, down) : std::nullopt;
    if (target) {
        FocusLink(*target);
        return;
    }
    // No link within a page: text is read by pages, and the focus stays where it was.
    ScrollTwips(down ? view_.height : -view_.height);
    SetFocusedLink(from);
}

std::optional<std::size_t> MenuPane::LinkAPageFrom(std::size_t link, bool down) const
{
    const auto& links = column_.Links();
    const auto topOf = [this, &links](std::size_t index) {
        return column_.Rows()[links[index]].top;
    };
    const Row& row = column_.Rows()[links[link]];
    const Twips limit =
        down ? row.top + view_.height - row.height : row.top - view_.height + row.height;
    const auto beyond = std::partition_point(links.begin(), links.end(), [&](std::uint32_t other) {
        return down ? column_.Rows()[other].top <= limit : column_.Rows()[other].top < limit;
    });
    auto target = static_cast<std::size_t>(beyond - links.begin());
    if (down) {
        target = target > 0 ? target - 1 : 0; // the last one within the page
    }
    if (target < links.size() && (down ? topOf(target) > row.top : topOf(target) < row.top)) {
        return target;
    }
    return std::nullopt;
}

bool MenuPane::InView(std::uint32_t row) const
{
    const Row& candidate = column_.Rows()[row];
    const Twips y = YOf(candidate);
    return y + candidate.height > 0 && y < view_.height;
}

Twips MenuPane::YOf(const Row& row) const
{
    return static_cast<Twips>(double{row.top} + static_cast<double>(scrolling_.Top()));
}

TwipRect MenuPane::AreaOf(std::uint32_t row)
{
    const Row& wanted = column_.Rows()[row];
    const Twips left = MenuColumn::Left(wanted.kind);
    Twips width = column_.Width() + kBesidePanel;
    if (wanted.kind == RowKind::link) {
        width = VisualOf(row).link->Size().width;
    }
    return {left, YOf(wanted), width, wanted.height};
}

} // namespace nv
