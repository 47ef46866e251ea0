#pragma once

#include "mainwindow/shell_exe.h"
#include "platform/files.h"
#include "platform/shell.h"

#include <functional>
#include <string>
#include <unordered_map>

namespace nv
{

// A shell that is asked once for each file and starts nothing.
class LookingShell : public Shell
{
public:
    // shell must outlive this.
    explicit LookingShell(Shell& shell) : shell_(shell) {}

    std::int32_t FindProgram(const std::string& file, const std::string& directory,
                             std::span<char> answer) override;
    std::int32_t StartByShell(const ShellStartRequest&) override { return 0; }
    std::int32_t StartProcess(const ProcessStartRequest&) override { return 0; }

private:
    struct Answer {
        std::int32_t result = 0;
        std::string text; // all of the answer's characters
    };

    Shell& shell_;
    std::unordered_map<std::string, Answer> answers_; // by directory and file
};

// Looks for what links name, as a click on them would, without starting anything. Relative paths
// begin at the current folder, which is to be that of the program.
class LinkCheck
{
public:
    // expand: gives a text its environment variables, as the companion launcher does.
    using Expand = std::function<std::string(const std::string&)>;

    // Both must outlive this. programFolder: without closing backslash.
    LinkCheck(Files& files, Shell& shell, std::string programFolder, CodePage codePage,
              Expand expand);

    // Why a click on a link with this command does nothing, on one line; empty: it does something.
    std::string Finding(const std::string& command);

private:
    std::string MenuFinding(const std::string& path);
    std::string FolderFinding(const LaunchInfo& info);
    std::string NotFound(const LaunchInfo& info);

    Files& files_;
    CodePage codePage_;
    Expand expand_;
    LookingShell shell_;
    ShellExe shellExe_;
};

} // namespace nv
