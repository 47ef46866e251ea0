#pragma once

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
    // Draws the part clip (twips) of the window, every point of it.
    virtual void Paint(Canvas& canvas, const TwipRect& clip) = 0;

    GdiText& text_;
    Pictures& pictures_;
};

} // namespace nv
