#pragma once

#include "platform/font.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace nv
{

// The kinds of entry, by the codes that Menu files hold. A hand-edited file may hold 6 to 9, too:
// such an entry is kept and not shown.
enum class ItemType : std::int16_t {
    vNotVisible = 0, // kept in the document, not shown
    vTitle = 1,      // a title that types itself out
    vLabel = 2,      // plain text
    vLink = 3,       // runs its command when clicked
    vSpace = 4,      // an empty gap
    vLine = 5,       // a horizontal separator
};

// One entry of a menu.
struct MenuItem {
    ItemType type = ItemType::vNotVisible;
    std::string caption;
    std::string link; // the command: a program, a document or another Menu file
    Font font;
    Color fontColor = 0;
    bool operator==(const MenuItem&) const = default;
};

// "vNotVisible" ... "vLine"; empty for any other code.
std::string_view TypeName(ItemType type);

// The one-line text under which the entry stands in the editor's item list.
// typeName: what TypeName gives for the item's type.
std::string ListText(std::string_view typeName, const MenuItem& item);

} // namespace nv
