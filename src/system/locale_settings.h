#pragma once

#include <cstdint>
#include <string_view>

namespace nv
{

// The Windows character set that goes with an ANSI code page, given as the platform names it
// ("1250"); 0 for any other text.
std::int16_t CodePageToCharset(std::string_view codePage);

} // namespace nv
