// The user's settings in the registry:
//
//   HKEY_CURRENT_USER\Software\Belquin\Navrix Menu
//     Settings   Last, Home, StartOpen
//     StartSet   MainLeft, MainTop, MainWidth, MainHeight
//
// Results are the registry's own codes, 0 for success. No key stays open between calls.
#pragma once

#include "platform/settings.h"

#include <windows.h>

#include <string>

namespace nv
{

// Query, set, create sub-key, enumerate, notify and create link: what every key is opened with.
inline constexpr REGSAM kRegistryAccess = 63;

// Writes a value under an open key. text: the value as text and a NUL; number: four bytes, or
// ERROR_INVALID_DATA and nothing written when the value is a text that is no number. Any other type
// writes nothing and is a success. name: empty for the key's default value.
long SetValueEx(HKEY key, const std::string& name, SettingType type, const SettingValue& value);

// Reads a value of an open key into value, which keeps what it holds when there is none or its
// type is neither text nor number (result -1). A text that vanishes meanwhile reads as empty.
long QueryValueEx(HKEY key, const std::string& name, SettingValue& value);

class Regis : public Settings
{
public:
    // applicationKey: brand and program, below HKEY_CURRENT_USER\Software.
    explicit Regis(std::string applicationKey = "Belquin\\Navrix Menu");

    SettingValue GetKeyValue(const std::string& section, const std::string& name,
                             const SettingValue& byDefault) override;
    long SetKeyValue(const std::string& section, const std::string& name, const SettingValue& value,
                     SettingType type = SettingType::byDefault) override;
    // Creates the section's key; no error when it exists.
    long CreateNewKey(const std::string& section);
    // Deletes the value; with an empty name the section; with both empty the program's key and then
    // the brand's, if no other program's key stands in it. A key that holds keys is not deleted.
    long DeleteSetting(const std::string& section, const std::string& name);

private:
    std::string SectionPath(const std::string& section) const;

    std::string applicationKey_;
};

} // namespace nv
