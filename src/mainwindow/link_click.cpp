#include "mainwindow/link_click.h"

#include "docs/paths.h"

namespace nv
{

std::optional<std::string> MenuToOpen(ShellExe& shellExe, WindowHandle owner,
                                      const std::string& command)
{
    if (FileExtension(command) == "NVM") {
        return command;
    }
    const LaunchInfo info = shellExe.LaunchCommand(owner, command, "", false);
    if (FileExtension(info.plainProgram) == "NVM") {
        return info.plainProgram;
    }
    return std::nullopt;
}

void LaunchLink(ShellExe& shellExe, WindowHandle owner, const std::string& command)
{
    // Nobody is told when a program does not start: the result is not looked at.
    (void)shellExe.LaunchCommand(owner, shellExe.ExpandLauncher(owner, command), "", true);
}

} // namespace nv
