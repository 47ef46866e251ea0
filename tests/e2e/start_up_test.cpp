// The start: the companion, the menu to open, the command line, and what the user is asked.
#include "e2e/stage.h"

namespace nv::e2e
{

class StartUp : public Stage
{
protected:
    // Once a message was answered there is the dialog, and no menu is open.
    void ExpectOpenDialog()
    {
        EXPECT_NE(Running().WaitForDialog("Open Navrix Menu"), nullptr) << Running().OnScreen();
        EXPECT_EQ(Running().Title(), kPlainTitle);
    }
};

TEST_F(StartUp, EndsWhenTheCompanionIsMissing)
{
    WriteMenu("Start.nvm", {{kLink, "One", "one.exe"}});
    ASSERT_TRUE(DeleteFileA(Path("NVSub.exe").c_str()));
    Program& program = Start();
    EXPECT_TRUE(program.WaitForBox());
    EXPECT_EQ(program.WindowNow(), nullptr);
    ExpectBox("File \"NVSub.exe\" must be in same directory as Navrix Menu!\n\n"
              "Program cannot continue.",
              BoxIcon::exclamation);
    EXPECT_TRUE(program.ExitCode()) << "it does not end";
    EXPECT_FALSE(Setting("StartSet", "MainLeft"));
    EXPECT_FALSE(Setting("Settings", "Last"));
}

TEST_F(StartUp, ChoosesTheMenuFromTheSettings)
{
    const std::string first = WriteMenu("First.nvm", {});
    const std::string home = WriteMenu("Second home.nvm", {});
    const std::string last = WriteMenu("Third.nvm", {});
    const struct {
        const char* startOpen; // null: not set
        std::string home;      // empty: not set
        std::string opened;    // empty: no menu
    } cases[] = {
        {nullptr, "", first}, {"0", home, first}, {"1", home, home}, {"1", "", first},
        {"2", home, last},    {"3", home, ""},    {"17", home, ""},  {"x", home, first},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string("StartOpen ") + (each.startOpen ? each.startOpen : "not set") +
                     ", Home " + each.home);
        if (each.startOpen != nullptr) {
            SetSetting("Settings", "StartOpen", each.startOpen);
        }
        SetSetting("Settings", "Home", each.home);
        SetSetting("Settings", "Last", last);
        Program& program = Start();
        ASSERT_NE(program.Window(), nullptr);
        if (each.opened.empty()) {
            ExpectOpenDialog();
            EXPECT_EQ(Setting("Settings", "Last"), last);
        } else {
            EXPECT_TRUE(WaitUntilLoaded(each.opened)) << program.OnScreen();
        }
    }
}

TEST_F(StartUp, WithoutAnyMenuHomeIsNotToBeHad)
{
    Program& program = Start();
    ExpectOpenDialog();
    EXPECT_FALSE(IsWindowEnabled(program.Button("Home")));
    EXPECT_FALSE(IsWindowEnabled(program.Button("Revert")));
}

TEST_F(StartUp, ReadsTheCommandLine)
{
    const std::string start = WriteMenu("Aaa.nvm", {}); // what the choice gives
    const std::string named = WriteMenu("My menu.nvm", {});
    const std::string quoted = "\"" + named + "\"";
    const struct {
        std::string arguments;
        std::string opened;
        bool locked;
    } cases[] = {
        {quoted, named, false},
        {named + " /l", named, true},
        {quoted + " /L", named, true},
        {"/L", start, true},
        {named + "m/l", named, true}, // the character before the switch goes with it
        {"My menu.nvm", "My menu.nvm", false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.arguments);
        Program& program = Start(each.arguments);
        EXPECT_TRUE(WaitUntilLoaded(each.opened)) << program.OnScreen();
        EXPECT_EQ(IsWindowEnabled(program.Button("Normal")) == FALSE, each.locked);
    }
}

TEST_F(StartUp, TellsAboutAnExtensionThatIsNoMenu)
{
    const std::string menu = WriteMenu("Start.nvm", {});
    const struct {
        std::string arguments;
        std::string named; // as the message has it
    } cases[] = {
        {Write("notes.txt", "x"), Path("notes.txt")},
        {Path("none"), Path("none")},
        {menu + "/l", menu.substr(0, menu.size() - 1)}, // loses its last letter to the switch
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.arguments);
        Start(each.arguments);
        ExpectBox("Cannot open: \"" + each.named + "\"\n\nInvalid file extension!",
                  BoxIcon::exclamation);
        ExpectOpenDialog(); // in locked mode, too
        EXPECT_FALSE(Setting("Settings", "Last"));
    }
}

TEST_F(StartUp, AsksBeforeItCreatesAMenu)
{
    const std::string path = Path("new\\deep er\\Menu.nvm");
    const std::string question =
        "File " + path + " does not exist.\n\nWould you like to create a new menu?";
    Start("\"" + path + "\"");
    ExpectBox(question, BoxIcon::exclamation, {"Yes", "No"}, "No");
    ExpectOpenDialog();
    EXPECT_FALSE(IsWindowEnabled(Running().Button("Revert")));
    EXPECT_EQ(GetFileAttributesA(Path("new").c_str()), INVALID_FILE_ATTRIBUTES);
    Program& program = Start("\"" + path + "\"");
    ExpectBox(question, BoxIcon::exclamation, {"Yes", "No"}, "Yes");
    EXPECT_TRUE(WaitUntilLoaded(path));
    WIN32_FILE_ATTRIBUTE_DATA file = {};
    ASSERT_TRUE(GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &file));
    EXPECT_EQ(file.nFileSizeLow, 0u);
    EXPECT_TRUE(IsWindowEnabled(program.Button("Revert")));
}

} // namespace nv::e2e
