#pragma once

#include "docs/menu_item.h"
#include "platform/ansi_text.h"
#include "platform/files.h"

#include <string>
#include <vector>

namespace nv
{

struct FolderMenu {
    std::string text;                 // as it stands in a Menu file
    std::vector<std::string> leftOut; // names of files that no link can name
};

// The menu of a folder: a title with its name, and a link to each of its files in the order of
// their names, whether shortcut, program, document or menu. Files that are hidden from who looks at
// the folder are left out.
// folder: full path. without: the full path of a file that is no part of it. font: of links; that
// of the title is larger.
FolderMenu MenuOfFolder(Files& files, const std::string& folder, const std::string& without,
                        const Font& font, const CodePage& codePage);

} // namespace nv
