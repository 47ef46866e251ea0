#include "win32/process.h"

#include "docs/paths.h"
#include "win32/load_function.h"
#include "win32/screen.h"

#include <windows.h>

#include <objbase.h>

namespace nv
{

namespace
{

// The thread's apartment, for as long as the object lives.
class Com
{
public:
    Com()
    {
        decltype(&CoInitializeEx) initialize = nullptr;
        if (!LoadFunction("ole32.dll", "CoInitializeEx", initialize) ||
            !LoadFunction("ole32.dll", "CoUninitialize", end_) ||
            FAILED(initialize(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {
            end_ = nullptr;
        }
    }
    ~Com()
    {
        if (end_ != nullptr) {
            end_();
        }
    }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

private:
    decltype(&CoUninitialize) end_ = nullptr; // null: COM was not to be had
};

} // namespace

void SetUpProcess()
{
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    SetDllDirectoryA("");
}

void StartCom()
{
    static const Com com;
}

std::string ProgramFolder()
{
    std::string path(0x8000, '\0'); // longer than any path
    path.resize(GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return SplitPath(path, ProcessCodePage()).folder;
}

bool UnderWine()
{
    const HMODULE ntdll = GetModuleHandleA("ntdll.dll");
    return ntdll != nullptr && GetProcAddress(ntdll, "wine_get_version") != nullptr;
}

std::string ExpandVariables(const std::string& text)
{
    std::string expanded;
    DWORD needed = static_cast<DWORD>(text.size() + 1);
    // Beyond single bytes the system counts units of 16 bits, of up to three bytes each in UTF-8.
    while (needed * 3 > expanded.size()) {
        expanded.resize(needed * 3);
        needed = ExpandEnvironmentStringsA(text.c_str(), expanded.data(), needed * 3);
    }
    if (needed == 0) {
        return text;
    }
    return expanded.c_str(); // the count may be more than the text has
}

} // namespace nv
