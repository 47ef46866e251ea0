#pragma once

#include "platform/canvas.h"

namespace nv
{

// Draws a thin 3-D frame on canvas around area: one pixel wide, right outside its edge.
void PaintEdgeFrame(Canvas& canvas, const TwipRect& area, const ScreenScale& scale);

// Draws the frame that tells the default button of a dialog: one pixel further out.
void PaintDefaultFrame(Canvas& canvas, const TwipRect& area, const ScreenScale& scale);

} // namespace nv
