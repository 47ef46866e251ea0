// The mouse in the view and on the toolbar: links, Back, and programs that are started.
#include "e2e/stage.h"

#include <commctrl.h>

#include <algorithm>

namespace nv::e2e
{

class Navigation : public Stage
{
protected:
    // A menu with a link to each of the commands, in the colours Mark(mark), Mark(mark + 1), ...
    std::string WriteLinks(const std::string& name, const std::vector<std::string>& commands,
                           int mark = 0)
    {
        std::vector<Entry> entries;
        for (const std::string& command : commands) {
            entries.push_back({kLink, command, command, static_cast<long>(Mark(mark++))});
        }
        return WriteMenu(name, entries);
    }
};

TEST_F(Navigation, LinksOpenMenusInPlaceAndBackGoesThroughThemInReverse)
{
    const std::string b = Path("The other.nvm");
    const std::string c = Path("C.nvm");
    const std::string d = Path("d.Nvm");
    // In colours of their own: the menu before may stand on the screen for a while yet.
    WriteLinks("D.nvm", {});
    WriteLinks("C.nvm", {".\\d.Nvm"}, 2); // below the program's folder
    WriteLinks("The other.nvm", {"C.nvm"}, 1);
    const std::string a = WriteLinks("A.nvm", {'"' + b + '"'});
    Program& program = Open(a);
    const HWND window = program.Window();
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"button", [this] { ClickButton("Back"); }},
        {"Alt+Left", [] { PressKey(VK_LEFT, {VK_MENU}); }},
        {"Backspace", [] { PressKey(VK_BACK); }},
    };
    for (const auto& [name, goBack] : ways) {
        SCOPED_TRACE(name);
        int mark = 0;
        for (const std::string& next : {b, c, d}) {
            ASSERT_TRUE(ClickOn(Mark(mark++)));
            ASSERT_TRUE(WaitUntilLoaded(next));
        }
        PressKey(VK_HOME, {VK_MENU}); // a step like any other, to the first menu
        ASSERT_TRUE(WaitUntilLoaded(a));
        for (const std::string& previous : {d, c, b, a}) {
            goBack();
            ASSERT_TRUE(WaitUntilLoaded(previous));
        }
    }
    EXPECT_EQ(program.WindowNow(), window);
    // Once more than there are steps: nothing happens, and nothing is told.
    PressKey(VK_BACK);
    ClickButton("Back");
    ASSERT_TRUE(ClickOn(Mark(0))); // comes after the other two
    ASSERT_TRUE(WaitUntilLoaded(b));
    PressKey(VK_BACK);
    EXPECT_TRUE(WaitUntilLoaded(a));
}

TEST_F(Navigation, BackKeepsTheStepsThatOpenNothing)
{
    const std::string a = WriteLinks("A.nvm", {"B.nvm"});
    const std::string b = WriteLinks("B.nvm", {"C.nvm"}, 1);
    const std::string c = WriteLinks("C.nvm", {}, 2);
    Program& program = Open(a);
    ASSERT_TRUE(ClickOn(Mark(0)));
    ASSERT_TRUE(WaitUntilLoaded(b));
    EXPECT_TRUE(EnterEditMode());
    PressKey(VK_INSERT);
    EXPECT_TRUE(program.WaitForTitle(TitleOf(b) + " *"));
    for (const char* button : {"Back", "Revert"}) {
        ASSERT_TRUE(ClickButton(button));
        ExpectSaveQuestion(b, "Cancel");
    }
    PressKey('E', {VK_CONTROL});
    EXPECT_TRUE(program.WaitForFocus("NavrixMenuView"));
    EXPECT_TRUE(program.Answers()); // when the column stands
    PressKey(VK_RETURN);
    ExpectSaveQuestion(b, "No");
    ASSERT_TRUE(WaitUntilLoaded(c));
    EXPECT_TRUE(DeleteFileA(b.c_str()));
    PressKey(VK_BACK);
    ExpectBox("File " + b + " does not exist.\n\nWould you like to create a new menu?",
              BoxIcon::exclamation, {"Yes", "No"}, "No");
    WriteLinks("B.nvm", {});
    for (const std::string& previous : {b, a}) {
        PressKey(VK_BACK);
        ASSERT_TRUE(WaitUntilLoaded(previous));
    }
}

