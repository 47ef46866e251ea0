#include "mainwindow/help.h"

#include "docs/paths.h"

namespace nv
{

std::string HelpFile(const std::string& programFolder)
{
    return PathIn(programFolder, "NVMENU.HLP");
}

const char* HelpKeyword(bool editorAlone)
{
    return editorAlone ? "Menu Edit" : "Navrix Main Menu";
}

std::string HelpPage(const std::string& programFolder, std::uint32_t context)
{
    const std::string page = context == kHelpOnEditing ? "editing" : "index";
    return PathIn(programFolder, "Help\\" + page + ".html");
}

std::string NoHelpPageText(const std::string& page, bool there)
{
    return "The help cannot be shown:\n\n" + page + "\n\n" +
           (there ? "No program opened this page."
                  : "This page is missing. The folder \"Help\" belongs beside the program.");
}

} // namespace nv
