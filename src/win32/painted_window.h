#pragma once

#include "win32/accessible.h"
#include "win32/gdi_text.h"
#include "win32/pictures.h"
#include "win32/window.h"

namespace nv
{

// A window that paints all of itself, without flicker, on a Canvas.
class PaintedWindow : public Window
{
public:
    // Both must outlive the window.
    PaintedWindow(GdiText& text, Pictures& pictures) : text_(text), pictures_(pictures) {}

protected:
    std::optional<LRESULT> Route(UINT message, WPARAM wParam, LPARAM lParam) final;
    // As Route of a window, for all but painting.
    virtual std::optional<LRESULT> RouteInput(UINT message, WPARAM wParam, LPARAM lParam);
    // The font that WM_GETFONT tells; null: the window has none, and WM_SETFONT does nothing.
    virtual const Font* ShownFont() const { return nullptr; }
    // Takes over a font that WM_SETFONT brought. The platform's font stays the sender's.
    virtual void SetShownFont(const Font&) {}
    // What the window tells screen readers; null: the platform tells what it sees.
    virtual AccessibleSource* Accessibility() { return nullptr; }
    // Draws the part clip (twips) of the window, every point of it.
    virtual void Paint(Canvas& canvas, const TwipRect& clip) = 0;

    GdiText& text_;
    Pictures& pictures_;

private:
    bool HasFrame() const;
    LRESULT OnGetFont();
    void OnSetFont(HFONT font, bool redraw);
    std::optional<LRESULT> OnGetObject(WPARAM wParam, LPARAM lParam);

    AccessibleHost accessible_;
};

} // namespace nv
