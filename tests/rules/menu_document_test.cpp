#include "fakes/fake_desk.h"
#include "fakes/faulty_files.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

const char kStart[] = "C:\\Menus\\Start.nvm";
const char kOther[] = "C:\\Menus\\Other.nvm";
const std::string kMenu = "one\r\ntwo\r\nthree\r\n";
const std::string kClean = kStart + (":" + kMenu);
const std::string kOtherOpen = kOther + std::string(":other\r\n");
using Log = FakeDocumentEvents::Log;

// A document over fakes, with two menus on the disk.
struct Desk : FakeDesk<Faulty<FakeFiles>> {
    Desk()
    {
        files.Put(kStart, kMenu);
        files.Put(kOther, "other\r\n");
    }
    // Start.nvm opened; changed: and edited since.
    void Open(bool changed = false)
    {
        ASSERT_TRUE(document.FOpen(kStart));
        document.SetMCh(changed);
        events.Take();
        files.operations = 0;
        pump.calls = 0;
    }
};

TEST(MenuDocument, ReportsItsStepsInOrder)
{
    Desk desk;
    EXPECT_TRUE(desk.document.FOpen(kStart));
    EXPECT_EQ(desk.events.Take(), (Log{"cleared", "title Start.nvm", std::string("file ") + kStart,
                                       std::string("opened ") + kStart, "lines"}));
    EXPECT_EQ(desk.settings.Text("Settings", "Last"), kStart);
    EXPECT_EQ(desk.State(), kClean);
    EXPECT_EQ(desk.pump.calls, 3);

    EXPECT_TRUE(desk.document.FOpen("c:\\menus\\other.Nvm"));
    EXPECT_EQ(desk.events.Take().front(), std::string("leaving ") + kStart);

    desk.document.SetNoHistory();
    EXPECT_TRUE(desk.document.FOpen(kStart));
    EXPECT_EQ(desk.events.Take().front(), "cleared");
    EXPECT_TRUE(desk.document.FOpen(desk.document.FFile())); // its own path, and history again
    EXPECT_EQ(desk.events.Take().front(), std::string("leaving ") + kStart);
    EXPECT_EQ(desk.State(), kClean);
}

// Wherever FOpen stops, the menu before it stays open; the step was made all the same.
TEST(MenuDocument, KeepsTheOldMenuWhenTheNewOneCannotBeOpened)
{
    const std::string missing = "C:\\Menus\\New.nvm";
    const std::pair<std::string, Answer> cases[] = {{"C:\\M.nvm\\Start", Answer::ok},
                                                    {missing, Answer::no}};
    for (const auto& [path, answer] : cases) {
        Desk desk;
        desk.Open();
        desk.prompts.Expect(answer);
        EXPECT_FALSE(desk.document.FOpen(path));
        EXPECT_EQ(desk.events.Take(), Log{std::string("leaving ") + kStart});
        EXPECT_EQ(desk.State(), kClean);
        EXPECT_EQ(desk.files.Contents(missing), "(none)");
    }
}

// A part of a menu must not be left where a save would write it over the whole one.
TEST(MenuDocument, IsNoDocumentAfterALoadThatWasEnded)
{
    const Log emptied = {"cleared", "title Other.nvm", "cleared", "file "};
    for (const char* content : {"other\r\n", "other"}) {
        Desk desk;
        desk.files.Put(kOther, content);
        desk.Open(true);
        desk.pump.endAt = 1;
        EXPECT_FALSE(desk.document.OpenPDM(kOther)); // and nothing is shown
        EXPECT_EQ(desk.events.Take(), emptied);
        EXPECT_EQ(desk.State(), ":");
        EXPECT_EQ(desk.settings.Text("Settings", "Last"), kStart);
        EXPECT_EQ(desk.document.CutShort(), kOther);
        desk.prompts.Expect(Answer::ok);
        EXPECT_FALSE(desk.document.FOpen("no menu.txt"));
        EXPECT_EQ(desk.document.CutShort(), kOther); // nothing has taken its place
        desk.document.SaveMenu();
        EXPECT_EQ(desk.files.Contents(kOther), content);
    }
}

