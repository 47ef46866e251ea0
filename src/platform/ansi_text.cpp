#include "platform/ansi_text.h"

#include "platform/units.h"

#include <algorithm>
#include <charconv>

namespace nv
{

namespace
{

char UpperByte(char ch)
{
    return ch >= 'a' && ch <= 'z' ? static_cast<char>(ch - 'a' + 'A') : ch;
}

// Bytes of the UTF-8 character at the beginning of text; 1 where its bytes make none.
std::size_t Utf8Length(std::string_view text)
{
    const auto code = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned lead = code(0);
    const std::size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 1 || lead > 0xF4 || length > text.size()) {
        return 1;
    }
    for (std::size_t at = 1; at < length; ++at) {
        if ((code(at) & 0xC0) != 0x80) {
            return 1;
        }
    }
    // What could be written shorter, halves of a surrogate pair, and codes beyond the last one.
    const unsigned second = code(1);
    const bool none = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                      (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
    return none ? 1 : length;
}

} // namespace

bool CodePage::IsLeadByte(char byte) const
{
    const auto code = static_cast<unsigned char>(byte);
    switch (number_) {
    case 932:
        return (code >= 0x81 && code <= 0x9F) || (code >= 0xE0 && code <= 0xFC);
    case 936:
    case 949:
    case 950:
        return code >= 0x81 && code <= 0xFE;
    case 1361:
        return (code >= 0x84 && code <= 0xD3) || (code >= 0xD8 && code <= 0xDE) ||
               (code >= 0xE0 && code <= 0xF9);
    default:
        return false;
    }
}

std::size_t CodePage::CharacterLength(std::string_view text, std::size_t at) const
{
    if (IsUtf8()) {
        return Utf8Length(text.substr(at));
    }
    return at + 1 < text.size() && IsLeadByte(text[at]) ? 2 : 1;
}

std::size_t CodePage::CountCharacters(std::string_view text) const
{
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += CharacterLength(text, at)) {
        ++count;
    }
    return count;
}

std::string_view CodePage::FirstCharacters(std::string_view text, std::size_t count) const
{
    std::size_t at = 0;
    for (; count > 0 && at < text.size(); --count) {
        at += CharacterLength(text, at);
    }
    return text.substr(0, at);
}

std::string_view CodePage::WholeCharacters(std::string_view text, std::size_t bytes) const
{
    std::size_t at = 0;
    while (at < text.size() && at + CharacterLength(text, at) <= bytes) {
        at += CharacterLength(text, at);
    }
    return text.substr(0, at);
}

std::size_t CodePage::FindLast(std::string_view text, char ch) const
{
    std::size_t found = std::string_view::npos;
    for (std::size_t at = 0; at < text.size(); at += CharacterLength(text, at)) {
        if (text[at] == ch) {
            found = at;
        }
    }
    return found;
}

std::string UpperCase(std::string_view text)
{
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperByte);
    return upper;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return UpperByte(a) == UpperByte(b); });
}

std::string_view Trim(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string OneLine(std::string_view text)
{
    std::string line;
    line.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool lineBreak = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
        at += lineBreak ? 1 : 0;
        // No trail byte of a two-byte character is that low.
        line += static_cast<unsigned char>(text[at]) < 32 ? ' ' : text[at];
    }
    return line;
}

std::string ShortenedForBox(std::string_view text, const CodePage& codePage)
{
    constexpr std::size_t kMost = 300;
    constexpr std::string_view kCut = "...";
    const std::size_t count = codePage.CountCharacters(text);
    if (count <= kMost) {
        return std::string(text);
    }
    const std::size_t end = (kMost - kCut.size()) / 2;
    const std::size_t begin = kMost - kCut.size() - end;
    const std::string_view beforeEnd = codePage.FirstCharacters(text, count - end);
    std::string shown(codePage.FirstCharacters(text, begin));
    return shown.append(kCut).append(text.substr(beforeEnd.size()));
}

std::optional<std::int32_t> ParseInteger(std::string_view text)
{
    text = Trim(text);
    // Nearly every number in a file is written plainly, and reading a fraction costs far more.
    std::int32_t whole = 0;
    const char* textEnd = text.data() + text.size();
    const auto plain = std::from_chars(text.data(), textEnd, whole);
    if (plain.ec == std::errc() && plain.ptr == textEnd) {
        return whole;
    }
    const bool plus = !text.empty() && text.front() == '+';
    std::string digits(plus ? text.substr(1) : text);
    std::replace(digits.begin(), digits.end(), ',', '.');
    const auto isPlain = [](char ch) { return (ch >= '0' && ch <= '9') || ch == '.'; };
    const std::size_t sign = !plus && !digits.empty() && digits.front() == '-' ? 1 : 0;
    if (!std::all_of(digits.begin() + static_cast<std::ptrdiff_t>(sign), digits.end(), isPlain)) {
        return std::nullopt;
    }
    double value = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, std::chars_format::fixed);
    // Too near to zero for a double: value is still 0.
    const bool tiny = result.ec == std::errc::result_out_of_range &&
                      digits.find_first_of("123456789") > digits.find('.');
    if (result.ptr != end || (result.ec != std::errc() && !tiny)) {
        return std::nullopt;
    }
    const double rounded = std::nearbyint(value);
    if (rounded < -2147483648.0 || rounded > 2147483647.0) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(rounded);
}

} // namespace nv
