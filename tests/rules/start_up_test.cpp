#include "fakes/fake_settings.h"
#include "mainwindow/command_line.h"
#include "mainwindow/start_up.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(CommandLine, FindsFileAndSwitch)
{
    struct Case {
        const char* arguments;
        const char* filePart;
        bool locked;
    };
    const Case cases[] = {
        {"", "", false},
        {"\"C:\\My Menus\\Start.nvm\"", "\"C:\\My Menus\\Start.nvm\"", false},
        {"/l", "", true},
        {" /l", "", true},   // one character before the switch goes with it
        {"ab/l", "a", true}, // a name against the switch loses its last character
        {"\"C:\\a b.nvm\" /L", "\"C:\\a b.nvm\"", true},
        {"Start.nvm /l Other.nvm", "Start.nvm", true},
        {"C:/lists/a.nvm", "C", true}, // the first "/l" counts, wherever it stands
        {"Start.nvm /x", "Start.nvm /x", false},
    };
    for (const Case& c : cases) {
        const CommandLine line = ParseCommandLine(c.arguments, CodePage());
        EXPECT_EQ(line.filePart, c.filePart) << c.arguments;
        EXPECT_EQ(line.locked, c.locked) << c.arguments;
    }
    // The character that goes may have two bytes.
    EXPECT_EQ(ParseCommandLine("C:\\a\x83\x5C/l", CodePage(932)).filePart, "C:\\a");
}

TEST(CommandLine, FindsTheArguments)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"NVMenu", ""},
        {"NVMenu.exe  a \"b c\"", "a \"b c\""},
        {"NVMenu.exe\ta ", "a "},
        {"\"C:\\My Menus\\NVMenu.exe\"  a /l", "a /l"},
        {"\"C:\\My Menus", ""},
        {"\"\"a", "a"},
    };
    for (const auto& [whole, arguments] : cases) {
        EXPECT_EQ(ArgumentsOf(whole), arguments) << whole;
    }
}

TEST(CommandLine, StripsEachQuoteByItself)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},       {"\"\"", "\"\""}, {"\"a\"", "a"},
        {"\"ab", "ab"}, {"ab\"", "ab"},   {"a\"b", "a\"b"},
        {"\"a", "\"a"}, {"\"\"\"", "\""}, {"\"\"a\"\"", "\"a\""},
    };
    for (const auto& [text, stripped] : cases) {
        EXPECT_EQ(StripQuotes(text), stripped) << text;
    }
}

TEST(Placement, StartsWithinLimitsAndInView)
{
    const std::vector<TwipRect> one = {{0, 0, 19200, 15000}};
    const std::vector<TwipRect> two = {{0, 0, 19200, 15000}, {-19200, 0, 19200, 15000}};
    constexpr Twips kFrame = 465;
    constexpr Twips kCaption = 285;
    struct Case {
        const char* what;
        Placement saved;
        bool locked;
        std::vector<TwipRect> monitors;
        Placement placed;
    };
    const Case cases[] = {
        {"too small", {1000, 1000, 5000, 100}, false, one, {1000, 1000, 10000, 6660}},
        {"small and locked", {1000, 1000, 5000, 100}, true, one, {1000, 1000, 5000, 100}},
        {"on the other monitor", {-18000, 5, 10000, 8000}, false, two, {-18000, 5, 10000, 8000}},
        {"that monitor is gone", {-18000, 5, 10000, 8000}, false, one, {0, 5, 10000, 8000}},
        {"below the screen", {100, 90000, 10000, 8000}, false, one, {100, 7000, 10000, 8000}},
        {"caption above it", {100, -5000, 10000, 8000}, false, one, {100, 0, 10000, 8000}},
        {"larger than all", {0, 0, 2e9f, 2e9f}, false, one, {0, 0, 19200, 15000}},
        {"too high", {1000, 1000, 10000, 2e9f}, false, one, {1000, 0, 10000, 15000}},
        {"a corner of it is seen", {18900, 0, 10000, 8000}, false, one, {9200, 0, 10000, 8000}},
    };
    for (const Case& c : cases) {
        const Placement placed = StartPlacement(c.saved, kFrame, c.locked, c.monitors, kCaption);
        EXPECT_EQ(placed, c.placed) << c.what << ": " << placed.left << " " << placed.top << " "
                                    << placed.width << " " << placed.height;
    }
    EXPECT_EQ(MinimumSize(kFrame, false), (TwipSize{10000, 6660}));
    EXPECT_EQ(MinimumSize(kFrame, true), (TwipSize{7000, 3560}));
}

TEST(Placement, IsKeptAsText)
{
    FakeSettings settings;
    EXPECT_EQ(ReadPlacement(settings), (Placement{1000, 1000, 10000, 8000}));
    // At 168 dots per inch a pixel is no whole number of twips.
    WritePlacement(settings, {-857.142883f, 15, 10002.8574f, 8000});
    EXPECT_EQ(settings.Text("StartSet", "MainLeft"), "-857.1429");
    EXPECT_EQ(settings.Text("StartSet", "MainTop"), "15");
    EXPECT_EQ(ReadPlacement(settings), (Placement{-857, 15, 10003, 8000}));
    settings.values[{"StartSet", "MainTop"}] = "12 pixels";
    EXPECT_EQ(ReadPlacement(settings).top, 1000);
}

TEST(StartFile, IsChosenByANumberAsByText)
{
    FakeSettings settings;
    settings.values[{"Settings", "StartOpen"}] = 1;
    EXPECT_EQ(StartFileChoice(settings, "first", "home"), "home");
    settings.values[{"Settings", "StartOpen"}] = 2; // and "Last" was never set
    EXPECT_EQ(StartFileChoice(settings, "first", "home"), "C:\\Start.nvm");
}

} // namespace
} // namespace nv
