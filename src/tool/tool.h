// nvmtool, for people who keep many menus.
#pragma once

#include "platform/ansi_text.h"
#include "platform/files.h"
#include "platform/font.h"
#include "platform/shell.h"
#include "tool/arguments.h"

#include <functional>
#include <string>
#include <string_view>

namespace nv
{

// Where the tool's texts go: bytes of the ANSI code page, with CR LF at the end of each line.
class ToolOutput
{
public:
    virtual ~ToolOutput() = default;
    // Writes to standard output, now.
    virtual SystemError Write(std::string_view text) = 0;
    // Writes to standard error, now; whether that worked does not matter.
    virtual void Complain(std::string_view text) = 0;
};

struct ToolPlatform {
    Files& files;
    Shell& shell;
    ToolOutput& output;
    CodePage codePage;
    Font defaultFont;          // of the program: of entries whose line names none
    std::string programFolder; // without closing backslash; also the current folder, by then
    std::string version;
    std::function<std::string(const std::string&)> expandVariables;
};

// Does what is asked for; the process's exit code: 0 all is good, 1 there are findings, 2 the
// request makes no sense or a file could not be read or written.
int RunTool(const ToolRequest& request, const ToolPlatform& platform);

} // namespace nv
