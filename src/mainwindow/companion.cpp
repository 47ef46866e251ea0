#include "mainwindow/companion.h"

namespace nv
{

namespace
{

const char* const kUsage =
    "NVSUB starts the program or document that is named after it, with its arguments:\n\n"
    "NVSUB program arguments\n\n"
    "%NAMES% of environment variables are replaced by their values. \"/NV+\" at the end shows the "
    "program maximized, \"/NV-\" minimized; a folder to start it in may follow.";

const char* SwitchOf(int show)
{
    switch (show) {
    case 3: // maximized
        return " /NV+";
    case 2: // minimized, in the three ways that the platform knows
    case 6:
    case 7:
        return " /NV-";
    default:
        return "";
    }
}

} // namespace

std::string CompanionCommand(std::string_view arguments, int show)
{
    const auto first = arguments.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    const bool hasSwitch = FindSwitch(arguments) != std::string_view::npos;
    return std::string(arguments.substr(first)) + (hasSwitch ? "" : SwitchOf(show));
}

std::string CannotStartText(const LaunchInfo& info, const CodePage& codePage)
{
    if (info.plainProgram.empty()) {
        return kUsage;
    }
    std::string text = "Cannot start:\n\n" + ShortenedForBox(info.plainProgram, codePage);
    if (info.targetKind == TargetKind::notFound) {
        return text + "\n\nIt was not found, or no program opens files of its kind.";
    }
    text += "\n\nThis program did not start:\n\n" + ShortenedForBox(info.foundProgram, codePage);
    if (!info.workingDirectory.empty()) {
        text += "\n\nin the folder:\n\n" + ShortenedForBox(info.workingDirectory, codePage);
    }
    return text;
}

} // namespace nv
