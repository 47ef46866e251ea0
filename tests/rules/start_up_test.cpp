#include "mainwindow/command_line.h"
#include "mainwindow/commands.h"
#include "mainwindow/start_up.h"

#include <gtest/gtest.h>
#include <map>

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
        {"C:\\My Menus\\Start.nvm", "C:\\My Menus\\Start.nvm", false},
        {"\"C:\\My Menus\\Start.nvm\"", "\"C:\\My Menus\\Start.nvm\"", false},
        {"/l", "", true},
        {"/L", "", true},
        {" /l", "", true}, // one character before the switch goes with it
        {"a/l", "", true},
        {"ab/l", "a", true}, // a name against the switch loses its last character
        {"Start.nvm /l", "Start.nvm", true},
        {"\"C:\\a b.nvm\" /L", "\"C:\\a b.nvm\"", true},
        {"Start.nvm /l Other.nvm", "Start.nvm", true},
        {"C:/lists/a.nvm", "C", true}, // the first "/l" counts, wherever it stands
        {"Start.nvm /x", "Start.nvm /x", false},
    };
    for (const Case& c : cases) {
        const CommandLine line = ParseCommandLine(c.arguments);
        EXPECT_EQ(line.filePart, c.filePart) << c.arguments;
        EXPECT_EQ(line.locked, c.locked) << c.arguments;
    }
}

TEST(CommandLine, FindsTheArguments)
{
    struct Case {
        const char* whole;
        const char* arguments;
    };
    const Case cases[] = {
        {"", ""},
        {"NVMenu", ""},
        {"NVMenu.exe  a \"b c\"", "a \"b c\""},
        {"NVMenu.exe\ta ", "a "},
        {"\"C:\\My Menus\\NVMenu.exe\"  a /l", "a /l"},
        {"\"C:\\My Menus\\NVMenu.exe\"", ""},
        {"\"C:\\My Menus", ""},
        {"\"\"a", "a"},
        {"NVMenu   ", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ArgumentsOf(c.whole), c.arguments) << c.whole;
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
        {"as saved", {1000, 1000, 10000, 8000}, false, one, {1000, 1000, 10000, 8000}},
        {"too small", {1000, 1000, 5000, 100}, false, one, {1000, 1000, 10000, 6660}},
        {"small and locked", {1000, 1000, 5000, 100}, true, one, {1000, 1000, 5000, 100}},
        {"on the second monitor",
         {-18000, 500, 10000, 8000},
         false,
         two,
         {-18000, 500, 10000, 8000}},
        {"that monitor is gone", {-18000, 500, 10000, 8000}, false, one, {0, 500, 10000, 8000}},
        {"below the screen", {100, 90000, 10000, 8000}, false, one, {100, 7000, 10000, 8000}},
        {"caption above it", {100, -5000, 10000, 8000}, false, one, {100, 0, 10000, 8000}},
        {"larger than all", {0, 0, 2e9f, 2e9f}, false, one, {0, 0, 19200, 15000}},
        {"a corner of it is seen", {18900, 0, 10000, 8000}, false, one, {9200, 0, 10000, 8000}},
        {"far off", {2e9f, -2e9f, 10000, 8000}, false, one, {9200, 0, 10000, 8000}},
    };
    for (const Case& c : cases) {
        const Placement placed = StartPlacement(c.saved, kFrame, c.locked, c.monitors, kCaption);
        EXPECT_EQ(placed, c.placed) << c.what << ": " << placed.left << " " << placed.top << " "
                                    << placed.width << " " << placed.height;
    }
    EXPECT_EQ(MinimumSize(kFrame, false), (TwipSize{10000, 6660}));
    EXPECT_EQ(MinimumSize(kFrame, true), (TwipSize{7000, 3560}));
}

