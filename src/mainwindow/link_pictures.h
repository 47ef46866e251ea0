#pragma once

#include "mainwindow/shell_exe.h"
#include "platform/canvas.h"
#include "platform/icons.h"

#include <string>
#include <unordered_map>

namespace nv
{

// The pictures of the links. The shell is asked once for each path, however many links of a menu
// name it.
class LinkPictures
{
public:
    // Both must outlive this.
    LinkPictures(ShellExe& shellExe, IconLookup& icons) : shellExe_(shellExe), icons_(icons) {}

    // The picture of a command if it is known already.
    const Picture* Known(const std::string& command) const;
    // The picture of a command, asking the shell when it is not known. An empty one: the link is
    // shown without. May take the shell some milliseconds.
    Picture Find(WindowHandle owner, const std::string& command);
    // Forgets all, for a menu that is shown anew: programs come and go meanwhile.
    void Clear();

private:
    std::string PathOf(WindowHandle owner, const std::string& command);
    Picture PictureOf(const std::string& path);

    ShellExe& shellExe_;
    IconLookup& icons_;
    std::unordered_map<std::string, Picture> byCommand_;
    std::unordered_map<std::string, Picture> byPath_;
};

} // namespace nv
