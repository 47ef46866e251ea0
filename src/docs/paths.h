#pragma once

#include "platform/ansi_text.h"
#include "platform/files.h"

#include <string>
#include <string_view>

namespace nv
{

struct PathParts {
    std::string fileName;
    std::string folder; // without its closing backslash, unless it is a drive root
};

// "C:\Menus\Start.nvm" gives "Start.nvm" and "C:\Menus"; "C:\Start.nvm" gives "Start.nvm", "C:\".
PathParts SplitPath(std::string_view path, const CodePage& codePage);

// The path of the file or folder name in folder, which has no closing backslash unless it is a
// drive root.
std::string PathIn(const std::string& folder, const std::string& name);

// The full path of what path names for a program in folder, which is full itself: a path without a
// drive or a server begins there, whatever the current folder is. "." and ".." are resolved; a name
// that belongs to a device becomes that of the device.
std::string CompletePath(Files& files, const std::string& path, const std::string& folder);

// The upper-cased text after the last "." of path, wherever that stands: "C:\My.Menus\Start" gives
// "MENUS\START". Empty when there is no ".".
std::string FileExtension(std::string_view path);

// A name beside path that nothing has: path and ending, or with a number between them.
std::string FreeName(Files& files, const std::string& path, const std::string& ending);

// Creates folder and the missing folders above it, at most 21 levels. Failures are ignored: the
// levels that exist, or cannot be made, do not stop those below.
void MakeFolders(Files& files, std::string_view folder, const CodePage& codePage);

// True when a listing of path finds a file (not a folder), be it hidden, system or read-only.
bool FileExists(Files& files, const std::string& path);

} // namespace nv
