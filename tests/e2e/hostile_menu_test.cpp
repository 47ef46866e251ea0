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

    // Shows the menu and does all that a user does to see it. good: it begins with Good().
    void Survives(const std::string& name, const std::string& content, bool good)
    {
        SCOPED_TRACE(name);
        const std::string path = Write(name + ".nvm", content);
        Program& program = Start('"' + path + '"');
        ASSERT_TRUE(WaitUntilLoaded(path, 30000));
        const HWND view = program.View();
        if (good) {
            ASSERT_TRUE(WaitForColor(view, Mark(kMark))) << "it is not painted";
        }
        const POINT middle = CentreOf(view);
        MoveMouse(middle);
        for (const int key : {VK_NEXT, VK_NEXT, VK_END, VK_UP, VK_HOME, VK_DOWN, VK_DOWN}) {
            PressKey(static_cast<WORD>(key));
            ASSERT_TRUE(program.Answers(10000)) << "key " << key << "\n";
        }
        TurnWheel(middle, -2);
        ASSERT_TRUE(program.Answers(10000));
        SetWindowPos(program.Window(), nullptr, 0, 0, 900, 700, SWP_NOMOVE | SWP_NOZORDER);
        ASSERT_TRUE(program.Answers(10000));
        // Whatever stands there.
        Click(middle);
        PressKey(VK_RETURN);
        ASSERT_TRUE(program.Answers(10000));
        if (good) {
            PressKey(VK_HOME);
            ASSERT_TRUE(ClickOn(Mark(kMark)));
            EXPECT_FALSE(WaitForRecord().empty()) << "a good link does nothing any more";
        }
        EXPECT_EQ(program.Close(), 0u);
    }
};

TEST_F(HostileMenu, HugeTextsAndLongCommands)
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
    Survives("huge commands", good + MenuOf({{kLink, "", word}, {kLink, "Caption", words}}), true);
    std::vector<Entry> entries;
    for (const unsigned length :
         {255U, 256U, 260U, 300U, 900U, 1000U, 1010U, 1024U, 1100U, 5000U, 70000U}) {
        entries.push_back({kLink, "", std::string(length, 'c')});
        entries.push_back({kLink, "Path", "C:\\" + std::string(length, 'p') + ".exe"});
        entries.push_back({kLink, "Quoted", '"' + std::string(length, 'q') + ".txt\" arguments"});
        entries.push_back({kLink, "Arguments", "x.exe " + std::string(length, 'a')});
        entries.push_back({kLink, "Folder", "x.exe /NV+ " + std::string(length, 'f')});
    }
    Survives("long commands", good + MenuOf(entries), true);
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
    Survives("line feeds only", std::string(kMegabyte, '\n'), false);
    Survives("one line without an end", std::string(kMegabyte, '3'), false);
}

} // namespace nv::e2e
