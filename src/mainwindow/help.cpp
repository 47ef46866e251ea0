#include "mainwindow/help.h"

namespace nv
{

std::string HelpFile(const std::string& programFolder)
{
    return programFolder + "\\NVMENU.HLP";
}

const char* HelpKeyword(bool editorAlone)
{
    return editorAlone ? "Menu Edit" : "Navrix Main Menu";
}

std::string HelpPage(const std::string& programFolder, std::uint32_t context)
{
    return programFolder + "\\Help\\" + (context == kHelpOnEditing ? "editing" : "index") + ".html";
}

std::string NoHelpPageText(const std::string& page, bool there)
{
    return "The help cannot be shown:\n\n" + page + "\n\n" +
           (there ? "No program opened this page."
                  : "This page is missing. The folder \"Help\" belongs beside the program.");
}

} // namespace nv
