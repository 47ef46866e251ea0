#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace nv::robot
{

// What the program under the robot takes of the system at one moment, by name: the handles that it
// owns, its windows, GDI objects and memory.
using Usage = std::map<std::string, long long>;

// Of the program with that main window, which must be a build that counts its handles.
Usage UsageOf(HWND main);

// Whether that program has keys, clicks or posted messages to take.
bool InputWaits(HWND main);

struct Comparison {
    std::string table;              // of all figures
    std::vector<std::string> grown; // the names of those that have grown: leaks
};
// The last third of moments with the first. Of a third the best moment counts: what is still being
// freed is no leak. There must be one moment at least.
Comparison Compare(std::vector<Usage> moments);

} // namespace nv::robot
