// Lines of Menu files. Input: the line of one entry.
#include "docs/menu_line.h"
#include "fuzz_input.h"
#include "tool/line_check.h"

#include <algorithm>
#include <string>

namespace nv
{
namespace
{

// Whole in size, so that it can be written.
const Font kDefault{"Default Face", 31, false, false, false, false, 186};

constexpr std::array<std::string_view, 10> kTags = {
    "CAPTION",    "LINK",    "FONTNAME",  "FONTSIZE",  "FONTBOLD",
    "FONTITALIC", "FONTSTR", "FONTUNDER", "FONTCOLOR", "FONTCHAR"};

// A tag's value, looked for by itself and with no eye on speed.
std::string TagValue(std::string_view line, std::string_view tag)
{
    const std::string open = '<' + std::string(tag) + '>';
    const std::string close = "</" + std::string(tag) + '>';
    const auto at = line.find(open);
    if (at == std::string_view::npos) {
        return {};
    }
    const auto start = at + open.size();
    return std::string(line.substr(start, line.find(close, at + 1) - start));
}

bool HoldsMark(std::string_view text)
{
    return std::any_of(kTags.begin(), kTags.end(), [&](std::string_view tag) {
        return text.find('<' + std::string(tag) + '>') != std::string_view::npos ||
               text.find("</" + std::string(tag) + '>') != std::string_view::npos;
    });
}

void CheckValues(std::string_view line, const MenuItem& item)
{
    for (const std::string_view tag : kTags) {
        CHECK(GetTag(line, tag) == TagValue(line, tag));
    }
    CHECK(item.caption == TagValue(line, "CAPTION"));
    CHECK(item.link == TagValue(line, "LINK"));
    const std::string name = TagValue(line, "FONTNAME");
    CHECK(item.font.name == (name.empty() ? kDefault.name : name));
    const auto size = ParseInteger(TagValue(line, "FONTSIZE"));
    CHECK(item.font.size == (size && *size >= 1 ? *size : kDefault.size));
    CHECK(item.font.bold == EqualIgnoringCase(TagValue(line, "FONTBOLD"), "True"));
    CHECK(item.font.italic == EqualIgnoringCase(TagValue(line, "FONTITALIC"), "True"));
    CHECK(item.font.strikethrough == EqualIgnoringCase(TagValue(line, "FONTSTR"), "True"));
    CHECK(item.font.underline == EqualIgnoringCase(TagValue(line, "FONTUNDER"), "True"));
    CHECK(item.fontColor == ParseInteger(TagValue(line, "FONTCOLOR")).value_or(0));
    const auto charset = ParseInteger(TagValue(line, "FONTCHAR")).value_or(INT32_MAX);
    CHECK(item.font.charset ==
          (charset >= INT16_MIN && charset <= INT16_MAX ? charset : kDefault.charset));
    const auto digit = std::string_view("0123456789").find(line.substr(0, 1));
    CHECK(static_cast<int>(item.type) ==
          (line.empty() || digit == std::string_view::npos ? 0 : static_cast<int>(digit)));
}

void CheckLine(std::string_view line)
{
    const MenuItem item = DecodeLine(line, kDefault);
    CheckValues(line, item);
    const std::string written = EncodeLine(item);
    if (!HoldsMark(item.caption) && !HoldsMark(item.link) && !HoldsMark(item.font.name)) {
        CHECK(DecodeLine(written, kDefault) == item);
    }
    const CodePage& codePage = kCodePages[line.size() % kCodePages.size()];
    const auto findings = LineFindings(line, item, codePage);
    // What nothing is said about is what the program itself would have written.
    CHECK(!findings.empty() || written == line);
    for (const std::string& finding : findings) {
        CHECK(!finding.empty() && finding.find_first_of("\r\n\t\x01") == std::string::npos);
    }
}

} // namespace
} // namespace nv

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    nv::CheckLine(nv::InputText(data, size));
    return 0;
}
