// Menus of any length for the benchmarks.
#pragma once

#include "docs/menu_item.h"

#include <cstddef>
#include <string>
#include <vector>

namespace nv::bench
{

// Entry index of a typical menu: mostly links to programs deep in their folders, now and then a
// title, a label or a line. The line of one is some 360 bytes long.
MenuItem TypicalEntry(std::size_t index);

// Writes a menu of that many typical entries to path, overwriting; its size in bytes. Ends the
// process when it cannot. targets: what the first entries are links to.
std::size_t WriteMenu(const std::string& path, std::size_t entries,
                      const std::vector<std::string>& targets = {});

} // namespace nv::bench
