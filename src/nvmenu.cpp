// The program: sets the process up, opens the main window and runs its messages.
#include "mainwindow/command_line.h"
#include "mainwindow/form1.h"
#include "version.h"
#include "win32/process.h"

#include <windows.h>

#include <commctrl.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int showCommand)
{
    nv::SetUpProcess();
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);

    nv::MessagePump pump;
    nv::Form1 form(pump, nv::ProgramFolder(), {VER_MAJOR, VER_MINOR, VER_PATCH}, SUPPORT_ADDRESS);
    if (!form.StartUp(nv::ArgumentsOf(GetCommandLineA()), showCommand)) {
        return 0;
    }
    return pump.Run();
}
