#include "docs/menu_lines.h"

#include <algorithm>
#include <cstddef>

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
    source_.clear();
    free_ = nullptr;
    freeSize_ = 0;
    large_ = nullptr;
    largeSize_ = 0;
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

void MenuLines::AppendSource(std::string_view piece)
{
    if (!source_.empty() && source_.back().data() + source_.back().size() == piece.data()) {
        source_.back() = {source_.back().data(), source_.back().size() + piece.size()};
    } else {
        source_.push_back(piece);
    }
}

bool MenuLines::SourceIs(std::string_view contents) const
{
    for (const std::string_view piece : source_) {
        if (!contents.starts_with(piece)) {
            return false;
        }
        contents.remove_prefix(piece.size());
    }
    return contents.empty();
}

std::string_view MenuLines::Keep(std::string_view text)
{
    if (text.empty()) {
        return {};
    }
    char* place = free_;
    if (text.size() > kSmallBlock / 4) {
        place = NewBlock(text.size()); // the rest of the small block still serves shorter texts
        large_ = place;
        largeSize_ = text.size();
    } else {
        if (text.size() > freeSize_) {
            place = NewBlock(kSmallBlock);
            freeSize_ = kSmallBlock;
        }
        free_ = place + text.size();
        freeSize_ -= text.size();
    }
    std::copy_n(text.data(), text.size(), place);
    return {place, text.size()};
}

void MenuLines::GiveBack(std::string_view kept)
{
    if (kept.empty()) {
        return;
    }
    if (kept.data() == large_) {
        const auto isLarge = [this](const auto& block) { return block.get() == large_; };
        blocks_.erase(std::find_if(blocks_.begin(), blocks_.end(), isLarge));
        large_ = nullptr;
        largeSize_ = 0;
    } else if (kept.data() + kept.size() == free_) {
        free_ -= kept.size();
        freeSize_ += kept.size();
    }
}

void MenuLines::Rewrite(std::size_t index, std::string_view text)
{
    const std::string_view old = lines_[index];
    const bool inLarge = !old.empty() && old.data() == large_;
    const bool isLast = !inLarge && !old.empty() && old.data() + old.size() == free_;
    if (inLarge && text.size() > largeSize_) {
        // With room for the keys that follow, so that not each of them copies the whole block.
        const std::size_t size = text.size() + text.size() / 8;
        char* place = NewBlock(size);
        std::copy_n(text.data(), text.size(), place);
        GiveBack(old);
        large_ = place;
        largeSize_ = size;
        lines_[index] = {place, text.size()};
    } else if (inLarge) {
        std::copy_n(text.data(), text.size(), large_);
        lines_[index] = {large_, text.size()};
    } else if (isLast && text.size() <= old.size() + freeSize_) {
        char* place = free_ - old.size();
        std::copy_n(text.data(), text.size(), place);
        freeSize_ = freeSize_ + old.size() - text.size();
        free_ = place + text.size();
        lines_[index] = {place, text.size()};
    } else {
        lines_[index] = Keep(text);
    }
}

void MenuLines::MakeRoom(std::size_t count)
{
    if (lines_.capacity() - lines_.size() < count) {
        lines_.reserve(std::max(lines_.size() + count, lines_.capacity() * 2));
    }
}

void MenuLines::InsertKept(std::size_t index, std::string_view kept)
{
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(index), kept);
}

void MenuLines::Remove(std::size_t index)
{
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(index));
}

void MenuLines::Move(std::size_t from, std::size_t to)
{
    const auto at = [this](std::size_t index) {
        return lines_.begin() + static_cast<std::ptrdiff_t>(index);
    };
    if (from < to) {
        std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
        std::rotate(at(to), at(from), at(from + 1));
    }
}

} // namespace nv