TEST_F(Navigation, ALinkStartsItsProgramOnTheReleaseOfAnyButton)
{
    const std::string start = WriteLinks("Start.nvm", {Recorder("first"), Recorder("second")});
    Program& program = Open(start);
    const auto first = WaitForColor(program.View(), Mark(0));
    const auto second = WaitForColor(program.View(), Mark(1));
    ASSERT_TRUE(first && second);
    const std::pair<DWORD, DWORD> buttons[] = {{MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP},
                                               {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP},
                                               {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP}};
    for (const auto& [down, up] : buttons) {
        SCOPED_TRACE(down);
        PressMouse(*first, down);
        EXPECT_TRUE(program.Answers());
        EXPECT_FALSE(HasRecord());
        ReleaseMouse(*second, up);
        EXPECT_EQ(WaitForRecordedWord(), "second");
    }
}

TEST_F(Navigation, AReleaseCountsUnlessItsPressWasOutsideTheProgram)
{
    Program& program = Open(WriteLinks("A.nvm", {Recorder("first"), Recorder("second")}));
    const HWND window = program.Window();
    ShowWindow(window, SW_MAXIMIZE);
    ASSERT_TRUE(Until([&] { return IsZoomed(window); }));
    const auto first = WaitForColor(program.View(), Mark(0));
    ASSERT_TRUE(first);
    ShowWindow(window, SW_RESTORE);
    // Where the link stands when the window is maximized, its caption stands now.
    SetWindowPos(window, nullptr, first->x - 300, first->y - 12, 800, 600, SWP_NOZORDER);
    ASSERT_TRUE(program.Answers());
    PressMouse(*first);
    ReleaseMouse(*first);
    PressMouse(*first);
    ASSERT_TRUE(Until([&] { return IsZoomed(window); })) << "no double click";
    ASSERT_TRUE(program.Answers());
    ReleaseMouse(*first);
    ASSERT_TRUE(ClickOn(Mark(1)));
    EXPECT_EQ(WaitForRecordedWord(), "second");
    // Another program's window closes at the press.
    const HWND other =
        CreateWindowExA(WS_EX_TOPMOST, "STATIC", "", WS_POPUP | WS_VISIBLE | SS_NOTIFY,
                        first->x - 20, first->y - 20, 40, 40, nullptr, nullptr, nullptr, nullptr);
    PressMouse(*first);
    MSG message = {};
    EXPECT_TRUE(Until([&] {
        return PeekMessageA(&message, other, WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_REMOVE) != 0;
    }));
    DestroyWindow(other);
    ASSERT_TRUE(program.Answers());
    ReleaseMouse(*first);
    ASSERT_TRUE(ClickOn(Mark(1)));
    EXPECT_EQ(WaitForRecordedWord(), "second");
    // What comes from no mouse.
    POINT at = *first;
    ScreenToClient(program.View(), &at);
    PostMessageA(program.View(), WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    EXPECT_EQ(WaitForRecordedWord(), "first");
}

TEST_F(Navigation, PointingAtALinkShowsItsCommand)
{
    Program& program = Open(WriteLinks("A.nvm", {"notepad.exe"}));
    const auto link = WaitForColor(program.View(), Mark(0));
    ASSERT_TRUE(link);
    DWORD process = 0;
    GetWindowThreadProcessId(program.Window(), &process);
    const auto tipShown = [process] {
        const auto windows = TopWindowsOf(process);
        return std::any_of(windows.begin(), windows.end(), [](HWND window) {
            return ClassOf(window) == TOOLTIPS_CLASSA && IsWindowVisible(window);
        });
    };
    EXPECT_FALSE(tipShown());
    EXPECT_TRUE(Until([&] { // the display may take the pointer back to where it was
        MoveMouse(*link);
        MoveMouse({link->x + 1, link->y});
        return Until(tipShown, 1000);
    }));
    MoveMouse({0, 0});
    EXPECT_TRUE(Until([&] { return !tipShown(); }));
}

} // namespace nv::e2e
