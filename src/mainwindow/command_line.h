// The program's command line:
//
//   NVMenu.exe [MENU] [/l]
//
// MENU may stand in double quotes; "/l" is locked mode.
#pragma once

#include "platform/ansi_text.h"

#include <string>
#include <string_view>

namespace nv
{

struct CommandLine {
    std::string filePart; // with its quotes; empty: the start file choice decides
    bool locked = false;
};

// arguments: all that follows the program name.
CommandLine ParseCommandLine(std::string_view arguments, const CodePage& codePage);

// What follows the program name, which may stand in double quotes, in a whole command line.
std::string_view ArgumentsOf(std::string_view wholeCommandLine);

// Removes a double quote at the start and one at the end, each by itself; text of fewer than 3
// characters stays as it is.
std::string StripQuotes(std::string_view text);

} // namespace nv
