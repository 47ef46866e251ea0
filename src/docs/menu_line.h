// One line of a Menu file, which is one entry:
//
//   3><CAPTION>Notepad</CAPTION> <LINK>C:\Windows\notepad.exe</LINK> <FONTNAME>Tahoma</FONTNAME>
//   <FONTSIZE>8</FONTSIZE> <FONTBOLD>True</FONTBOLD> <FONTITALIC>False</FONTITALIC>
//   <FONTSTR>False</FONTSTR> <FONTUNDER>False</FONTUNDER> <FONTCOLOR>0</FONTCOLOR>
//   <FONTCHAR>238</FONTCHAR>
//
// (all on one line, one blank between the tags). Values are not escaped.
#pragma once

#include "docs/menu_item.h"

#include <string>
#include <string_view>

namespace nv
{

// The line of an entry, without line end. The font size is rounded half to even.
std::string EncodeLine(const MenuItem& item);

// The value of the first tag of that name in line: up to the first closing tag after it, or to the
// end of the line. Empty when there is no such tag. A view into line.
std::string_view GetTag(std::string_view line, std::string_view tagName);

// The entry that a line holds. Never fails: what does not convert keeps its start value.
// defaultFont: the font of an entry whose line names none.
MenuItem DecodeLine(std::string_view line, const Font& defaultFont);

} // namespace nv
