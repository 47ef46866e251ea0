#include "controls/kel_line.h"

#include "platform/system_colors.h"

namespace nv
{

void KelLine::Paint(Canvas& canvas, TwipPoint origin, Twips width)
{
    // Dark above light: the line looks cut into the surface.
    canvas.HorizontalLine(origin, width, 0, kButtonShadow);
    canvas.HorizontalLine(origin, width, 1, kHighlight3D);
}

} // namespace nv
