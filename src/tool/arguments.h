// The tool's command line:
//
//   nvmtool check [--no-links] FILE...
//   nvmtool list FILE...
//   nvmtool import FOLDER [-o FILE [--force]]
//   nvmtool --help | --version
#pragma once

#include "platform/ansi_text.h"
#include "platform/files.h"

#include <string>
#include <string_view>
#include <vector>

namespace nv
{

enum class ToolCommand { check, list, import, help, version };

struct ToolFile {
    std::string shown; // as the user named it
    std::string path;  // in full
};

struct ToolRequest {
    ToolCommand command = ToolCommand::help;
    std::vector<ToolFile> files; // import: the one folder
    std::string output;          // full path; empty: standard output
    bool links = true;
    bool force = false;
    std::string error; // why this is no request, and then nothing else counts; empty: it is one
};

// The arguments in the text that follows the program's name. Blanks and tabs part them, but not
// between double quotes. A backslash is always itself, so that "C:\My Menus\" is a folder: no name
// of a file has a double quote.
std::vector<std::string> SplitArguments(std::string_view text);

// Full paths, and the names that wildcards stand for, are of the folder that is current now. A
// pattern that no file matches stays as it is.
ToolRequest ReadArguments(const std::vector<std::string>& arguments, Files& files,
                          const CodePage& codePage);

} // namespace nv
