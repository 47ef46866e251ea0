#include "win32/screen.h"

#include <windows.h>

#include <algorithm>
#include <windowsx.h>

namespace nv
{

ScreenScale PrimaryScreenScale()
{
    const HDC screen = GetDC(nullptr);
    const auto scale =
        ScreenScale::OfDpi(GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY));
    ReleaseDC(nullptr, screen);
    return scale;
}

CodePage ProcessCodePage()
{
    return CodePage(GetACP());
}

TwipRect ToTwips(const RECT& pixels, const ScreenScale& scale)
{
    return {scale.TwipsX(pixels.left), scale.TwipsY(pixels.top),
            scale.TwipsX(pixels.right - pixels.left), scale.TwipsY(pixels.bottom - pixels.top)};
}

RECT ToPixels(const TwipRect& twips, const ScreenScale& scale)
{
    // In double precision: far down a long column left + width would lose its last twips.
    return {scale.PixelsX(twips.left), scale.PixelsY(twips.top),
            scale.PixelsX(double{twips.left} + double{twips.width}),
            scale.PixelsY(double{twips.top} + double{twips.height})};
}

void MoveWindowTo(HWND window, const TwipRect& area, const ScreenScale& scale)
{
    RECT place = ToPixels(area, scale);
    place.right = std::max(place.right, place.left);
    place.bottom = std::max(place.bottom, place.top);
    RECT now = {};
    GetWindowRect(window, &now);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&now), 2);
    if (!EqualRect(&now, &place)) {
        SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    }
}

TwipPoint PointOf(LPARAM lParam, const ScreenScale& scale)
{
    return {scale.TwipsX(GET_X_LPARAM(lParam)), scale.TwipsY(GET_Y_LPARAM(lParam))};
}

} // namespace nv
