// The file type of Menu files, in the classes of the shell; every value is its key's default one:
//
//   Navrix Menu                       Navrix Menu
//     DefaultIcon                     C:\My Programs\NVMenu.exe,0
//     shell\open\command              "C:\My Programs\NVMenu.exe" %1
//   .NVM                              Navrix Menu
//
// Results are the registry's own codes, 0 for success. No key stays open between calls.
#pragma once

#include "platform/settings.h"

#include <windows.h>

#include <string>

namespace nv
{

// Binds Menu files to the program in programFolder, over whatever was bound to them: in
// HKEY_CLASSES_ROOT, and where any of that is refused, all of it in the user's own classes, which
// the shell looks into first. Tells the shell when a value is another one than before. What the
// registry refuses stops nothing; false: there was no memory to do it all. programFolder: without
// closing backslash, unless it is a drive root.
bool RegisterMenuFileType(const std::string& programFolder);

// Writes a value of a key below root, an open key, and creates that key when it cannot be opened.
// name: empty for the key's default value.
long SetClassesValue(HKEY root, const std::string& path, const std::string& name,
                     const SettingValue& value, SettingType type = SettingType::byDefault);

// Creates a key below root, an open key, and all keys on the way to it; no error when it exists.
long CreateClassesKey(HKEY root, const std::string& path);

} // namespace nv
