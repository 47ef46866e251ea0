// Saves and opens of which each operation on files fails once, and in each the program dies once:
// menus stay whole, the user is told the truth, and the program goes on.
#include "docs/safe_save.h"
#include "fakes/fake_desk.h"
#include "fakes/faulty_files.h"

#include <gtest/gtest.h>

namespace nv
{
namespace
{

const std::string kStart = "C:\\Menus\\Start.nvm";
const std::string kTemporary = kStart + ".tmp";
const std::string kOther = "C:\\Menus\\Other.nvm";
const std::string kNew = "C:\\Menus\\Made\\New.nvm";
const std::string kOld = "one\r\ntwo\r\n";
const std::string kEdited = "edited, and longer\r\ntwo\r\n";
const std::string kOtherMenu = "other\r\nmenu\r\n";

struct Desk : FakeDesk<Faulty<FakeFiles>> {
    std::string title;   // what the windows show
    std::string caption; // path in the main window's caption
    std::string told;    // state of the document while the last box was up

    Desk()
    {
        files.Put(kStart, kOld);
        files.Put(kOther, kOtherMenu);
        files.readPiece = 3;
        EXPECT_TRUE(document.FOpen(kStart));
        prompts.whileShown = [this] { told = State(); };
    }
    void Edit()
    {
        document.Lines().Set(0, "edited, and longer");
        document.SetMCh(true);
    }
    void FollowEvents()
    {
        for (const std::string& event : events.Take()) {
            const std::string what = event.substr(0, event.find(' '));
            const std::string named = event.substr(event.find(' ') + 1);
            title = what == "title" ? named : event == "file " ? "" : title;
            caption = what == "opened" ? named : event == "file " ? "" : caption;
        }
    }
};

struct Act {
    const char* name;
    std::string opens; // empty: it saves
    Answer answer;     // to every question
    bool edited;
    std::string before = kOld; // what stands under the menu's name
    SystemError refuseNew = 0; // the world in which it happens
    SystemError refuseReplace = 0;

