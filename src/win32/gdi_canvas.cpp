#include "win32/gdi_canvas.h"

#include "win32/screen.h"

#include <algorithm>

namespace nv
{

COLORREF ColorRef(Color color)
{
    const auto bits = static_cast<std::uint32_t>(color);
    return (bits & 0x80000000u) != 0 ? GetSysColor(static_cast<int>(bits & 0xFF)) : bits & 0xFFFFFF;
}

GdiCanvas::GdiCanvas(HDC dc, GdiText& text, Pictures& pictures)
    : dc_(dc), text_(text), pictures_(pictures), scale_(text.Scale())
{
    SetBkMode(dc, TRANSPARENT);
}

void GdiCanvas::FillPixels(const RECT& area, Color color)
{
    SetDCBrushColor(dc_, ColorRef(color));
    FillRect(dc_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void GdiCanvas::Fill(const TwipRect& area, Color color)
{
    FillPixels(ToPixels(area, scale_), color);
}

void GdiCanvas::Text(TwipPoint at, const Font& font, Color color, std::string_view text)
{
    constexpr std::size_t kWithoutLook = 512;
    const int x = scale_.PixelsX(at.x);
    if (text.size() > kWithoutLook) {
        // Of a very long line only what can be seen is drawn, and one character more. Wine draws
        // some letters narrower than it measures them.
        constexpr double kReserve = 1.25;
        RECT clip = {};
        GetClipBox(dc_, &clip);
        const double room = std::max<int>(clip.right - x, 0) * kReserve;
        const auto fits = text_.Fit(font, text, scale_.TwipsX(room));
        text = text.substr(0, fits + text_.Page().FirstCharacters(text.substr(fits), 1).size());
    }
    const HGDIOBJ oldFont = SelectObject(dc_, text_.Handle(font));
    SetTextColor(dc_, ColorRef(color));
    const int y = scale_.PixelsY(at.y);
    if (const auto wide = text_.Wide(text)) {
        TextOutW(dc_, x, y, wide->data(), static_cast<int>(wide->size()));
    } else {
        TextOutA(dc_, x, y, text.data(), static_cast<int>(text.size()));
    }
    SelectObject(dc_, oldFont);
}

void GdiCanvas::DrawPicture(const TwipRect& area, const Picture& picture, bool disabled)
{
    const RECT pixels = ToPixels(area, scale_);
    pictures_.Draw(dc_, {pixels.left, pixels.top}, picture, disabled);
}

void GdiCanvas::HorizontalLine(TwipPoint from, Twips width, int below, Color color)
{
    const int y = scale_.PixelsY(from.y) + below;
    FillPixels({scale_.PixelsX(from.x), y, scale_.PixelsX(double{from.x} + double{width}), y + 1},
               color);
}

void GdiCanvas::Frame(const TwipRect& area, Color leftTop, Color rightBottom)
{
    const RECT r = ToPixels(area, scale_);
    FillPixels({r.left, r.top, r.right, r.top + 1}, leftTop);
    FillPixels({r.left, r.top, r.left + 1, r.bottom}, leftTop);
    FillPixels({r.left, r.bottom - 1, r.right, r.bottom}, rightBottom);
    FillPixels({r.right - 1, r.top, r.right, r.bottom}, rightBottom);
}

void GdiCanvas::FocusFrame(const TwipRect& area)
{
    RECT pixels = ToPixels(area, scale_);
    InflateRect(&pixels, -2, -2);
    SetTextColor(dc_, GetSysColor(COLOR_BTNTEXT));
    SetBkColor(dc_, GetSysColor(COLOR_BTNFACE));
    DrawFocusRect(dc_, &pixels);
}

} // namespace nv
