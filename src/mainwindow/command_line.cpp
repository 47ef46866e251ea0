#include "mainwindow/command_line.h"

#include <algorithm>

namespace nv
{

CommandLine ParseCommandLine(std::string_view arguments, const CodePage& codePage)
{
    const auto found = UpperCase(arguments).find("/L");
    if (found == std::string::npos) {
        return {std::string(arguments), false};
    }
    // The character before the switch, normally a blank, goes with it.
    const std::string_view before = arguments.substr(0, found);
    const std::size_t characters = codePage.CountCharacters(before);
    const std::size_t kept = characters < 1 ? 0 : characters - 1;
    return {std::string(codePage.FirstCharacters(before, kept)), true};
}

std::string_view ArgumentsOf(std::string_view wholeCommandLine)
{
    const bool quoted = !wholeCommandLine.empty() && wholeCommandLine.front() == '"';
    const auto end = quoted ? wholeCommandLine.find('"', 1) : wholeCommandLine.find_first_of(" \t");
    if (end == std::string_view::npos) {
        return {};
    }
    const auto first = wholeCommandLine.find_first_not_of(" \t", quoted ? end + 1 : end);
    return wholeCommandLine.substr(std::min(first, wholeCommandLine.size()));
}

std::string StripQuotes(std::string_view text)
{
    if (text.size() < 3) {
        return std::string(text);
    }
    if (text.front() == '"') {
        text.remove_prefix(1);
    }
    if (text.back() == '"') {
        text.remove_suffix(1);
    }
    return std::string(text);
}

} // namespace nv
