// Typing in the language of the machine: what is typed stands in the boxes, in the file and on the
// screen.
#include "e2e/code_page_stage.h"

namespace nv::e2e
{

namespace
{

// The controls of the edit panel.
constexpr int kItems = 301;
constexpr int kCaption = 303;
constexpr int kCommand = 304;

// Types text as a keyboard of the language does.
void TypeLetters(const std::string& text)
{
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
    for (const wchar_t letter : wide) {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = letter;
        input.ki.dwFlags = KEYEVENTF_UNICODE;
        SendInput(1, &input, sizeof input);
        input.ki.dwFlags |= KEYEVENTF_KEYUP;
        SendInput(1, &input, sizeof input);
    }
}

} // namespace

class CodePageEdit : public CodePage
{
protected:
    // Switches to edit mode; the panel, or null.
    HWND OpenPanel()
    {
        PressKey('E', {VK_CONTROL});
        HWND panel = nullptr;
        Until([&] {
            panel = FindWindowExA(Running().Window(), nullptr, "NavrixEditPanel", nullptr);
            return panel != nullptr && IsWindowVisible(panel) &&
                   SendMessageA(GetDlgItem(panel, kItems), LB_GETCOUNT, 0, 0) == 2;
        });
        return panel;
    }

    // Selects an entry with the keyboard, and waits until a box holds what the entry says.
    static bool Select(HWND panel, int index, int box, const std::string& text)
    {
        Click(CentreOf(GetDlgItem(panel, kItems)));
        PressKey(VK_HOME);
        for (int step = 0; step < index; ++step) {
            PressKey(VK_DOWN);
        }
        return Until([&] {
            return SendMessageA(GetDlgItem(panel, kItems), LB_GETCURSEL, 0, 0) == index &&
                   TextOf(GetDlgItem(panel, box)) == text;
        });
    }

    // Types behind what the box holds.
    static void TypeInto(HWND panel, int box, const std::string& text)
    {
        Click(CentreOf(GetDlgItem(panel, box)));
        PressKey(VK_END);
        TypeLetters(text);
    }

    bool FileHolds(const std::string& name, const std::string& content) const
    {
        return Until([&] {
            std::FILE* file = std::fopen(Path(name).c_str(), "rb");
            if (file == nullptr) {
                return false;
            }
            char bytes[4096];
            const std::size_t size = std::fread(bytes, 1, sizeof bytes, file);
            std::fclose(file);
            return std::string(bytes, size) == content;
        });
    }
};

TEST_F(CodePageEdit, KeepsWhatIsTyped)
{
    const std::string name = one_ + two_ + ".nvm";
    Entry link = In(kLink, one_ + language_.broken, "x.exe", 0);
    Entry label = In(kLabel, two_ + one_, "", 1);
    Open(WriteMenu(name, {link, label}));
    HWND panel = OpenPanel();
    ASSERT_NE(panel, nullptr) << Running().OnScreen();
    ASSERT_TRUE(Select(panel, 1, kCaption, label.caption)) << Running().OnScreen();
    TypeInto(panel, kCaption, two_ + one_);
    label.caption += two_ + one_;
    EXPECT_TRUE(Until([&] { return TextOf(GetDlgItem(panel, kCaption)) == label.caption; }))
        << Running().OnScreen();
    ASSERT_TRUE(Select(panel, 0, kCommand, link.command)) << Running().OnScreen();
    if (!language_.broken.empty()) {
        TypeInto(panel, kCaption, one_); // cannot be edited: the box would lose those bytes
    }
    TypeInto(panel, kCommand, " " + one_ + two_);
    link.command += " " + one_ + two_;
    PressKey('S', {VK_CONTROL});
    EXPECT_TRUE(FileHolds(name, MenuOf({link, label}))) << Running().OnScreen();
    EXPECT_EQ(Close(), 0u); // asks nothing: all is saved

    Program& program = Open(Path(name));
    EXPECT_TRUE(Shows(program.View(), Drawn(label.caption, 16, Mark(1))));
    panel = OpenPanel();
    ASSERT_NE(panel, nullptr) << program.OnScreen();
    EXPECT_TRUE(Select(panel, 1, kCaption, label.caption)) << program.OnScreen();
    EXPECT_TRUE(Select(panel, 0, kCommand, link.command)) << program.OnScreen();
}

} // namespace nv::e2e
