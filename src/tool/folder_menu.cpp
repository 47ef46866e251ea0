#include "tool/folder_menu.h"

#include "docs/menu_line.h"
#include "docs/paths.h"
#include "platform/system_colors.h"
#include "tool/tool_text.h"

#include <algorithm>
#include <cstdint>

namespace nv
{

namespace
{

constexpr double kTitleSize = 14; // points

// folder with its closing backslash; no character's second half is taken for one.
std::string AsPrefix(const std::string& folder, const CodePage& codePage)
{
    const auto last = codePage.FindLast(folder, '\\');
    return last != std::string::npos && last + 1 == folder.size() ? folder : folder + '\\';
}

// The last part of "C:\Tools\"; of a drive all of it.
std::string NameOfFolder(const std::string& prefix, const CodePage& codePage)
{
    const std::string name =
        SplitPath(std::string_view(prefix).substr(0, prefix.size() - 1), codePage).fileName;
    return name.empty() || name.ends_with(':') ? prefix : name;
}

// The name without its extension; ".profile" is all name.
std::string CaptionOf(const std::string& name)
{
    const auto dot = name.rfind('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

std::string CommandOf(const std::string& path)
{
    return path.find(' ') == std::string::npos ? path : '"' + path + '"';
}

} // namespace

FolderMenu MenuOfFolder(Files& files, const std::string& folder, const std::string& without,
                        const Font& font, const CodePage& codePage)
{
    const std::string prefix = AsPrefix(folder, codePage);
    FolderMenu menu;
    MenuItem item;
    item.type = ItemType::vTitle;
    item.caption = NameOfFolder(prefix, codePage);
    item.font = font;
    item.font.size = kTitleSize;
    item.font.bold = true;
    item.fontColor = kWindowText;
    menu.text = EncodeLine(item) + "\r\n";

    item.type = ItemType::vLink;
    item.font = font;
    std::vector<std::string> names = files.List(prefix + '*', SIZE_MAX);
    std::sort(names.begin(), names.end(), NameBefore);
    for (const std::string& name : names) {
        const std::string path = prefix + name;
        const FileAttributes attributes = files.Attributes(path);
        if (!attributes.exists) {
            // Its name has characters that are not of the code page.
            menu.leftOut.push_back(name);
        } else if (!attributes.hidden && !EqualIgnoringCase(path, without)) {
            item.caption = CaptionOf(name);
            item.link = CommandOf(path);
            menu.text += EncodeLine(item) + "\r\n";
        }
    }
    return menu;
}

} // namespace nv
