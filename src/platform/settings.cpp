#include "platform/settings.h"

#include "platform/ansi_text.h"

namespace nv
{

std::string SettingText(const SettingValue& value)
{
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        return std::to_string(*number);
    }
    return std::get<std::string>(value);
}

std::int32_t SettingNumber(const SettingValue& value, std::int32_t byDefault)
{
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        return *number;
    }
    return ParseInteger(std::get<std::string>(value)).value_or(byDefault);
}

} // namespace nv
