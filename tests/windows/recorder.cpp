// A program for links to start: writes how it was started into the file that the environment
// variable NAVRIX_RECORD names, one fact a line, and ends at once.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{

std::string Variable(const char* name)
{
    // Not GetEnvironmentVariableA: in double-byte code pages Wine cuts its answer.
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const std::string name = Variable("NAVRIX_RECORD");
    char folder[1024] = "";
    GetCurrentDirectoryA(sizeof folder, folder);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    GetStartupInfoA(&startup);

    // Under another name until it is whole: the test reads the record as soon as it is there.
    const std::string draft = name + ".new";
    std::FILE* file = std::fopen(draft.c_str(), "wb");
    if (file == nullptr) {
        return 1;
    }
    std::fprintf(file, "%s\n%s\n%s\n%u\n%lu\n%lu\n", GetCommandLineA(), folder,
                 startup.lpTitle ? startup.lpTitle : "", static_cast<unsigned>(startup.wShowWindow),
                 startup.dwFlags, startup.dwFillAttribute);
    const bool written = std::fclose(file) == 0;
    return written && MoveFileExA(draft.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : 1;
}
