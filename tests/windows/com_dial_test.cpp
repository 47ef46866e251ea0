// The system's own pickers, worked from a second thread as a user works them.
#include "e2e/driver.h"
#include "platform/system_colors.h"
#include "system/com_dial.h"
#include "windows/scratch_folder.h"

#include <commdlg.h>

#include <dlgs.h>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <thread>

namespace nv
{
namespace
{

constexpr int kFileName = 0x47C; // cmb13 in <dlgs.h> of newer systems
using e2e::TextOf;
using e2e::Until;
using e2e::WaitUntilGone;
using Act = std::function<void(HWND picker)>;

// The dialog of this process with that title; waits for it.
HWND WaitForDialog(const char* title)
{
    HWND found = nullptr;
    EXPECT_TRUE(Until([&] {
        for (const HWND window : e2e::TopWindowsOf(GetCurrentProcessId())) {
            found = IsWindowVisible(window) && TextOf(window) == title ? window : found;
        }
        return found != nullptr;
    })) << title;
    return found;
}

void Press(HWND picker, WORD button)
{
    PostMessageA(picker, WM_COMMAND, button, 0);
}

// Waits for the picker, acts, and sees to it that the picker ends.
class User
{
public:
    User(const char* title, const Act& act)
        : thread_([title, act] {
              const HWND picker = WaitForDialog(title);
              act(picker);
              if (!WaitUntilGone(picker)) {
                  ADD_FAILURE() << "The picker stays open";
                  Until([&] { // perhaps below a box
                      Press(GetLastActivePopup(picker), IDCANCEL);
                      return !IsWindow(picker);
                  });
              }
          })
    {
    }
    ~User() { thread_.join(); }
    User(const User&) = delete;
    User& operator=(const User&) = delete;

private:
    std::thread thread_;
};

// Types a name into the file picker and confirms it.
void Type(HWND picker, const std::string& name)
{
    SetDlgItemTextA(picker, kFileName, name.c_str());
    Press(picker, IDOK);
}

// The answer to a missing name is a box; after it the picker is still there.
void TypeMissingAndCancel(HWND picker)
{
    Type(picker, "missing.nvm");
    HWND box = nullptr;
    EXPECT_TRUE(Until([&] {
        box = GetLastActivePopup(picker);
        return box != picker && IsWindowVisible(box);
    }));
    Press(box, IDOK);
    EXPECT_TRUE(Until([&] { return !IsWindow(box) && IsWindowEnabled(picker); }));
    Press(picker, IDCANCEL);
}

TEST(FilePicker, GoesOnWhereTheLastPickWasAndComesBackToTheProgram)
{
    // Where a picker without a folder begins.
    RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
                                     "ComDlg32\\LastVisitedMRU");
    const ScratchFolder program;
    const ScratchFolder menus;
    const ScratchFolder elsewhere;
    std::ofstream(menus / "there.nvm").put('x');
    // A name that makes a path of so many bytes.
    const auto nameFor = [&](std::size_t length) {
        return std::string(length - (menus / "").size(), 'x');
    };
    // Without a second NUL at its end, as the callers write it.
    const std::string filter("Menus\0*.nvm\0All Files\0*.*\0", 26);
    struct Case {
        const char* what;
        int filterIndex;
        bool mustExist;
        Act act;
        std::string picked;
    };
    const Case cases[] = {
        {"into a folder, then a name", 1, false,
         [&](HWND picker) {
             SetDlgItemTextA(picker, kFileName, menus.Path().c_str());
             SendMessageA(picker, WM_COMMAND, IDOK, 0); // it goes there before it answers
             Type(picker, "new.nvm");
         },
         menus / "new.nvm"},
        {"a name in the last folder", 2, true, [](HWND picker) { Type(picker, "there.nvm"); },
         menus / "there.nvm"},
        {"a missing name", 1, true, TypeMissingAndCancel, ""},
        {"cancel", 2, false, [](HWND picker) { Press(picker, IDCANCEL); }, ""},
        // Wine itself ends with paths of 260 bytes and more.
        {"a path too long", 1, false, [&](HWND picker) { Type(picker, nameFor(256)); }, ""},
        {"a path just short enough", 1, false, [&](HWND picker) { Type(picker, nameFor(255)); },
         menus / nameFor(255)},
    };
    ComDial pickers(program.Path());
    EXPECT_EQ(pickers.LastFolder(), "");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SetCurrentDirectoryA(elsewhere.Path().c_str());
        const User user("Browse", [&](HWND picker) {
            EXPECT_EQ(SendDlgItemMessageA(picker, cmb1, CB_GETCURSEL, 0, 0), c.filterIndex - 1);
            EXPECT_EQ(SendDlgItemMessageA(picker, cmb1, CB_GETCOUNT, 0, 0), 2);
            EXPECT_FALSE(IsWindowVisible(GetDlgItem(picker, chx1))); // "read only"
            c.act(picker);
        });
        EXPECT_EQ(pickers.OpenFileDialog("Browse", elsewhere.Path(), filter, c.filterIndex,
                                         c.mustExist, nullptr),
                  c.picked);
        char current[MAX_PATH] = "";
        GetCurrentDirectoryA(sizeof current, current);
        EXPECT_EQ(current, program.Path());
        EXPECT_EQ(pickers.LastFolder(), menus.Path());
    }
    SetCurrentDirectoryA("C:\\"); // the folders can go
}

