#pragma once

#include "platform/canvas.h"
#include "win32/gdi_text.h"
#include "win32/pictures.h"

namespace nv
{

// Draws on a device context. The origin is that of the context, so a part of a window is painted by
// moving the context's own origin.
class GdiCanvas final : public Canvas
{
public:
    // All must outlive the canvas.
    GdiCanvas(HDC dc, GdiText& text, Pictures& pictures);

    void Fill(const TwipRect& area, Color color) override;
    void Text(TwipPoint at, const Font& font, Color color, std::string_view text) override;
    void DrawPicture(const TwipRect& area, const Picture& picture, bool disabled) override;
    void HorizontalLine(TwipPoint from, Twips width, int below, Color color) override;
    void Frame(const TwipRect& area, Color leftTop, Color rightBottom) override;
    void FocusFrame(const TwipRect& area) override;

private:
    void FillPixels(const RECT& area, Color color);

    HDC dc_;
    GdiText& text_;
    Pictures& pictures_;
    ScreenScale scale_;
};

// The platform's colour of a Color.
COLORREF ColorRef(Color color);

} // namespace nv
