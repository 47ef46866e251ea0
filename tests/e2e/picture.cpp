#include "e2e/picture.h"

#include <algorithm>

namespace nv::e2e
{

std::vector<DWORD> PixelsOf(HDC from, const RECT& area)
{
    if (IsRectEmpty(&area)) {
        return {};
    }
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // the top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const HDC dc = CreateCompatibleDC(from);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ old = SelectObject(dc, bitmap);
    BitBlt(dc, 0, 0, width, height, from, area.left, area.top, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const DWORD*>(bits);
    std::vector<DWORD> pixels(first, first + width * height);
    SelectObject(dc, old);
    DeleteObject(bitmap);
    DeleteDC(dc);
    for (DWORD& pixel : pixels) {
        pixel &= 0xFFFFFF;
    }
    return pixels;
}

Picture::Picture(HWND window)
{
    RECT area = {};
    GetClientRect(window, &area);
    width_ = area.right;
    height_ = area.bottom;
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    const HDC screen = GetDC(nullptr);
    pixels_ = PixelsOf(screen, area);
    ReleaseDC(nullptr, screen);
}

Picture::Picture(SIZE size, const std::function<void(HDC)>& draw)
    : width_(size.cx), height_(size.cy)
{
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width_, height_);
    ReleaseDC(nullptr, screen);
    const HGDIOBJ old = SelectObject(dc, bitmap);
    const RECT all = {0, 0, width_, height_};
    FillRect(dc, &all, GetSysColorBrush(COLOR_BTNFACE));
    draw(dc);
    pixels_ = PixelsOf(dc, all);
    SelectObject(dc, old);
    DeleteObject(bitmap);
    DeleteDC(dc);
}

Picture Picture::OfText(const std::wstring& text, int points, BYTE charset, COLORREF color)
{
    const auto length = static_cast<int>(text.size());
    const HFONT font = CreateFontA(-MulDiv(points, 96, 72), 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE,
                                   charset, 0, 0, 0, 0, "Tahoma");
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ old = SelectObject(screen, font);
    SIZE size = {};
    GetTextExtentPoint32W(screen, text.c_str(), length, &size);
    SelectObject(screen, old);
    ReleaseDC(nullptr, screen);
    Picture picture(size, [&](HDC dc) {
        const HGDIOBJ before = SelectObject(dc, font);
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, color);
        TextOutW(dc, 0, 0, text.c_str(), length);
        SelectObject(dc, before);
    });
    DeleteObject(font);
    return picture;
}

std::optional<POINT> Picture::Find(COLORREF color) const
{
    const DWORD wanted =
        DWORD{GetRValue(color)} << 16 | DWORD{GetGValue(color)} << 8 | DWORD{GetBValue(color)};
    const auto found = std::find(pixels_.begin(), pixels_.end(), wanted);
    if (found == pixels_.end()) {
        return std::nullopt;
    }
    const auto index = static_cast<LONG>(found - pixels_.begin());
    return POINT{index % width_, index / width_};
}

bool Picture::IsPlain() const
{
    return std::adjacent_find(pixels_.begin(), pixels_.end(), std::not_equal_to<>()) ==
           pixels_.end();
}

bool Picture::Contains(const Picture& part) const
{
    for (int y = 0; y + part.height_ <= height_; ++y) {
        for (int x = 0; x + part.width_ <= width_; ++x) {
            int row = 0;
            while (row < part.height_ &&
                   std::equal(part.Row(row), part.Row(row) + part.width_, Row(y + row) + x)) {
                ++row;
            }
            if (row == part.height_) {
                return true;
            }
        }
    }
    return false;
}

} // namespace nv::e2e
