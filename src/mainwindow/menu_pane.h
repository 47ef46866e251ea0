#pragma once

#include "controls/kel_item.h"
#include "controls/kel_label.h"
#include "mainwindow/link_pictures.h"
#include "mainwindow/menu_column.h"
#include "mainwindow/scrolling.h"
#include "platform/event_pump.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace nv
{

// What the view panel asks of the window that hosts it.
class PaneHost
{
public:
    virtual ~PaneHost() = default;
    // Part of the viewport is to be painted again.
    virtual void Redraw(const TwipRect& area) = 0;
    // Rows were added, or the scroll bar changed; called very often while a menu loads.
    virtual void ColumnChanged() = 0;
    // Gives the panel the keyboard.
    virtual void TakeFocus() = 0;
    // Titles want Tick() every kTypingInterval milliseconds, or no more.
    virtual void SetTicking(bool ticking) = 0;
    // Links in view want FindNextPicture() when the user leaves time for it.
    virtual void PicturesWanted() = 0;
    // Other rows stand in the column than before.
    virtual void ColumnReplaced() = 0;
    // The keyboard's place is another link than before.
    virtual void FocusMoved() = 0;
    // The mouse is over another link, or over none.
    virtual void HoverChanged() = 0;
    // A link was clicked: the index of its entry. May re-enter.
    virtual void EntryClicked(std::uint32_t entry) = 0;
};

enum class PaneKey { up, down, pageUp, pageDown, home, end, press, nextLink, previousLink };

// The view panel P2 with the content panel P1 in it: builds the column of the open menu, scrolls
// it, paints what is in view, and turns mouse and keys into clicks. Points and areas are twips in
// the viewport. Nothing here is a window.
class MenuPane
{
public:
    // All references must outlive the pane. lines, defaultFont: the document's.
    MenuPane(PaneHost& host, TextMeasure& measure, LinkPictures& pictures, const CodePage& codePage,
             const MenuLines& lines, const Font& defaultFont);

    // Removes all entries; P1 takes the column position as its height.
    void FClear();
    // Builds the column from the document's lines, letting events through after each. May re-enter.
    // False when the pump ended it.
    bool LoadFields(EventPump& pump);
    // Inner size of P2, the scroll bar's width left out.
    void SetViewSize(TwipSize size);
    TwipSize ViewSize() const { return view_; }
    // What stands in an empty view; not for menus with entries.
    void SetEmptyText(std::string text);
    // Recomputes the scroll bar and applies the scroll position.
    void SC();

    const MenuColumn& Column() const { return column_; }
    const Scrolling& Scroll() const { return scrolling_; }

    void Paint(Canvas& canvas, const TwipRect& clip);
    // One tick of the titles' typing.
    void Tick();
    // Looks up the picture of one link in view; false when all are there.
    bool FindNextPicture(WindowHandle owner);

    // The scroll bar's value was changed by that much.
    void ScrollBy(std::int64_t change);
    // ... by the wheel or a key: finer than the bar's own steps. down: twips.
    void ScrollTwips(Twips down);
    // The thumb is at value, still held; then it was let go.
    void Drag(int value);
    void EndDrag();

    void MouseMove(TwipPoint at);
    void MouseLeave();
    void MouseDown(TwipPoint at);
    // May re-enter.
    void MouseUp(TwipPoint at);
    // True when the key did something here. May re-enter.
    bool Key(PaneKey key);
    // The panel got or lost the keyboard.
    void SetHasFocus(bool hasFocus);
    // Puts the keyboard's place on the first or the last link.
    void FocusFirstLink();
    void FocusLastLink();
    // Index in Column().Links() of the link with the keyboard's place.
    std::optional<std::size_t> FocusedLink() const { return focusedLink_; }

    // For who asks for single rows, a screen reader: all of it is derived when it is asked for.
    // What a row says, on one line: its caption, also while it is being typed out; for a link
    // without text its command.
    std::string NameOf(std::uint32_t row) const;
    // The font that it is drawn in.
    Font FontOf(std::uint32_t row) const { return ItemOf(row).font; }
    // The command of a link; empty for other rows.
    std::string CommandOf(std::uint32_t row) const;
    bool InView(std::uint32_t row) const;
    std::optional<std::uint32_t> FocusedRow() const;
    // Puts the keyboard's place on a link; false when the row is none.
    bool FocusRow(std::uint32_t row);
    // As a click on a link. generation: of the column that the row was taken from; a row of one
    // that is gone does nothing. May re-enter.
    void ClickRow(std::uint32_t row, std::uint32_t generation);
    // Counts the columns.
    std::uint32_t Generation() const { return generation_; }
    // The row at a point of the viewport.
    std::optional<std::uint32_t> RowAt(TwipPoint at);

    // The row of the link at a point of the viewport.
    std::optional<std::uint32_t> LinkAt(TwipPoint at);
    // The link under the mouse: its area in the viewport, and its tooltip (the command).
    std::optional<TwipRect> HoveredArea() const { return hoveredArea_; }
    std::string HoveredTip();
    // Where a row stands in the viewport.
    TwipRect AreaOf(std::uint32_t row);

private:
    // What one row in view shows; built when it is first painted.
    struct Visual {
        MenuItem item;
        std::unique_ptr<KelItem> link;
        std::unique_ptr<KelLabel> label;
    };

    struct RowRange {
        std::uint32_t first;
        std::uint32_t end;
    };

    // Valid until the next call.
    Visual& VisualOf(std::uint32_t row);
    Visual MakeVisual(const Row& row);
    void PaintRow(Canvas& canvas, std::uint32_t row, const TwipRect& clip);
    void RedrawRow(std::optional<std::uint32_t> row);
    void RedrawAll();
    void StartTyping(const MenuItem& item);
    // The rows that touch a part of the viewport.
    RowRange RowsBetween(Twips top, Twips bottom) const;

    void FollowMouse();
    void MoveTo(std::int64_t value);
    void ValueChanged();
    void FocusLink(std::size_t link);
    void SetFocusedLink(std::optional<std::size_t> link);
    MenuItem ItemOf(std::uint32_t row) const;
    void StepLink(bool down);
    void PageLink(bool down);
    std::optional<std::size_t> LinkAPageFrom(std::size_t link, bool down) const;
    bool TabLink(bool down);
    Twips YOf(const Row& row) const;

    // More than the scroll bar's place, which titles reach into when the bar is hidden.
    static constexpr Twips kBesidePanel = 2000;

    PaneHost& host_;
    TextMeasure& measure_;
    LinkPictures& pictures_;
    CodePage codePage_;
    const MenuLines& lines_;
    const Font& defaultFont_;
    MenuColumn column_;
    Scrolling scrolling_;
    TwipSize view_;
    std::string emptyText_;
    std::unordered_map<std::uint32_t, Visual> visuals_;
    std::uint32_t tick_ = 0;
    std::uint32_t typingUntil_ = 0;  // the tick at which the last title stands whole
    std::uint32_t generation_ = 0;   // rows of an older one are gone
    std::optional<TwipPoint> mouse_; // while it is over the panel
    std::optional<std::uint32_t> hovered_;
    std::optional<TwipRect> hoveredArea_; // of the hovered link
    std::optional<std::uint32_t> pressed_;
    std::optional<std::size_t> focusedLink_;
    bool hasFocus_ = false;
    bool ticking_ = false;
    bool dragged_ = false;
    bool scrolledBack_ = false; // the clearing of the column moved the bar
    bool findingPicture_ = false;
};

} // namespace nv
