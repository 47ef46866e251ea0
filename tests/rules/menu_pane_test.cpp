#include "docs/menu_line.h"
#include "fakes/fake_pane.h"
#include "platform/system_colors.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace nv
{
namespace
{

TEST(Scrolling, FollowsTheHeights)
{
    const struct {
        Twips view, content;
        int value;
        bool shown;
        int maximum;
        std::int64_t steps, top;
    } cases[] = {
        {5000, 5000, 0, true, 100, 1, 0}, // as high as the view: shown
        {5000, 4900, 7, false, 0, 1, 0},
        {5000, 5001, 50, true, 101, 1, -50},
        {5000, 70000, 40000, true, 32550, 2, -65100},
        {5000, 37667, 0, true, 16384, 2, 0}, // 32767 / 2 is half way: to the even neighbour
        {5000, 37666, 0, true, 32766, 1, 0},
        {6000, 4e7f, 10, true, 32755, 1221, -12210},
    };
    for (const auto& c : cases) {
        Scrolling scroll;
        scroll.SC(c.view, c.content);
        scroll.SetValue(c.value);
        scroll.SC(c.view, c.content);
        EXPECT_EQ(scroll.Shown(), c.shown) << c.content;
        EXPECT_EQ(scroll.Maximum(), c.maximum) << c.content;
        EXPECT_EQ(scroll.Steps(), c.steps) << c.content;
        EXPECT_EQ(scroll.Top(), c.top) << c.content;
        EXPECT_TRUE(!c.shown || (scroll.LargeChange() == 5000 && scroll.SmallChange() == 1000));
    }
}

struct PaneTest : public testing::Test, public FakePane {
    PaneTest() : FakePane({8000, 5000}) {}

    void Add(ItemType type, const std::string& caption, const std::string& link = "",
             double size = 8)
    {
        MenuItem item;
        item.type = type;
        item.caption = caption;
        item.link = link;
        item.font.size = size;
        lines.Append(EncodeLine(item));
    }
    void AddLinks(int count)
    {
        for (int index = 0; index < count; ++index) {
            Add(ItemType::vLink, "Link " + std::to_string(index), "prog" + std::to_string(index));
        }
    }
    bool Load() { return pane.LoadFields(pump); }
    void Press(PaneKey key, int times = 1)
    {
        for (; times > 0; --times) {
            pane.Key(key);
        }
    }
    FakeCanvas Painted()
    {
        FakeCanvas canvas;
        pane.Paint(canvas, {0, 0, pane.ViewSize().width, pane.ViewSize().height});
        return canvas;
    }
    bool FocusInView()
    {
        const TwipRect area = pane.AreaOf(pane.Column().Links()[*pane.FocusedLink()]);
        return area.top >= 0 && area.top + area.height <= pane.ViewSize().height;
    }
};

TEST_F(PaneTest, PutsEachEntryInItsPlace)
{
    // With the fake measure an 8-point line is 160 high.
    Add(ItemType::vTitle, "Title");
    Add(ItemType::vLabel, "Label");
    Add(ItemType::vLine, "");
    Add(ItemType::vNotVisible, "hidden");
    Add(ItemType::vLink, "Link", "prog");
    Add(ItemType::vSpace, "");
    Add(static_cast<ItemType>(7), "by hand");
    Add(ItemType::vLink, "Two\r\nlines", "prog");
    Add(ItemType::vLink, "", "C:\\x\\prog.exe");
    Add(ItemType::vTitle, "Huge", "", 400); // cut to 100 points
    Add(ItemType::vLabel, std::string(200, 'x'));
    ASSERT_TRUE(Load());
    const struct {
        std::uint32_t entry;
        Twips top, height, left;
    } places[] = {
        {0, 150, 160, 120},   // 100 + 50
        {1, 510, 160, 240},   // 360 + 150
        {2, 720, 60, 120},    // 670 + 50
        {4, 880, 360, 540},   // 830 + 50
        {7, 1840, 520, 540},  // 1290 + 500 + 50
        {8, 2460, 360, 540},  // 2410 + 50
        {9, 2920, 2000, 120}, // 2870 + 50
        {10, 5120, 480, 240}, // 4970 + 150; 94 characters fit into 7520
    };
    const auto& rows = pane.Column().Rows();
    ASSERT_EQ(rows.size(), std::size(places));
    for (std::size_t index = 0; index < rows.size(); ++index) {
        EXPECT_EQ(rows[index].entry, places[index].entry);
        EXPECT_EQ(rows[index].top, places[index].top) << rows[index].entry;
        EXPECT_EQ(rows[index].height, places[index].height) << rows[index].entry;
        EXPECT_EQ(MenuColumn::Left(rows[index].kind), places[index].left) << rows[index].entry;
    }
    EXPECT_EQ(pane.Column().Height(), 5600);
    EXPECT_EQ(pump.calls, 11);
    EXPECT_EQ(pane.Scroll().Maximum(), 700);
}

TEST_F(PaneTest, LinksAreMeasuredOnlyWhenSeen)
{
    AddLinks(1000);
    ASSERT_TRUE(Load());
    EXPECT_LT(measure.measured, 10);
    Painted();
    EXPECT_LT(measure.measured, 200);
}

TEST_F(PaneTest, ClicksOnReleaseWhereverItWasPressed)
{
    Add(ItemType::vLabel, "no link");
    AddLinks(40); // tops 460, 920, 1380; heights 360
    ASSERT_TRUE(Load());
    const Twips width = 100 + 6 * 80 + 500;
    const std::pair<TwipPoint, std::vector<std::uint32_t>> cases[] = {
        {{600, 1000}, {2}}, // pressed on another one
        {{600, 870}, {}},   // between two links
        {{539, 500}, {}},         {{540 + width - 1, 460}, {1}},
        {{540 + width, 500}, {}}, {{300, 300}, {}}, // the label
    };
    for (const auto& [release, expected] : cases) {
        clicked.clear();
        pane.MouseDown({600, 500});
        pane.MouseUp(release);
        EXPECT_EQ(clicked, expected) << release.x << "," << release.y;
    }
    pane.MouseMove({600, 1000});
    EXPECT_EQ(pane.HoveredTip(), "prog1");
    EXPECT_EQ(pane.HoveredArea(), (TwipRect{540, 920, width, 360}));
    EXPECT_EQ(Painted().frames.size(), 1u);
    pane.ScrollBy(460); // the link below comes under the mouse, then the room between two
    EXPECT_EQ(pane.HoveredTip(), "prog2");
    pane.ScrollBy(340);
    EXPECT_EQ(pane.HoveredArea(), std::nullopt);
}

TEST_F(PaneTest, ScrollingMovesTheFocusToTheFirstLink)
{
    AddLinks(1);
    Add(ItemType::vLabel, std::string(9000, 'x'));
    ASSERT_TRUE(Load());
    pane.ScrollBy(500);
    EXPECT_EQ(focusTaken, 0); // not to one alone
    AddLinks(39);
    ASSERT_TRUE(Load());
    Press(PaneKey::down, 3);
    focusTaken = 0;
    pane.ScrollBy(500);
    EXPECT_EQ(pane.FocusedLink(), 0u);
    EXPECT_EQ(focusTaken, 1);
    pane.Drag(2000);
    EXPECT_EQ(focusTaken, 1); // not while the thumb is held
    pane.EndDrag();
    EXPECT_EQ(focusTaken, 2);
    EXPECT_EQ(pane.Scroll().Top(), -2000);
    pane.EndDrag(); // nothing was dragged
    EXPECT_EQ(focusTaken, 2);
    Press(PaneKey::end);
    pane.ScrollBy(-900);
    Press(PaneKey::down); // goes on from what the user sees
    EXPECT_TRUE(FocusInView());
    EXPECT_GT(*pane.FocusedLink(), 1u);
}

TEST_F(PaneTest, KeysMoveTheFocusAndKeepItInView)
{
    Add(ItemType::vTitle, "Title");
    AddLinks(40); // 460 each
    Add(ItemType::vLabel, "the end");
    ASSERT_TRUE(Load());
    Press(PaneKey::down, 2);
    Press(PaneKey::pageDown); // ten more stand within 5000 twips
    EXPECT_EQ(pane.FocusedLink(), 12u);
    EXPECT_TRUE(FocusInView());
    Press(PaneKey::pageDown);
    Press(PaneKey::pageUp);
    EXPECT_EQ(pane.FocusedLink(), 12u);
    Press(PaneKey::home);
    EXPECT_EQ(pane.Scroll().Value(), 0);           // the title above the first link is in view, too
    EXPECT_FALSE(pane.Key(PaneKey::previousLink)); // the focus goes on to what stands before
    Press(PaneKey::end);
    EXPECT_FALSE(pane.Key(PaneKey::nextLink));
    EXPECT_GE(-pane.Scroll().Top(),
              360 + 40 * 460 + 310 - 5000); // and the label below the last one
    Press(PaneKey::press);
    EXPECT_EQ(clicked, std::vector<std::uint32_t>{40});
    pane.SetHasFocus(true);
    EXPECT_EQ(Painted().focusFrames.size(), 1u);
    pane.SetHasFocus(false);
    EXPECT_TRUE(Painted().focusFrames.empty());
}

TEST_F(PaneTest, TextWithoutLinksIsReadByKeys)
{
    Add(ItemType::vLabel, std::string(9000, 'x'));
    ASSERT_TRUE(Load());
    Press(PaneKey::pageDown);
    EXPECT_EQ(pane.Scroll().Top(), -5000);
    Press(PaneKey::down);
    EXPECT_LT(pane.Scroll().Top(), -5000);
    Press(PaneKey::end);
    EXPECT_EQ(pane.Scroll().Value(), pane.Scroll().Maximum());
    Press(PaneKey::home);
    EXPECT_EQ(pane.Scroll().Value(), 0);
    EXPECT_FALSE(pane.Key(PaneKey::nextLink));
}

TEST_F(PaneTest, TallMenusScrollInCoarseStepsAndStayWithinReach)
{
    AddLinks(20000); // 9,200,000 twips
    ASSERT_TRUE(Load());
    EXPECT_GT(pane.Scroll().Steps(), 200);
    pane.ScrollTwips(10); // less than a step is a step
    EXPECT_EQ(pane.Scroll().Value(), 1);
    pane.ScrollTwips(-10);
    EXPECT_EQ(pane.Scroll().Value(), 0);
    Press(PaneKey::end);
    EXPECT_TRUE(FocusInView());
    Press(PaneKey::up, 30);
    EXPECT_EQ(pane.FocusedLink(), 19969u);
    EXPECT_TRUE(FocusInView());
}

TEST_F(PaneTest, TitlesTypeWhileAnyIsUnfinished)
{
    Add(ItemType::vTitle, "ab");
    Add(ItemType::vTitle, "");
    for (int load = 0; load < 2; ++load) { // the same menu again starts from nothing
        ASSERT_TRUE(Load());
        EXPECT_TRUE(Painted().texts.empty());
        for (const char* const text : {"", "a", "ab"}) {
            EXPECT_TRUE(ticking);
            pane.Tick();
            const FakeCanvas canvas = Painted();
            EXPECT_EQ(canvas.texts.empty() ? "" : canvas.texts[0].text, text);
        }
        EXPECT_FALSE(ticking);
    }
}

TEST_F(PaneTest, PicturesAreAskedForOnceAndOnlyInView)
{
    Add(ItemType::vLink, "document", "a.txt");
    Add(ItemType::vLink, "program", "prog.exe -x");
    Add(ItemType::vLink, "menu", "sub.nvm");
    Add(ItemType::vLink, "no picture", "x.nvf");
    Add(ItemType::vLink, "launcher", "NVSUB prog.exe");
    Add(ItemType::vLink, "nothing", "missing.exe");
    Add(ItemType::vLink, "again", "a.txt");
    AddLinks(100);
    shell.answers = {{"a.txt", "C:\\editor.exe"}, {"prog.exe", "C:\\prog.exe"}};
    icons.icons = {{"a.txt", 11}, {"C:\\prog.exe", 12}, {"C:\\Menus\\NVSUB.exe", 13}};
    ASSERT_TRUE(Load());
    EXPECT_TRUE(icons.asked.empty());
    EXPECT_TRUE(Painted().pictures.empty());
    EXPECT_TRUE(picturesWanted);
    int found = 0;
    while (pane.FindNextPicture(0)) {
        ++found;
    }
    EXPECT_EQ(found, 10); // of eleven in view two have the same command
    const FakeCanvas canvas = Painted();
    const Picture expected[] = {
        {Picture::Source::system, 11}, {Picture::Source::system, 12}, {Picture::Source::own, 2},
        {Picture::Source::system, 13}, {Picture::Source::own, 1},     {Picture::Source::system, 11},
    };
    for (std::size_t index = 0; index < std::size(expected); ++index) {
        EXPECT_EQ(canvas.pictures.at(index), expected[index]) << index;
    }
    EXPECT_EQ(canvas.texts.at(3).at.x, 540 + 100); // no picture, and no place for one
    EXPECT_EQ(canvas.texts.at(4).at.x, 540 + 470);
    for (const auto& [path, times] : icons.asked) {
        EXPECT_EQ(times, 1) << path;
    }
    EXPECT_EQ(icons.asked.count("prog90"), 0u);
}

// A click that comes late does not start what stands there in another menu.
TEST_F(PaneTest, ClicksByNumberAreOfOneMenu)
{
    Add(ItemType::vTitle, "Title");
    AddLinks(2);
    ASSERT_TRUE(Load());
    EXPECT_EQ(focusMoves, 1);
    const auto generation = pane.Generation();
    const int before = columns;
    pane.ClickRow(1, generation);
    pane.ClickRow(0, generation);
    ASSERT_TRUE(Load());
    EXPECT_GT(columns, before);
    pane.ClickRow(1, generation);
    EXPECT_EQ(clicked, std::vector<std::uint32_t>{1});
}

TEST_F(PaneTest, HasLittleToShow)
{
    AddLinks(10);
    pump.endAt = 4; // an ended load leaves a whole, shorter column
    EXPECT_FALSE(Load());
    Press(PaneKey::end);
    EXPECT_EQ(pane.FocusedLink(), 3u);
    lines.Clear();
    pane.SetEmptyText("nothing here");
    ASSERT_TRUE(Load());
    EXPECT_EQ(pane.Column().Height(), 100);
    EXPECT_EQ(Painted().texts.at(0).text, "nothing here");
    EXPECT_FALSE(pane.Scroll().Shown());
}

} // namespace
} // namespace nv
