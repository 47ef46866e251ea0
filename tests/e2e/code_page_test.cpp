// Machines of other code pages: menus, folders and programs that have names in the language,
// captions that are shown in it, and typing. These run once for each language, see NAVRIX_LOCALE in
// tools/wine-run, and where all other tests run.
#include "e2e/picture.h"
#include "e2e/stage.h"

#include <algorithm>
#include <string_view>

namespace nv::e2e
{

namespace
{

// Letters of a language in its code page. The second byte of the Japanese ones is "\". The system
// has no other code page than UTF-8 for Hindi: a letter of two bytes, and those of three and four.
struct Language {
    const char* locale;
    UINT codePage;
    BYTE charset;
    std::string one;
    std::string two;
    std::string broken; // bytes that are no letter, if there are any
};

const Language& LanguageOfThisRun()
{
    static const Language kLanguages[] = {
        {"pl_PL.UTF-8", 1250, EASTEUROPE_CHARSET, "\xB3", "\xB9", ""},
        {"ru_RU.UTF-8", 1251, RUSSIAN_CHARSET, "\xFF", "\xC6", ""},
        {"el_GR.UTF-8", 1253, GREEK_CHARSET, "\xD9", "\xF8", ""},
        {"ja_JP.UTF-8", 932, SHIFTJIS_CHARSET, "\x83\x5C", "\x95\x5C", "\x83"},
        {"hi_IN.UTF-8", CP_UTF8, ANSI_CHARSET, "\xD0\xAF", "\xE2\x82\xAC\xF0\x9D\x94\xB8",
         "\xE3\x82!"},
        {"", 1252, ANSI_CHARSET, "\xE4", "\xDF", ""},
    };
    char locale[1024] = "";
    GetEnvironmentVariableA("NAVRIX_LOCALE", locale, sizeof locale);
    return *std::find_if(std::begin(kLanguages), std::end(kLanguages) - 1,
                         [&locale](const Language& language) {
                             return std::string_view(locale).ends_with(language.locale);
                         });
}

std::wstring Wide(const std::string& text)
{
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
    return wide;
}

// Types text as a keyboard of the language does.
void TypeLetters(const std::string& text)
{
    for (const wchar_t letter : Wide(text)) {
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

// The program's folder has a name in the language.
class CodePage : public Stage
{
protected:
    CodePage() : Stage("the " + LanguageOfThisRun().two) {}

    void SetUp() override
    {
        ASSERT_EQ(GetACP(), language_.codePage);
        Stage::SetUp();
    }

    // The text as it must stand on the screen.
    Picture Drawn(const std::string& text, int points, COLORREF color) const
    {
        return Picture::OfText(Wide(text), points, language_.charset, color);
    }

    static bool Shows(HWND window, const Picture& part)
    {
        return Until([&] { return Picture(window).Contains(part); }, 5000);
    }

    HWND Header() { return FindWindowExA(Running().Window(), nullptr, "NavrixKelPic", nullptr); }

    // A link or label in the language.
    Entry In(EntryType type, const std::string& caption, const std::string& command, int mark) const
    {
        Entry entry = {type, caption, command, static_cast<long>(Mark(mark))};
        entry.charset = language_.charset;
        return entry;
    }

    // Selects an entry with the keyboard, and waits until a box holds what the entry says.
    bool Select(int index, int box, const std::string& text)
    {
        Click(CentreOf(Running().Control(kList)));
        PressKey(VK_HOME);
        for (int step = 0; step < index; ++step) {
            PressKey(VK_DOWN);
        }
        return Until([&] {
            return SendMessageA(Running().Control(kList), LB_GETCURSEL, 0, 0) == index &&
                   TextOf(Running().Control(box)) == text;
        });
    }
    // Types behind what the box holds.
    void TypeInto(int box, const std::string& text)
    {
        Click(CentreOf(Running().Control(box)));
        PressKey(VK_END);
        TypeLetters(text);
    }

    const Language& language_ = LanguageOfThisRun();
    const std::string& one_ = language_.one;
    const std::string& two_ = language_.two;
};

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
        ASSERT_GE(record.size(), 2u);
        EXPECT_TRUE(record[0].starts_with(quoted + " ")) << record[0];
        EXPECT_TRUE(record[0].ends_with(" " + each.argument)) << record[0];
        EXPECT_EQ(record[1], each.folder);
    }
    ASSERT_TRUE(ClickOn(Mark(mark)));
    EXPECT_TRUE(WaitUntilLoaded(menu));
}

TEST_F(CodePage, TellsAndCreatesWhatIsNotThere)
{
    const std::string folder = Path(two_ + one_);
    const std::string path = folder + "\\" + one_ + two_ + "\\" + two_ + ".nvm";
    const auto before = FilesIn(Folder()).size();
    Program& program = Start('"' + path + '"');
    const auto box = program.WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text,
              "File " + path + " does not exist.\n\nWould you like to create a new menu?");
    ASSERT_TRUE(program.Answer(*box, box->buttons.front())); // in the language
    ASSERT_TRUE(WaitUntilLoaded(path));
    EXPECT_NE(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(FilesIn(Folder()).size(), before + 1); // and no part of a name
    EXPECT_EQ(FilesIn(folder).size(), 1u);
    EXPECT_EQ(Close(), 0u);
    SetSetting("Settings", "StartOpen", "2"); // the last menu
    EXPECT_TRUE(Start().WaitForTitle(TitleOf(path)));

    const std::string gone = Path(one_ + "\\" + two_);
    const Program companion('"' + Path("NVSub.exe") + "\" \"" + gone + '"');
    const auto message = companion.WaitForBox();
    ASSERT_TRUE(message);
    EXPECT_EQ(message->text, "Cannot start:\n\n" + gone +
                                 "\n\nIt was not found, or no program opens files of its kind.");
    EXPECT_TRUE(companion.Answer(*message, message->buttons.front()));
    EXPECT_EQ(companion.ExitCode(), 1u);
}

TEST_F(CodePage, KeepsWhatIsTyped)
{
    const std::string name = one_ + two_ + ".nvm";
    Entry link = In(kLink, one_ + language_.broken, "x.exe", 0);
    Entry label = In(kLabel, two_ + one_, "", 1);
    Open(WriteMenu(name, {link, label}));
    ASSERT_TRUE(EnterEditMode());
    ASSERT_TRUE(Select(1, kCaption, label.caption));
    TypeInto(kCaption, two_ + one_);
    label.caption += two_ + one_;
    EXPECT_TRUE(WaitForText(Running().Control(kCaption), label.caption));
    ASSERT_TRUE(Select(0, kCommand, link.command));
    if (!language_.broken.empty()) {
        TypeInto(kCaption, one_); // cannot be edited: the box would lose those bytes
    }
    TypeInto(kCommand, " " + one_ + two_);
    link.command += " " + one_ + two_;
    PressKey('S', {VK_CONTROL});
    EXPECT_TRUE(Until([&] { return Contents(Path(name)) == MenuOf({link, label}); }));
    EXPECT_EQ(Close(), 0u); // asks nothing: all is saved
}

} // namespace nv::e2e
