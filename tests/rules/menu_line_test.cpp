#include "docs/menu_line.h"
#include "platform/ansi_text.h"

#include <gtest/gtest.h>
#include <random>

namespace nv
{
namespace
{

const char kExample[] =
    "3><CAPTION>Notepad</CAPTION> <LINK>C:\\Windows\\notepad.exe</LINK> "
    "<FONTNAME>Tahoma</FONTNAME> <FONTSIZE>8</FONTSIZE> <FONTBOLD>True</FONTBOLD> "
    "<FONTITALIC>False</FONTITALIC> <FONTSTR>False</FONTSTR> <FONTUNDER>False</FONTUNDER> "
    "<FONTCOLOR>0</FONTCOLOR> <FONTCHAR>238</FONTCHAR>";

// Differs from a Font of its own in every member, so that a kept start value shows.
const Font kDefault{"Default Face", 10.5, false, false, false, false, 186};

MenuItem ExampleItem()
{
    return {ItemType::vLink, "Notepad", "C:\\Windows\\notepad.exe",
            Font{"Tahoma", 8, true, false, false, false, 238}, 0};
}

TEST(MenuItem, IsListedByTypeAndCaptionOrLink)
{
    struct Case {
        int type;
        const char* caption;
        const char* text;
    };
    const Case cases[] = {
        {0, "seen", "Type = vNotVisible"},      {1, "seen", "Type = vTitle, Caption = seen"},
        {4, "seen", "Type = vSpace"},           {5, "seen", "Type = vLine"},
        {6, "seen", "Type = , Caption = seen"}, {9, "", "Type = , Link = run"},
    };
    for (const Case& c : cases) {
        MenuItem item;
        item.type = static_cast<ItemType>(c.type);
        item.caption = c.caption;
        item.link = "run";
        EXPECT_EQ(ListText(TypeName(item.type), item), c.text);
    }
}

TEST(MenuLine, IsWrittenAndReadInTheFilesForm)
{
    EXPECT_EQ(EncodeLine(ExampleItem()), kExample);
    EXPECT_EQ(DecodeLine(kExample, kDefault), ExampleItem());

    MenuItem item{ItemType::vLine, "two\r\nlines", "",
                  Font{"Verdana", 24, false, true, true, false, -1}, SystemColor(8)};
    EXPECT_EQ(DecodeLine(EncodeLine(item), kDefault), item);
    item.font.strikethrough = false;
    item.font.underline = true;
    EXPECT_EQ(DecodeLine(EncodeLine(item), kDefault), item);
    EXPECT_NE(EncodeLine(item).find("<FONTCOLOR>-2147483640</FONTCOLOR>"), std::string::npos);
}

TEST(MenuLine, RoundsFontSizesHalfToEven)
{
    const std::pair<double, const char*> cases[] = {{8.25, "8"},  {8.5, "8"},   {9.5, "10"},
                                                    {9.75, "10"}, {10.5, "10"}, {11.5, "12"}};
    for (const auto& [size, text] : cases) {
        MenuItem item;
        item.font.size = size;
        EXPECT_EQ(GetTag(EncodeLine(item), "FONTSIZE"), text) << size;
    }
}

TEST(MenuLine, KeepsStartValuesWhereAValueDoesNotConvert)
{
    const auto decoded = [](const std::string& line) { return DecodeLine(line, kDefault); };
    EXPECT_EQ(decoded(""), (MenuItem{ItemType::vNotVisible, "", "", kDefault, 0}));

    const std::pair<const char*, int> types[] = {{"12>", 1}, {"9>", 9}, {"x>", 0},
                                                 {" 3>", 0}, {"-1", 0}, {"/", 0}};
    for (const auto& [line, type] : types) {
        EXPECT_EQ(static_cast<int>(decoded(line).type), type) << line;
    }
    const std::pair<const char*, double> sizes[] = {{"12", 12},   {" 9,5 ", 10}, {"0", 10.5},
                                                    {"-8", 10.5}, {"", 10.5},    {"big", 10.5}};
    for (const auto& [text, size] : sizes) {
        EXPECT_EQ(decoded("1><FONTSIZE>" + std::string(text) + "</FONTSIZE>").font.size, size);
    }
    const std::pair<const char*, bool> flags[] = {{"True", true},   {"TRUE", true}, {"true", true},
                                                  {"False", false}, {"Yes", false}, {"", false}};
    for (const auto& [text, flag] : flags) {
        EXPECT_EQ(decoded("<FONTITALIC>" + std::string(text) + "</FONTITALIC>").font.italic, flag);
    }
    const std::pair<const char*, int> charsets[] = {
        {"238", 238}, {"-32768", -32768}, {"32768", 186}, {"65536", 186}, {"x", 186}};
    for (const auto& [text, charset] : charsets) {
        EXPECT_EQ(decoded("<FONTCHAR>" + std::string(text) + "</FONTCHAR>").font.charset, charset);
    }
    EXPECT_EQ(decoded("1><FONTCOLOR>red</FONTCOLOR>").fontColor, 0);
    EXPECT_EQ(decoded("1><FONTNAME></FONTNAME>").font.name, "Default Face");
    // One bad value does not spoil those after it.
    EXPECT_EQ(decoded("?><FONTSIZE>?</FONTSIZE><FONTCOLOR>7</FONTCOLOR>").fontColor, 7);
}

TEST(MenuLine, FindsTheValueOfATag)
{
    const std::pair<const char*, const char*> cases[] = {
        {"<LINK>a</LINK>", "a"},
        {"<LINK>a</LINK><LINK>b</LINK>", "a"},
        {"<LINK>a", "a"},
        {"<LINK>", ""},
        {"<LINK", ""},
        {"<link>a</link>", ""},
        {"<LINK>a</link></LINK>", "a</link>"},
        {"</LINK><LINK>a</LINK>", "a"},
        {"</LINK>x", ""},
        {"<<LINK>a<</LINK>", "a<"},
        {"<LINK><LINK>a</LINK></LINK>", "<LINK>a"},
        {"<CAPTION>see <LINK>x</CAPTION> <LINK>y</LINK>", "x</CAPTION> <LINK>y"},
        {"<LINK>a</LIN", "a</LIN"},
    };
    for (const auto& [line, value] : cases) {
        EXPECT_EQ(GetTag(line, "LINK"), value) << line;
        EXPECT_EQ(DecodeLine(line, kDefault).link, value) << line;
    }
}

// The slow way to an entry: every tag searched for by itself.
MenuItem DecodeTagByTag(std::string_view line)
{
    MenuItem item = DecodeLine(line.substr(0, 1), kDefault); // the type
    item.caption = GetTag(line, "CAPTION");
    item.link = GetTag(line, "LINK");
    const std::string_view name = GetTag(line, "FONTNAME");
    item.font.name = name.empty() ? kDefault.name : name;
    const auto size = ParseInteger(GetTag(line, "FONTSIZE"));
    item.font.size = size && *size >= 1 ? *size : kDefault.size;
    item.font.bold = GetTag(line, "FONTBOLD") == "True";
    item.font.italic = GetTag(line, "FONTITALIC") == "True";
    item.font.strikethrough = GetTag(line, "FONTSTR") == "True";
    item.font.underline = GetTag(line, "FONTUNDER") == "True";
    item.fontColor = ParseInteger(GetTag(line, "FONTCOLOR")).value_or(0);
    const auto charset = ParseInteger(GetTag(line, "FONTCHAR"));
    item.font.charset = static_cast<std::int16_t>(charset.value_or(kDefault.charset));
    return item;
}

TEST(MenuLine, IsDecodedInOnePassAsTagByTag)
{
    const char* names[] = {"CAPTION",    "LINK",    "FONTNAME",  "FONTSIZE",  "FONTBOLD",
                           "FONTITALIC", "FONTSTR", "FONTUNDER", "FONTCOLOR", "FONTCHAR"};
    const char* rests[] = {
        "True", "7", "11", " ", "<", "</", "<FONT", "<caption>", "a longer value than eight bytes"};
    std::mt19937 random(20240607); // the same lines in every run
    const auto pick = [&random](auto& list) { return list[random() % std::size(list)]; };
    const std::string canonical = kExample;
    for (int round = 0; round < 4000; ++round) {
        std::string line = "3>";
        if (round % 4 == 0) { // a line as written, with a piece cut out
            line = canonical;
            line.erase(random() % line.size(), random() % 40);
        }
        for (std::size_t pieces = random() % 24; pieces > 0; --pieces) {
            const std::string name = pick(names);
            const char* const open[] = {"<", "</"};
            const std::string piece =
                random() % 3 == 0 ? std::string(pick(rests)) : pick(open) + name + ">";
            line.insert(random() % 2 == 0 ? line.size() : random() % line.size(), piece);
        }
        ASSERT_EQ(DecodeLine(line, kDefault), DecodeTagByTag(line)) << line;
    }
}

} // namespace
} // namespace nv
