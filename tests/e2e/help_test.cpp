// The help: what the viewer of help files is asked for, the pages for a browser, and that the file
// that was made has what the viewer is asked for.
#include "e2e/stage.h"

#include <cstring>
#include <utility>

namespace nv::e2e
{

// Stands in for the viewer of help files: gets what programs ask of it, and takes it or not.
class FakeViewer
{
public:
    FakeViewer()
    {
        EXPECT_EQ(FindWindowA(kClass, nullptr), nullptr) << "a real viewer runs";
        WNDCLASSA windowClass = {};
        windowClass.lpfnWndProc = Procedure;
        windowClass.lpszClassName = kClass;
        RegisterClassA(&windowClass);
        window_ = CreateWindowA(kClass, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, this);
        SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~FakeViewer() { DestroyWindow(window_); }
    FakeViewer(const FakeViewer&) = delete;
    FakeViewer& operator=(const FakeViewer&) = delete;

    // Waits for a request that has come since the last call, which must be so.
    void ExpectRequest(WORD command, const std::string& file, const std::string& keyword)
    {
        EXPECT_TRUE(Until([this] {
            MSG message;
            PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE); // lets what was sent through
            return command_ != 0;
        }));
        EXPECT_EQ(std::exchange(command_, WORD{0}), command);
        EXPECT_EQ(file_, file);
        EXPECT_EQ(keyword_, keyword);
    }

    bool takes = true;
    static constexpr char kClass[] = "MS_WINHELP";

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message != WM_COPYDATA) {
            return DefWindowProcA(window, message, wParam, lParam);
        }
        auto* self = reinterpret_cast<FakeViewer*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        const auto* bytes = static_cast<const char*>(data.lpData);
        // WORD size, command; two LONGs; WORD where the file and the data begin, 0 for none.
        const auto word = [bytes](std::size_t at) {
            WORD value = 0;
            std::memcpy(&value, bytes + at, sizeof value);
            return value;
        };
        const auto text = [&](std::size_t at) { return word(at) != 0 ? bytes + word(at) : ""; };
        self->command_ = word(2);
        self->file_ = text(12);
        self->keyword_ = text(14);
        return self->takes;
    }

    HWND window_ = nullptr;
    WORD command_ = 0; // 0: none has come
    std::string file_;
    std::string keyword_;
};

class Help : public Stage
{
protected:
    void SetUp() override
    {
        Stage::SetUp();
        DWORD size = sizeof browser_;
        RegGetValueA(HKEY_CLASSES_ROOT, ".html", "", RRF_RT_REG_SZ, nullptr, browser_, &size);
    }
    void TearDown() override
    {
        SetDefault(".html", browser_);
        RegDeleteTreeA(HKEY_CLASSES_ROOT, "navrix.page");
        Stage::TearDown();
    }
    static void SetDefault(const char* key, const std::string& value)
    {
        EXPECT_EQ(RegSetValueA(HKEY_CLASSES_ROOT, key, REG_SZ, value.c_str(), 0), ERROR_SUCCESS);
    }
    // Whether the page was opened, and nothing else.
    bool Opens(const std::string& page)
    {
        PressKey(VK_F1);
        const auto record = WaitForRecord();
        return !record.empty() && record[0].find("Help\\" + page + '"') != std::string::npos;
    }

private:
    char browser_[260] = "";
};

TEST_F(Help, AsksTheViewerForAKeywordAndTellsThatItRefuses)
{
    const std::string menu = WriteMenu("Start.nvm", {});
    for (const bool locked : {false, true}) {
        FakeViewer viewer;
        Program& program = Start('"' + menu + '"' + (locked ? " /l" : ""));
        ASSERT_TRUE(WaitUntilLoaded(menu));
        for (const char* keyword : {"Navrix Main Menu", "Menu Edit"}) {
            ASSERT_TRUE(ClickButton("Help"));
            viewer.ExpectRequest(HELP_KEY, Path("NVMENU.HLP"),
                                 locked ? "Navrix Main Menu" : keyword);
            ClickButton("Edit"); // disabled in locked mode
        }
        viewer.takes = false;
        ASSERT_TRUE(ClickButton("Help"));
        viewer.ExpectRequest(HELP_KEY, Path("NVMENU.HLP"),
                             locked ? "Navrix Main Menu" : "Menu Edit");
        ExpectBox(ReasonOf(ERROR_CAN_NOT_COMPLETE), BoxIcon::none);
        PostMessageA(program.Window(), WM_CLOSE, 0, 0);
        viewer.ExpectRequest(HELP_QUIT, Path("NVMENU.HLP"), "");
        EXPECT_EQ(program.ExitCode(), 0u);
    }
}

