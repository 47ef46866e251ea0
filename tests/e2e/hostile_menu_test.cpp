// Menu files that nobody should write: each opens, is painted, scrolls, takes a click, and the
// program closes in good order.
#include "e2e/stage.h"

#include <random>

namespace nv::e2e
{

class HostileMenu : public Stage
{
protected:
    static constexpr std::size_t kMegabyte = 1024 * 1024;
    static constexpr int kMark = 7;

    // The entry by which the tests see that the menu is painted.
    static Entry Good() { return {kLink, "Good", "recorder.exe", static_cast<long>(Mark(kMark))}; }

    // A line whose numbers are texts.
    static std::string Numbers(const std::string& size, const std::string& color)
    {
        return "3><CAPTION>Numbers</CAPTION> <LINK>x.exe</LINK> <FONTNAME>Tahoma</FONTNAME> "
               "<FONTSIZE>" +
               size + "</FONTSIZE> <FONTBOLD>Truer</FONTBOLD> <FONTCOLOR>" + color +
               "</FONTCOLOR> <FONTCHAR>" + color + "</FONTCHAR>\r\n";
    }

    // Shows the menu and does all that a user does to see it. good: it begins with Good().
    void Survives(const std::string& name, const std::string& content, bool good)
    {
        SCOPED_TRACE(name);
        const std::string path = Write(name + ".nvm", content);
        Program& program = Start('"' + path + '"');
        ASSERT_TRUE(WaitUntilLoaded(path, 30000)) << program.OnScreen();
        const HWND view = program.View();
        if (good) {
            ASSERT_TRUE(WaitForColor(view, Mark(kMark))) << "it is not painted";
        }
        const POINT middle = CentreOf(view);
        MoveMouse(middle);
        for (const int key : {VK_NEXT, VK_NEXT, VK_END, VK_UP, VK_HOME, VK_DOWN, VK_DOWN}) {
            PressKey(static_cast<WORD>(key));
            ASSERT_TRUE(program.Answers(10000)) << "key " << key << "\n" << program.OnScreen();
        }
        TurnWheel(middle, -2);
        ASSERT_TRUE(program.Answers(10000)) << program.OnScreen();
        SetWindowPos(program.Window(), nullptr, 0, 0, 900, 700, SWP_NOMOVE | SWP_NOZORDER);
        ASSERT_TRUE(program.Answers(10000)) << program.OnScreen();
        // Whatever stands there.
        Click(middle);
        PressKey(VK_RETURN);
        ASSERT_TRUE(program.Answers(10000)) << program.OnScreen();
        if (good) {
            PressKey(VK_HOME);
            ASSERT_TRUE(ClickOn(Mark(kMark)));
            EXPECT_FALSE(WaitForRecord().empty()) << "a good link does nothing any more";
        }
        EXPECT_EQ(program.Close(), 0u) << program.OnScreen();
    }
};

TEST_F(HostileMenu, HugeTexts)
{
    const std::string good = MenuOf({Good()});
    const std::string word(kMegabyte, 'x');
    std::string words;
    while (words.size() < kMegabyte) {
        words += "word ";
    }
    std::string lines;
    while (lines.size() < kMegabyte) {
        lines += "line\1"; // is a line break within the value
    }
    Survives("huge captions", good + MenuOf({{kLink, word, "x.exe"}, {kLink, lines, "x.exe"}}),
             true);
    Survives("huge title", good + MenuOf({{kTitle, words, ""}, {kTitle, lines, ""}}), true);
    Survives("huge labels", good + MenuOf({{kLabel, word, ""}, {kLabel, words, ""}}), true);
    Survives("huge command", good + MenuOf({{kLink, "", word}, {kLink, "Caption", words}}), true);
}

TEST_F(HostileMenu, LongCommands)
{
    std::vector<Entry> entries = {Good()};
    for (const unsigned length :
         {255U, 256U, 260U, 300U, 900U, 1000U, 1010U, 1024U, 1100U, 5000U, 70000U}) {
        entries.push_back({kLink, "", std::string(length, 'c')});
        entries.push_back({kLink, "Path", "C:\\" + std::string(length, 'p') + ".exe"});
        entries.push_back({kLink, "Quoted", '"' + std::string(length, 'q') + ".txt\" arguments"});
        entries.push_back({kLink, "Arguments", "x.exe " + std::string(length, 'a')});
        entries.push_back({kLink, "Folder", "x.exe /NV+ " + std::string(length, 'f')});
    }
    Survives("long commands", MenuOf(entries), true);
    // Pressed one after another.
    Program& program = Open(Path("long commands.nvm"));
    for (std::size_t count = 0; count < entries.size(); ++count) {
        PressKey(VK_RETURN);
        PressKey(VK_DOWN);
        ASSERT_TRUE(program.Answers()) << count << "\n" << program.OnScreen();
    }
    const std::string title = program.Title();
    EXPECT_EQ(title, TitleOf(Path("long commands.nvm")));
}

TEST_F(HostileMenu, ManyFonts)
{
    constexpr int kFonts = 50000;
    std::string menu = MenuOf({Good()});
    const std::string one = LineOf({kLink, "Font", "x.exe"}) + "\r\n";
    const std::size_t faceEnd = one.find("</FONTNAME>");
    menu.reserve(menu.size() + (one.size() + 6) * kFonts);
    for (int number = 0; number < kFonts; ++number) {
        menu.append(one, 0, faceEnd);
        menu += std::to_string(number);
        menu.append(one, faceEnd);
    }
    Survives("fonts", menu, true);
}

TEST_F(HostileMenu, OddCharactersAndNumbers)
{
    std::string odd = MenuOf({Good()});
    for (int character = 1; character < 256; ++character) {
        if (character != '\r' && character != '\n') {
            const std::string text(3, static_cast<char>(character));
            odd += MenuOf({{static_cast<EntryType>(1 + character % 3), text, text}});
        }
    }
    odd += std::string("3><CAPTION>a\0b</CAPTION> <LINK>c\0d</LINK>\r\n", 42);
    Survives("odd characters", odd, true);

    std::string numbers = MenuOf({Good()});
    for (const char* number :
         {"-1", "0", "1", "-5", "1000", "32768", "-32768", "2147483647", "-2147483648",
          "2147483648", "99999999999999999999", "1e300", "-1e-300", "&HFF", "", " ", "x", "0.5"}) {
        numbers += Numbers(number, "0") + Numbers("8", number) + Numbers(number, number);
    }
    Survives("odd numbers", numbers, true);
}

TEST_F(HostileMenu, NoMenuAtAll)
{
    std::mt19937 random(42);
    std::string garbage;
    while (garbage.size() < kMegabyte) {
        garbage += static_cast<char>(random());
    }
    Survives("empty", "", false);
    Survives("garbage", garbage, false);
    Survives("zeros", std::string(kMegabyte, '\0'), false);
    Survives("line feeds only", std::string(kMegabyte, '\n'), false);
    Survives("returns only", std::string(100000, '\r'), false);
    Survives("one line without an end", std::string(kMegabyte, '3'), false);
    Survives("a digit each line", std::string("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n9\r\n"), false);
}

} // namespace nv::e2e
