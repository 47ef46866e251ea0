// What the companion launcher NVSub.exe makes of its command line.
//
//   NVSUB %ProgramFiles%\Editor\edit.exe notes.txt /NV+
//
// Its arguments are a command as links have it; a show state that it was itself started with goes
// on to what it starts.
#pragma once

#include "mainwindow/shell_exe.h"
#include "platform/ansi_text.h"

#include <string>
#include <string_view>

namespace nv
{

// The command to run for arguments. show: the platform's number of the show state that the
// companion was started with, 1 when none was given. A switch in the arguments goes before it.
std::string CompanionCommand(std::string_view arguments, int show);

// What the user is told when a command was not started; info is what came of it. Commands that name
// nothing are answered with how to use the companion.
std::string CannotStartText(const LaunchInfo& info, const CodePage& codePage);

} // namespace nv