TEST_F(Help, OpensPagesInTheBrowser)
{
    SetDefault("navrix.page\\shell\\open\\command", '"' + Path("recorder.exe") + "\" \"%1\"");
    SetDefault(".html", "navrix.page");
    Program& program = Open(WriteMenu("Start.nvm", {}));
    PressKey(VK_F1);
    ExpectBox("The help cannot be shown:\n\n" + Path("Help\\index.html") +
                  "\n\nThis page is missing. The folder \"Help\" belongs beside the program.",
              BoxIcon::exclamation);

    ASSERT_TRUE(CreateDirectoryA(Path("Help").c_str(), nullptr));
    Write("Help\\index.html", "");
    Write("Help\\editing.html", "");
    EXPECT_TRUE(Running().WaitForFocus("NavrixMenuView"));
    EXPECT_TRUE(Opens("index.html"));
    EXPECT_TRUE(EnterEditMode());
    EXPECT_TRUE(Opens("editing.html"));
    ASSERT_TRUE(ClickButton("Options"));
    const HWND options = program.WaitForDialog("Options");
    EXPECT_TRUE(Running().WaitForFocus("Button"));
    EXPECT_TRUE(Opens("index.html"));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitUntilGone(options));

    const std::string other = WriteMenu("Locked.nvm", {{kLink, "One", Recorder("one")}});
    Start('"' + other + "\" /l");
    ASSERT_TRUE(WaitUntilLoaded(other));
    EXPECT_TRUE(Running().WaitForFocus("NavrixMenuView"));
    PressKey(VK_F1);
    PressKey(VK_RETURN);
    EXPECT_EQ(WaitForRecordedWord(), "one"); // F1 would have been the first
}

// The file that was made, in a viewer that reads such files.
TEST_F(Help, FileHasTheKeywords)
{
    const struct {
        const char* keyword;
        std::string chapter;
    } cases[] = {{"Navrix Main Menu", "Chapter 1: First steps"},
                 {"Menu Edit", "Chapter 3: Editing menus"}};
    constexpr int kIndexButton = 501;
    constexpr int kKeywords = 337;
    ASSERT_EQ(FindWindowA(FakeViewer::kClass, nullptr), nullptr) << "another viewer runs";
    const Program viewer("winhlp32.exe \"" + FromTests(HELP_FROM_TESTS) + '"');
    HWND window = nullptr;
    ASSERT_TRUE(Until([&] {
        window = FindWindowA(FakeViewer::kClass, nullptr);
        return IsWindowVisible(window);
    }));
    EXPECT_EQ(TextOf(window).rfind("Navrix Menu Help", 0), 0u) << TextOf(window);
    for (const auto& each : cases) {
        PostMessageA(window, WM_COMMAND, kIndexButton, 0);
        HWND index = nullptr;
        HWND list = nullptr;
        ASSERT_TRUE(Until([&] {
            index = FindWindowA("#32770", ("Help topics: " + TextOf(window)).c_str());
            list = GetDlgItem(FindWindowExA(index, nullptr, "#32770", nullptr), kKeywords);
            return SendMessageA(list, LB_GETCOUNT, 0, 0) > 0;
        }));
        const auto item = SendMessageA(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(each.keyword));
        ASSERT_GE(item, 0) << each.keyword << " is no keyword";
        SendMessageA(list, LB_SETCURSEL, static_cast<WPARAM>(item), 0);
        PostMessageA(index, WM_COMMAND, IDOK, 0);
        const HWND text = FindWindowExA(window, nullptr, "RichEdit20A", nullptr);
        EXPECT_TRUE(Until([&] { return TextOf(text).rfind(each.chapter, 0) == 0; }))
            << TextOf(text);
    }
}

} // namespace nv::e2e
