#pragma once

#include <cstddef>

namespace nv::bench
{

// Reads the menu at path and decodes every entry with the program's own code; how many bytes the
// texts of the entries have. Ends the process when it cannot.
std::size_t ReadAndDecode(const char* path);
// Only reads the file into memory that was not used before: what holding it costs at the least.
std::size_t ReadOnly(const char* path);

} // namespace nv::bench
