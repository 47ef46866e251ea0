// What the program's help is called. It comes in two forms, made from one source, beside the
// program: a file for the platform's old viewer, which finds topics by keyword, and pages for a
// browser.
#pragma once

#include <cstdint>
#include <string>

namespace nv
{

// Help context numbers of the windows: of the main window and its panels P1 and P2, and of P3.
inline constexpr std::uint32_t kHelpOnMenus = 1002;
inline constexpr std::uint32_t kHelpOnEditing = 1003;

inline constexpr char kNoHelp[] =
    "Unable to display Help Contents. There is no Help associated with this project.";

// programFolder: without closing backslash.
std::string HelpFile(const std::string& programFolder);
// editorAlone: the edit panel is visible and the view panel is not.
const char* HelpKeyword(bool editorAlone);

// The page to show for a window with that context number.
std::string HelpPage(const std::string& programFolder, std::uint32_t context);
// What the user is told when the page is not there, or is and nothing opened it.
std::string NoHelpPageText(const std::string& page, bool there);

} // namespace nv
