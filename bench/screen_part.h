#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace nv::bench
{

// The pixels that stand on the screen within area (screen coordinates): what a user would see, of
// whatever process.
std::vector<std::uint32_t> ScreenPart(const RECT& area);

} // namespace nv::bench
