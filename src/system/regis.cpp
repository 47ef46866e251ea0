#include "system/regis.h"

#include "platform/ansi_text.h"
#include "win32/handles.h"

#include <windows.h>

#include <utility>

namespace nv
{

namespace
{

constexpr char kSoftware[] = "Software";

long OpenKey(const std::string& path, RegistryKey& key)
{
    HKEY opened = nullptr;
    const long result = RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, kRegistryAccess, &opened);
    key.Reset(result == ERROR_SUCCESS ? opened : nullptr);
    return result;
}

long WriteValue(HKEY key, const std::string& name, DWORD type, const void* data, std::size_t size)
{
    return RegSetValueExA(key, name.c_str(), 0, type, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(size));
}

long QueryText(HKEY key, const std::string& name, DWORD size, SettingValue& value)
{
    std::string text(size, '\0');
    const long result = RegQueryValueExA(key, name.c_str(), nullptr, nullptr,
                                         reinterpret_cast<BYTE*>(text.data()), &size);
    // The last of the characters is the NUL; a value that another program wrote may have none at
    // all.
    text.resize(result == ERROR_SUCCESS && size > 0 ? size - 1 : 0);
    value = std::move(text);
    return result;
}

} // namespace

long SetValueEx(HKEY key, const std::string& name, SettingType type, const SettingValue& value)
{
    if (type == SettingType::text) {
        const std::string text = SettingText(value);
        return WriteValue(key, name, REG_SZ, text.c_str(), text.size() + 1);
    }
    if (type == SettingType::number) {
        const auto* whole = std::get_if<std::int32_t>(&value);
        const auto number = whole != nullptr ? *whole : ParseInteger(std::get<std::string>(value));
        return number ? WriteValue(key, name, REG_DWORD, &*number, sizeof *number)
                      : ERROR_INVALID_DATA;
    }
    return ERROR_SUCCESS;
}

long QueryValueEx(HKEY key, const std::string& name, SettingValue& value)
{
    constexpr long kUnknownType = -1;
    DWORD type = REG_NONE;
    DWORD size = 0;
    long result = RegQueryValueExA(key, name.c_str(), nullptr, &type, nullptr, &size);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    if (type == REG_SZ) {
        return QueryText(key, name, size, value);
    }
    if (type != REG_DWORD) {
        return kUnknownType;
    }
    std::int32_t number = 0;
    size = sizeof number;
    result = RegQueryValueExA(key, name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&number),
                              &size);
    if (result == ERROR_SUCCESS) {
        value = number;
    }
    return result;
}

Regis::Regis(std::string applicationKey) : applicationKey_(std::move(applicationKey)) {}

SettingValue Regis::GetKeyValue(const std::string& section, const std::string& name,
                                const SettingValue& byDefault)
{
    SettingValue value = byDefault;
    RegistryKey key;
    if (OpenKey(SectionPath(section), key) == ERROR_SUCCESS && !name.empty()) {
        // Ignored: value then holds what the caller is to get.
        static_cast<void>(QueryValueEx(key.Get(), name, value));
    }
    return value;
}

long Regis::SetKeyValue(const std::string& section, const std::string& name,
                        const SettingValue& value, SettingType type)
{
    RegistryKey key;
    long result = OpenKey(SectionPath(section), key);
    if (result != ERROR_SUCCESS) {
        // Ignored: opening the key again tells.
        static_cast<void>(CreateNewKey(section));
        result = OpenKey(SectionPath(section), key);
    }
    if (!key) {
        return result;
    }
    return SetValueEx(key.Get(), name, type == SettingType::byDefault ? SettingType::text : type,
                      value);
}

long Regis::CreateNewKey(const std::string& section)
{
    RegistryKey software;
    const long result = OpenKey(kSoftware, software);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    HKEY created = nullptr;
    const std::string path = applicationKey_ + "\\" + section;
    const long creation =
        RegCreateKeyExA(software.Get(), path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        kRegistryAccess, nullptr, &created, nullptr);
    const RegistryKey owned(creation == ERROR_SUCCESS ? created : nullptr);
    return creation;
}

long Regis::DeleteSetting(const std::string& section, const std::string& name)
{
    if (!name.empty()) {
        RegistryKey key;
        const long result = OpenKey(SectionPath(section), key);
        return result == ERROR_SUCCESS ? RegDeleteValueA(key.Get(), name.c_str()) : result;
    }
    if (!section.empty()) {
        return RegDeleteKeyA(HKEY_CURRENT_USER, SectionPath(section).c_str());
    }
    const std::string software = std::string(kSoftware) + "\\";
    const long result = RegDeleteKeyA(HKEY_CURRENT_USER, (software + applicationKey_).c_str());
    if (result == ERROR_SUCCESS) {
        const std::string brand = applicationKey_.substr(0, applicationKey_.find('\\'));
        // Ignored: a brand key that holds other programs' keys stays.
        static_cast<void>(RegDeleteKeyA(HKEY_CURRENT_USER, (software + brand).c_str()));
    }
    return result;
}

std::string Regis::SectionPath(const std::string& section) const
{
    return std::string(kSoftware) + "\\" + applicationKey_ + "\\" + section;
}

} // namespace nv
