#pragma once

#include <string>

namespace nv
{

// The two menus that the killed program saves: long enough to be killed in, each all of one kind.
inline std::string SavedMenu(bool first)
{
    return first ? std::string(3'000'000, 'a') : std::string(2'000'000, 'b');
}

} // namespace nv
