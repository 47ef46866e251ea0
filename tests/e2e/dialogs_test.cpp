// The dialogs of the main window, worked by the keyboard as a user does.
#include "e2e/stage.h"

#include <future>

namespace nv::e2e
{

namespace
{

constexpr char kOpenTitle[] = "Open Navrix Menu";
enum Control { kOpenExisting = 201, kCreateNew, kPath, kBrowse, kFirstChoice = 211 };

bool IsChecked(HWND dialog, int id)
{
    return SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

} // namespace

class Dialogs : public Stage
{
protected:
    // Opens the dialog of a toolbar button.
    HWND OpenDialog(const char* button, const char* title)
    {
        EXPECT_TRUE(ClickButton(button));
        const HWND dialog = Running().WaitForDialog(title);
        EXPECT_NE(dialog, nullptr);
        return dialog;
    }
};

TEST_F(Dialogs, OpenAndCreateMenus)
{
    const std::string folder = Path("my menus.d");
    const std::string start = WriteMenu("Start.nvm", {});
    const std::string existing = folder + "\\a b.NVM";
    const std::string plain = folder + "\\plain";
    const std::string deep = folder + "\\x\\y z\\new.nvm";
    const std::string missing = folder + "\\missing.nvm";
    std::string tooLong = folder + "\\";
    while (tooLong.size() < 260) {
        tooLong += "long name "; // with blanks, so that a box can break it into lines
    }
    tooLong += ".nvm";
    CreateDirectoryA(folder.c_str(), nullptr);
    WriteMenu("my menus.d\\a b.NVM", {{kLink, "kept", "kept"}});

    const auto missingQuestion = [](const std::string& path) {
        return "File " + path + " does not exist.\n\nWould you like to create a new menu?";
    };
    const std::string overwrite =
        "File: " + existing + " already exists.\n\nDo you want overwrite this file?";
    const std::string selectMenu = "Please select a \"NVM\" file.";
    const std::string notCreated = "New Menu Could Not Be Created!";
    const std::string badExtension =
        "This is not a valid file extension.\n\nPlease enter a \"NVM\" extension.";
    struct Shown {
        std::string text;
        BoxIcon icon;
        const char* answer;
    };
    constexpr BoxIcon kNone = BoxIcon::none;
    constexpr BoxIcon kWarning = BoxIcon::exclamation;
    const struct {
        bool create;
        std::string typed;
        std::vector<Shown> boxes;
        std::string opened;    // empty: the dialog stays
        std::string kept = ""; // what the path then is, where it is not what was typed
    } cases[] = {
        {false, "", {{"Please enter as file path.", kNone, "OK"}}, ""},
        {false, plain, {{selectMenu, kWarning, "OK"}}, ""},
        {false, existing, {}, existing},
        {false, missing, {{missingQuestion(missing), kWarning, "No"}}, ""},
        {false,
         tooLong,
         {{missingQuestion(tooLong), kWarning, "Yes"}, {notCreated, kWarning, "OK"}},
         ""},
        {false, missing, {{missingQuestion(missing), kWarning, "Yes"}}, missing},
        {true, "plain", {{"This is not a valid path.", kNone, "OK"}}, ""},
        {true, folder + "\\", {{"This is not a valid path.", kNone, "OK"}}, ""},
        {true, '"' + existing + '"', {{badExtension, kNone, "OK"}}, ""},
        {true, existing, {{overwrite, kWarning, "No"}}, ""},
        {true, plain + "|", {{notCreated, kWarning, "OK"}}, "", plain + "|.nvm"},
        {true, plain, {}, plain + ".nvm"},
        {true, deep, {}, deep},
        {true, existing, {{overwrite, kWarning, "Yes"}}, existing},
    };
    Open(start);
    for (const auto& each : cases) {
        SCOPED_TRACE((each.create ? "create " : "open ") + each.typed);
        const HWND dialog = OpenDialog(each.create ? "New Menu" : "Open Menu", kOpenTitle);
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(Running().WaitForFocus("Edit"));
        EXPECT_TRUE(IsChecked(dialog, each.create ? kCreateNew : kOpenExisting));
        const HWND box = GetDlgItem(dialog, kPath);
        EXPECT_EQ(TextOf(box), Setting("Settings", "Last"));
        SetDlgItemTextA(dialog, kPath, each.typed.c_str());
        PressKey(VK_RETURN);
        for (const Shown& shown : each.boxes) {
            const bool asks = shown.answer != std::string("OK");
            // What would empty a menu is not done by the Enter key.
            ExpectBox(shown.text, shown.icon,
                      asks ? std::vector<std::string>{"Yes", "No"} : std::vector<std::string>{"OK"},
                      shown.answer, shown.text == overwrite ? "No" : "");
        }
        if (!each.opened.empty()) {
            EXPECT_TRUE(WaitUntilLoaded(each.opened));
            EXPECT_TRUE(WaitUntilGone(dialog));
            continue;
        }
        EXPECT_TRUE(Running().WaitForFocus("Edit"));
        EXPECT_EQ(TextOf(box), each.kept.empty() ? each.typed : each.kept);
        const bool creates = each.create || each.boxes.size() > 1; // Yes goes on to create
        EXPECT_EQ(IsChecked(dialog, kCreateNew), creates);
        EXPECT_EQ(TextOf(GetDlgItem(dialog, IDOK)), creates ? "Create Menu" : "Open Menu");
        PressKey(VK_ESCAPE);
        ASSERT_TRUE(WaitUntilGone(dialog));
    }
    // The last one was made empty, on purpose.
    WIN32_FILE_ATTRIBUTE_DATA file = {};
    ASSERT_TRUE(GetFileAttributesExA(existing.c_str(), GetFileExInfoStandard, &file));
    EXPECT_EQ(file.nFileSizeLow, 0u);
}

TEST_F(Dialogs, OpenMenuByKeyboardAndPickerAsksAboutChanges)
{
    const std::string start = WriteMenu("Start.nvm", {{}, {}});
    const std::string other = WriteMenu("Other.nvm", {});
    Program& program = Open(start);
    EXPECT_TRUE(EnterEditMode());
    RemoveOneOfTwo();
    HWND dialog = OpenDialog("Open Menu", kOpenTitle);
    const RECT own = PlaceOf(dialog);
    const RECT main = PlaceOf(program.Window());
    EXPECT_NEAR(own.left + own.right, main.left + main.right, 2);
    EXPECT_NEAR(own.top + own.bottom, main.top + main.bottom, 2);
    // The path is selected whole: what is typed takes its place.
    EXPECT_TRUE(program.WaitForFocus("Edit"));
    Type("x");
    EXPECT_TRUE(WaitForText(GetDlgItem(dialog, kPath), "x"));
    for (const char* next : {"Browse", "Open Menu", "Cancel", "Button"}) {
        PressKey(VK_TAB);
        EXPECT_TRUE(program.WaitForFocus(next)) << next << " is not it, but " << program.Focus();
    }
    PressKey(VK_DOWN); // from one option to the other
    EXPECT_TRUE(Until([&] { return IsChecked(dialog, kCreateNew); }));
    EXPECT_TRUE(WaitForText(GetDlgItem(dialog, IDOK), "Create Menu"));
    Click(CentreOf(GetDlgItem(dialog, IDCANCEL)));
    ASSERT_TRUE(WaitUntilGone(dialog));
    EXPECT_EQ(program.Title(), TitleOf(start) + " *");

    dialog = OpenDialog("Open Menu", kOpenTitle);
    Click(CentreOf(GetDlgItem(dialog, kBrowse)));
    ASSERT_NE(program.PickFile("Browse", other), nullptr);
    EXPECT_TRUE(WaitForText(GetDlgItem(dialog, kPath), other));
    Click(CentreOf(GetDlgItem(dialog, IDOK)));
    ExpectSaveQuestion(start, "Cancel");
    EXPECT_TRUE(IsWindowVisible(dialog)); // stays
    EXPECT_EQ(program.Title(), TitleOf(start) + " *");
    Click(CentreOf(GetDlgItem(dialog, IDOK)));
    ExpectSaveQuestion(start, "No");
    EXPECT_TRUE(WaitUntilLoaded(other));
    EXPECT_TRUE(WaitUntilGone(dialog));
}

// The system asks whether the session may end, which sends a message and waits.
TEST_F(Dialogs, TheEndOfTheSessionAsksOnceWhateverIsShown)
{
    const std::string start = WriteMenu("Start.nvm", {{}, {}});
    Program& program = Open(start);
    const HWND window = program.Window();
    const auto mayEnd = [window] { return SendMessageA(window, WM_QUERYENDSESSION, 0, 0) != 0; };
    EXPECT_TRUE(mayEnd()); // nothing to save, nothing asked
    EXPECT_TRUE(EnterEditMode());
    RemoveOneOfTwo();
    for (const bool inDialog : {true, false}) {
        const HWND dialog = inDialog ? OpenDialog("Open Menu", kOpenTitle) : nullptr;
        auto answer = std::async(std::launch::async, mayEnd);
        const auto box = program.WaitForBox();
        ASSERT_TRUE(box);
        EXPECT_FALSE(mayEnd()); // is being asked already
        if (inDialog) {
            EXPECT_FALSE(IsWindowEnabled(dialog));
            PostMessageA(dialog, WM_CLOSE, 0, 0);
        }
        PostMessageA(window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(program.Answers());
        ASSERT_TRUE(program.Answer(*box, inDialog ? "Cancel" : "No"));
        EXPECT_EQ(answer.get(), !inDialog);
        EXPECT_FALSE(program.BoxNow());
        if (inDialog) {
            EXPECT_TRUE(IsWindowVisible(dialog));
            PressKey(VK_ESCAPE);
            ASSERT_TRUE(WaitUntilGone(dialog));
        }
    }
    SendMessageA(window, WM_ENDSESSION, TRUE, 0);
    EXPECT_TRUE(Setting("StartSet", "MainLeft"));
    PostMessageA(window, WM_CLOSE, 0, 0); // the session goes on after all
    const auto box = program.WaitForBox();
    ASSERT_TRUE(box);
    ASSERT_TRUE(program.Answer(*box, "No"));
    EXPECT_EQ(program.ExitCode(), 0u);
}

TEST_F(Dialogs, OptionsKeepWhatAStartOpens)
{
    const struct {
        const char* stored; // null: nothing
        int shown;          // -1: none
        int chosen;         // -1: left alone
        bool apply;
        std::optional<std::string> then;
    } cases[] = {
        {nullptr, 0, -1, false, std::nullopt},
        {nullptr, 0, -1, true, "0"},
        {"0", 0, 3, false, "0"},
        {"3", 3, 1, true, "1"},
        {"1", 1, 2, true, "2"},
        {"7", -1, -1, true, "7"},
        {"-1", -1, 0, true, "0"},
    };
    const std::string start = WriteMenu("Start.nvm", {});
    Program& program = Open(start);
    for (const auto& each : cases) {
        SCOPED_TRACE(each.stored ? each.stored : "nothing");
        if (each.stored != nullptr) {
            SetSetting("Settings", "StartOpen", each.stored);
        }
        const HWND dialog = OpenDialog("Options", "Options");
        ASSERT_NE(dialog, nullptr);
        EXPECT_TRUE(Running().WaitForFocus(each.shown < 0 ? "Apply" : "Button")) << program.Focus();
        for (int choice = 0; choice < 4; ++choice) {
            EXPECT_EQ(IsChecked(dialog, kFirstChoice + choice), choice == each.shown);
        }
        if (each.chosen >= 0) {
            Click(CentreOf(GetDlgItem(dialog, kFirstChoice + each.chosen)));
            EXPECT_TRUE(Until([&] { return IsChecked(dialog, kFirstChoice + each.chosen); }));
        }
        PressKey(each.apply ? VK_RETURN : VK_ESCAPE);
        EXPECT_TRUE(WaitUntilGone(dialog));
        EXPECT_EQ(Setting("Settings", "StartOpen"), each.then);
    }
}

} // namespace nv::e2e
