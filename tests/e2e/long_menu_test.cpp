// What the user may do while a long menu loads: everything.
#include "e2e/picture.h"
#include "e2e/stage.h"

namespace nv::e2e
{

class LongMenu : public Stage
{
protected:
    static constexpr int kLinks = 100000;
    static constexpr DWORD kLoad = 60000;

    void SetUp() override
    {
        Stage::SetUp();
        // The first link of each menu stands in the same place: a click there goes
        // Aa home > Slow > Short > Aa home.
        home_ = WriteShort("Aa home.nvm", "Slow.nvm", kHomeMark);
        slow_ = WriteLong("Slow.nvm", Path("Short.nvm"), kLinks);
        short_ = WriteShort("Short.nvm", "Aa home.nvm", kShortMark);
    }

    std::string WriteShort(const std::string& name, const std::string& next, int mark)
    {
        return WriteMenu(name, {{kLink, "First", Path(next), static_cast<long>(Mark(mark))}});
    }

    // Each link has a font of its own, so that the load takes many times as long; it is still under
    // way when the test acts, however slowly the test itself runs.
    std::string WriteLong(const std::string& name, const std::string& next, int links)
    {
        std::vector<Entry> entries = {{kLink, "First", next, static_cast<long>(Mark(kSlowMark))}};
        for (int number = 2; number < links; ++number) {
            const std::string face = "Tahoma" + std::to_string(number);
            entries.push_back({kLink, "One of many", "many.exe", 0, "16", face});
        }
        entries.push_back({kLink, "Last", "last.exe", static_cast<long>(Mark(kLastMark))});
        return WriteMenu(name, entries);
    }

    // Starts with the home menu and goes to the slow one, whose load is then under way.
    Program& StartLoading()
    {
        Program& program = Open(home_);
        const auto first = WaitForColor(program.View(), Mark(kHomeMark));
        EXPECT_TRUE(first);
        first_ = first.value_or(POINT{});
        Click(first_);
        EXPECT_TRUE(WaitForMenu(slow_));
        return program;
    }

    // Goes home, and from there to the slow menu.
    bool LoadSlow()
    {
        if (Running().Title() != TitleOf(home_)) {
            PressKey(VK_HOME, {VK_MENU});
        }
        if (!WaitUntilLoaded(home_) || !WaitForColor(Running().View(), Mark(kHomeMark))) {
            return false;
        }
        Click(first_);
        return WaitForMenu(slow_, 3000);
    }

    // The load of the menu that the title names has not come to its end.
    bool Loading(const std::string& path) const { return Setting("Settings", "Last") != path; }

    static constexpr int kHomeMark = 1;
    static constexpr int kShortMark = 2;
    static constexpr int kSlowMark = 3;
    static constexpr int kLastMark = 4;
    static constexpr int kNewMark = 5;
    std::string home_;
    std::string short_;
    std::string slow_;
    POINT first_ = {};
};

TEST_F(LongMenu, CanBeLeftOrRevertedInTheMiddle)
{
    const std::string changed = WriteShort("New.nvm", "Short.nvm", kNewMark);
    // The file is read whole before anything is shown: it is not in use any more.
    const auto revert = [&] {
        EXPECT_TRUE(CopyFileA(changed.c_str(), slow_.c_str(), FALSE));
        PressKey(VK_F5);
    };
    Program& program = StartLoading();
    const struct {
        const char* name;
        std::function<void()> act;
        std::string opened;
        int mark; // in it
    } cases[] = {
        {"link", [this] { Click(first_); }, short_, kShortMark},
        {"Back key", [] { PressKey(VK_BACK); }, home_, kHomeMark},
        {"Home button", [this] { ClickButton("Home"); }, home_, kHomeMark},
        {"Revert key", revert, slow_, kNewMark},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        ASSERT_TRUE(LoadSlow());
        EXPECT_TRUE(WaitForColor(program.View(), Mark(kSlowMark))) << "nothing is shown yet";
        EXPECT_TRUE(Loading(slow_)) << "too fast for this test";
        each.act();
        // What it shows is that menu, from its top.
        EXPECT_TRUE(WaitForColor(program.View(), Mark(each.mark)));
        ASSERT_TRUE(WaitUntilLoaded(each.opened));
        EXPECT_EQ(Loading(slow_), each.opened != slow_);
    }
    PressKey(VK_BACK); // the revert left no step: the one before is home
    EXPECT_TRUE(WaitUntilLoaded(home_));
}

TEST_F(LongMenu, ComesBackWholeWhenNothingElseIsOpened)
{
    const std::string menu = WriteLong("Half slow.nvm", Path("missing.nvm"), kLinks / 4);
    Program& program = Start('"' + menu + '"');
    const auto first = WaitForColor(program.View(), Mark(kSlowMark));
    ASSERT_TRUE(first);
    EXPECT_TRUE(Loading(menu)) << "too fast for this test";
    PressKey(VK_BACK); // nowhere to go back to
    ClickButton("Normal");
    ASSERT_TRUE(program.Answers());
    EXPECT_TRUE(Loading(menu)) << "too fast for this test";
    Click(*first);
    EXPECT_TRUE(program.WaitForBox());
    EXPECT_TRUE(Loading(menu));
    ExpectBox("File " + Path("missing.nvm") +
                  " does not exist.\n\nWould you like to create a new menu?",
              BoxIcon::exclamation, {"Yes", "No"}, "No");
    ASSERT_TRUE(WaitUntilLoaded(menu, kLoad));
    PressKey(VK_END);
    EXPECT_TRUE(WaitForColor(program.View(), Mark(kLastMark)));
    EXPECT_EQ(program.Close(), 0u);
}

TEST_F(LongMenu, ScrollsSizesAndClosesWhileItLoads)
{
    Program& program = StartLoading();
    const HWND window = program.Window();
    const HWND view = program.View();
    ASSERT_TRUE(WaitForColor(view, Mark(kSlowMark)));
    // Again and again: at first there may be nothing yet to scroll to.
    EXPECT_TRUE(Until([&] {
        TurnWheel(CentreOf(view), -20);
        return !Picture(view).Find(Mark(kSlowMark));
    }));
    SetWindowPos(window, nullptr, 0, 0, 1000, 800, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(PlaceOf(window).right - PlaceOf(window).left, 1000);
    EXPECT_TRUE(program.Answers(2000));
    EXPECT_TRUE(Until([&] {
        TurnWheel(CentreOf(view), 100);
        return Picture(view).Find(Mark(kSlowMark)).has_value();
    }));
    EXPECT_TRUE(Loading(slow_)) << "too fast for this test";
    EXPECT_EQ(program.Close(5000), 0u);
    EXPECT_TRUE(Setting("StartSet", "MainLeft"));
    EXPECT_EQ(Setting("Settings", "Last"), home_);
    // And while the first menu loads, of which the window shows nothing yet.
    Program& next = Start('"' + slow_ + '"');
    ASSERT_NE(next.Window(), nullptr);
    EXPECT_EQ(next.Close(5000), 0u);
    EXPECT_EQ(Setting("Settings", "Last"), home_);
}

} // namespace nv::e2e
