#include "docs/menu_item.h"

#include <array>

namespace nv
{

std::string_view TypeName(ItemType type)
{
    constexpr std::array<std::string_view, 6> kNames = {"vNotVisible", "vTitle", "vLabel",
                                                        "vLink",       "vSpace", "vLine"};
    const auto code = static_cast<std::uint16_t>(type);
    return code < kNames.size() ? kNames[code] : std::string_view();
}

std::string ListText(std::string_view typeName, const MenuItem& item)
{
    std::string text = "Type = ";
    text += typeName;
    if (item.type == ItemType::vNotVisible || item.type == ItemType::vSpace ||
        item.type == ItemType::vLine) {
        return text;
    }
    return text + (item.caption.empty() ? ", Link = " + item.link : ", Caption = " + item.caption);
}

} // namespace nv
