#include "controls/kel_button.h"
#include "controls/kel_item.h"
#include "controls/kel_label.h"
#include "controls/kel_pic.h"
#include "controls/text_layout.h"
#include "fakes/fake_measure.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace nv
{
namespace
{

constexpr Picture kSomePicture{Picture::Source::own, 3};

// With the fake measure an 8-point line is 160 high and a character 80 wide.

TEST(KelButton, LaysItselfOut)
{
    const struct {
        const char* what;
        const char* caption;
        bool picture;
        bool fixed;
        TwipSize given, size;
        TwipPoint label;
        Twips imageTop; // of a button with a picture
        std::int32_t naturalWidth;
    } cases[] = {
        {"nothing in it", "", false, true, {0, 0}, {600, 360}, {100, 100}, 0, 600},
        {"with picture", "Back", true, false, {2000, 480}, {2000, 480}, {470, 160}, 105, 1290},
        {"two lines", "Back\r\nwards", false, true, {0, 0}, {1000, 520}, {100, 100}, 0, 1000},
        {"odd halves", "Back", false, false, {2000, 481}, {2000, 481}, {100, 160.5}, 0, 920},
    };
    for (const auto& c : cases) {
        FakeMeasure measure;
        KelButton button(measure);
        button.Resize(c.given);
        button.SetFixedSize(c.fixed);
        if (c.picture) {
            button.SetBImage(kSomePicture);
        }
        button.SetCaption(c.caption);
        EXPECT_EQ(button.Size(), c.size) << c.what;
        EXPECT_EQ((TwipPoint{button.LabelArea().left, button.LabelArea().top}), c.label) << c.what;
        EXPECT_EQ(button.ImageArea().top, c.imageTop) << c.what;
        EXPECT_EQ(button.NaturalWidth(), c.naturalWidth) << c.what;
    }
}

TEST(KelButton, LaysOutAtOnceButForFonts)
{
    FakeMeasure measure;
    KelButton button(measure);
    button.SetFixedSize(true);
    button.SetCaption("Back");
    Font large;
    large.size = 16;
    button.SetFont(large);
    EXPECT_EQ(button.Size(), (TwipSize{920, 360}));
    button.ReCalc();
    EXPECT_EQ(button.Size(), (TwipSize{1240, 520}));
    // The picture's top comes from the height before it: 360 would give 45, 520 gives 125.
    button.SetBImage(kSomePicture);
    EXPECT_EQ(button.ImageArea().top, 125);
    button.SetBImage({}); // keeps the place of the one before
    EXPECT_EQ(button.LabelArea().left, 470);
    button.SetFixedSize(false); // and the size of the last layout stays
    EXPECT_EQ(button.Size(), (TwipSize{1610, 520}));
}

TEST(KelButton, TakesTheMouseOnlyWhenEnabled)
{
    FakeMeasure measure;
    KelButton button(measure);
    std::string events;
    button.MouseDown = [&events] { events += 'd'; };
    button.ButtonClick = [&events] { events += 'c'; };
    for (const bool enabled : {true, false}) {
        button.SetEnabledM(enabled);
        button.Press();
        button.Release();
        button.Release(); // wherever it was pressed
    }
    EXPECT_EQ(events, "dcc");
}

TEST(KelItem, TakesItsCaptionFromTheCommandWhenItHasNone)
{
    const struct {
        const char* caption;
        const char* command;
        unsigned codePage;
        const char* shown;
    } cases[] = {
        {"Notepad", "C:\\Windows\\notepad.exe", 1252, "Notepad"},
        {"", "C:\\", 1252, ""},
        {"", "notepad.exe", 1252, "before"},           // no "\": what stood there stays
        {"", "C:\\\x83\x5C.exe", 932, "\x83\x5C.exe"}, // a trail byte that looks like "\"
    };
    for (const auto& c : cases) {
        FakeMeasure measure;
        KelItem item(measure, CodePage(c.codePage));
        item.SetCaption("before");
        item.Command = c.command;
        item.SetCaption(c.caption);
        EXPECT_EQ(item.Caption(), c.shown);
        EXPECT_EQ(item.L1().ToolT(), c.command);
    }
}

TEST(KelPic, TypesOneCharacterATick)
{
    const std::string kana = "\x83\x5C";
    KelPic pic{CodePage(932)};
    int done = 0;
    pic.TypingDone = [&done] { ++done; };
    pic.SetCaption("begun");
    pic.Tick();
    pic.Tick();
    pic.SetCaption(kana + "a"); // starts from nothing again
    for (const std::string& shown : {std::string(), kana, kana + "a"}) {
        EXPECT_EQ(done, 0);
        pic.Tick();
        EXPECT_EQ(pic.Shown(), shown);
    }
    pic.Tick();
    EXPECT_EQ(done, 1);
    EXPECT_FALSE(pic.Typing());
}

TEST(TextLayout, BreaksLinesWithinAWidth)
{
    const struct {
        const char* text;
        Twips width; // a character is 80
        unsigned codePage;
        std::vector<std::string> rows;
    } cases[] = {
        {"", 800, 1252, {""}},
        {"one two three", 560, 1252, {"one two", "three"}},
        {"one two three", 559, 1252, {"one", "two", "three"}},
        {"one   ", 240, 1252, {"one"}},
        {"abcdefgh", 240, 1252, {"abc", "def", "gh"}},
        {"  abcdef", 320, 1252, {"  ab", "cdef"}},
        {"a\r\n\r\nb\rc\nd\r\n", 800, 1252, {"a", "", "b", "c", "d", ""}},
        {"\x83\x5C\x83\x5C", 0, 932, {"\x83\x5C", "\x83\x5C"}},
    };
    for (const auto& c : cases) {
        FakeMeasure measure;
        const auto rows = WrapText(measure, CodePage(c.codePage), Font(), c.text, c.width);
        EXPECT_EQ(std::vector<std::string>(rows.begin(), rows.end()), c.rows) << c.text;
    }
}

TEST(KelLabel, DrawsOnlyWhatIsSeen)
{
    FakeMeasure measure;
    std::string text;
    for (int line = 0; line < 1000; ++line) {
        text += "x\n";
    }
    const KelLabel label(measure, CodePage(), text, Font(), 255, 1000);
    EXPECT_EQ(label.Height(), 1001 * 160);
    FakeCanvas canvas;
    label.Paint(canvas, {240, -16000}, {0, 0, 5000, 320});
    ASSERT_EQ(canvas.texts.size(), 2u);
    EXPECT_EQ(canvas.texts[0].at, (TwipPoint{240, 0}));
    EXPECT_EQ(canvas.texts[0].color, 255);
}

} // namespace
} // namespace nv
