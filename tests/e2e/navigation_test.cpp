// The mouse in the view and on the toolbar: links, Back, Revert, Home, and programs that are
// started.
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

    static bool EndsWith(const std::string& text, const std::string& end)
    {
        return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
    }
};

TEST_F(Navigation, ALinkToAMenuOpensInPlace)
{
    const std::string other = WriteLinks("The other.nvm", {});
    const struct {
        std::string command;
        std::string opened; // as the title has it
    } cases[] = {
        {other, other},
        {'"' + other + '"', other},
        {"The other.nvm", "The other.nvm"}, // the program's folder is the current one
        {"the OTHER.NVM", "the OTHER.NVM"},
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
        for (const std::string& previous : {c, b, a}) {
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

TEST_F(Navigation, RevertReadsTheFileAgain)
{
    const std::string start = WriteLinks("Start.nvm", {"Changed.nvm"});
    const std::string changed = "Changed.nvm";
    WriteMenu(changed, {{kLink, "Old", "old.exe", static_cast<long>(Mark(1))}});
    Program& program = Open(start);
    ASSERT_TRUE(ClickOn(Mark(0)));
    ASSERT_TRUE(WaitUntilLoaded(changed));
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"F5", [] { PressKey(VK_F5); }},
        {"button", [this] { ClickButton("Revert"); }},
    };
    int mark = 1;
    for (const auto& [name, revert] : ways) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(WaitForColor(program.View(), Mark(mark)));
        WriteMenu(changed, {{kLink, "New", "new.exe", static_cast<long>(Mark(++mark))}});
        revert();
        EXPECT_TRUE(WaitForColor(program.View(), Mark(mark))) << program.OnScreen();
        EXPECT_EQ(program.Title(), TitleOf(changed));
    }
    // It left no step in the history.
    PressKey(VK_BACK);
    EXPECT_TRUE(WaitUntilLoaded(start)) << program.OnScreen();
}

TEST_F(Navigation, AMenuThatIsGoneLeavesTheOpenOne)
{
    const std::string gone = Path("Gone.nvm");
    const std::string start = WriteLinks("Start.nvm", {gone});
    Program& program = Open(start);
    ASSERT_TRUE(ClickOn(Mark(0)));
    auto box = program.WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text,
              "File " + gone + " does not exist.\n\nWould you like to create a new menu?");
    // While it is asked the window takes no clicks.
    EXPECT_FALSE(IsWindowEnabled(program.Window()));
    PressKey('N');
    ASSERT_TRUE(Until([&] { return !program.BoxNow(); }));
    EXPECT_EQ(program.Title(), TitleOf(start));
    EXPECT_TRUE(WaitForColor(program.View(), Mark(0)));
    // The step was made all the same.
    PressKey(VK_BACK);
    EXPECT_TRUE(program.Answers());
    EXPECT_EQ(program.Title(), TitleOf(start));
}

TEST_F(Navigation, HomeIsAStepLikeAnyOther)
{
    const std::string home = WriteLinks("Aa home.nvm", {"Other.nvm"});
    const std::string other = "Other.nvm";
    WriteLinks(other, {});
    Program& program = Open(home);
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Alt+Home", [] { PressKey(VK_HOME, {VK_MENU}); }},
        {"button", [this] { ClickButton("Home"); }},
    };
    for (const auto& [name, goHome] : ways) {
        SCOPED_TRACE(name);
        ASSERT_TRUE(ClickOn(Mark(0)));
        ASSERT_TRUE(WaitUntilLoaded(other));
        goHome();
        ASSERT_TRUE(WaitUntilLoaded(home)) << program.OnScreen();
        PressKey(VK_BACK);
        ASSERT_TRUE(WaitUntilLoaded(other)) << program.OnScreen();
        PressKey(VK_BACK);
        ASSERT_TRUE(WaitUntilLoaded(home)) << program.OnScreen();
    }
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
        EXPECT_TRUE(EndsWith(record[0], " second")) << record[0];
    }
}

TEST_F(Navigation, ALinkSaysHowAndWhereItsProgramStarts)
{
    ASSERT_TRUE(CreateDirectoryA(Path("work here").c_str(), nullptr));
    const std::string work = Path("work here");
    const struct {
        std::string command;
        std::string arguments;
        std::string folder;
        std::string show;
    } cases[] = {
        {"recorder.exe", "recorder.exe\"", Folder(), "1"},
        {"recorder.exe a b", " a b", Folder(), "1"},
        {'"' + Path("recorder.exe") + "\" a", " a", Folder(), "1"},
        {"recorder.exe x /NV+", " x", Folder(), "3"},
        {"recorder.exe x /NV-", " x", Folder(), "2"},
        {"recorder.exe x /NV+ " + work, " x", work, "3"},
        {"recorder.exe x /NV-" + work, " x", work, "2"},
        {"recorder.exe x /nv " + work, " x", work, "1"},
        {"NVSUB recorder.exe y /NV+ " + work, " y", work, "3"},
    };
    std::vector<std::string> commands;
    for (const auto& each : cases) {
        commands.push_back(each.command);
    }
    Program& program = Open(WriteLinks("Start.nvm", commands));
    for (int number = 0; number < static_cast<int>(commands.size()); ++number) {
        const auto& each = cases[number];
        SCOPED_TRACE(each.command);
        ASSERT_TRUE(ClickOn(Mark(number)));
        const auto record = WaitForRecord();
        ASSERT_GE(record.size(), 4u) << program.OnScreen();
        EXPECT_TRUE(EndsWith(record[0], each.arguments)) << record[0];
        EXPECT_EQ(record[1], each.folder);
        EXPECT_EQ(record[3], each.show);
    }
}

} // namespace nv::e2e
