// The keyboard: all that the mouse can do.
#include "e2e/stage.h"

namespace nv::e2e
{

class Keyboard : public Stage
{
protected:
    static constexpr int kLinks = 40;

    // A menu whose links record their number.
    Program& OpenLinks()
    {
        std::vector<Entry> entries = {{kTitle, "Title", ""}};
        for (int number = 0; number < kLinks; ++number) {
            entries.push_back({kLink, "Link " + std::to_string(number),
                               Recorder(std::to_string(number)), static_cast<long>(Mark(number))});
        }
        Program& program = Open(WriteMenu("Start.nvm", entries));
        EXPECT_TRUE(program.WaitForFocus(kView)) << program.OnScreen();
        return program;
    }

    // The number of the link that a press of key starts; -1: none.
    int LinkPressedBy(WORD key) const
    {
        PressKey(key);
        const auto record = WaitForRecord();
        return record.empty() ? -1 : std::stoi(record[0].substr(record[0].rfind(' ') + 1));
    }

    // Captions of the buttons that can be pressed, in the order of the Tab key.
    static std::vector<std::string> Buttons(Program& program)
    {
        std::vector<std::string> captions;
        for (const char* caption : {"Back", "Revert", "Home", "Help", "Open Menu", "New Menu",
                                    "Normal", "Edit", "Options"}) {
            if (IsWindowEnabled(program.Button(caption))) {
                captions.emplace_back(caption);
            }
        }
        return captions;
    }

    static constexpr char kView[] = "NavrixMenuView";
};

TEST_F(Keyboard, MovesThroughTheLinks)
{
    Program& program = OpenLinks();
    EXPECT_EQ(LinkPressedBy(VK_RETURN), 0);
    const struct {
        std::vector<WORD> keys;
        int link;
    } cases[] = {
        {{VK_DOWN}, 1},
        {{VK_DOWN, VK_DOWN}, 3},
        {{VK_UP}, 2},
        {{VK_TAB, VK_TAB}, 4},
        {{VK_UP, VK_UP, VK_UP, VK_UP, VK_UP, VK_UP}, 0}, // the first one stays
        {{VK_END}, kLinks - 1},
        {{VK_DOWN}, kLinks - 1}, // and the last one
        {{VK_UP}, kLinks - 2},
        {{VK_HOME}, 0},
        {std::vector<WORD>(kLinks, VK_NEXT), kLinks - 1},
        {std::vector<WORD>(kLinks, VK_PRIOR), 0},
    };
    int count = 0;
    for (const auto& each : cases) {
        SCOPED_TRACE("step " + std::to_string(count++));
        for (const WORD key : each.keys) {
            PressKey(key);
        }
        EXPECT_EQ(LinkPressedBy(VK_SPACE), each.link) << program.OnScreen();
        // The link that the keys are at stands in view.
        EXPECT_TRUE(WaitForColor(program.View(), Mark(each.link), 3000));
    }
}

TEST_F(Keyboard, TabGoesRoundThroughToolbarAndLinks)
{
    Program& program = OpenLinks();
    const auto buttons = Buttons(program);
    ASSERT_GE(buttons.size(), 4u);
    // Back from the first link: through the toolbar upwards, and on to the last link.
    for (auto button = buttons.rbegin(); button != buttons.rend(); ++button) {
        PressKey(VK_TAB, {VK_SHIFT});
        EXPECT_TRUE(program.WaitForFocus(*button)) << *button << " expected\n"
                                                   << program.OnScreen();
    }
    PressKey(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(program.WaitForFocus(kView));
    EXPECT_EQ(LinkPressedBy(VK_RETURN), kLinks - 1);
    // And forward again to the first one.
    for (const std::string& button : buttons) {
        PressKey(VK_TAB);
        EXPECT_TRUE(program.WaitForFocus(button)) << button << " expected\n" << program.OnScreen();
    }
    PressKey(VK_TAB);
    EXPECT_TRUE(program.WaitForFocus(kView));
    EXPECT_EQ(LinkPressedBy(VK_RETURN), 0);
}

TEST_F(Keyboard, PressesTheButtonsOfTheToolbar)
{
    const std::string home = WriteMenu("Aa home.nvm", {});
    const std::string other = WriteMenu("Other.nvm", {});
    Program& program = Open(other);
    const auto tabTo = [&](const std::string& button) {
        for (int count = 0; count < 20 && program.Focus() != button; ++count) {
            const std::string before = program.Focus();
            PressKey(VK_TAB);
            Until([&] { return program.Focus() != before; }, 1000);
        }
        return program.Focus() == button;
    };
    ASSERT_TRUE(tabTo("Home")) << program.OnScreen();
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitUntilLoaded(home)) << program.OnScreen();
    ASSERT_TRUE(tabTo("Back")) << program.OnScreen();
    PressKey(VK_SPACE);
    EXPECT_TRUE(WaitUntilLoaded(other)) << program.OnScreen();
}

TEST_F(Keyboard, AltF4ClosesTheWindow)
{
    Program& program = OpenLinks();
    PressKey(VK_F4, {VK_MENU});
    EXPECT_EQ(program.ExitCode(), 0u) << program.OnScreen();
}

} // namespace nv::e2e
