#pragma once

#include <string>
#include <utility>
#include <vector>

namespace nv::robot
{

constexpr char kHomeName[] = "Home.nvm";

// The menus that the robot uses, names of files and what stands in them at first: the home menu, a
// small one, an empty one, one of 100,000 entries, one that takes long to load, and one with
// everything in it that no menu should hold. Their links lead to each other or run the recorder, or
// nothing that exists.
std::vector<std::pair<std::string, std::string>> RobotMenus(unsigned seed);

} // namespace nv::robot
