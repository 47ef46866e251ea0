// How texts of menus stand in the tool's output.
#pragma once

#include "platform/ansi_text.h"

#include <string>
#include <string_view>

namespace nv
{

// text on one line, without control characters: a line break is ^n, a tab ^t, any other control
// character, and the first half of a character that lacks the second, ^x and its code in two
// hexadecimal digits, and ^ itself ^^. Paths keep their backslashes, so that they can be searched
// for and used again.
std::string Escaped(std::string_view text, const CodePage& codePage);

// text, escaped and in double quotes, for a sentence: what is too long for one is cut.
std::string Excerpt(std::string_view text, const CodePage& codePage);

// Sorts names of files as people look for them: the case of ASCII letters counts only between
// names that are otherwise equal.
bool NameBefore(const std::string& left, const std::string& right);

} // namespace nv
