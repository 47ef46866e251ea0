#include "tool/link_check.h"

#include "docs/paths.h"
#include "mainwindow/companion.h"
#include "mainwindow/link_click.h"
#include "tool/tool_text.h"

#include <algorithm>
#include <utility>

namespace nv
{

std::int32_t LookingShell::FindProgram(const std::string& file, const std::string& directory,
                                       std::span<char> answer)
{
    const auto [at, isNew] = answers_.try_emplace(directory + '|' + file);
    Answer& known = at->second;
    if (isNew) {
        known.result = shell_.FindProgram(file, directory, answer);
        known.text.assign(answer.begin(), answer.end());
    } else {
        std::copy_n(known.text.begin(), std::min(known.text.size(), answer.size()), answer.begin());
    }
    return known.result;
}

LinkCheck::LinkCheck(Files& files, Shell& shell, std::string programFolder, CodePage codePage,
                     Expand expand)
    : files_(files), codePage_(codePage), expand_(std::move(expand)), shell_(shell),
      shellExe_(shell_, std::move(programFolder))
{
}

std::string LinkCheck::Finding(const std::string& command)
{
    if (const auto menu = MenuToOpen(shellExe_, 0, command)) {
        return MenuFinding(*menu);
    }
    LaunchInfo info = shellExe_.LaunchCommand(0, command, "", false);
    if (IsLauncherCommand(command)) {
        // The companion is started in the folder as it is written, and is given the arguments
        // alone.
        if (std::string finding = FolderFinding(info); !finding.empty()) {
            return finding;
        }
        info = shellExe_.LaunchCommand(0, CompanionCommand(expand_(info.arguments), 1), "", false);
    }
    if (info.plainProgram.empty()) {
        return "the link names nothing to run";
    }
    if (info.targetKind == TargetKind::notFound) {
        return NotFound(info);
    }
    return FolderFinding(info);
}

std::string LinkCheck::FolderFinding(const LaunchInfo& info)
{
    if (info.workingDirectory.empty() || files_.Attributes(info.workingDirectory).folder) {
        return {};
    }
    return "the folder to start in is not found: " + Excerpt(info.workingDirectory, codePage_);
}

std::string LinkCheck::MenuFinding(const std::string& path)
{
    const FileAttributes attributes = files_.Attributes(path);
    if (attributes.exists && !attributes.folder) {
        return {};
    }
    return "the menu is not found: " + Excerpt(path, codePage_);
}

// No program was found for the target: the shell is then given the target alone, and there are some
// that it opens by itself.
std::string LinkCheck::NotFound(const LaunchInfo& info)
{
    const std::string& target = info.plainProgram;
    if (!info.workingDirectory.empty()) {
        // The start is not the shell's then.
        return "text after /NV needs a program, and none is found for " +
               Excerpt(target, codePage_);
    }
    const FileAttributes attributes = files_.Attributes(target);
    if (IsAddress(target)) {
        return FitsShell(info) ? "" : "the address is too long: " + Excerpt(target, codePage_);
    }
    if (attributes.folder) {
        return {};
    }
    if (!attributes.exists) {
        return "the target is not found: " + Excerpt(target, codePage_);
    }
    const std::string extension = FileExtension(target);
    const bool shortcut = extension == "LNK" || extension == "URL";
    return shortcut ? "" : "no program opens files of this kind: " + Excerpt(target, codePage_);
}

} // namespace nv
