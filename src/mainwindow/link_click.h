#pragma once

#include "mainwindow/shell_exe.h"

#include <optional>
#include <string>

namespace nv
{

// The menu that a clicked command opens in the program's own window; nothing when the command is to
// be launched. May ask the shell.
std::optional<std::string> MenuToOpen(ShellExe& shellExe, WindowHandle owner,
                                      const std::string& command);

// Starts what a command names; failures stay silent. May re-enter.
void LaunchLink(ShellExe& shellExe, WindowHandle owner, const std::string& command);

} // namespace nv
