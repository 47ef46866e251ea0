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

// Paints a window's invalid part without flicker: paint draws on a bitmap, which is then copied.
// clip: the invalid part, in twips of the window.
template <class Paint>
void PaintBuffered(HWND window, GdiText& text, Pictures& pictures, Paint paint);

} // namespace nv

#include "win32/screen.h"

template <class Paint>
void nv::PaintBuffered(HWND window, GdiText& text, Pictures& pictures, Paint paint)
{
    PAINTSTRUCT ps = {};
    const HDC target = BeginPaint(window, &ps);
    const RECT& part = ps.rcPaint;
    const int width = part.right - part.left;
    const int height = part.bottom - part.top;
    if (width > 0 && height > 0) {
        const MemoryDc memory(CreateCompatibleDC(target));
        const BitmapHandle bitmap(CreateCompatibleBitmap(target, width, height));
        const HGDIOBJ oldBitmap = SelectObject(memory.Get(), bitmap.Get());
        SetViewportOrgEx(memory.Get(), -part.left, -part.top, nullptr);
        GdiCanvas canvas(memory.Get(), text, pictures);
        paint(canvas, ToTwips(part, text.Scale()));
        BitBlt(target, part.left, part.top, width, height, memory.Get(), part.left, part.top,
               SRCCOPY);
        SelectObject(memory.Get(), oldBitmap);
    }
    EndPaint(window, &ps);
}
