#include "fakes/fake_surroundings.h"
#include "mainwindow/start_up.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

TEST(Placement, StartsWithinLimitsAndInView)
{
    const std::vector<TwipRect> one = {{0, 0, 19200, 15000}};
    const std::vector<TwipRect> two = {{0, 0, 19200, 15000}, {-19200, 0, 19200, 15000}};
    constexpr Twips kFrame = 465;
    constexpr Twips kCaption = 285;
    const struct {
        const char* what;
        Placement saved;
        bool locked;
        std::vector<TwipRect> monitors;
        Placement placed;
    } cases[] = {
        {"on the other monitor", {-18000, 5, 10000, 8000}, false, two, {-18000, 5, 10000, 8000}},
        {"that monitor is gone", {-18000, 5, 10000, 8000}, false, one, {0, 5, 10000, 8000}},
        {"below the screen", {100, 90000, 10000, 8000}, false, one, {100, 7000, 10000, 8000}},
        {"caption above it", {100, -5000, 10000, 8000}, false, one, {100, 0, 10000, 8000}},
        {"larger than all", {0, 0, 2e9f, 2e9f}, false, one, {0, 0, 19200, 15000}},
        {"too high", {1000, 1000, 10000, 2e9f}, false, one, {1000, 0, 10000, 15000}},
        {"too small", {100, 100, 5000, 3000}, false, one, {100, 100, 10000, kFrame + 6195}},
        {"small, but locked", {100, 100, 5000, 3000}, true, one, {100, 100, 5000, 3000}},
        {"a corner of it is seen", {18900, 0, 10000, 8000}, false, one, {9200, 0, 10000, 8000}},
    };
    for (const auto& c : cases) {
        const Placement placed = StartPlacement(c.saved, kFrame, c.locked, c.monitors, kCaption);
        EXPECT_EQ(placed, c.placed) << c.what << ": " << placed.left << " " << placed.top << " "
                                    << placed.width << " " << placed.height;
    }
}

TEST(Placement, IsKeptAsText)
{
    FakeSettings settings;
    EXPECT_EQ(ReadPlacement(settings), (Placement{1000, 1000, 10000, 8000}));
    // At 168 dots per inch a pixel is no whole number of twips.
    WritePlacement(settings, {-857.142883f, 15, 10002.8574f, 8000});
    EXPECT_EQ(settings.Text("StartSet", "MainLeft"), "-857.1429");
    EXPECT_EQ(settings.Text("StartSet", "MainTop"), "15");
    EXPECT_EQ(ReadPlacement(settings), (Placement{-857, 15, 10003, 8000}));
    settings.values[{"StartSet", "MainTop"}] = "12 pixels";
    settings.values[{"StartSet", "MainWidth"}] = 0;
    settings.values[{"StartSet", "MainHeight"}] = "-20";
    EXPECT_EQ(ReadPlacement(settings), (Placement{-857, 1000, 10000, 8000}));
}

TEST(StartFile, IsChosenByANumberAsByText)
{
    FakeSettings settings;
    settings.values[{"Settings", "StartOpen"}] = 1;
    EXPECT_EQ(StartFileChoice(settings, "first", "home"), "home");
    settings.values[{"Settings", "StartOpen"}] = 2; // and "Last" was never set
    EXPECT_EQ(StartFileChoice(settings, "first", "home"), "C:\\Start.nvm");
}

} // namespace
} // namespace nv
