// NVSub.exe, the companion launcher: starts what its arguments name, by the rules of a menu's link,
// and says so when that fails. Exit code 0: started; 1: not.
#include "mainwindow/command_line.h"
#include "mainwindow/companion.h"
#include "mainwindow/shell_exe.h"
#include "win32/process.h"
#include "win32/screen.h"
#include "win32/win_shell.h"

#include <windows.h>

#include <exception>
#include <string>

namespace
{

void Show(const std::string& text)
{
    MessageBoxA(nullptr, text.c_str(), "Navrix Menu",
                MB_OK | MB_SETFOREGROUND | MB_ICONEXCLAMATION);
}

// The show state that this process was started with.
int StartedAs()
{
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    GetStartupInfoA(&startup);
    return (startup.dwFlags & STARTF_USESHOWWINDOW) != 0 ? startup.wShowWindow : SW_SHOWNORMAL;
}

int Run()
{
    const nv::CodePage codePage = nv::ProcessCodePage();
    const std::string arguments =
        nv::ExpandVariables(std::string(nv::ArgumentsOf(GetCommandLineA())));
    nv::WinShell shell;
    nv::ShellExe shellExe(shell, nv::ProgramFolder());
    const nv::LaunchInfo info =
        shellExe.LaunchCommand(0, nv::CompanionCommand(arguments, StartedAs()), "", true);
    if (!info.started) {
        Show(nv::CannotStartText(info, codePage));
        return 1;
    }
    return 0;
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    nv::SetUpProcess();
    int code = 1;
    try {
        code = Run();
    } catch (const std::exception& fault) {
        Show(fault.what());
    }
    return code;
}
