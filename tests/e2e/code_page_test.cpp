// Machines of other code pages: menus, folders and programs that have names in the language, and
// captions that are shown in it.
#include "e2e/code_page_stage.h"

namespace nv::e2e
{

TEST_F(CodePage, ShowsNamesAndCaptions)
{
    const std::string name = one_ + two_ + ".nvm";
    const std::string label = two_ + one_ + " " + two_;
    const std::string caption = two_ + two_ + one_;
    const std::string target = one_ + one_ + two_;
    const std::string path =
        WriteMenu(name, {In(kLink, "First", "x.exe", 0), // has the focus
                         In(kLabel, label, "", 1), In(kLink, caption, "x.exe", 2),
                         In(kLink, "", Path(target), 3)});
    Program& program = Open(path);
    ASSERT_EQ(TextOf(Header()), name);
    // Were they boxes for what the font has not, all of them would be the same.
    ASSERT_FALSE(Drawn(one_ + two_, 16, Mark(1)) == Drawn(one_ + one_, 16, Mark(1)));
    ASSERT_FALSE(Drawn(one_ + two_, 14, 0) == Drawn(one_ + one_, 14, 0));
    EXPECT_TRUE(Shows(Header(), Drawn(name, 14, GetSysColor(COLOR_BTNTEXT))));
    EXPECT_TRUE(Shows(program.View(), Drawn(label, 16, Mark(1))));
    EXPECT_TRUE(Shows(program.View(), Drawn(caption, 16, Mark(2))));
    EXPECT_TRUE(Shows(program.View(), Drawn(target, 16, Mark(3))));
}

TEST_F(CodePage, LinksReachWhatTheyName)
{
    const std::string folder = Path(one_);
    const std::string program = Path(two_ + one_ + ".exe");
    const std::string menu = folder + "\\" + two_ + ".nvm";
    ASSERT_TRUE(CreateDirectoryA(folder.c_str(), nullptr));
    ASSERT_TRUE(MoveFileA(Path("recorder.exe").c_str(), program.c_str()));
    ASSERT_TRUE(SetEnvironmentVariableA("NAVRIX_HERE", Folder().c_str()));
    // More bytes than the text has units of 16 bits twice, in UTF-8.
    std::string many;
    for (int count = 0; count < 200; ++count) {
        many += two_;
    }
    ASSERT_TRUE(SetEnvironmentVariableA("NAVRIX_MANY", many.c_str()));
    const std::string quoted = '"' + program + '"';
    const struct {
        std::string command;
        std::string argument;
        std::string folder;
    } cases[] = {
        {quoted + " " + two_, two_, Folder()},
        {two_ + one_ + ".exe " + one_, one_, Folder()},
        {quoted + " " + one_ + " /NV " + folder, one_, folder},
        {"NVSUB " + quoted + " " + one_ + " /NV " + folder, one_, folder},
        {"NVSUB \"%NAVRIX_HERE%\\" + two_ + one_ + ".exe\" %NAVRIX_MANY%", many, Folder()},
    };
    std::vector<Entry> entries;
    for (const auto& each : cases) {
        entries.push_back(In(kLink, two_, each.command, static_cast<int>(entries.size())));
    }
    entries.push_back(In(kLink, two_, menu, static_cast<int>(entries.size())));
    Write(one_ + "\\" + two_ + ".nvm", "");
    Open(WriteMenu(two_ + ".nvm", entries));
    int mark = 0;
    for (const auto& each : cases) {
        SCOPED_TRACE(each.command);
        ASSERT_TRUE(ClickOn(Mark(mark++)));
        const auto record = WaitForRecord();
        ASSERT_GE(record.size(), 2u) << Running().OnScreen();
        EXPECT_TRUE(record[0].starts_with(quoted + " ")) << record[0];
        EXPECT_TRUE(record[0].ends_with(" " + each.argument)) << record[0];
        EXPECT_EQ(record[1], each.folder);
    }
    ASSERT_TRUE(ClickOn(Mark(mark)));
    EXPECT_TRUE(WaitUntilLoaded(menu)) << Running().OnScreen();
}

TEST_F(CodePage, TellsAndCreatesWhatIsNotThere)
{
    const std::string folder = Path(two_ + one_);
    const std::string path = folder + "\\" + one_ + two_ + "\\" + two_ + ".nvm";
    const int before = CountIn(Folder());
    Program& program = Start('"' + path + '"');
    const auto box = program.WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text,
              "File " + path + " does not exist.\n\nWould you like to create a new menu?");
    ASSERT_TRUE(program.Answer(*box, box->buttons.front()));
    ASSERT_TRUE(WaitUntilLoaded(path)) << program.OnScreen();
    EXPECT_NE(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(CountIn(Folder()), before + 1); // and no part of a name
    EXPECT_EQ(CountIn(folder), 1);
    EXPECT_EQ(Close(), 0u);
    SetSetting("Settings", "StartOpen", "2"); // the last menu
    EXPECT_TRUE(Start().WaitForTitle(TitleOf(path))) << Running().OnScreen();

    const std::string gone = Path(one_ + "\\" + two_);
    const Program companion('"' + Path("NVSub.exe") + "\" \"" + gone + '"');
    const auto message = companion.WaitForBox();
    ASSERT_TRUE(message);
    EXPECT_EQ(message->text, "Cannot start:\n\n" + gone +
                                 "\n\nIt was not found, or no program opens files of its kind.");
    EXPECT_TRUE(companion.Answer(*message, message->buttons.front()));
    EXPECT_EQ(companion.ExitCode(), 1u);
}

} // namespace nv::e2e
