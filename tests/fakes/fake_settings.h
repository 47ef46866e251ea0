#pragma once

#include "platform/settings.h"

#include <map>
#include <utility>

namespace nv
{

// Settings in memory. Like the real ones they hold text unless the type says number.
class FakeSettings : public Settings
{
public:
    std::map<std::pair<std::string, std::string>, SettingValue> values;
    int writes = 0;

    SettingValue GetKeyValue(const std::string& section, const std::string& name,
                             const SettingValue& byDefault) override
    {
        const auto found = values.find({section, name});
        return found == values.end() || name.empty() ? byDefault : found->second;
    }

    long SetKeyValue(const std::string& section, const std::string& name, const SettingValue& value,
                     SettingType type = SettingType::byDefault) override
    {
        ++writes;
        values[{section, name}] =
            type == SettingType::number ? value : SettingValue(SettingText(value));
        return 0;
    }

    std::string Text(const std::string& section, const std::string& name)
    {
        return SettingText(GetKeyValue(section, name, "(none)"));
    }
};

} // namespace nv
