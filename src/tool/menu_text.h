#pragma once

#include "docs/menu_lines.h"
#include "platform/files.h"

#include <cstdint>
#include <string>
#include <vector>

namespace nv
{

enum class LineEnd : std::uint8_t { crLf, cr, lf, none };

// A Menu file as the program reads it, and what that reading does not keep.
struct MenuText {
    MenuLines lines;
    std::vector<LineEnd> ends;  // of each line
    bool byteOrderMark = false; // stands before the first line
};

// Reads the file at path into text, which must be empty; not 0: why it could not be read.
SystemError ReadMenuText(Files& files, const std::string& path, MenuText& text);

} // namespace nv