TEST(MenuDocument, IsWholeWhenOnlyItsShowingWasEnded)
{
    Desk desk;
    desk.Open(true);
    desk.events.showToTheEnd = false;
    EXPECT_FALSE(desk.document.OpenPDM(kOther));
    EXPECT_EQ(desk.State(), kOtherOpen);
    EXPECT_EQ(desk.settings.Text("Settings", "Last"), kStart);
    EXPECT_EQ(desk.document.CutShort(), kOther);
    desk.events.showToTheEnd = true;
    EXPECT_TRUE(desk.document.OpenPDM(kStart));
    EXPECT_EQ(desk.document.CutShort(), "");
}

TEST(MenuDocument, NeitherSavesNorOpensWhileItLoads)
{
    Desk desk;
    desk.Open(true);
    int tries = 0;
    const auto meddle = [&] {
        ++tries;
        EXPECT_TRUE(desk.document.Loading());
        EXPECT_FALSE(desk.document.SavePDM(kStart));
        desk.document.SaveMenu();
        EXPECT_FALSE(desk.document.FOpen(kStart));
        EXPECT_FALSE(desk.document.OpenPDM(kStart));
        EXPECT_TRUE(desk.document.MayClose()); // asks nothing: the changes were asked about
    };
    desk.pump.whileThen = meddle;
    desk.events.onRebuilt = meddle;
    EXPECT_TRUE(desk.document.OpenPDM(kOther));
    EXPECT_EQ(tries, 2);
    EXPECT_EQ(desk.State(), kOtherOpen);
    EXPECT_EQ(desk.files.Contents(kStart), kMenu);
    EXPECT_EQ(desk.files.Contents(kOther), "other\r\n");
}

TEST(MenuDocument, AsksBeforeChangesAreLost)
{
    const struct {
        std::vector<Answer> answers;
        std::size_t room; // on the disk
        bool leaves;
        std::string saved;
    } cases[] = {
        {{Answer::yes}, SIZE_MAX, true, "edited\r\ntwo\r\nthree\r\n"},
        {{Answer::yes, Answer::ok}, 3, false, kMenu},
        {{Answer::no}, SIZE_MAX, true, kMenu},
        {{Answer::cancel}, SIZE_MAX, false, kMenu},
    };
    for (const auto& c : cases) {
        for (const bool closing : {false, true}) {
            Desk desk;
            desk.Open(true);
            desk.document.SetMCh(false); // an undone edit is unsaved all the same
            desk.document.Lines().Set(0, "edited");
            desk.files.room = c.room;
            for (const Answer answer : c.answers) {
                desk.prompts.Expect(answer);
            }
            EXPECT_EQ(closing ? desk.document.MayClose() : desk.document.FOpen(kOther), c.leaves);
            EXPECT_EQ(desk.files.Contents(kStart), c.saved);
            EXPECT_EQ(desk.document.FFile(), c.leaves && !closing ? kOther : kStart);
            EXPECT_TRUE(c.leaves || desk.document.UnsavedChanges());
        }
    }
}

TEST(MenuDocument, WithoutAFileHasNowhereToGo)
{
    Desk desk;
    desk.document.SetMCh(true);
    desk.prompts.Expect(Answer::yes);
    EXPECT_TRUE(desk.document.MayClose());
    desk.document.SaveMenu();
    desk.document.SetThisMenuAsHomeMenu();
    EXPECT_EQ(desk.files.operations + desk.settings.writes, 0);
    desk.prompts.Expect(Answer::yes);
    desk.Open(true);
    desk.document.SaveMenu();
    EXPECT_EQ(desk.State(), kClean);
    desk.events.Take();
    desk.document.SetThisMenuAsHomeMenu();
    EXPECT_EQ(desk.settings.Text("Settings", "Home"), desk.document.Home());
    EXPECT_EQ(desk.events.Take(), Log{std::string("home ") + kStart});
}

} // namespace
} // namespace nv
