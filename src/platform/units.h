// Lengths. Inside the program they are twips (1/1440 inch); pixels exist only at the edge of the
// platform, and the screen's own twips per pixel convert between the two.
#pragma once

#include <cmath>
#include <cstdint>

namespace nv
{

// A length or position in twips. Single precision: positions in a column are defined that way.
using Twips = float;

struct TwipSize {
    Twips width = 0;
    Twips height = 0;
    bool operator==(const TwipSize&) const = default;
};

struct TwipPoint {
    Twips x = 0;
    Twips y = 0;
    bool operator==(const TwipPoint&) const = default;
};

// Left and top belong to the rectangle, left + width and top + height do not.
struct TwipRect {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;
    bool operator==(const TwipRect&) const = default;

    bool Contains(TwipPoint point) const
    {
        return point.x >= left && point.x < left + width && point.y >= top &&
               point.y < top + height;
    }
};

// Rounds to a whole number, halves to the even neighbour, wherever a whole number is asked.
inline std::int32_t RoundHalfEven(double value)
{
    return static_cast<std::int32_t>(std::nearbyint(value));
}

// The screen's scale: 15 twips a pixel at 96 dots per inch, 10 at 144.
struct ScreenScale {
    double twipsPerPixelX = 15;
    double twipsPerPixelY = 15;

    static ScreenScale OfDpi(int dpiX, int dpiY) { return {1440.0 / dpiX, 1440.0 / dpiY}; }

    int PixelsX(double twips) const { return RoundHalfEven(twips / twipsPerPixelX); }
    int PixelsY(double twips) const { return RoundHalfEven(twips / twipsPerPixelY); }
    Twips TwipsX(double pixels) const { return static_cast<Twips>(pixels * twipsPerPixelX); }
    Twips TwipsY(double pixels) const { return static_cast<Twips>(pixels * twipsPerPixelY); }
};

} // namespace nv
