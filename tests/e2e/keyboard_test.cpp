// The keyboard: all that the mouse can do.
#include "e2e/stage.h"

namespace nv::e2e
{

class Keyboard : public Stage
{
protected:
    static constexpr char kView[] = "NavrixMenuView";

    // Captions of the buttons that can be pressed, in the order of the Tab key.
    std::vector<std::string> Buttons()
    {
        std::vector<std::string> captions = {"Back",     "Revert", "Home", "Help",   "Open Menu",
                                             "New Menu", "Normal", "Edit", "Options"};
        std::erase_if(captions, [this](const std::string& caption) {
            return !IsWindowEnabled(Running().Button(caption));
        });
        return captions;
    }
};

TEST_F(Keyboard, ReachesAndPressesEveryLinkAndEveryButton)
{
    constexpr int kLinks = 40;
    std::vector<Entry> entries = {{kTitle, "Title", ""}};
    for (int number = 0; number < kLinks; ++number) {
        entries.push_back(
            {kLink, "Link", Recorder(std::to_string(number)), static_cast<long>(Mark(number))});
    }
    Program& program = Open(WriteMenu("Start.nvm", entries));
    EXPECT_TRUE(program.WaitForFocus(kView));
    const struct {
        std::vector<WORD> keys;
        int link;
    } cases[] = {
        {{VK_RETURN}, 0},
        {{VK_DOWN, VK_DOWN, VK_DOWN, VK_SPACE}, 3},
        {{VK_UP, VK_SPACE}, 2},
        {{VK_TAB, VK_TAB, VK_SPACE}, 4},
        {{VK_UP, VK_UP, VK_UP, VK_UP, VK_UP, VK_UP, VK_SPACE}, 0}, // the first one stays
        {{VK_END, VK_SPACE}, kLinks - 1},
        {{VK_DOWN, VK_SPACE}, kLinks - 1}, // and the last one
        {{VK_PRIOR, VK_PRIOR, VK_PRIOR, VK_PRIOR, VK_PRIOR, VK_PRIOR, VK_SPACE}, 0},
        {{VK_NEXT, VK_NEXT, VK_NEXT, VK_NEXT, VK_NEXT, VK_NEXT, VK_SPACE}, kLinks - 1},
        {{VK_HOME, VK_SPACE}, 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE("to link " + std::to_string(each.link));
        for (const WORD key : each.keys) {
            PressKey(key);
        }
        EXPECT_EQ(WaitForRecordedWord(), std::to_string(each.link));
        // The link that the keys are at stands in view.
        EXPECT_TRUE(WaitForColor(program.View(), Mark(each.link), 3000));
    }

    // Back from the first link: through the toolbar upwards, and on to the last link.
    const auto buttons = Buttons();
    ASSERT_GE(buttons.size(), 4u);
    for (auto button = buttons.rbegin(); button != buttons.rend(); ++button) {
        PressKey(VK_TAB, {VK_SHIFT});
        EXPECT_TRUE(program.WaitForFocus(*button)) << *button << " expected";
    }
    PressKey(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(program.WaitForFocus(kView));
    PressKey(VK_RETURN);
    EXPECT_EQ(WaitForRecordedWord(), std::to_string(kLinks - 1));
    PressKey(VK_TAB); // and round to the first button again
    EXPECT_TRUE(program.WaitForFocus(buttons.front()));
}

TEST_F(Keyboard, PressesButtonsAndClosesTheWindow)
{
    const std::string home = WriteMenu("Aa home.nvm", {});
    const std::string other = WriteMenu("Other.nvm", {});
    Program& program = Open(other);
    const auto press = [&](const std::string& button, WORD key) {
        for (int count = 0; count < 20 && program.Focus() != button; ++count) {
            const std::string before = program.Focus();
            PressKey(VK_TAB);
            Until([&] { return program.Focus() != before; }, 1000);
        }
        EXPECT_EQ(program.Focus(), button);
        PressKey(key);
    };
    press("Home", VK_RETURN);
    ASSERT_TRUE(WaitUntilLoaded(home));
    press("Back", VK_SPACE);
    EXPECT_TRUE(WaitUntilLoaded(other));
    PressKey(VK_F4, {VK_MENU});
    EXPECT_EQ(program.ExitCode(), 0u);
}

} // namespace nv::e2e
