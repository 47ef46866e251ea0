#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace nv
{

// The document's list of lines: entry k is line k, with real line breaks (CR LF) inside. The texts
// stand in large blocks as they were read, so that a menu of 100,000 entries costs 16 bytes an
// entry beyond its text; a changed line's text is added and the old one stays until the list is
// cleared.
class MenuLines
{
public:
    std::size_t size() const { return lines_.size(); }
    bool empty() const { return lines_.empty(); }
    // Valid until the list is cleared, whatever happens to the line.
    std::string_view operator[](std::size_t index) const { return lines_[index]; }

    void Clear();
    // Appends a line, copying its text.
    void Append(std::string_view text);
    // Appends a line whose text stands in a block that was given to the list.
    void AppendFromBlock(std::string_view text) { lines_.push_back(text); }
    // Replaces the text of line index (which must exist), copying it.
    void Set(std::size_t index, std::string_view text);
    // Room for size bytes that lives until the list is cleared.
    char* NewBlock(std::size_t size);

private:
    std::string_view Keep(std::string_view text);

    std::vector<std::unique_ptr<char[]>> blocks_;
    std::vector<std::string_view> lines_;
    char* free_ = nullptr; // the unused rest of the newest small block
    std::size_t freeSize_ = 0;
};

} // namespace nv
