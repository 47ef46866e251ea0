#include "win32/painted_window.h"

#include "win32/gdi_canvas.h"
#include "win32/screen.h"

namespace nv
{

namespace
{

// The invalid part of a window, painted on a bitmap that is then copied.
class BufferedPaint
{
public:
    explicit BufferedPaint(HWND window) : paint_(window)
    {
        if (Width() > 0 && Height() > 0) {
            memory_.Reset(CreateCompatibleDC(paint_.Get()));
            bitmap_.Reset(CreateCompatibleBitmap(paint_.Get(), Width(), Height()));
            oldBitmap_ = SelectObject(memory_.Get(), bitmap_.Get());
            SetViewportOrgEx(memory_.Get(), -Part().left, -Part().top, nullptr);
        }
    }
    ~BufferedPaint()
    {
        if (memory_) {
            BitBlt(paint_.Get(), Part().left, Part().top, Width(), Height(), memory_.Get(),
                   Part().left, Part().top, SRCCOPY);
            SelectObject(memory_.Get(), oldBitmap_);
        }
    }
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;

    // Null when there is nothing to paint.
    HDC Dc() const { return memory_.Get(); }
    const RECT& Part() const { return paint_.Part(); }

private:
    int Width() const { return Part().right - Part().left; }
    int Height() const { return Part().bottom - Part().top; }

    PaintDc paint_;
    BitmapHandle bitmap_; // outlives the context that it is selected into
    MemoryDc memory_;
    HGDIOBJ oldBitmap_ = nullptr;
};

} // namespace

std::optional<LRESULT> PaintedWindow::Route(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT: {
        const BufferedPaint paint(Handle());
        if (paint.Dc() != nullptr) {
            GdiCanvas canvas(paint.Dc(), text_, pictures_);
            Paint(canvas, ToTwips(paint.Part(), text_.Scale()));
        }
        return 0;
    }
    case WM_NCPAINT:
        // Wine would get ready to paint first, and then see that there is nothing.
        return HasFrame() ? std::nullopt : std::optional<LRESULT>(0);
    case WM_ERASEBKGND:
        return 1;
    case WM_GETFONT:
        return OnGetFont();
    case WM_SETFONT:
        OnSetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0);
        return 0;
    case WM_GETOBJECT:
        return OnGetObject(wParam, lParam);
    case WM_DESTROY:
        accessible_.Disconnect();
        return RouteInput(message, wParam, lParam);
    default:
        return RouteInput(message, wParam, lParam);
    }
}

// Whether the window has a border or a scroll bar.
bool PaintedWindow::HasFrame() const
{
    RECT outer = {};
    RECT inner = {};
    GetWindowRect(Handle(), &outer);
    GetClientRect(Handle(), &inner);
    return outer.right - outer.left != inner.right || outer.bottom - outer.top != inner.bottom;
}

std::optional<LRESULT> PaintedWindow::OnGetObject(WPARAM wParam, LPARAM lParam)
{
    AccessibleSource* source = Accessibility();
    return source != nullptr ? accessible_.OnGetObject(Handle(), *source, wParam, lParam)
                             : std::nullopt;
}

LRESULT PaintedWindow::OnGetFont()
{
    const Font* font = ShownFont();
    return font != nullptr ? reinterpret_cast<LRESULT>(text_.Handle(*font)) : 0;
}

void PaintedWindow::OnSetFont(HFONT font, bool redraw)
{
    const auto systemFont = static_cast<HFONT>(GetStockObject(SYSTEM_FONT));
    if (const auto record = RecordOf(font != nullptr ? font : systemFont)) {
        SetShownFont(FontOf(*record, text_.Scale()));
    }
    if (redraw) {
        InvalidateRect(Handle(), nullptr, FALSE);
    }
}

std::optional<LRESULT> PaintedWindow::RouteInput(UINT, WPARAM, LPARAM)
{
    return std::nullopt;
}

} // namespace nv
