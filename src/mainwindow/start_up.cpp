#include "mainwindow/start_up.h"

#include "docs/paths.h"

#include <algorithm>
#include <cstdio>

namespace nv
{

namespace
{

constexpr char kPlacementSection[] = "StartSet";

TwipRect Around(const std::vector<TwipRect>& areas)
{
    double left = areas.front().left;
    double top = areas.front().top;
    double right = left;
    double bottom = top;
    for (const TwipRect& area : areas) {
        left = std::min<double>(left, area.left);
        top = std::min<double>(top, area.top);
        right = std::max(right, double{area.left} + double{area.width});
        bottom = std::max(bottom, double{area.top} + double{area.height});
    }
    return {static_cast<Twips>(left), static_cast<Twips>(top), static_cast<Twips>(right - left),
            static_cast<Twips>(bottom - top)};
}

// Whether enough of the caption lies within area to see it and to drag the window by it.
bool ShowsCaption(const TwipRect& area, const Placement& window, Twips captionHeight)
{
    constexpr Twips kEnough = 600;
    const Twips seen = std::min(area.left + area.width, window.left + window.width) -
                       std::max(area.left, window.left);
    return seen >= std::min(kEnough, window.width) &&
           window.top + captionHeight <= area.top + area.height &&
           window.top + captionHeight / 2 >= area.top;
}

// Moves a window into area, its left top corner first of all.
void MoveInto(const TwipRect& area, Placement& window)
{
    window.left = std::max(area.left, std::min(window.left, area.left + area.width - window.width));
    window.top = std::max(area.top, std::min(window.top, area.top + area.height - window.height));
}

// As a single-precision number is written: seven digits, no zeros at the end.
std::string SingleText(Twips value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.7g", double{value});
    return text;
}

} // namespace

std::string WindowTitle(int major, int minor, int revision)
{
    return "Navrix Menu " + std::to_string(major) + "." + std::to_string(minor) + "." +
           std::to_string(revision);
}

std::string MissingLauncherText()
{
    return "File \"NVSub.exe\" must be in same directory as Navrix Menu!\n\n"
           "Program cannot continue.";
}

std::string DefaultHome(Files& files, const std::string& programFolder)
{
    const auto names = files.List(PathIn(programFolder, "*.nvm"), 1);
    return names.empty() ? std::string() : PathIn(programFolder, names.front());
}

std::string StartFileChoice(Settings& settings, const std::string& defaultHome,
                            const std::string& home)
{
    switch (SettingNumber(settings.GetKeyValue("Settings", "StartOpen", 0), 0)) {
    case 0:
        return defaultHome;
    case 1:
        return home;
    case 2:
        return SettingText(settings.GetKeyValue("Settings", "Last", "C:\\Start.nvm"));
    default:
        return {};
    }
}

Placement ReadPlacement(Settings& settings)
{
    const auto read = [&settings](const char* name, std::int32_t byDefault) {
        const SettingValue value = settings.GetKeyValue(kPlacementSection, name, byDefault);
        return static_cast<Twips>(SettingNumber(value, byDefault));
    };
    // No window was ever that small: such a size is a slip of who wrote it.
    const auto readSize = [&read](const char* name, std::int32_t byDefault) {
        const Twips size = read(name, byDefault);
        return size > 0 ? size : static_cast<Twips>(byDefault);
    };
    return {read("MainLeft", 1000), read("MainTop", 1000), readSize("MainWidth", 10000),
            readSize("MainHeight", 8000)};
}

void WritePlacement(Settings& settings, const Placement& placement)
{
    const auto write = [&settings](const char* name, Twips value) {
        // A placement that cannot be kept is no reason to hold up the end of the program.
        (void)settings.SetKeyValue(kPlacementSection, name, SingleText(value));
    };
    write("MainLeft", placement.left);
    write("MainTop", placement.top);
    write("MainWidth", placement.width);
    write("MainHeight", placement.height);
}

TwipSize MinimumSize(Twips nonClientHeight, bool locked)
{
    return locked ? TwipSize{7000, nonClientHeight + 3095}
                  : TwipSize{10000, nonClientHeight + 6195};
}

Placement StartPlacement(const Placement& saved, Twips nonClientHeight, bool locked,
                         const std::vector<TwipRect>& workAreas, Twips captionHeight)
{
    Placement window = saved;
    const TwipRect desktop = Around(workAreas);
    window.width = std::min(window.width, desktop.width);
    window.height = std::min(window.height, desktop.height);
    if (!locked) {
        const TwipSize minimum = MinimumSize(nonClientHeight, locked);
        window.width = std::max(window.width, minimum.width);
        window.height = std::max(window.height, minimum.height);
    }
    const bool seen = std::any_of(workAreas.begin(), workAreas.end(), [&](const TwipRect& area) {
        return ShowsCaption(area, window, captionHeight);
    });
    const bool cut = saved.width > desktop.width || saved.height > desktop.height;
    if (!seen || cut) {
        MoveInto(workAreas.front(), window);
    }
    return window;
}

} // namespace nv
