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

void AppendControl(std::string& escaped, char ch)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    if (ch == '\t') {
        escaped += "^t";
        return;
    }
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
        // Half a character before a control character: it must not hide that.
        if (length == 2 && IsControl(text[at + 1])) {
            length = 1;
        }
        if (text.substr(at, 2) == "\r\n") {
            escaped += "^n";
            length = 2;
        } else if (IsControl(text[at])) {
            AppendControl(escaped, text[at]);
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
