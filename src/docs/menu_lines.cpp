#include "docs/menu_lines.h"

#include <cstring>

namespace nv
{

namespace
{
constexpr std::size_t kSmallBlock = std::size_t{64} * 1024;
}

void MenuLines::Clear()
{
    lines_.clear();
    blocks_.clear();
    free_ = nullptr;
    freeSize_ = 0;
}

void MenuLines::Append(std::string_view text)
{
    lines_.push_back(Keep(text));
}

void MenuLines::Set(std::size_t index, std::string_view text)
{
    lines_[index] = Keep(text);
}

char* MenuLines::NewBlock(std::size_t size)
{
    // Filled, because a file is read into it: Wine looks at every page first, and one that was
    // never written to is then faulted in twice.
    blocks_.push_back(std::make_unique<char[]>(size));
    return blocks_.back().get();
}

std::string_view MenuLines::Keep(std::string_view text)
{
    if (text.empty()) {
        return {};
    }
    char* place = free_;
    if (text.size() > kSmallBlock / 4) {
        place = NewBlock(text.size()); // the rest of the small block still serves shorter texts
    } else {
        if (text.size() > freeSize_) {
            place = NewBlock(kSmallBlock);
            freeSize_ = kSmallBlock;
        }
        free_ = place + text.size();
        freeSize_ -= text.size();
    }
    std::memcpy(place, text.data(), text.size());
    return {place, text.size()};
}

} // namespace nv
