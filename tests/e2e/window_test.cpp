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
        SetSetting("StartSet", "MainLeft", std::to_string(left));
        SetSetting("StartSet", "MainTop", std::to_string(top));
        SetSetting("StartSet", "MainWidth", std::to_string(width));
        SetSetting("StartSet", "MainHeight", std::to_string(height));
    }

    static std::string SavedPlacement()
    {
        std::string saved;
        for (const char* name : {"MainLeft", "MainTop", "MainWidth", "MainHeight"}) {
            saved += Setting("StartSet", name).value_or("-") + " ";
        }
        return saved;
    }

    std::string start_;
};

TEST_F(MainWindow, LockedModeKeepsTheMenuFromBeingChanged)
{
    const struct {
        const char* button;
        bool locked; // enabled in locked mode
    } buttons[] = {
        {"Back", true},      {"Revert", true},  {"Home", true},  {"Open Menu", false},
        {"New Menu", false}, {"Normal", false}, {"Edit", false}, {"Options", false},
    };
    for (const bool lock : {true, false}) {
        Program& program = StartWith(lock ? "/l" : "");
        for (const auto& [caption, locked] : buttons) {
            const HWND button = program.Button(caption);
            ASSERT_NE(button, nullptr) << caption;
            EXPECT_EQ(IsWindowEnabled(button) != FALSE, locked || !lock) << caption;
        }
        // The toolbar is cut.
        const HWND strip = FindWindowExA(program.Window(), nullptr, "NavrixToolStrip", nullptr);
        const int height = SizeOf(strip).cy * kTwipsPerPixel;
        EXPECT_TRUE(lock ? std::abs(height - 2200) <= kTwipsPerPixel : height > 4000) << height;
    }
}

TEST_F(MainWindow, StopsAtItsSmallestSize)
{
    const struct {
        const char* arguments;
        double width;  // twips
        double height; // twips without the frame
    } cases[] = {{"", 10000, 6195}, {"/l", 7000, 3095}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.arguments);
        Program& program = StartWith(each.arguments);
        const HWND window = program.Window();
        const LONG width = std::lround(each.width / kTwipsPerPixel);
        const LONG height = std::lround(NonClientHeight(window) + each.height / kTwipsPerPixel);
        SetWindowPos(window, nullptr, 50, 50, 100, 100, SWP_NOZORDER);
        EXPECT_EQ(SizeOf(window).cx, width);
        EXPECT_EQ(SizeOf(window).cy, height);
        // It can be larger than that, and dragged down to it again.
        SetWindowPos(window, nullptr, 50, 50, 900, 700, SWP_NOZORDER);
        EXPECT_EQ(SizeOf(window).cx, 900);
        EXPECT_TRUE(program.Answers());
        PressMouse({50 + 900 - 2, 50 + 700 - 2});
        MoveMouse({400, 400});
        EXPECT_TRUE(Until([&] { return SizeOf(window).cx != 900; })) << "the border does not drag";
        MoveMouse({100, 100});
        EXPECT_TRUE(Until([&] { return SizeOf(window).cx == width; })) << SizeOf(window).cx;
        EXPECT_TRUE(Until([&] { return SizeOf(window).cy == height; })) << SizeOf(window).cy;
        ReleaseMouse({100, 100});
        EXPECT_TRUE(program.Answers());
    }
}

TEST_F(MainWindow, ComesBackWhereItWasClosed)
{
    RECT closed = {150, 120, 1050, 820};
    Program& first = StartWith("");
    SetWindowPos(first.Window(), nullptr, closed.left, closed.top, closed.right - closed.left,
                 closed.bottom - closed.top, SWP_NOZORDER);
    ASSERT_EQ(first.Close(), 0u);
    EXPECT_EQ(SavedPlacement(), "2250 1800 13500 10500 ");
    const RECT again = PlaceOf(StartWith("").Window());
    EXPECT_TRUE(EqualRect(&again, &closed));
}

TEST_F(MainWindow, ForgetsWhereItWasMinimizedOrMaximized)
{
    SavePlacement(1500, 1650, 12000, 9000);
    const std::string saved = SavedPlacement();
    for (const WPARAM command : {WPARAM{SC_MINIMIZE}, WPARAM{SC_MAXIMIZE}}) {
        SCOPED_TRACE(command);
        Program& program = StartWith("");
        const HWND window = program.Window();
        const RECT place = PlaceOf(window);
        EXPECT_EQ(place.left * kTwipsPerPixel, 1500);
        PostMessageA(window, WM_SYSCOMMAND, command, 0);
        ASSERT_TRUE(Until([&] { return IsIconic(window) || IsZoomed(window); }));
        ASSERT_EQ(program.Close(), 0u);
        EXPECT_EQ(SavedPlacement(), saved);
    }
}

TEST_F(MainWindow, CorrectsASavedPlacement)
{
    SavePlacement(100000, -100000, 12000, 9000);
    const RECT place = PlaceOf(StartWith("").Window());
    const RECT atTheEdge = {GetSystemMetrics(SM_CXSCREEN) - 800, 0, GetSystemMetrics(SM_CXSCREEN),
                            600};
    EXPECT_TRUE(EqualRect(&place, &atTheEdge)) << place.left << ", " << place.top;
    // At places that fall between two pixels as well.
    for (const int left : {1500, 1000, 1008}) {
        SCOPED_TRACE(left);
        SavePlacement(left, left, 5000, 3000);
        const HWND window = StartWith("").Window();
        EXPECT_EQ(SizeOf(window).cx, std::lround(10000.0 / kTwipsPerPixel));
        EXPECT_EQ(SizeOf(window).cy, NonClientHeight(window) + 6195 / kTwipsPerPixel);
    }
    SavePlacement(1500, 1500, 5000, 9000);
    EXPECT_EQ(SizeOf(StartWith("/l").Window()).cx, std::lround(5000.0 / kTwipsPerPixel));
}

} // namespace nv::e2e
