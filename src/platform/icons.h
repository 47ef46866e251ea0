#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace nv
{

// Asks the shell which small icon a file has.
class IconLookup
{
public:
    virtual ~IconLookup() = default;
    // The icon's index in the system's list of small icons; nothing when the shell does not answer.
    virtual std::optional<std::int32_t> SmallIcon(const std::string& path) = 0;
};

} // namespace nv