// Only what these tests need of a store.
class MapSettings final : public Settings
{
public:
    SettingValue GetKeyValue(const std::string& section, const std::string& name,
                             const SettingValue& byDefault) override
    {
        const auto found = values.find(section + "/" + name);
        return found == values.end() ? byDefault : found->second;
    }
    long SetKeyValue(const std::string& section, const std::string& name, const SettingValue& value,
                     SettingType) override
    {
        values[section + "/" + name] = value;
        return 0;
    }
    std::map<std::string, SettingValue> values;
};

TEST(Placement, IsKeptAsText)
{
    MapSettings settings;
    EXPECT_EQ(ReadPlacement(settings), (Placement{1000, 1000, 10000, 8000}));
    // At 168 dots per inch a pixel is no whole number of twips.
    WritePlacement(settings, {-857.142883f, 15, 10002.8574f, 8000});
    EXPECT_EQ(settings.values["StartSet/MainLeft"], SettingValue("-857.1429"));
    EXPECT_EQ(settings.values["StartSet/MainTop"], SettingValue("15"));
    EXPECT_EQ(ReadPlacement(settings), (Placement{-857, 15, 10003, 8000}));
    settings.values["StartSet/MainTop"] = "12 pixels";
    EXPECT_EQ(ReadPlacement(settings).top, 1000);
}

TEST(StartFile, IsChosenByTheSetting)
{
    struct Case {
        SettingValue startOpen;
        const char* last; // nullptr: none is stored
        const char* chosen;
    };
    const Case cases[] = {
        {"0", nullptr, "C:\\P\\a.nvm"},
        {"1", nullptr, "C:\\home.nvm"},
        {"2", "D:\\x.nvm", "D:\\x.nvm"},
        {"2", nullptr, "C:\\Start.nvm"},
        {"3", nullptr, ""},
        {"-1", nullptr, ""},
        {"17", nullptr, ""},
        {"", nullptr, "C:\\P\\a.nvm"},
        {2, "D:\\x.nvm", "D:\\x.nvm"},
    };
    for (const Case& c : cases) {
        MapSettings settings;
        settings.values["Settings/StartOpen"] = c.startOpen;
        if (c.last != nullptr) {
            settings.values["Settings/Last"] = c.last;
        }
        EXPECT_EQ(StartFileChoice(settings, "C:\\P\\a.nvm", "C:\\home.nvm"), c.chosen)
            << SettingText(c.startOpen);
    }
    MapSettings empty;
    EXPECT_EQ(StartFileChoice(empty, "C:\\P\\a.nvm", "C:\\home.nvm"), "C:\\P\\a.nvm");
    EXPECT_EQ(WindowTitle(1, 0, 210), "Navrix Menu 1.0.210");
}

TEST(Commands, AreToBeHadWhenTheyMakeSense)
{
    const Facts nothing;
    const Facts open{false, true, true};
    const Facts locked{true, true, true};
    struct Case {
        Command command;
        bool withNothing;
        bool withMenu;
        bool whenLocked;
    };
    const Case cases[] = {
        {Command::back, true, true, true},
        {Command::revert, false, true, true},
        {Command::home, false, true, true},
        {Command::normal, true, true, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Available(c.command, nothing), c.withNothing);
        EXPECT_EQ(Available(c.command, open), c.withMenu);
        EXPECT_EQ(Available(c.command, locked), c.whenLocked);
    }
    EXPECT_EQ(CommandOfKey(Key::left, true, false, false), Command::back);
    EXPECT_EQ(CommandOfKey(Key::left, false, false, false), std::nullopt);
    EXPECT_EQ(CommandOfKey(Key::backspace, false, false, false), Command::back);
    EXPECT_EQ(CommandOfKey(Key::home, true, false, false), Command::home);
    EXPECT_EQ(CommandOfKey(Key::home, false, false, false), std::nullopt);
    EXPECT_EQ(CommandOfKey(Key::f5, false, false, false), Command::revert);
    EXPECT_EQ(CommandOfKey(Key::f5, true, false, false), std::nullopt); // Alt+F5 is not ours
    EXPECT_EQ(CommandOfKey(Key::backspace, false, true, false), std::nullopt);
}

} // namespace
} // namespace nv
