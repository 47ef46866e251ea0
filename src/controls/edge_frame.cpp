#include "controls/edge_frame.h"

#include "platform/system_colors.h"

namespace nv
{

namespace
{

TwipRect Around(const TwipRect& area, int pixels, const ScreenScale& scale)
{
    const Twips x = scale.TwipsX(pixels);
    const Twips y = scale.TwipsY(pixels);
    return {area.left - x, area.top - y, area.width + 2 * x, area.height + 2 * y};
}

} // namespace

void PaintEdgeFrame(Canvas& canvas, const TwipRect& area, const ScreenScale& scale)
{
    canvas.Frame(Around(area, 1, scale), kButtonShadow, kHighlight3D);
}

void PaintDefaultFrame(Canvas& canvas, const TwipRect& area, const ScreenScale& scale)
{
    canvas.Frame(Around(area, 2, scale), kButtonText, kButtonText);
}

} // namespace nv
