// save_child DEED N PATH: does it, and dies in its N-th operation on files.
#include "save_child.h"

#include <windows.h>

int main(int count, char** arguments)
{
    if (count != 4) {
        return 2;
    }
    nv::FaultyDesk desk;
    desk.files.killAt = std::stoi(arguments[2]);
    desk.files.die = [] { TerminateProcess(GetCurrentProcess(), nv::kKilledExitCode); };
    return nv::Do(desk, arguments[1], arguments[3]) ? 0 : 1;
}
