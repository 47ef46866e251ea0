// Link execution: turns the free text of a link's command into a started program.
//
//   program arguments /NV+ folder
//
// The program may stand in double quotes; "/NV" (normal), "/NV+" (maximized) or "/NV-" (minimized)
// and a working folder may follow.
#pragma once

#include "platform/ansi_text.h"
#include "platform/shell.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace nv
{

// What a command refers to.
enum class TargetKind : std::uint8_t {
    document = 0, // opened by its associated program
    program = 1,
    notFound = 2, // no associated program
};

enum class LaunchMode : char { shellStart = 'S', processStart = 'C', parseOnly = ' ' };

// What LaunchCommand learns of a command.
struct LaunchInfo {
    std::string foundProgram;     // the associated program's path; empty when none was found
    std::string quotedProgram;    // the program part as written, with its quotes if it had them
    std::string plainProgram;     // the program part without surrounding quotes
    std::string arguments;        // all after the program part, the leading blank included
    std::string switchText;       // a blank and the command from its switch on; empty without one
    std::string workingDirectory; // the text after the switch; empty when none
    TargetKind targetKind = TargetKind::notFound;
    LaunchMode mode = LaunchMode::parseOnly;
    bool started = false; // the start call reported success
};

struct SplitResult {
    std::string program;
    std::string arguments;
};

// Splits a command into its program part and its arguments.
SplitResult SplitCommand(std::string_view command, bool keepQuotes);

// Where the launch switch of a command begins (from 0): at its last "/NV", in any case. npos: none.
std::size_t FindSwitch(std::string_view command);

// True for a command that runs the companion launcher: it begins with NVSUB, quoted or not.
bool IsLauncherCommand(std::string_view command);

// True for "https://example.com", "mailto:..." or "shell:startup": nothing that is looked for on a
// disk. The name before the colon is longer than that of a drive.
bool IsAddress(std::string_view target);

// Whether the target of a command for which no program is found is short enough to be given to the
// shell as it is written.
bool FitsShell(const LaunchInfo& info);

class ShellExe
{
public:
    // shell must outlive this. programFolder: the program's own folder, without closing backslash.
    ShellExe(Shell& shell, std::string programFolder);

    // Parses command and, when run is true, starts what it names, without waiting for it. Nothing
    // is shown on failure. consoleTitle: empty for a link; otherwise the process is created with
    // that title. May re-enter when run is true (the shell may show a window).
    LaunchInfo LaunchCommand(WindowHandle owner, const std::string& command,
                             const std::string& consoleTitle, bool run);

    // Where the companion launcher stands.
    std::string LauncherPath() const { return programFolder_ + "\\NVSUB.exe"; }
    // The command that runs what a launcher command names: the launcher's full path in quotes, its
    // arguments and its switch. Any other command comes back as it is.
    std::string ExpandLauncher(WindowHandle owner, const std::string& command);

private:
    Shell& shell_;
    std::string programFolder_;
};

} // namespace nv
