#include "docs/menu_line.h"

#include <gtest/gtest.h>

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

TEST(MenuItem, IsListedByTypeAndCaptionOrLink)
{
    const struct {
        int type;
        const char* caption;
        const char* text;
    } cases[] = {
        {0, "seen", "Type = vNotVisible"},      {1, "seen", "Type = vTitle, Caption = seen"},
        {4, "seen", "Type = vSpace"},           {5, "seen", "Type = vLine"},
        {6, "seen", "Type = , Caption = seen"}, {9, "", "Type = , Link = run"}};
    for (const auto& [type, caption, text] : cases) {
        const MenuItem item = {static_cast<ItemType>(type), caption, "run", Font(), 0};
        EXPECT_EQ(ListText(TypeName(item.type), item), text);
    }
}

TEST(MenuLine, IsWrittenAndReadInTheFilesForm)
{
    const MenuItem example{ItemType::vLink, "Notepad", "C:\\Windows\\notepad.exe",
                           Font{"Tahoma", 8, true, false, false, false, 238}, 0};
    EXPECT_EQ(EncodeLine(example), kExample);
    EXPECT_EQ(DecodeLine(kExample, kDefault), example);
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

} // namespace
} // namespace nv
