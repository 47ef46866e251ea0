#include "docs/paths.h"
#include "fakes/fake_desk.h"
#include "fakes/faulty_files.h"
#include "mainwindow/history.h"

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

TEST(MenuDocument, CompletesAPathByTheProgramsFolderAndQuotesItAsGiven)
{
    const struct {
        const char* folder;
        const char* path;
        const char* full;
    } cases[] = {
        {"C:\\Prog", "x.nvm", "C:\\Prog\\x.nvm"},
        {"C:\\", "x.nvm", "C:\\x.nvm"},
        {"C:\\Prog", "\\x.nvm", "C:\\x.nvm"},
        {"C:\\Prog", "c:x.nvm", "C:\\Prog\\x.nvm"},
        {"C:\\Prog", "D:x.nvm", "D:\\x.nvm"},
        {"C:\\Prog", "D:\\x.nvm", "D:\\x.nvm"},
        {"C:\\Prog", "\\\\s\\share\\x.nvm", "\\\\s\\share\\x.nvm"},
        {"\\\\s\\share\\a\\b", "\\x.nvm", "\\\\s\\share\\x.nvm"},
        {"\\\\s\\share", "/x.nvm", "\\\\s\\share/x.nvm"},
    };
    FakeFiles files;
    for (const auto& c : cases) {
        EXPECT_EQ(CompletePath(files, c.path, c.folder), c.full);
    }
    Desk desk;
    EXPECT_TRUE(desk.document.FOpen("Other.nvm"));
    EXPECT_EQ(desk.State(), kOtherOpen);
    EXPECT_EQ(desk.settings.Text("Settings", "Last"), kOther);
    desk.files.Find(kStart)->refused = kSharingViolation;
    const std::pair<std::string, std::string> refusals[] = {
        {"Start.txt", "Cannot open: \"Start.txt\"\n\nInvalid file extension!"},
        {"New.nvm", "File New.nvm does not exist.\n\nWould you like to create a new menu?"},
        {"Start.nvm", "Cannot open:\n\nStart.nvm\n\n<32>"},
    };
    for (const auto& [path, text] : refusals) {
        desk.prompts.Expect(Answer::no);
        EXPECT_FALSE(desk.document.FOpen(path));
        EXPECT_EQ(desk.prompts.Take().text, text);
    }
    EXPECT_TRUE(desk.document.CreateNewMenuFile("New.nvm"));
    EXPECT_EQ(desk.files.Contents("C:\\Menus\\New.nvm"), "");
}

TEST(History, KeepsAStepBackThatOpensNothing)
{
    History history;
    history.Append("a");
    history.Append("b");
    const struct {
        const char* opened;
        const char* owed; // whose load was ended and begins again
        const char* next; // step
    } cases[] = {{"", "", "b"}, {"", "b", "a"}, {"c", "", "a"}, {"a", "", ""}};
    EXPECT_EQ(history.StepBack(), "b");
    for (const auto& c : cases) {
        history.Opened(c.opened);
        history.Settle(c.owed);
        EXPECT_EQ(history.StepBack().value_or(""), c.next);
    }
    EXPECT_TRUE(history.Empty());
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
            desk.prompts.whileShown = [&desk] {
                EXPECT_TRUE(desk.events.isAsking);
                EXPECT_FALSE(desk.document.MayClose()); // does not ask twice
            };
            EXPECT_EQ(closing ? desk.document.MayClose() : desk.document.FOpen(kOther), c.leaves);
            EXPECT_EQ(desk.files.Contents(kStart), c.saved);
            EXPECT_EQ(desk.document.FFile(), c.leaves && !closing ? kOther : kStart);
            EXPECT_TRUE(c.leaves || desk.document.UnsavedChanges());
            EXPECT_FALSE(desk.events.isAsking);
        }
    }
}

TEST(MenuDocument, AsksBeforeItWritesOverWhatAnotherProgramWrote)
{
    const std::string old = "edited\r\n";
    const std::optional<Answer> kUnasked;
    const struct {
        std::string others; // what the file holds then; empty: it is gone
        std::optional<Answer> answer;
        SystemError refused = 0; // the file cannot even be read
    } cases[] = {
        {"longer than before", Answer::no}, {"longer than before", Answer::yes},
        {"EDITED\r\n", Answer::cancel},     {old, kUnasked}, // written anew, but not changed
        {old, Answer::no, kAccessDenied},   {"", kUnasked},
    };
    for (const auto& c : cases) {
        for (const bool savedBefore : {false, true}) {
            Desk desk;
            desk.files.Put(kOther, old);
            ASSERT_TRUE(desk.document.FOpen(kOther));
            ASSERT_TRUE(!savedBefore || desk.document.SavePDM(kOther));
            desk.files.Put(kOther, c.others);
            desk.files.Find(kOther)->refused = c.refused;
            if (c.others.empty()) {
                EXPECT_EQ(desk.files.Remove(kOther), 0u);
            }
            if (c.answer) {
                desk.prompts.Expect(*c.answer);
            }
            desk.document.Lines().Append("mine");
            desk.document.SetMCh(true);
            const bool saves = c.answer.value_or(Answer::yes) == Answer::yes;
            EXPECT_EQ(desk.document.SavePDM(kOther), saves);
            EXPECT_EQ(desk.files.Contents(kOther), saves ? old + "mine\r\n" : c.others);
            EXPECT_NE(desk.document.UnsavedChanges(), saves);
            const FakePrompts::Shown question{std::string("File ") + kOther +
                                                  " was changed by another program.\n\n"
                                                  "Do you want to overwrite it?",
                                              PromptIcon::exclamation, PromptButtons::noYes};
            EXPECT_EQ(desk.prompts.Take(), c.answer ? question : FakePrompts::Shown{});
        }
    }
}

TEST(MenuDocument, KeepsUnsavedChangesBesideTheFileWhenThereIsNoTimeToAsk)
{
    const std::string kept = std::string(kStart) + ".unsaved";
    Desk desk;
    desk.document.KeepUnsaved();
    desk.Open(true);
    desk.files.Put(kept, "of another day");
    desk.document.Lines().Append("four");
    for (int messages = 0; messages < 2; ++messages) {
        desk.document.KeepUnsaved();
    }
    EXPECT_EQ(desk.files.Contents(kept), kMenu + "four\r\n");
    EXPECT_EQ(desk.files.Contents(std::string(kStart) + ".2.unsaved"), "of another day");
    EXPECT_EQ(desk.files.Count(), 4u); // the two menus, and no third copy
    EXPECT_EQ(desk.files.Contents(kStart), kMenu);
    EXPECT_TRUE(desk.document.UnsavedChanges());
    desk.document.SetMCh(true);
    desk.document.Lines().Append("five");
    desk.document.KeepUnsaved();
    EXPECT_EQ(desk.files.Contents(kept), kMenu + "four\r\nfive\r\n");
    EXPECT_TRUE(desk.document.SavePDM(kStart)); // the session did not end
    EXPECT_EQ(desk.files.Contents(kept), "(none)");
    Desk next;
    next.files.Put(kept, "kept");
    for (int openings = 0; openings < 2; ++openings) {
        if (openings == 0) {
            next.prompts.Expect(Answer::ok);
        }
        EXPECT_TRUE(next.document.FOpen(kStart));
        EXPECT_EQ(next.prompts.Take().text.find(kept) != std::string::npos, openings == 0);
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
