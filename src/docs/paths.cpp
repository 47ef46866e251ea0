#include "docs/paths.h"

#include <algorithm>

namespace nv
{

namespace
{

bool IsSlash(char ch)
{
    return ch == '\\' || ch == '/';
}

// "C:" of "C:\Menus"; of a folder on another computer "\\server\share".
std::string RootOf(const std::string& folder)
{
    if (folder.size() < 2 || folder[1] == ':') {
        return folder.substr(0, 2);
    }
    const auto share = folder.find('\\', 2);
    return folder.substr(0, folder.find('\\', std::min(share, folder.size() - 1) + 1));
}

} // namespace

PathParts SplitPath(std::string_view path, const CodePage& codePage)
{
    const auto backslash = codePage.FindLast(path, '\\');
    const auto folderLength = backslash == std::string_view::npos ? 0 : backslash + 1;
    std::string_view folder = path.substr(0, folderLength);
    if (codePage.CountCharacters(folder) >= 4) {
        folder.remove_suffix(1);
    }
    return {std::string(path.substr(folderLength)), std::string(folder)};
}

std::string PathIn(const std::string& folder, const std::string& name)
{
    // Only that of a drive root is a separator for sure: the last byte of a folder's name may be
    // equal to one.
    const bool driveRoot = folder.size() == 3 && folder[1] == ':';
    return folder.substr(0, driveRoot ? 2 : folder.size()) + "\\" + name;
}

std::string CompletePath(Files& files, const std::string& path, const std::string& folder)
{
    std::string begun = path;
    const bool drive = path.size() >= 2 && path[1] == ':';
    const std::string behind = path.substr(drive ? 2 : 0);
    const bool fromRoot = !behind.empty() && IsSlash(behind.front());
    if (drive && !fromRoot) {
        // The system would take the folder that is the current one on that drive.
        const bool own = EqualIgnoringCase(path.substr(0, 2), RootOf(folder));
        begun = own ? PathIn(folder, behind) : path.substr(0, 2) + "\\" + behind;
    } else if (!drive && !fromRoot) {
        begun = PathIn(folder, path);
    } else if (!drive && (path.size() < 2 || !IsSlash(path[1]))) {
        begun = RootOf(folder) + path;
    }
    return files.FullPath(begun);
}

std::string FileExtension(std::string_view path)
{
    // "." is no second half of a character in any code page.
    const auto dot = path.rfind('.');
    return dot == std::string_view::npos ? std::string() : UpperCase(path.substr(dot + 1));
}

std::string FreeName(Files& files, const std::string& path, const std::string& ending)
{
    std::string name = path + ending;
    for (int number = 2; files.Attributes(name).exists; ++number) {
        name = path + "." + std::to_string(number) + ending;
    }
    return name;
}

void MakeFolders(Files& files, std::string_view folder, const CodePage& codePage)
{
    constexpr int kMaxLevels = 21;
    std::string path(folder);
    const auto last = codePage.FindLast(path, '\\');
    if (last == std::string::npos || last + 1 != path.size()) {
        path += '\\';
    }
    int levels = 0;
    // The first three characters are the drive's: "C:\".
    std::size_t at = codePage.FirstCharacters(path, 3).size();
    for (; at < path.size() && levels < kMaxLevels; at += codePage.CharacterLength(path, at)) {
        if (path[at] == '\\') {
            // Ignored: a level that exists is an error here, and creating the file tells the rest.
            static_cast<void>(files.MakeFolder(path.substr(0, at)));
            ++levels;
        }
    }
}

bool FileExists(Files& files, const std::string& path)
{
    return !files.List(path, 1).empty();
}

} // namespace nv
