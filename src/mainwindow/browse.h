// What the editor's Browse asks of the open-file dialog and does with its answer.
#pragma once

#include <string>
#include <string_view>

namespace nv
{

// The dialog's filters: description, NUL, pattern, NUL for each, and one more NUL at the end.
std::string BrowseFilter();

// The filter to show first, from 1: that of the extension of command, be it quoted or not; 4 (all
// files) for any other.
int BrowseFilterIndex(std::string_view command);

// What takes the place of the command box's selection when path was picked: path between double
// quotes, where the text around does not supply them already.
// before, after: the box's text up to the selection and from its end on.
std::string QuotedForBox(std::string_view path, std::string_view before, std::string_view after);

} // namespace nv
