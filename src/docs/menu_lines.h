#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace nv
{

// The document's list of lines: entry k is line k, with real line breaks (CR LF) inside. The texts
// stand in large blocks as they were read, so that a menu of 100,000 entries costs 16 bytes an
// entry beyond its text. The text of a changed or removed line stays until the list is cleared, so
// that a journal of changes can hold views of it; only GiveBack and Rewrite end a text's life.
class MenuLines
{
public:
    std::size_t size() const { return lines_.size(); }
    bool empty() const { return lines_.empty(); }
    // Valid until the list is cleared, or the text given back or rewritten; whatever else happens
    // to the line.
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
    // The next piece of the file as it was read, in a block that was given to the list.
    void AppendSource(std::string_view piece);
    // Whether contents are those of the file that the list was read from.
    bool SourceIs(std::string_view contents) const;

    // A copy of text among the texts of the list, not yet the text of a line.
    std::string_view Keep(std::string_view text);
    // For a text from Keep that nothing views any more, no line either: its room is used again when
    // it was the last one kept.
    void GiveBack(std::string_view kept);
    // Like Set for a line whose text came from Keep or Rewrite and which nothing else views: that
    // text's room is used again when it was the last one kept. So typing into a long caption does
    // not leave a copy of it at every key.
    void Rewrite(std::size_t index, std::string_view text);

    // The next count insertions cannot fail.
    void MakeRoom(std::size_t count);
    // These copy nothing: kept is a text of this list.
    void SetKept(std::size_t index, std::string_view kept) { lines_[index] = kept; }
    void InsertKept(std::size_t index, std::string_view kept);
    void Remove(std::size_t index);
    // Takes line from out and puts it in again so that it is line to.
    void Move(std::size_t from, std::size_t to);

private:
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::vector<std::string_view> lines_;
    std::vector<std::string_view> source_; // the pieces of the file
    char* free_ = nullptr;                 // the unused rest of the newest small block
    std::size_t freeSize_ = 0;
    char* large_ = nullptr; // the newest block made for one text only, whatever its length is now
    std::size_t largeSize_ = 0;
};

} // namespace nv
