// How captions break into lines.
#pragma once

#include "platform/ansi_text.h"
#include "platform/canvas.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace nv
{

// The lines of a text: parted by CR LF, a lone CR or a lone LF. At least one; views into text.
std::vector<std::string_view> TextLines(std::string_view text);
// How many lines TextLines gives, without measuring anything.
std::size_t CountLines(std::string_view text);

// Width of the widest line; height of all of them.
TwipSize AutoSize(TextMeasure& measure, const Font& font, std::string_view text);
// The height that AutoSize gives, at a fraction of its cost.
Twips AutoHeight(TextMeasure& measure, const Font& font, std::string_view text);

// The lines of text broken at blanks so that each fits into width; a word wider than that is broken
// between characters. Blanks at a break are dropped. At least one line; views into text.
std::vector<std::string_view> WrapText(TextMeasure& measure, const CodePage& codePage,
                                       const Font& font, std::string_view text, Twips width);

// Draws lines below each other, the first at origin, of which only those that touch clip. A million
// lines of which one screen is seen cost one screen.
void PaintLines(Canvas& canvas, TextMeasure& measure, const std::vector<std::string_view>& lines,
                TwipPoint origin, const Font& font, Color color, const TwipRect& clip);

} // namespace nv
