// Fonts and measures that every window of the program uses.
#pragma once

#include "platform/font.h"
#include "platform/units.h"
#include "win32/handles.h"

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace nv
{

// What the platform reports for the user's default language; empty on failure.
std::string GetLocaleText(LCTYPE code);

// The character set of the user's ANSI code page.
std::int16_t UserCharset();

// The font of the program's own texts: Tahoma in the user's character set.
Font FormFont();

// The fonts that the controls of a window have from their form. Must outlive that window: its
// controls go on drawing with them.
class FormFonts
{
public:
    // Gives every control in window, however deep, the face Tahoma and the user's character set;
    // size, weight and all else stay. Controls without a font are left alone.
    void SetFormFonts(HWND window);

private:
    struct Entry {
        LOGFONTA record;
        FontHandle font;
    };

    HFONT Handle(const LOGFONTA& record);

    std::vector<Entry> entries_; // one for each different font
};

// How much larger a window is than its client area, in twips; 0 for no window.
std::int32_t TrueWindowSize(HWND window, bool vertical);

} // namespace nv
