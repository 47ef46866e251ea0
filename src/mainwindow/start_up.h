#pragma once

#include "platform/files.h"
#include "platform/settings.h"
#include "platform/units.h"

#include <string>
#include <vector>

namespace nv
{

// "Navrix Menu 1.0.210"
std::string WindowTitle(int major, int minor, int revision);

// What the user is told when the companion launcher is missing.
std::string MissingLauncherText();

// Folder, "\" and the first Menu file in it; empty when there is none.
std::string DefaultHome(Files& files, const std::string& programFolder);

// The menu to open when the command line names none, by the setting "StartOpen"; empty: none.
std::string StartFileChoice(Settings& settings, const std::string& defaultHome,
                            const std::string& home);

// Where the main window stands, its frame included.
struct Placement {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;
    bool operator==(const Placement&) const = default;
};

// The placement that was stored. What is missing or no number, and a size that is not above zero,
// is the program's default.
Placement ReadPlacement(Settings& settings);
void WritePlacement(Settings& settings, const Placement& placement);

// The smallest size the window may be given. nonClientHeight: what its frame adds to its height.
TwipSize MinimumSize(Twips nonClientHeight, bool locked);

// The placement that the window starts with: not below the minimum size outside locked mode, not
// larger than all monitors together, and where a monitor shows its caption; one that was larger,
// into the first monitor. workAreas: of the monitors, at least one, the primary first;
// captionHeight: what must be seen to drag the window.
Placement StartPlacement(const Placement& saved, Twips nonClientHeight, bool locked,
                         const std::vector<TwipRect>& workAreas, Twips captionHeight);

} // namespace nv
