#include "system/assoc.h"

#include "docs/paths.h"
#include "system/regis.h"
#include "win32/handles.h"

#include <shlobj.h>

#include <new>
#include <vector>

namespace nv
{

namespace
{

struct ClassesText {
    std::string path;
    std::string text;
};

std::vector<ClassesText> MenuFileType(const std::string& programFolder)
{
    const std::string program = PathIn(programFolder, "NVMenu.exe");
    const std::string type = "Navrix Menu";
    return {{type, type},
            {".NVM", type},
            {type + "\\shell\\open\\command", "\"" + program + "\" %1"},
            {type + "\\DefaultIcon", program + ",0"}};
}

RegistryKey Created(HKEY root, const std::string& path, long& result)
{
    HKEY key = nullptr;
    result = RegCreateKeyExA(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                             kRegistryAccess, nullptr, &key, nullptr);
    return RegistryKey(result == ERROR_SUCCESS ? key : nullptr);
}

RegistryKey Opened(HKEY root, const std::string& path, REGSAM access, long& result)
{
    HKEY key = nullptr;
    result = RegOpenKeyExA(root, path.c_str(), 0, access, &key);
    return RegistryKey(result == ERROR_SUCCESS ? key : nullptr);
}

bool Holds(HKEY root, const ClassesText& wanted)
{
    long result = ERROR_SUCCESS;
    const RegistryKey key = Opened(root, wanted.path, KEY_QUERY_VALUE, result);
    SettingValue value;
    return key && QueryValueEx(key.Get(), "", value) == ERROR_SUCCESS &&
           value == SettingValue(wanted.text);
}

struct Outcome {
    bool refused = false; // any of the values
    bool changed = false;
};

Outcome WriteAll(HKEY root, const std::vector<ClassesText>& values)
{
    Outcome outcome;
    for (const ClassesText& value : values) {
        const bool held = Holds(root, value);
        const bool written = SetClassesValue(root, value.path, "", value.text) == ERROR_SUCCESS;
        outcome.refused |= !written;
        outcome.changed |= written && !held;
    }
    return outcome;
}

} // namespace

bool RegisterMenuFileType(const std::string& programFolder)
try {
    const std::vector<ClassesText> values = MenuFileType(programFolder);
    auto [refused, changed] = WriteAll(HKEY_CLASSES_ROOT, values);
    if (refused) {
        long result = ERROR_SUCCESS;
        const RegistryKey own = Created(HKEY_CURRENT_USER, "Software\\Classes", result);
        changed |= own && WriteAll(own.Get(), values).changed;
    }
    if (changed) {
        SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
    }
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

long SetClassesValue(HKEY root, const std::string& path, const std::string& name,
                     const SettingValue& value, SettingType type)
{
    long result = ERROR_SUCCESS;
    RegistryKey key = Opened(root, path, kRegistryAccess, result);
    if (!key) {
        // Ignored: opening the key again tells.
        static_cast<void>(CreateClassesKey(root, path));
        key = Opened(root, path, kRegistryAccess, result);
    }
    if (!key) {
        return result;
    }
    return SetValueEx(key.Get(), name, type == SettingType::byDefault ? SettingType::text : type,
                      value);
}

long CreateClassesKey(HKEY root, const std::string& path)
{
    long result = ERROR_SUCCESS;
    const RegistryKey opened = Opened(root, "", kRegistryAccess, result);
    if (!opened) {
        return result;
    }
    const RegistryKey created = Created(opened.Get(), path, result);
    return result;
}

} // namespace nv
