#include "mainwindow/browse.h"

#include "docs/paths.h"

#include <algorithm>

namespace nv
{

std::string BrowseFilter()
{
    constexpr std::string_view kFilters[] = {
        "Navrix Menu (*.nvm)", "*.nvm", "Navrix File (*.nvf)", "*.nvf",
        "EXE File (*.exe)",    "*.exe", "All Files (*.*)",     "*.*"};
    std::string filter;
    for (const std::string_view part : kFilters) {
        filter += part;
        filter += '\0';
    }
    return filter + '\0';
}

int BrowseFilterIndex(std::string_view command)
{
    std::string extension = FileExtension(command);
    if (!extension.empty() && extension.back() == '"') {
        extension.pop_back();
    }
    return extension == "NVM" ? 1 : extension == "NVF" ? 2 : extension == "EXE" ? 3 : 4;
}

std::string QuotedForBox(std::string_view path, std::string_view before, std::string_view after)
{
    const auto hasOdd = [](std::string_view text) {
        return std::count(text.begin(), text.end(), '"') % 2 != 0;
    };
    // An odd number of quotes before it: the path goes into a part that a quote opened.
    const bool opened = hasOdd(before);
    const bool closed = hasOdd(after) && (opened || after.front() == '"');
    std::string text = opened ? "" : "\"";
    text += path;
    return closed ? text : text + '"';
}

} // namespace nv
