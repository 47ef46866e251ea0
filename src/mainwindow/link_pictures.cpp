#include "mainwindow/link_pictures.h"

#include "docs/paths.h"

namespace nv
{

namespace
{

constexpr Picture kNoIcon{Picture::Source::own, 1};
constexpr Picture kMenuPicture{Picture::Source::own, 2};

} // namespace

const Picture* LinkPictures::Known(const std::string& command) const
{
    const auto known = byCommand_.find(command);
    return known == byCommand_.end() ? nullptr : &known->second;
}

Picture LinkPictures::Find(WindowHandle owner, const std::string& command)
{
    if (const Picture* known = Known(command)) {
        return *known;
    }
    const Picture picture = PictureOf(PathOf(owner, command));
    byCommand_.emplace(command, picture);
    return picture;
}

void LinkPictures::Clear()
{
    byCommand_.clear();
    byPath_.clear();
}

std::string LinkPictures::PathOf(WindowHandle owner, const std::string& command)
{
    if (IsLauncherCommand(command)) {
        return shellExe_.LauncherPath();
    }
    const LaunchInfo info = shellExe_.LaunchCommand(owner, command, "", false);
    // A document shows its own icon, not that of the program that opens it.
    return info.targetKind == TargetKind::program ? info.foundProgram : info.plainProgram;
}

Picture LinkPictures::PictureOf(const std::string& path)
{
    if (const auto known = byPath_.find(path); known != byPath_.end()) {
        return known->second;
    }
    Picture picture = kNoIcon;
    const std::string extension = FileExtension(path);
    if (extension == "NVM") {
        picture = kMenuPicture;
    } else if (extension == "NVF") {
        picture = {};
    } else if (const auto icon = icons_.SmallIcon(path)) {
        picture = {Picture::Source::system, *icon};
    }
    byPath_.emplace(path, picture);
    return picture;
}

} // namespace nv
