// The start: the companion, the menu to open, the command line, what the user is asked, and the
// shell, which sees to it that menu files belong to the program.
#include "e2e/stage.h"

namespace nv::e2e
{

class StartUp : public Stage
{
protected:
    // Once a message was answered there is the dialog, and no menu is open.
    void ExpectOpenDialog()
    {
        EXPECT_NE(Running().WaitForDialog("Open Navrix Menu"), nullptr);
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
    Start(); // before there is any menu
    ExpectOpenDialog();
    EXPECT_FALSE(IsWindowEnabled(Running().Button("Home")));
    EXPECT_FALSE(IsWindowEnabled(Running().Button("Revert")));
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
        Start();
        if (each.opened.empty()) {
            ExpectOpenDialog();
            EXPECT_EQ(Setting("Settings", "Last"), last);
        } else {
            EXPECT_TRUE(WaitUntilLoaded(each.opened));
        }
    }
}

TEST_F(StartUp, ReadsTheCommandLine)
{
    const std::string start = WriteMenu("Aaa.nvm", {}); // what the choice gives
    const std::string named = WriteMenu("My menu.nvm", {});
    const struct {
        std::string arguments;
        std::string opened;
        bool locked;
    } cases[] = {
        {'"' + named + "\" /L", named, true},
        {"/L", start, true},
        {"My menu.nvm", named, false}, // below the program's folder
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.arguments);
        Program& program = Start(each.arguments);
        EXPECT_TRUE(WaitUntilLoaded(each.opened));
        EXPECT_EQ(IsWindowEnabled(program.Button("Normal")) == FALSE, each.locked);
    }
}

TEST_F(StartUp, AsksForAMenuWhenTheNamedOneIsNone)
{
    const std::string menu = WriteMenu("Start.nvm", {});
    const std::string missing = Path("new\\deep er\\Menu.nvm");
    const auto noMenu = [](const std::string& path) {
        return "Cannot open: \"" + path + "\"\n\nInvalid file extension!";
    };
    const struct {
        std::string arguments;
        std::string message;
        std::vector<std::string> buttons;
        const char* answer;
    } cases[] = {
        {Write("notes.txt", "x"), noMenu(Path("notes.txt")), {"OK"}, "OK"},
        // Loses its last letter to the switch; also in locked mode there is the dialog.
        {menu + "/l", noMenu(menu.substr(0, menu.size() - 1)), {"OK"}, "OK"},
        {'"' + missing + '"',
         "File " + missing + " does not exist.\n\nWould you like to create a new menu?",
         {"Yes", "No"},
         "No"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.arguments);
        Start(each.arguments);
        ExpectBox(each.message, BoxIcon::exclamation, each.buttons, each.answer);
        ExpectOpenDialog();
        EXPECT_FALSE(IsWindowEnabled(Running().Button("Revert")));
        EXPECT_FALSE(Setting("Settings", "Last"));
    }
    EXPECT_EQ(GetFileAttributesA(Path("new").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(StartUp, TheShellOpensMenusInIt)
{
    RegSetValueA(HKEY_CLASSES_ROOT, R"(Navrix Menu\shell\open\command)", REG_SZ,
                 R"("C:\gone\NVMenu.exe" %1)", 0);
    Open(WriteMenu("Start.nvm", {}));
    EXPECT_EQ(Close(), 0u);
    const std::string menu = WriteMenu("My own menu.nvm", {});
    OpenInShell(menu, menu);
}

} // namespace nv::e2e
