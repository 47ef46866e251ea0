// Text is bytes in the process's ANSI code page. These are the few operations on it that the whole
// program shares; none of them depends on the C locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nv
{

// Knows which bytes make one character, so that none is cut in two and a trail byte that happens to
// equal "\" or a letter is not taken for one. A value type; the default is a single-byte code page.
class CodePage
{
public:
    CodePage() = default;
    // number: the Windows code page (932, 936, 949, 950 and 1361 have two-byte characters, 65001 is
    // UTF-8, in every other a byte is a character).
    explicit CodePage(unsigned number) : number_(number) {}

    unsigned Number() const { return number_; }
    bool IsUtf8() const { return number_ == 65001; }
    // Whether it begins a two-byte character; of none in UTF-8.
    bool IsLeadByte(char byte) const;
    // Bytes of the character that starts at text[at], never past the end: 1 or 2, in UTF-8 up to 4,
    // and 1 for bytes that make no character there. at < text.size().
    std::size_t CharacterLength(std::string_view text, std::size_t at) const;
    // Number of whole characters in text.
    std::size_t CountCharacters(std::string_view text) const;
    // The first count characters of text, or all of it.
    std::string_view FirstCharacters(std::string_view text, std::size_t count) const;
    // As many whole characters as fit into that many bytes.
    std::string_view WholeCharacters(std::string_view text, std::size_t bytes) const;
    // Position (from 0) of the last ch in text that is a character of its own; npos if none.
    std::size_t FindLast(std::string_view text, char ch) const;

private:
    unsigned number_ = 1252;
};

// Upper case of the ASCII letters; every other byte stays. For comparisons only.
std::string UpperCase(std::string_view text);
// Equal but for the case of ASCII letters.
bool EqualIgnoringCase(std::string_view left, std::string_view right);
// Without the blanks (code 32) at both ends.
std::string_view Trim(std::string_view text);
// Text as it shows on one line: each line break and each other control character is a blank.
std::string OneLine(std::string_view text);
// What a message box shows of a path or a command, so that it fits the screen: at most 300
// characters, of a longer one its beginning, "..." and its end.
std::string ShortenedForBox(std::string_view text, const CodePage& codePage);
// A whole number as people and programs write it: blanks around, a sign, digits, perhaps a fraction
// after "." or "," (rounded half to even). Nothing when it is no number or beyond 32 bits.
std::optional<std::int32_t> ParseInteger(std::string_view text);

} // namespace nv
