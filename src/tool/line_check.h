#pragma once

#include "docs/menu_item.h"
#include "platform/ansi_text.h"

#include <string>
#include <string_view>
#include <vector>

namespace nv
{

// What is wrong with the form of a line of a Menu file, as sentences on one line each: all by which
// the line differs from the one that the program writes for its entry, and all that is lost, cut or
// changed when it is read. None: the program writes exactly this line.
// line: with real line breaks inside. item: the entry that DecodeLine makes of it.
std::vector<std::string> LineFindings(std::string_view line, const MenuItem& item,
                                      const CodePage& codePage);

} // namespace nv
