// The mouse in the view and on the toolbar: links, Back, and programs that are started.
#include "e2e/stage.h"

namespace nv::e2e
{

class Navigation : public Stage
{
protected:
    // A menu with a link to each of the commands, in the colours Mark(0), Mark(1), ...
    std::string WriteLinks(const std::string& name, const std::vector<std::string>& commands)
    {
        std::vector<Entry> entries;
        for (const std::string& command : commands) {
            const int number = static_cast<int>(entries.size());
            entries.push_back({kLink, command, command, static_cast<long>(Mark(number))});
        }
        return WriteMenu(name, entries);
    }
};

TEST_F(Navigation, ALinkToAMenuOpensInPlace)
{
    const std::string other = WriteLinks("The other.nvm", {});
    const struct {
        std::string command;
        std::string opened; // as the title has it
    } cases[] = {
        {'"' + other + '"', other},
        {"The other.nvm", "The other.nvm"}, // the program's folder is the current one
        {".\\the other.Nvm", ".\\the other.Nvm"},
    };
    std::vector<std::string> commands;
    for (const auto& each : cases) {
        commands.push_back(each.command);
    }
    const std::string start = WriteLinks("Start.nvm", commands);
    Program& program = Open(start);
    const HWND window = program.Window();
    for (int number = 0; number < static_cast<int>(commands.size()); ++number) {
        const auto& each = cases[number];
        SCOPED_TRACE(each.command);
        ASSERT_TRUE(ClickOn(Mark(number)));
        ASSERT_TRUE(WaitUntilLoaded(each.opened)) << program.OnScreen();
        EXPECT_EQ(program.WindowNow(), window);
        ASSERT_TRUE(ClickButton("Back"));
        ASSERT_TRUE(WaitUntilLoaded(start)) << program.OnScreen();
    }
}

TEST_F(Navigation, BackGoesThroughTheMenusInReverse)
{
    const std::string d = WriteLinks("D.nvm", {});
    const std::string c = WriteLinks("C.nvm", {d});
    const std::string b = WriteLinks("B.nvm", {c});
    const std::string a = WriteLinks("A.nvm", {b});
    Program& program = Open(a);
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"button", [this] { ClickButton("Back"); }},
        {"Alt+Left", [] { PressKey(VK_LEFT, {VK_MENU}); }},
        {"Backspace", [] { PressKey(VK_BACK); }},
    };
    for (const auto& [name, goBack] : ways) {
        SCOPED_TRACE(name);
        for (const std::string& next : {b, c, d}) {
            ASSERT_TRUE(ClickOn(Mark(0)));
            ASSERT_TRUE(WaitUntilLoaded(next)) << program.OnScreen();
        }
        PressKey(VK_HOME, {VK_MENU}); // a step like any other, to the first menu
        ASSERT_TRUE(WaitUntilLoaded(a)) << program.OnScreen();
        for (const std::string& previous : {d, c, b, a}) {
            goBack();
            ASSERT_TRUE(WaitUntilLoaded(previous)) << program.OnScreen();
        }
    }
    // Once more than there are steps: nothing happens, and nothing is told.
    PressKey(VK_BACK);
    ClickButton("Back");
    ASSERT_TRUE(ClickOn(Mark(0))); // comes after the other two
    ASSERT_TRUE(WaitUntilLoaded(b)) << program.OnScreen();
    PressKey(VK_BACK);
    EXPECT_TRUE(WaitUntilLoaded(a)) << program.OnScreen();
}

TEST_F(Navigation, ALinkStartsItsProgramOnTheRelease)
{
    const std::string start = WriteLinks("Start.nvm", {Recorder("first"), Recorder("second")});
    Program& program = Open(start);
    const auto first = WaitForColor(program.View(), Mark(0));
    const auto second = WaitForColor(program.View(), Mark(1));
    ASSERT_TRUE(first && second);
    // Pressed on a link and let go beside it: no click.
    PressMouse(*first);
    EXPECT_TRUE(program.Answers());
    ReleaseMouse({PlaceOf(program.View()).right - 40, second->y + 100});
    EXPECT_TRUE(program.Answers());
    EXPECT_FALSE(HasRecord());
    // Any button is good for a click.
    const std::pair<DWORD, DWORD> buttons[] = {{MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP},
                                               {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP},
                                               {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP}};
    for (const auto& [down, up] : buttons) {
        SCOPED_TRACE(down);
        PressMouse(*second, down);
        ReleaseMouse(*second, up);
        const auto record = WaitForRecord();
        ASSERT_FALSE(record.empty());
        EXPECT_TRUE(record[0].ends_with(" second")) << record[0];
    }
}

} // namespace nv::e2e
