// The window: locked mode, the smallest size, and its place from one run to the next.
#include "e2e/stage.h"

#include <cmath>

namespace nv::e2e
{

namespace
{

constexpr int kTwipsPerPixel = 15; // at 96 dpi, which the tests' screen has

SIZE SizeOf(HWND window)
{
    const RECT place = PlaceOf(window);
    return {place.right - place.left, place.bottom - place.top};
}

// What the frame adds to the height, pixels.
int NonClientHeight(HWND window)
{
    RECT client = {};
    GetClientRect(window, &client);
    return SizeOf(window).cy - client.bottom;
}

} // namespace

class MainWindow : public Stage
{
protected:
    void SetUp() override
    {
        Stage::SetUp();
        start_ = WriteMenu("Start.nvm", {{kLabel, "Label", ""}});
    }

    // Starts the program with the first menu in its folder.
    Program& StartWith(const std::string& arguments)
    {
        // That of a start before would say that this one is done.
        SetSetting("Settings", "Last", "");
        Program& program = Start(arguments);
        EXPECT_TRUE(WaitUntilLoaded(start_));
        return program;
    }

    static void SavePlacement(int left, int top, int width, int height)
    {
        const int values[] = {left, top, width, height};
        for (int index = 0; index < 4; ++index) {
            SetSetting("StartSet", kPlacement[index], std::to_string(values[index]));
        }
    }

    static std::string SavedPlacement()
    {
        std::string saved;
        for (const char* name : kPlacement) {
            saved += Setting("StartSet", name).value_or("-") + " ";
        }
        return saved;
    }

    static constexpr const char* kPlacement[] = {"MainLeft", "MainTop", "MainWidth", "MainHeight"};
    std::string start_;
};

TEST_F(MainWindow, LockedModeKeepsTheMenuFromBeingChangedAndAllowsALesserSize)
{
    const std::pair<const char*, bool> buttons[] = {
        // enabled in locked mode
        {"Back", true},      {"Revert", true},  {"Home", true},  {"Open Menu", false},
        {"New Menu", false}, {"Normal", false}, {"Edit", false}, {"Options", false},
    };
    for (const bool lock : {true, false}) {
        SCOPED_TRACE(lock ? "locked" : "not locked");
        Program& program = StartWith(lock ? "/l" : "");
        for (const auto& [caption, locked] : buttons) {
            const HWND button = program.Button(caption);
            ASSERT_NE(button, nullptr) << caption;
            EXPECT_EQ(IsWindowEnabled(button) != FALSE, locked || !lock) << caption;
        }
        const HWND window = program.Window();
        const HWND strip = FindWindowExA(window, nullptr, "NavrixToolStrip", nullptr);
        const int height = SizeOf(strip).cy * kTwipsPerPixel;
        EXPECT_TRUE(lock ? std::abs(height - 2200) <= kTwipsPerPixel : height > 4000) << height;

        const SIZE least = {std::lround((lock ? 7000.0 : 10000.0) / kTwipsPerPixel),
                            NonClientHeight(window) +
                                std::lround((lock ? 3095.0 : 6195.0) / kTwipsPerPixel)};
        SetWindowPos(window, nullptr, 50, 50, 100, 100, SWP_NOZORDER);
        EXPECT_EQ(SizeOf(window).cx, least.cx);
        EXPECT_EQ(SizeOf(window).cy, least.cy);
        SetWindowPos(window, nullptr, 50, 50, 900, 700, SWP_NOZORDER); // larger is allowed
        EXPECT_EQ(SizeOf(window).cx, 900);
    }
}

TEST_F(MainWindow, ComesBackWhereItWasClosedNeitherMinimizedNorMaximized)
{
    const RECT closed = {150, 120, 1050, 820};
    SetWindowPos(StartWith("").Window(), nullptr, closed.left, closed.top,
                 closed.right - closed.left, closed.bottom - closed.top, SWP_NOZORDER);
    ASSERT_EQ(Close(), 0u);
    for (const WPARAM command : {WPARAM{SC_MINIMIZE}, WPARAM{SC_MAXIMIZE}}) {
        SCOPED_TRACE(command);
        EXPECT_EQ(SavedPlacement(), "2250 1800 13500 10500 ");
        const HWND window = StartWith("").Window();
        const RECT again = PlaceOf(window);
        EXPECT_TRUE(EqualRect(&again, &closed));
        PostMessageA(window, WM_SYSCOMMAND, command, 0);
        ASSERT_TRUE(Until([&] { return IsIconic(window) || IsZoomed(window); }));
        ASSERT_EQ(Close(), 0u);
    }
    EXPECT_EQ(SavedPlacement(), "2250 1800 13500 10500 ");
}

TEST_F(MainWindow, CorrectsASavedPlacement)
{
    SavePlacement(100000, -100000, 12000, 9000);
    const RECT place = PlaceOf(StartWith("").Window());
    const RECT atTheEdge = {GetSystemMetrics(SM_CXSCREEN) - 800, 0, GetSystemMetrics(SM_CXSCREEN),
                            600};
    EXPECT_TRUE(EqualRect(&place, &atTheEdge)) << place.left << ", " << place.top;
    for (const int left : {1000, 1008}) { // between two pixels
        SCOPED_TRACE(left);
        SavePlacement(left, left, 5000, 3000);
        const HWND window = StartWith("").Window();
        EXPECT_EQ(SizeOf(window).cx, std::lround(10000.0 / kTwipsPerPixel));
        EXPECT_EQ(SizeOf(window).cy, NonClientHeight(window) + 6195 / kTwipsPerPixel);
    }
}

} // namespace nv::e2e
