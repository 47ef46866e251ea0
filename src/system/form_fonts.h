// Fonts and measures that every window of the program uses.
#pragma once

#include "platform/font.h"
#include "platform/units.h"

#include <windows.h>

#include <cstdint>
#include <string>

namespace nv
{

// What the platform reports for the user's default language; empty on failure.
std::string GetLocaleText(LCTYPE code);

// The character set of the user's ANSI code page.
std::int16_t UserCharset();

// The font of the program's own texts: Tahoma in the user's character set.
Font FormFont();

// How much larger a window is than its client area, in twips; 0 for no window.
std::int32_t TrueWindowSize(HWND window, bool vertical);

} // namespace nv
