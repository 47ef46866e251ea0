// Edit mode, used as a user does: the list, the boxes, the buttons, the keys, the pickers, and what
// then stands in the file.
#include "e2e/picture.h"
#include "e2e/stage.h"

#include <algorithm>
#include <future>

namespace nv::e2e
{

class Editor : public Stage
{
protected:
    // Links with these captions; each runs a program of its name.
    std::string WriteLinks(const std::string& name, const std::vector<std::string>& captions) const
    {
        return WriteMenu(name, Links(captions));
    }
    static std::vector<Entry> Links(const std::vector<std::string>& captions)
    {
        std::vector<Entry> entries;
        for (const std::string& caption : captions) {
            entries.push_back({kLink, caption, caption + ".exe"});
        }
        return entries;
    }
    // Opens the menu at path in edit mode.
    Program& Edit(const std::string& path)
    {
        Program& program = Open(path);
        EXPECT_TRUE(EnterEditMode());
        return program;
    }
    LRESULT Count() { return Ask(kList, LB_GETCOUNT); }
    LRESULT Selected() { return Ask(kList, LB_GETCURSEL); }
    LRESULT Ask(int control, UINT message)
    {
        return SendMessageA(Running().Control(control), message, 0, 0);
    }
    bool WaitForBoxText(PanelControl box, const std::string& text)
    {
        return WaitForText(Running().Control(box), text);
    }
    bool WaitForMode(bool editing)
    {
        return Until([&] {
            return (IsWindowVisible(Running().Panel()) != 0) == editing &&
                   (IsWindowVisible(Running().View()) != 0) != editing;
        });
    }
    // Saves with Ctrl+S; what the file then holds.
    std::string Saved(const std::string& path)
    {
        DeleteFileA(path.c_str());
        PressKey('S', {VK_CONTROL});
        EXPECT_TRUE(Until([&] { return !std::ifstream(path).fail(); }));
        return Contents(path);
    }
};

TEST_F(Editor, ShowsWhatIsEditedAndComesBackToItsPlace)
{
    std::vector<std::string> captions(60, "one");
    captions[1] = "two";
    Program& program = Open(WriteLinks("Start.nvm", captions));
    PressKey(VK_END); // scrolls, and a menu that is read again scrolls back
    EXPECT_TRUE(EnterEditMode());
    EXPECT_EQ(Count(), 60);
    EXPECT_EQ(Selected(), 0);
    PressKey(VK_DOWN);
    EXPECT_TRUE(WaitForBoxText(kCaption, "two"));
    EXPECT_TRUE(WaitForBoxText(kCommand, "two.exe"));
    EXPECT_EQ(Ask(kType, CB_GETCURSEL), kLink);
    // A caption of two lines, typed.
    SetForegroundWindow(program.Window());
    Click(CentreOf(program.Control(kCaption)));
    PressKey('A', {VK_CONTROL});
    Type("recorder\rmore");
    EXPECT_TRUE(WaitForBoxText(kCaption, "recorder\r\nmore"));
    PressKey(VK_TAB); // leaves the box
    EXPECT_TRUE(program.WaitForFocus("Insert Path"));
    PressKey('E', {VK_CONTROL});
    ASSERT_TRUE(WaitForMode(false));
    EXPECT_EQ(program.Focus(), "NavrixMenuView");
    EXPECT_TRUE(EnterEditMode());
    ASSERT_TRUE(WaitForMode(true));
    EXPECT_EQ(Selected(), 1);
    EXPECT_TRUE(WaitForBoxText(kCaption, "recorder\r\nmore"));
    std::vector<Entry> expected = Links(captions);
    expected[1].caption = "recorder\x01more";
    EXPECT_EQ(Saved(Path("Start.nvm")), MenuOf(expected));

    PressKey(VK_DOWN);
    PressKey(VK_F5);
    EXPECT_TRUE(WaitForBoxText(kCaption, "one"));
    EXPECT_TRUE(Until([&] { return Selected() == 2 && Count() == 60; })); // as before
    EXPECT_EQ(program.Focus(), "ListBox");
}

TEST_F(Editor, ChangesTheListAndTakesItBack)
{
    const std::string path = WriteLinks("Start.nvm", {"a", "b", "c", "d"});
    Edit(path);
    PressKey(VK_DOWN, {VK_CONTROL});
    EXPECT_TRUE(Until([&] { return Selected() == 1; })); // before the mouse moves
    for (const char* button : {"Move Down", "Remove", "Move Up", "Insert New"}) {
        ASSERT_TRUE(ClickButton(button)); // b c a d, b c d, c b d, c c b d
    }
    EXPECT_TRUE(Until([&] { return Selected() == 1 && Count() == 4; }));
    EXPECT_EQ(Saved(path), MenuOf(Links({"c", "c", "b", "d"})));
    // The boxes: typing is one step, whatever has the keyboard.
    Click(CentreOf(Running().Control(kCommand)));
    PressKey(VK_END);
    Type(" x y");
    EXPECT_TRUE(WaitForBoxText(kCommand, "c.exe x y"));
    PressKey('Z', {VK_CONTROL});
    EXPECT_TRUE(WaitForBoxText(kCommand, "c.exe"));
    PressKey(VK_DELETE); // deletes text, if anything
    for (int step = 0; step < 5; ++step) {
        PressKey('Z', {VK_CONTROL});
    }
    EXPECT_TRUE(Until([&] { return Selected() == 0 && Count() == 4; }));
    EXPECT_EQ(Saved(path), MenuOf(Links({"a", "b", "c", "d"})));
}

TEST_F(Editor, KeepsTheEditsUntilTheUserGivesThemUp)
{
    const std::string start = WriteLinks("Start.nvm", {"a", "b"});
    const std::string home = WriteLinks("Home.nvm", {"h"});
    const std::string before = Contents(start);
    SetSetting("Settings", "Home", home);
    Program& program = Edit(start);
    RemoveOneOfTwo();
    // Files that another program has open: told, and nothing is lost.
    const auto hold = [](const std::string& path) {
        return CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    };
    const auto expectRefusal = [&](const std::string& message) {
        ExpectBox(message + "\n\n" + ReasonOf(ERROR_SHARING_VIOLATION), BoxIcon::stop);
        EXPECT_TRUE(program.WaitForTitle(TitleOf(start) + " *") && Count() == 1);
    };
    HANDLE held = hold(start);
    PressKey('S', {VK_CONTROL});
    expectRefusal("Cannot save:\n\n" + start);
    CloseHandle(held);
    EXPECT_EQ(Contents(start), before);
    PressKey('E', {VK_CONTROL}); // shows the changes, which is not saving them
    ASSERT_TRUE(WaitForMode(false));
    held = hold(home);
    ASSERT_TRUE(ClickButton("Home"));
    ExpectSaveQuestion(start, "No");
    expectRefusal("Cannot open:\n\n" + home);
    CloseHandle(held);
    ASSERT_TRUE(ClickButton("Home"));
    ExpectSaveQuestion(start, "Cancel");
    EXPECT_EQ(program.Title(), TitleOf(start) + " *");
    ASSERT_TRUE(ClickButton("Revert"));
    ExpectSaveQuestion(start, "No");
    EXPECT_TRUE(WaitForMenu(start));
    EXPECT_TRUE(EnterEditMode());
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(Contents(start), before);
    RemoveOneOfTwo();
    for (const char* button : {"Cancel", "Yes"}) {
        PostMessageA(program.Window(), WM_CLOSE, 0, 0);
        ExpectSaveQuestion(start, button);
    }
    EXPECT_EQ(program.ExitCode(), 0u);
    EXPECT_EQ(Contents(start), MenuOf(Links({"b"})));
}

TEST_F(Editor, BrowseAndFontPickers)
{
    const std::string path = WriteLinks("Start.nvm", {"a"});
    Program& program = Edit(path);
    const auto pick = [&](const std::string& name) {
        ASSERT_TRUE(ClickButton("Browse"));
        EXPECT_TRUE(WaitUntilGone(program.PickFile("Browse", Path(name))));
    };
    const std::string quoted = '"' + Path("recorder.exe") + '"';
    pick("NVSub.exe"); // takes the place of the command, which nobody has touched
    EXPECT_TRUE(WaitForBoxText(kCommand, '"' + Path("NVSub.exe") + '"'));
    pick("recorder.exe"); // ... and of a wrong pick
    EXPECT_TRUE(WaitForBoxText(kCommand, quoted));
    Type(" x"); // behind it
    EXPECT_TRUE(WaitForBoxText(kCommand, quoted + " x"));
    pick("recorder.exe"); // where the user has put the caret
    EXPECT_TRUE(WaitForBoxText(kCommand, quoted + " x" + quoted));
    PressKey('Z', {VK_CONTROL});
    EXPECT_TRUE(WaitForBoxText(kCommand, quoted + " x"));
    pick("recorder.exe"); // Undo has left it so, not the user
    EXPECT_TRUE(WaitForBoxText(kCommand, quoted));
    PressKey('Z', {VK_CONTROL});

    // As a double click does, the pick ends at a press. Its release is not for what lies below.
    ASSERT_TRUE(ClickButton("Browse"));
    const HWND picker = program.WaitForDialog("Browse");
    ASSERT_NE(picker, nullptr);
    PressMouse(CentreOf(GetDlgItem(picker, 0x47c)));
    EXPECT_TRUE(Until([&] {
        GUITHREADINFO state = {};
        state.cbSize = sizeof state;
        return GetGUIThreadInfo(GetWindowThreadProcessId(picker, nullptr), &state) &&
               state.hwndCapture != nullptr;
    }));
    PostMessageA(picker, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(WaitUntilGone(picker));
    MoveMouse(CentreOf(program.Button("Insert New")));
    ReleaseMouse(CentreOf(program.Button("Insert New")));
    ASSERT_TRUE(ClickButton("Insert New"));
    EXPECT_TRUE(program.WaitForFocus("Edit"));
    Type("n"); // its caption is selected
    EXPECT_TRUE(WaitForBoxText(kCaption, "n"));
    EXPECT_EQ(Count(), 2);
    PressKey('Z', {VK_CONTROL});
    EXPECT_TRUE(WaitForBoxText(kCaption, "a"));
    for (int step = 0; step < 4; ++step) {
        PressKey('Z', {VK_CONTROL});
    }
    EXPECT_TRUE(WaitForBoxText(kCommand, "a.exe"));
    EXPECT_EQ(Count(), 1);

    ASSERT_TRUE(ClickButton("Change Font..."));
    const HWND fonts = program.WaitForDialog("Font");
    ASSERT_NE(fonts, nullptr);
    PostMessageA(fonts, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(Until([&] { return !IsWindow(fonts) && IsWindowEnabled(program.Window()); }));
    EXPECT_EQ(Saved(path), MenuOf(Links({"a"})));
}

TEST_F(Editor, SavesTheRightFileAndNothingElse)
{
    for (const char* folder : {"Sub", "Else"}) {
        CreateDirectoryA(Path(folder).c_str(), nullptr);
    }
    const std::string path = WriteLinks("Sub\\Tools.nvm", {"a", "b"});
    const std::string other = Path("Other name.nvm");
    ASSERT_TRUE(CreateHardLinkA(other.c_str(), path.c_str(), nullptr));
    Program& program = Open(WriteMenu("Start.nvm", {{kLink, "x", "Sub\\Tools.nvm", Mark(0)}}));
    ASSERT_TRUE(ClickOn(Mark(0)));
    ASSERT_TRUE(WaitUntilLoaded(path)); // by its full path
    EXPECT_TRUE(EnterEditMode());
    ASSERT_TRUE(ClickButton("Set This Menu As Home Menu"));
    EXPECT_TRUE(Until([&] { return Setting("Settings", "Home") == path; }));
    Click(CentreOf(program.Control(kList)));
    RemoveOneOfTwo();
    // The session ends while a picker has made another folder the current one.
    ASSERT_TRUE(ClickButton("Browse"));
    const HWND picker = program.WaitForDialog("Browse");
    SetDlgItemTextA(picker, 0x47c, Path("Else").c_str());
    SendMessageA(picker, WM_COMMAND, IDOK, 0);
    const auto mayEnd = [&](LPARAM how) {
        return SendMessageA(program.Window(), WM_QUERYENDSESSION, 0, how) != 0;
    };
    auto answer = std::async(std::launch::async, mayEnd, 0);
    ExpectSaveQuestion(path, "Yes");
    EXPECT_TRUE(answer.get());
    EXPECT_EQ(Contents(path), MenuOf(Links({"b"})));
    EXPECT_EQ(Contents(other), Contents(path));
    EXPECT_TRUE(FilesIn(Path("Else")).empty());
    PostMessageA(picker, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(WaitUntilGone(picker) && WaitForMenu(path));

    const std::string foreign = MenuOf(Links({"of another program"}));
    for (const char* button : {"No", "Yes"}) {
        Write("Sub\\Tools.nvm", foreign);
        ASSERT_TRUE(ClickButton("Insert New"));
        PressKey('S', {VK_CONTROL});
        ExpectBox("File " + path +
                      " was changed by another program.\n\nDo you want to overwrite it?",
                  BoxIcon::exclamation, {"Yes", "No"}, button, "No");
        const bool saves = button == std::string("Yes");
        EXPECT_TRUE(program.WaitForTitle(TitleOf(path) + (saves ? "" : " *")));
        EXPECT_EQ(Contents(path), saves ? MenuOf(Links({"a", "a", "b"})) : foreign);
    }
    // There is no time to ask.
    const std::string unsaved = path + ".unsaved";
    ASSERT_TRUE(ClickButton("Insert New"));
    EXPECT_TRUE(program.WaitForTitle(TitleOf(path) + " *"));
    EXPECT_TRUE(mayEnd(ENDSESSION_CRITICAL));
    EXPECT_EQ(Contents(unsaved), MenuOf(Links({"a", "a", "a", "b"})));
    PressKey(VK_F5);
    ExpectSaveQuestion(path, "No");
    const auto told = program.WaitForBox();
    ASSERT_TRUE(told && told->text.find(unsaved) != std::string::npos);
    EXPECT_TRUE(program.Answer(*told, "OK"));
    PressKey(VK_F5); // told once: no box is left at the end
    EXPECT_TRUE(WaitUntilLoaded(path));
}

TEST_F(Editor, EverythingHasItsPlaceAtEverySize)
{
    Program& program = Edit(WriteLinks("Start.nvm", {"a"}));
    for (const SIZE size : {SIZE{0, 0}, SIZE{900, 600}, SIZE{1270, 990}}) {
        SetWindowPos(program.Window(), nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER);
        ASSERT_TRUE(program.Answers());
        const RECT panel = PlaceOf(program.Panel());
        std::vector<HWND> children = ChildrenOf(program.Panel());
        std::erase_if(children, [&](HWND child) { return GetParent(child) != program.Panel(); });
        for (std::size_t index = 0; index < children.size(); ++index) {
            const RECT place = PlaceOf(children[index]);
            RECT common = {};
            EXPECT_TRUE(IntersectRect(&common, &place, &panel) && EqualRect(&common, &place))
                << TextOf(children[index]) << index << " is outside at " << size.cx;
            for (std::size_t other = 0; other < index; ++other) {
                const RECT otherPlace = PlaceOf(children[other]);
                EXPECT_FALSE(IntersectRect(&common, &place, &otherPlace))
                    << index << " lies over " << other << " at " << size.cx;
            }
        }
    }
    // The Tab key goes in reading order.
    for (const char* next :
         {"Insert New", "Remove", "Move Up", "Move Down", "ComboBox", "Edit", "Insert Path",
          "Change Font...", "Edit", "Browse", "Save Menu", "Set This Menu As Home Menu"}) {
        PressKey(VK_TAB);
        EXPECT_TRUE(program.WaitForFocus(next)) << next << " is not it, but " << program.Focus();
    }
}

TEST_F(Editor, IsDrawnWholeInAnySize)
{
    Program& program = Edit(WriteLinks("A.nvm", {"one", "two"}));
    // Every button, label and box that has a text shows more than its ground.
    const auto drawn = [&] {
        const auto windows = ChildrenOf(program.Panel());
        return std::all_of(windows.begin(), windows.end(), [](HWND window) {
            return !Picture(window).IsPlain() || TextOf(window).empty();
        });
    };
    EXPECT_TRUE(Until(drawn));
    for (const SIZE size : {SIZE{1100, 900}, SIZE{700, 620}, SIZE{900, 700}}) {
        SCOPED_TRACE(size.cx);
        SetWindowPos(program.Window(), nullptr, 20, 20, size.cx, size.cy, SWP_NOZORDER);
        EXPECT_TRUE(Until(drawn, 5000)) << program.OnScreen();
    }
}

} // namespace nv::e2e