void Choose(HWND picker, int combo, const char* text)
{
    SendDlgItemMessageA(picker, combo, CB_SELECTSTRING, static_cast<WPARAM>(-1),
                        reinterpret_cast<LPARAM>(text));
    SendMessageA(picker, WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(picker, combo)));
}

TEST(FontPicker, ShowsAFontAndReadsItBack)
{
    const Act leave = [](HWND) {};
    const Act change = [](HWND picker) {
        Choose(picker, cmb3, "20");
        Choose(picker, cmb4, "Blue");
        SendDlgItemMessageA(picker, chx1, BM_CLICK, 0, 0); // strike-out
        SendDlgItemMessageA(picker, chx2, BM_CLICK, 0, 0); // underline
    };
    const Font regular{"Tahoma", 12, false, false, false, false, 0};
    const Font bold{"Tahoma", 12, true, false, false, false, 0};
    const Font other{"Tahoma", 20, true, false, true, true, 0};
    const Font all{"Tahoma", 8, true, true, true, true, 238};
    const char regularShown[] = "Tahoma, Regular, 12, 0";
    const char allShown[] = "Tahoma, Bold Italic, 8, 1";
    constexpr Color kCancelled = ComDial::kCancelled;
    struct Case {
        const char* what;
        Font font;
        Color color;
        std::string shown; // face, style, size, underline
        Act act;
        WORD button;
        Font read;
        Color result;
    };
    // Whatever comes back is bold.
    const Case cases[] = {
        {"left alone", regular, 0x123456, regularShown, leave, IDOK, bold, 0x123456},
        {"all set", all, kButtonText, allShown, leave, IDOK, all, kButtonText},
        {"changed", regular, kButtonText, regularShown, change, IDOK, other, 0xFF0000},
        {"a color like the cancelled one", all, kCancelled, allShown, leave, IDOK, all, 0},
        {"cancelled", regular, 0xFF, regularShown, change, IDCANCEL, regular, kCancelled},
    };
    const HDC screen = GetDC(nullptr);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Font font = c.font;
        std::string shown;
        Color result = 0;
        {
            const User user("Font", [&](HWND picker) {
                for (const int combo : {cmb1, cmb2, cmb3}) {
                    shown += TextOf(GetDlgItem(picker, combo)) + ", ";
                }
                shown += std::to_string(SendDlgItemMessageA(picker, chx2, BM_GETCHECK, 0, 0));
                c.act(picker);
                Press(picker, c.button);
            });
            result = ComDial::FontDialog(screen, nullptr, font, c.color);
        }
        EXPECT_EQ(shown, c.shown);
        EXPECT_TRUE(font == c.read) << font.name << " " << font.size << " " << font.charset;
        EXPECT_EQ(result, c.result);
    }
    ReleaseDC(nullptr, screen);
}

TEST(FontPicker, StartsFromARecordThatFits)
{
    struct Case {
        std::string name;
        double size;
        int dpi;
        unsigned codePage;
        std::string face;
        LONG height;
    };
    const std::string thirty(30, 'x');
    const Case cases[] = {
        {"Tahoma", 12, 96, 1252, "Tahoma", -16},
        {thirty + "y", 8, 96, 1252, thirty, -11},
        {"a" + thirty, 8.25, 144, 1252, "a" + thirty.substr(1), -16}, // 16.5: half to even
        {"abc" + thirty.substr(4) + "\x83\x5C", 9, 100, 932, "abc" + thirty.substr(4), -12},
        {"Tahoma", 2147483647, 96, 1252, "Tahoma", -2147483647},
    };
    for (const Case& c : cases) {
        Font font;
        font.name = c.name;
        font.size = c.size;
        const LOGFONTA record = PickerRecord(font, c.dpi, CodePage(c.codePage));
        EXPECT_EQ(record.lfFaceName, c.face);
        EXPECT_EQ(record.lfHeight, c.height) << c.name;
    }
}

} // namespace
} // namespace nv
