#include "platform/ansi_text.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(AnsiText, ParsesNumbersOfAnyLength)
{
    EXPECT_EQ(ParseInteger("+-1"), std::nullopt);
    const std::string zeros(400, '0'); // more places than a double has
    EXPECT_EQ(ParseInteger("-0," + zeros + "1"), 0);
    EXPECT_EQ(ParseInteger('1' + zeros + ".5"), std::nullopt);
}

TEST(AnsiText, CharactersOfUtf8AreWhole)
{
    const CodePage page(65001);
    const std::string text = "\xD0\xAF\\\xE3\x82\xBD\xF0\x9F\x98\x80!"; // of 2, 1, 3, 4 and 1 bytes
    EXPECT_EQ(page.CountCharacters(text), 5u);
    EXPECT_EQ(page.FindLast(text, '\\'), 2u);
    EXPECT_EQ(page.FirstCharacters(text, 3), text.substr(0, 6));
    EXPECT_EQ(page.WholeCharacters(text, 9), text.substr(0, 6));
    EXPECT_EQ(page.WholeCharacters(text, 10), text.substr(0, 10));
    // Bytes that make no character are one each, and never take what follows with them.
    const std::string broken[] = {"\x80",
                                  "\xC1\xBF",
                                  "\xC3!",
                                  "\xE3\x82!",
                                  "\xE0\x9F\xBF",
                                  "\xED\xA0\x80",
                                  "\xF0\x8F\xBF\xBF",
                                  "\xF4\x90\x80\x80",
                                  "\xF5\x80\x80\x80",
                                  "\xE3\x82",
                                  "\xFF"};
    for (const std::string& bytes : broken) {
        EXPECT_EQ(page.CountCharacters(bytes), bytes.size()) << bytes;
    }
}

} // namespace
} // namespace nv
