#pragma once

#include "docs/menu_lines.h"
#include "platform/event_pump.h"
#include "platform/files.h"

#include <string_view>

namespace nv
{

enum class ReadOutcome {
    whole,  // read to the end of the file
    failed, // error says why
    ended,  // the pump said that the lines are no longer wanted
};

// What other programs put before UTF-8.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Appends the lines of file, which is at its beginning, to lines. Byte-order marks there are passed
// over; they say nothing of the text. CR LF, a lone CR and a lone LF each end a line; what follows
// the last of them is a line, too, unless it is empty. Code 1 becomes the line break CR LF that it
// stands for in a Menu file; every other byte stays. After each line events are let through: may
// re-enter. lines must not be cleared meanwhile. Unless the outcome is whole, lines holds a part of
// the file. Throws std::bad_alloc.
ReadOutcome ReadMenuLines(File& file, MenuLines& lines, EventPump& pump, SystemError& error);

} // namespace nv
