#pragma once

#include "mainwindow/menu_pane.h"
#include "win32/painted_window.h"

#include <windows.h>

#include <shellapi.h>

#include <functional>

namespace nv
{

// The view panel P2 as a window: one window that paints the rows in view, with the scroll bar VS1
// beside them.
class MenuView final : public PaintedWindow, private PaneHost, private AccessibleSource
{
public:
    // All must outlive the view. lines, defaultFont: the document's.
    MenuView(GdiText& text, Pictures& pictures, LinkPictures& links, const CodePage& codePage,
             const MenuLines& lines, const Font& defaultFont);

    bool Create(HWND parent);
    MenuPane& Pane() { return pane_; }
    // The name of the open menu, for screen readers; empty: none is open.
    void SetMenuName(std::string name);
    // What stands in the empty view.
    void SetEmptyText(const std::string& text);
    // Raised with the index of a clicked link's entry. May re-enter.
    std::function<void(std::uint32_t)> EntryClick;
    // Raised with the path of a file that was dropped on the view, the first of several. Whether
    // any can be dropped is the owner's to say, by DragAcceptFiles. May re-enter.
    std::function<void(const std::string&)> FileDropped;

protected:
    std::optional<LRESULT> RouteInput(UINT message, WPARAM wParam, LPARAM lParam) override;
    void Paint(Canvas& canvas, const TwipRect& clip) override;
    AccessibleSource* Accessibility() override { return this; }

private:
    std::optional<LRESULT> RouteMouse(UINT message, WPARAM wParam, LPARAM lParam);
    void OnSize();
    void OnScroll(WORD request);
    void OnWheel(short delta);
    void OnTimer(UINT_PTR timer);
    void TrackMouse();
    bool OnKey(WPARAM key, bool repeated);
    void OnTab();
    void OnSetFocus();
    LRESULT OnNotify(LPARAM lParam);
    void OnDropFiles(HDROP drop);
    void Synchronize();
    void SynchronizeSoon();
    void ShowScroll();
    void TellChanges();
    void CreateTip();
    int BarWidth() const;

    void Redraw(const TwipRect& area) override;
    void ColumnChanged() override;
    void TakeFocus() override;
    void SetTicking(bool ticking) override;
    void PicturesWanted() override;
    void ColumnReplaced() override;
    void FocusMoved() override;
    void HoverChanged() override;
    void EntryClicked(std::uint32_t entry) override;

    // Part k is row k - 1 of the column.
    LONG ChildCount() const override;
    LONG Role(LONG part) const override;
    LONG State(LONG part) const override;
    std::string Name(LONG part) const override;
    UINT PageOfName(LONG part, const std::string& name) const override;
    std::string Description(LONG part) const override;
    RECT Area(LONG part) override;
    LONG ChildAt(POINT at) override;
    std::optional<LONG> FocusedChild() const override;
    std::string DefaultAction(LONG part) const override;
    void DoDefaultAction(LONG part) override;
    bool FocusChild(LONG part) override;

    // Messages to itself.
    static constexpr UINT kSynchronize = WM_APP + 1;
    static constexpr UINT kOpenRow = WM_APP + 2; // wParam: the row, lParam: its column's generation

    MenuPane pane_;
    Scrolling shownScroll_; // what the scroll bar was last told
    Twips shownHeight_ = 0; // of the column when the window was last brought up to date
    HWND tip_ = nullptr;    // owned by the window
    std::string tipText_;   // what the tooltip was last given
    std::string menuName_;
    std::string emptyText_;
    int wheelRest_ = 0;          // turns of the wheel that did not make a step yet
    bool tracking_ = false;      // the mouse is over the window
    bool synchronizing_ = false; // a message to bring the window up to date is under way
    bool replaced_ = false;      // the column is another than screen readers were last told
    bool focusMoved_ = false;    // and so the link with the keyboard
};

} // namespace nv
