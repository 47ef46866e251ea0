// What launch_bench starts: says that it runs, and ends.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const HANDLE runs = OpenEventA(EVENT_MODIFY_STATE, FALSE, "NavrixLaunched");
    return runs != nullptr && SetEvent(runs) ? 0 : 1;
}
