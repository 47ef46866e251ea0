#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace nv
{

// A setting crosses this interface as text or as a 32-bit number.
using SettingValue = std::variant<std::string, std::int32_t>;

// How a setting is stored: the registry's type codes, 0 meaning text.
enum class SettingType : std::uint32_t { byDefault = 0, text = 1, number = 4 };

// The user's settings: named values in sections. No operation shows anything; results are the
// store's own codes, 0 for success.
class Settings
{
public:
    virtual ~Settings() = default;
    // The stored value, or byDefault when there is none, its type is unknown or name is empty.
    virtual SettingValue GetKeyValue(const std::string& section, const std::string& name,
                                     const SettingValue& byDefault) = 0;
    // Writes a value, creating the section on demand.
    virtual long SetKeyValue(const std::string& section, const std::string& name,
                             const SettingValue& value,
                             SettingType type = SettingType::byDefault) = 0;
};

// The value as text, a number in decimal.
std::string SettingText(const SettingValue& value);
// The value as a 32-bit number, or byDefault when its text is no number.
std::int32_t SettingNumber(const SettingValue& value, std::int32_t byDefault);

} // namespace nv
