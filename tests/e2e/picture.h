// Pictures of the screen, and of what would be drawn there.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace nv::e2e
{

// The pixels of a part of what from draws on, 0xRRGGBB, row by row from the top; of an empty area
// none.
std::vector<DWORD> PixelsOf(HDC from, const RECT& area);

class Picture
{
public:
    // A window's client area as it stands on the screen.
    explicit Picture(HWND window);
    // What draw draws, on the colour of buttons.
    Picture(SIZE size, const std::function<void(HDC)>& draw);
    // A text as a program draws it, in bold Tahoma; points at 96 dpi.
    static Picture OfText(const std::wstring& text, int points, BYTE charset, COLORREF color);
    // A pixel of exactly that colour, the topmost one; in the client area.
    std::optional<POINT> Find(COLORREF color) const;
    bool Contains(const Picture& part) const;
    bool IsPlain() const; // of one colour
    bool operator==(const Picture& other) const { return pixels_ == other.pixels_; }

private:
    const DWORD* Row(int y) const
    {
        return pixels_.data() + static_cast<std::ptrdiff_t>(y) * width_;
    }

    int width_ = 0;
    int height_ = 0;
    std::vector<DWORD> pixels_;
};

} // namespace nv::e2e
