#pragma once

#include "e2e/driver.h"
#include "robot/random.h"

#include <string>
#include <vector>

namespace nv::robot
{

// The hand of a user who does anything at any time: each action is chosen and done at random, and
// depends on nothing but the seed, its number and what is shown.
class Hand
{
public:
    // folder: where pickers and dialogs may make files. names: of the menus there.
    Hand(std::string folder, std::vector<std::string> names, unsigned seed);

    // Does the next action to the program with that main window.
    void Act(HWND main);
    const std::vector<std::string>& Names() const { return names_; }
    unsigned Actions() const { return actions_; }
    // The last actions, one a line.
    std::string LastActions() const;
    // Anything else that was done, among the actions.
    void Note(const std::string& what);

private:
    std::string OnModal(HWND modal, Random& random);
    std::string OnDialog(HWND dialog, Random& random);
    std::string RandomPath(Random& random) const;

    std::string folder_;
    std::vector<std::string> names_;
    unsigned seed_;
    unsigned actions_ = 0;
    std::vector<std::string> log_;
};

} // namespace nv::robot
