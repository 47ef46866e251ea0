#include "platform/ansi_text.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(AnsiText, ParsesWholeNumbers)
{
    const std::string zeros(400, '0'); // more places than a double has
    const std::pair<std::string, std::optional<std::int32_t>> cases[] = {
        {"0", 0},
        {" 12 ", 12},
        {"+7", 7},
        {"-2147483648", INT32_MIN},
        {"2147483647", INT32_MAX},
        {"8.5", 8}, // halves go to the even neighbour
        {"9.5", 10},
        {"-857,1429", -857},
        {"-0," + zeros + "1", 0},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseInteger(text), value) << text;
    }
    const std::string others[] = {"",
                                  "-",
                                  ".",
                                  "1.2.3",
                                  "12pt",
                                  "1e3",
                                  "inf",
                                  "--1",
                                  "+-1",
                                  "2147483648",
                                  "99999999999999999999999999",
                                  '1' + zeros + ".5"};
    for (const std::string& text : others) {
        EXPECT_EQ(ParseInteger(text), std::nullopt) << text;
    }
}

TEST(AnsiText, TrailBytesAreNotTakenForCharacters)
{
    // In code page 932 the byte "\" is the second half of many characters: 0x83 0x5C is one.
    const std::string text = "C:\\\x83\x5C\x83\x5C.nvm";
    EXPECT_EQ(CodePage(932).FindLast(text, '\\'), 2u);
    EXPECT_EQ(CodePage(1252).FindLast(text, '\\'), 6u);
    EXPECT_EQ(CodePage(932).CountCharacters(text), 9u);
    EXPECT_EQ(CodePage(932).FirstCharacters(text, 4), text.substr(0, 5));
    EXPECT_EQ(CodePage(932).FirstCharacters("a\x83", 5), "a\x83"); // a lead byte cut off at the end
    EXPECT_EQ(CodePage(932).WholeCharacters(text, 4), "C:\\");
    EXPECT_EQ(CodePage(932).WholeCharacters(text, 5), text.substr(0, 5));
    EXPECT_EQ(CodePage(932).WholeCharacters(text, 50), text);
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
