#include "controls/text_layout.h"

#include <algorithm>
#include <cmath>

namespace nv
{

namespace
{

// Takes the first line off rest; false when that was the last one.
bool TakeLine(std::string_view& rest, std::string_view& line)
{
    const auto end = rest.find_first_of("\r\n");
    line = rest.substr(0, end);
    if (end == std::string_view::npos) {
        return false;
    }
    rest.remove_prefix(rest.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
    return true;
}

// Length of the part of line (longer than fits bytes) that stands on one row.
std::size_t BreakBefore(const CodePage& codePage, std::string_view line, std::size_t fits)
{
    if (line[fits] == ' ') {
        return fits;
    }
    const auto blank = line.substr(0, fits).rfind(' ');
    if (blank != std::string_view::npos && line.find_first_not_of(' ') < blank) {
        return blank;
    }
    // At least one character a row, or nothing would ever move on.
    return std::max(fits, codePage.CharacterLength(line, 0));
}

} // namespace

std::vector<std::string_view> TextLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    std::string_view line;
    while (TakeLine(text, line)) {
        lines.push_back(line);
    }
    lines.push_back(line);
    return lines;
}

std::size_t CountLines(std::string_view text)
{
    std::size_t count = 1;
    std::string_view line;
    while (TakeLine(text, line)) {
        ++count;
    }
    return count;
}

TwipSize AutoSize(TextMeasure& measure, const Font& font, std::string_view text)
{
    Twips width = 0;
    for (const std::string_view line : TextLines(text)) {
        width = std::max(width, measure.Width(font, line));
    }
    return {width, AutoHeight(measure, font, text)};
}

Twips AutoHeight(TextMeasure& measure, const Font& font, std::string_view text)
{
    return static_cast<Twips>(CountLines(text)) * measure.LineHeight(font);
}

std::vector<std::string_view> WrapText(TextMeasure& measure, const CodePage& codePage,
                                       const Font& font, std::string_view text, Twips width)
{
    std::vector<std::string_view> rows;
    for (std::string_view line : TextLines(text)) {
        do {
            const std::size_t fits = measure.Fit(font, line, width);
            const std::size_t length =
                fits < line.size() ? BreakBefore(codePage, line, fits) : line.size();
            rows.push_back(line.substr(0, length));
            line.remove_prefix(std::min(line.find_first_not_of(' ', length), line.size()));
        } while (!line.empty());
    }
    return rows;
}

void PaintLines(Canvas& canvas, TextMeasure& measure, const std::vector<std::string_view>& lines,
                TwipPoint origin, const Font& font, Color color, const TwipRect& clip)
{
    const Twips height = measure.LineHeight(font);
    const double above = (double{clip.top} - double{origin.y}) / double{height};
    const double below = (double{clip.top} + double{clip.height} - double{origin.y}) / height;
    const auto count = static_cast<double>(lines.size());
    const auto first = static_cast<std::size_t>(std::clamp(std::floor(above), 0.0, count));
    const auto end = static_cast<std::size_t>(std::clamp(std::ceil(below), 0.0, count));
    for (std::size_t index = first; index < end; ++index) {
        if (!lines[index].empty()) {
            canvas.Text({origin.x, origin.y + static_cast<Twips>(index) * height}, font, color,
                        lines[index]);
        }
    }
}

} // namespace nv