    bool Saves() const { return edited && answer == Answer::yes; }
    // What the document comes to when all goes well.
    std::string Goal() const
    {
        return opens.empty()     ? kStart + ':' + kEdited
               : opens == kOther ? kOther + ':' + kOtherMenu
                                 : opens + ':';
    }
    bool Do(Desk& desk) const
    {
        return opens.empty() ? desk.document.SavePDM(kStart) : desk.document.FOpen(opens);
    }
};

const Act kActs[] = {
    {"save", "", Answer::yes, true},
    {"save of a file that is gone", "", Answer::yes, true, "(none)"},
    {"save where no new files can be made", "", Answer::yes, true, kOld, kAccessDenied},
    {"save beside a path too long for a temporary", "", Answer::yes, true, kOld, 206},
    {"save where nothing can be replaced", "", Answer::yes, true, kOld, 0, kAccessDenied},
    {"open", kOther, Answer::yes, false},
    {"create", kNew, Answer::yes, false},
    {"save, then open", kOther, Answer::yes, true},
    {"save, then create", kNew, Answer::yes, true},
    {"drop, then open", kOther, Answer::no, true},
};

void Prepare(Desk& desk, const Act& act)
{
    if (act.before == "(none)") {
        EXPECT_EQ(desk.files.Remove(kStart), 0u);
    }
    if (act.edited) {
        desk.Edit();
    }
    desk.prompts.toQuestions = act.answer;
    desk.files.refuseNew = act.refuseNew;
    desk.files.refuseReplace = act.refuseReplace;
    desk.files.operations = 0;
}

// Whether what failed has another way around it, or nothing depends on it.
bool HasWayAround(const Desk& desk, const Act& act)
{
    const std::string& failed = desk.files.failed;
    const SystemError error = desk.files.failure;
    return failed.empty() || failed.starts_with("make ") || failed.starts_with("remove ") ||
           failed.starts_with("close read ") ||
           (failed == "create " + kTemporary && act.before != "(none)") ||
           (failed == "replace " + kStart && act.before != "(none)" &&
            (error == kAccessDenied || error == kSharingViolation));
}

// What the user is told of the failure, and the document there then is.
void ExpectTold(Desk& desk, const Act& act)
{
    const std::string& failed = desk.files.failed;
    const std::string reason = "\n\n" + desk.files.Describe(desk.files.failure);
    const std::string unsaved = kStart + " changed unsaved:" + kEdited;
    FakePrompts::Shown box{"Cannot open:\n\n" + act.opens + reason, PromptIcon::stop,
                           PromptButtons::ok};
    std::string state = act.Saves()  ? kStart + ':' + kEdited
                        : act.edited ? unsaved
                                     : kStart + ':' + kOld;
    if (failed.ends_with(kStart) || failed.ends_with(kTemporary)) {
        box.text = "Cannot save:\n\n" + kStart + reason;
        state = unsaved;
    } else if (failed == "create " + kNew || failed == "close " + kNew) {
        box = {"New Menu Could Not Be Created!", PromptIcon::exclamation, PromptButtons::ok};
    } else if (failed.starts_with("read ")) {
        state = ":"; // the half that was read must not be saved over the whole
    }
    EXPECT_EQ(desk.prompts.shown.back(), box);
    EXPECT_EQ(desk.State(), state);
    EXPECT_EQ(desk.told, state) << "while the box was up";
}

// The menus on the disk are the old or the new ones, and nothing is beside them.
void ExpectWhole(Desk& desk, const Act& act, bool saved, bool died)
{
    const std::string menu = desk.files.Contents(kStart);
    const std::string beside = desk.files.Contents(kTemporary);
    // Who can only write in place is safe from failures, not from a death in the writing (or, with
    // a power cut, before the flush). Where a new file could be made, all is in that.
    const std::string& failed = desk.files.failed;
    const bool writing = died && (menu.starts_with("\x7F") || failed == "write " + kStart);
    const bool halfWritten =
        writing && (act.refuseNew != 0 || (act.refuseReplace != 0 && beside == kEdited));
    EXPECT_TRUE((!saved && menu == act.before) || (act.Saves() && menu == kEdited) || halfWritten)
        << menu << beside;
    EXPECT_TRUE(died || beside == "(none)" || failed.starts_with("remove ")) << beside;
    EXPECT_EQ(desk.files.Contents(kOther), kOtherMenu);
    const std::string made = desk.files.Contents(kNew);
    EXPECT_TRUE(made == "(none)" || (act.opens == kNew && made.empty())) << made;
}

// Whatever was before, a menu can be edited, saved and left for another.
void ExpectGoesOn(Desk& desk, MenuDocument& document)
{
    desk.files.Restart();
    desk.prompts.toQuestions = Answer::yes;
    if (!document.FFile().empty()) {
        document.Lines().Append("more");
        document.SetMCh(true);
        EXPECT_TRUE(document.SavePDM(document.FFile()));
        EXPECT_FALSE(document.MCh() || document.UnsavedChanges());
        EXPECT_TRUE(desk.files.Contents(document.FFile()).ends_with("more\r\n"));
    }
    EXPECT_TRUE(document.FOpen(kStart)); // made anew if it is gone
    EXPECT_TRUE(document.FOpen(kOther));
}

TEST(Faults, AreToldAndSurvivedWhereverTheyCome)
{
    for (const Act& act : kActs) {
        for (const SystemError error : {5u, 32u, 112u, 1117u}) {
            int operation = 0;
            for (bool reached = true; reached;) {
                Desk desk;
                Prepare(desk, act);
                desk.files.failAt = ++operation;
                desk.files.failure = error;
                const bool done = act.Do(desk);
                reached = desk.files.operations >= operation;
                SCOPED_TRACE(act.name + (": " + desk.files.failed));
                EXPECT_EQ(done, HasWayAround(desk, act));
                if (done) {
                    EXPECT_EQ(desk.State(), act.Goal());
                    EXPECT_TRUE(desk.prompts.shown.empty() ||
                                desk.prompts.shown.back().buttons != PromptButtons::ok);
                } else {
                    ExpectTold(desk, act);
                }
                ExpectWhole(desk, act, done && act.Saves(), false);
                desk.FollowEvents();
                const std::string& path = desk.document.FFile();
                EXPECT_EQ(desk.caption, path);
                EXPECT_EQ(desk.title, path.substr(path.rfind('\\') + 1));
                ExpectGoesOn(desk, desk.document);
            }
            EXPECT_GT(operation, 4) << act.name << ": nothing was tried";
        }
    }
}

TEST(Faults, LeaveWholeMenusWhereverTheProgramDies)
{
    for (const Act& act : kActs) {
        for (const bool powerCut : {false, true}) {
            int operation = 0;
            for (bool dies = true; dies;) {
                Desk desk;
                Prepare(desk, act);
                desk.files.killAt = ++operation;
                bool saved = false;
                try {
                    saved = act.Do(desk) && act.Saves();
                    dies = false;
                } catch (const Killed&) {
                }
                if (powerCut) {
                    desk.files.CutPower();
                }
                SCOPED_TRACE(act.name + (" " + std::to_string(operation)));
                ExpectWhole(desk, act, saved, dies);
                MenuDocument next(desk.files, desk.prompts, desk.settings, desk.pump, desk.events,
                                  desk.codePage, desk.font, "C:\\Menus");
                desk.files.Restart();
                EXPECT_TRUE(next.FOpen(kStart));
                ExpectGoesOn(desk, next);
            }
        }
    }
}

TEST(Saves, LeaveTheOldMenuWhenTheDiskIsFull)
{
    for (const Act& act : kActs) {
        for (std::size_t room = 0; act.opens.empty() && room <= 2 * kEdited.size(); ++room) {
            Desk desk;
            Prepare(desk, act);
            desk.files.room = room;
            const std::string expected = act.Do(desk) ? kEdited : act.before;
            EXPECT_EQ(desk.files.Contents(kStart), expected) << act.name << ", " << room;
            EXPECT_TRUE(expected == kEdited || room < 2 * kEdited.size()) << act.name;
            EXPECT_EQ(desk.files.Count(), expected == "(none)" ? 1u : 2u) << act.name;
        }
    }
}

TEST(Saves, KeepAWholeMenuWhenPuttingBackFailsToo)
{
    for (const Act& act : kActs) {
        for (int operation = 1; act.opens.empty() && operation < 20; ++operation) {
            for (const int failures : {2, 99}) { // for a moment, for good
                Desk desk;
                Prepare(desk, act);
                desk.files.failAt = operation;
                desk.files.failures = failures;
                const bool done = act.Do(desk);
                const std::string after = desk.files.Contents(kStart);
                // Where no file can be made, nothing else can hold it.
                EXPECT_TRUE(after == (done ? kEdited : act.before) || after == kEdited ||
                            desk.files.Contents(kTemporary) == kEdited || act.refuseNew != 0)
                    << act.name << ", " << operation << ": " << after;
            }
        }
    }
}

TEST(Saves, RefuseWhatCannotBeWrittenBeforeTouchingIt)
{
    Faulty<FakeFiles> files;
    const auto begin = [&files] { return SafeSave(files, kStart).Begin(); };
    EXPECT_EQ(begin(), 0u); // a save that is given up leaves nothing
    files.refuseNew = 3;    // a drive that is not there
    EXPECT_EQ(begin(), 3u);
    EXPECT_EQ(files.Count(), 0u);
    files.refuseNew = 0;
    files.Put(kStart, kOld);
    files.Find(kStart)->readOnly = true;
    EXPECT_EQ(begin(), kAccessDenied);
    files.Find(kStart)->refused = kSharingViolation;
    files.Find(kStart)->readOnly = false;
    EXPECT_EQ(begin(), kSharingViolation);
    EXPECT_EQ(files.Contents(kStart), kOld);
    EXPECT_EQ(files.Count(), 1u);
}

TEST(Saves, LeaveTheFileWhatItIs)
{
    const std::string target = "D:\\Shared\\Real.nvm";
    const struct {
        unsigned names; // hard links
        bool spoilsAccess;
        const char* access;
    } cases[] = {{1, false, "list"}, {1, true, ""}, {2, false, "list"}};
    for (const auto& c : cases) {
        for (const bool linked : {false, true}) {
            Desk desk;
            const std::string path = linked ? target : kStart;
            desk.files.Put(path, kOld);
            if (linked) {
                desk.files.links[kStart] = target;
            }
            FakeFiles::Node& file = *desk.files.Find(path);
            file.names = c.names;
            file.access = "list";
            desk.files.spoilsAccess = c.spoilsAccess;
            desk.Edit();
            desk.files.refuseReplace = c.names > 1 ? 1117 : 0; // is not tried
            EXPECT_TRUE(desk.document.SavePDM(kStart));
            EXPECT_EQ(desk.files.Contents(path), kEdited);
            EXPECT_EQ(desk.files.Find(path)->access, c.access);
            EXPECT_EQ(desk.files.Contents(kStart), linked ? kOld : kEdited);
            EXPECT_EQ(desk.files.Count(), linked ? 3u : 2u);
            EXPECT_EQ(desk.document.FFile(), kStart);
        }
    }
    Desk desk; // a link to a name that the code page cannot say: the file is written through it
    desk.files.links[kStart] = "";
    desk.files.refuseReplace = 1117;
    desk.Edit();
    EXPECT_TRUE(desk.document.SavePDM(kStart));
    EXPECT_EQ(desk.files.Contents(kStart), kEdited);
}

TEST(Saves, LeaveTemporariesOfOthersAlone)
{
    Desk desk;
    desk.Edit();
    desk.files.Put(kTemporary, "somebody's");
    EXPECT_TRUE(desk.document.SavePDM(kStart));
    EXPECT_EQ(desk.files.Contents(kStart), kEdited);
    EXPECT_EQ(desk.files.Contents(kTemporary), "somebody's");
    EXPECT_EQ(desk.files.Count(), 3u);
    for (int number = 2; number <= 20; ++number) { // every name is taken
        desk.files.Put(kStart + "." + std::to_string(number) + ".tmp", "somebody's");
    }
    desk.document.Lines().Append("written in place");
    EXPECT_TRUE(desk.document.SavePDM(kStart));
    EXPECT_EQ(desk.files.Contents(kStart), kEdited + "written in place\r\n");
}

} // namespace
} // namespace nv
