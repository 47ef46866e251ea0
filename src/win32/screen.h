#pragma once

#include "platform/ansi_text.h"
#include "platform/units.h"

#include <windows.h>

namespace nv
{

// The scale of the primary screen, which system DPI awareness gives to the whole process.
ScreenScale PrimaryScreenScale();

// The process's ANSI code page.
CodePage ProcessCodePage();

// A rectangle of pixels as twips, and back.
TwipRect ToTwips(const RECT& pixels, const ScreenScale& scale);
RECT ToPixels(const TwipRect& twips, const ScreenScale& scale);

// Moves a window to area, in twips of its parent; does nothing when it stands there. What is moved
// is painted anew: its picture cannot move along, for a neighbour that was moved before may have
// been erased over it.
void MoveWindowTo(HWND window, const TwipRect& area, const ScreenScale& scale);

// A mouse message's point, in twips.
TwipPoint PointOf(LPARAM lParam, const ScreenScale& scale);

} // namespace nv
