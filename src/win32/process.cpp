#include "win32/process.h"

#include "docs/paths.h"
#include "win32/screen.h"

#include <windows.h>

#include <objbase.h>

namespace nv
{

ProcessSetup::ProcessSetup()
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    SetDllDirectoryA("");
    comStarted_ =
        SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
}

ProcessSetup::~ProcessSetup()
{
    if (comStarted_) {
        CoUninitialize();
    }
}

std::string ProgramFolder()
{
    std::string path(0x8000, '\0'); // longer than any path
    path.resize(GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return SplitPath(path, ProcessCodePage()).folder;
}

} // namespace nv
