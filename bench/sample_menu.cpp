#include "sample_menu.h"

#include "docs/menu_line.h"

#include <cstdio>
#include <cstdlib>

namespace nv::bench
{

MenuItem TypicalEntry(std::size_t index)
{
    const std::string number = std::to_string(index);
    MenuItem item;
    item.type = ItemType::vLink;
    item.font.charset = 238;
    item.font.bold = index % 4 == 0;
    item.caption = "Quarterly accounts and stock " + number;
    item.link = "C:\\Program Files\\Northern Office Suite\\Accounts 2024\\Ledger " + number +
                ".exe \"D:\\" + number + ".led\"";
    if (index % 50 == 25) {
        item.type = ItemType::vTitle;
        item.font.size = 14;
    } else if (index % 20 == 10) {
        item.type = ItemType::vLabel;
        item.fontColor = 0x800000;
    } else if (index % 20 == 15) {
        item.type = ItemType::vLine;
    }
    return item;
}

std::size_t WriteMenu(const std::string& path, std::size_t entries,
                      const std::vector<std::string>& targets)
{
    std::string text;
    for (std::size_t index = 0; index < entries; ++index) {
        MenuItem item = TypicalEntry(index);
        if (index < targets.size()) {
            item.link = targets[index];
        }
        text += EncodeLine(item) + "\r\n";
    }
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr || std::fwrite(text.data(), 1, text.size(), file) != text.size() ||
        std::fclose(file) != 0) {
        std::fprintf(stderr, "cannot write %s\n", path.c_str());
        std::exit(1);
    }
    return text.size();
}

} // namespace nv::bench
