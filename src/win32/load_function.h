#pragma once

#include <windows.h>

#include <string>

namespace nv
{

// A function of one of the system's DLLs that is needed seldom or late: loading it is left until
// then, for every start would wait for it. The DLL is never freed, for others may hold what it
// made. function: in null, out the function. False: this system does not have it.
template <class Function>
bool LoadFunction(const char* library, const char* name, Function& function)
{
    char system[MAX_PATH] = "";
    const UINT length = GetSystemDirectoryA(system, sizeof system);
    if (length == 0 || length >= sizeof system) {
        return false;
    }
    const std::string path = std::string(system) + '\\' + library;
    const HMODULE module = LoadLibraryExA(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module != nullptr) {
        function =
            reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
    }
    return function != nullptr;
}

} // namespace nv
