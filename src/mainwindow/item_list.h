#pragma once

#include "win32/accessible.h"

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace nv
{

// The editor's item list List3 as a list box of the platform that holds no texts: it asks for those
// that it shows. Entries can be dragged within it. The list tells screen readers itself what it
// shows: the platform has no texts to tell.
class ItemList final : private AccessibleSource
{
public:
    ItemList() = default;
    ItemList(const ItemList&) = delete;
    ItemList& operator=(const ItemList&) = delete;
    ~ItemList();

    // Creates the list in panel, which hands on what it is told by Notify and Draw.
    bool Create(HWND panel, int id);
    HWND Handle() const { return list_; }

    // The text of an item.
    std::function<std::string(std::size_t)> Text;
    // The item at from is to stand before the one that is at gap now.
    std::function<void(std::size_t from, std::size_t gap)> Dropped;

    // Sets the number of items; the part in view stays where it is.
    void SetCount(std::size_t count);
    void Select(std::optional<std::size_t> index);
    std::optional<std::size_t> Selected() const;
    // Draws the items first to last (included) again.
    void Redraw(std::size_t first, std::size_t last);
    // Takes over the height of the list's font.
    void FitFont();
    // The gap between items (0: above the first) that a point of the screen is nearest to; nothing
    // outside the list.
    std::optional<std::size_t> GapAt(POINT screen) const;

    // WM_DRAWITEM of the list.
    void Draw(const DRAWITEMSTRUCT& item) const;
    // The message that the platform sends to the panel while an item is dragged; its result.
    LRESULT OnDrag(const DRAGLISTINFO& info);
    // Its number.
    static UINT DragMessage();

private:
    std::size_t Count() const;
    void Mark(std::optional<std::size_t> gap);
    void Choose(std::size_t item);
    std::string ShownText(std::size_t index) const;
    static LRESULT CALLBACK Procedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR, DWORD_PTR self);

    // Part k is item k - 1.
    LONG ChildCount() const override { return static_cast<LONG>(Count()); }
    LONG Role(LONG part) const override;
    LONG State(LONG part) const override;
    std::string Name(LONG part) const override;
    RECT Area(LONG part) override { return AreaOf(part); }
    LONG ChildAt(POINT at) override;
    std::optional<LONG> FocusedChild() const override;
    std::optional<LONG> SelectedChild() const override;
    std::string DefaultAction(LONG part) const override;
    void DoDefaultAction(LONG part) override;
    bool FocusChild(LONG part) override;
    RECT AreaOf(LONG part) const;

    AccessibleHost accessible_;
    HWND list_ = nullptr; // owned by the panel
    std::optional<std::size_t> dragged_;
    std::optional<std::size_t> mark_; // the gap that shows where the dragged item would go
};

} // namespace nv
