#include "tool/tool_text.h"

namespace nv
{

namespace
{

constexpr std::size_t kMostQuoted = 100; // characters

bool IsControl(char ch)
{
    return static_cast<unsigned char>(ch) < 32 || ch == 127;
}

void AppendCode(std::string& escaped, char ch)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(ch);
    escaped += "^x";
    escaped += kDigits[code / 16];
    escaped += kDigits[code % 16];
}

} // namespace

std::string Escaped(std::string_view text, const CodePage& codePage)
{
    std::string escaped;
    escaped.reserve(text.size());
    std::size_t length = 1;
    for (std::size_t at = 0; at < text.size(); at += length) {
        length = codePage.CharacterLength(text, at);
        const bool half = codePage.IsLeadByte(text[at]) && (length == 1 || IsControl(text[at + 1]));
        length = half ? 1 : length;
        if (text.substr(at, 2) == "\r\n") {
            escaped += "^n";
            length = 2;
        } else if (text[at] == '\t') {
            escaped += "^t";
        } else if (half || IsControl(text[at])) {
            // Half a character as it is would make another one of what is written behind it.
            AppendCode(escaped, text[at]);
        } else if (text[at] == '^') {
            escaped += "^^";
        } else {
            escaped += text.substr(at, length);
        }
    }
    return escaped;
}

std::string Excerpt(std::string_view text, const CodePage& codePage)
{
    const std::string_view shown = codePage.FirstCharacters(text, kMostQuoted);
    return '"' + Escaped(shown, codePage) + (shown.size() < text.size() ? "...\"" : "\"");
}

bool NameBefore(const std::string& left, const std::string& right)
{
    const std::string upperLeft = UpperCase(left);
    const std::string upperRight = UpperCase(right);
    return upperLeft != upperRight ? upperLeft < upperRight : left < right;
}

} // namespace nv
