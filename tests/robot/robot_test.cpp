// A robot uses the program at random for as long as it is told to: see tools/robot. The program
// must neither crash nor hang nor leak, and what it saves must be what its editor shows.
#include "e2e/stage.h"
#include "fakes/editor_model.h"
#include "robot/desktop.h"
#include "robot/hand.h"
#include "robot/menus.h"
#include "robot/usage.h"
#include "tool/menu_text.h"
#include "win32/handles.h"
#include "win32/win_files.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace nv::robot
{

using namespace e2e;

namespace
{

constexpr DWORD kLoad = 180000;       // milliseconds that the longest load may take here
constexpr DWORD kBetweenTries = 3000; // until a key or click is taken for lost
constexpr int kActionsInARound = 40;
constexpr int kModelledCommands = 25;
// At rest: high enough for all rows of the model.
constexpr LONG kWidth = 900;
constexpr LONG kHeight = 1000;
constexpr int kList = 301;
constexpr int kCommand = 304;
constexpr int kOpenPath = 203;
constexpr char kModelName[] = "Model.nvm";

unsigned Number(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : 0;
}

void Demand(bool holds, const std::string& what)
{
    if (!holds) {
        throw std::runtime_error(what);
    }
}

void Await(const std::function<bool()>& condition, const std::string& what, DWORD within = kLoad)
{
    Demand(Until(condition, within), what);
}

// What the program writes for the lines that it reads from the file at path.
std::string WrittenAgain(const std::string& path)
{
    WinFiles files;
    MenuText text;
    Demand(ReadMenuText(files, path, text) == 0, "the saved file cannot be read");
    std::string file;
    for (std::size_t index = 0; index < text.lines.size(); ++index) {
        std::string line(text.lines[index]);
        for (std::size_t at = 0; (at = line.find("\r\n", at)) != std::string::npos;) {
            line.replace(at, 2, 1, '\1');
        }
        file += line + "\r\n";
    }
    return file;
}

// When the file at path was last written; 0: there is none.
ULONGLONG LastWrite(const std::string& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data);
    return ULONGLONG{data.ftLastWriteTime.dwHighDateTime} << 32 |
           data.ftLastWriteTime.dwLowDateTime;
}

// The same, once it is long ago.
ULONGLONG MadeOld(const std::string& path)
{
    const FileHandle file(CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, 0, nullptr));
    const FILETIME old = {0, 0x01A00000}; // in the eighties
    SetFileTime(file.Get(), nullptr, nullptr, &old);
    return LastWrite(path);
}

std::string FileOf(const EditorModel& model)
{
    std::string content;
    for (const std::string& line : model.now.lines) {
        content += line + "\r\n";
    }
    return content;
}

} // namespace

class Robot : public Stage
{
protected:
    void SetUp() override
    {
        Stage::SetUp();
        std::vector<std::string> names;
        for (const auto& [name, content] : RobotMenus(seed_)) {
            names.push_back(name);
            Write(name + ".kept", content);
        }
        hand_ = std::make_unique<Hand>(Folder(), names, seed_);
    }

    // Whatever the hand has done to the menus; one that is being read stays as it is.
    void RestoreMenus()
    {
        for (const std::string& name : hand_->Names()) {
            CopyFileA(Path(name + ".kept").c_str(), Path(name).c_str(), FALSE);
        }
    }

    HWND Main() { return Running().WindowNow(); }
    bool Editing() { return IsWindowVisible(Running().Panel()) != FALSE; }
    LRESULT Ask(UINT message) { return Tell(Running().Control(kList), message); }

    void DemandAlive()
    {
        Demand(Running().Running(), "the program has ended");
        Demand(Running().Answers(kPatience), "the program does not answer");
    }

    // Waits until the program has taken every key and click up to now: what is sent, as by
    // DemandAlive, overtakes them.
    void DemandAllTaken()
    {
        DemandAlive();
        Await([this] { return !InputWaits(Main()); }, "the program does not take its input",
              kPatience);
    }

    void PressWithControl(WORD key)
    {
        PressKey(key, {VK_CONTROL});
        DemandAllTaken();
    }

    // Acts at random; now and then the program gets time to come further in between.
    void Play(int actions)
    {
        for (int count = 0; count < actions; ++count) {
            hand_->Act(Main());
            Random random(seed_ + 1, hand_->Actions());
            const int rounds = random.Below(4);
            for (int round = 0; round <= rounds * rounds * rounds; ++round) {
                DemandAlive();
            }
        }
    }

    // Answers what is shown so that nothing is changed by it, until nothing is shown.
    void ComeToRest()
    {
        const auto rests = [this] {
            DemandAllTaken();
            Await([this] { return !BoxIsNotAlone(Main()); },
                  "a dialog takes input beside a message box", kDeadline);
            const HWND modal = ModalOver(Main());
            if (modal == nullptr) {
                return IsWindowEnabled(Main()) != FALSE;
            }
            Dismiss(modal);
            Until([&] { return ModalOver(Main()) != modal; }, 1000);
            return false;
        };
        Await(rests, "the program does not come to rest");
    }

    // The window as it is at each rest, ready for keys.
    void BringUp()
    {
        const HWND main = Main();
        ShowWindowAsync(main, SW_RESTORE);
        SetWindowPos(main, HWND_TOP, 0, 0, kWidth, kHeight, SWP_ASYNCWINDOWPOS);
        SetForegroundWindow(main);
        const auto up = [main] {
            const RECT place = PlaceOf(main);
            return place.right - place.left == kWidth && place.bottom - place.top == kHeight &&
                   GetForegroundWindow() == main;
        };
        Await(up, "the window does not come up", kDeadline);
        DemandAlive();
    }

    // Switches to a mode, which waits for the end of every load.
    void SwitchTo(bool editing)
    {
        const auto switched = [&] { return Editing() == editing; };
        const auto press = [&] {
            ComeToRest(); // what an earlier action may have brought up only now
            if (!switched()) {
                PressWithControl('E');
            }
            return Until(switched, kBetweenTries);
        };
        Await(press, std::string("no switch to ") + (editing ? "edit" : "run") + " mode");
        DemandAllTaken();
    }

    void OpenByDialog(const std::string& path)
    {
        hand_->Note("open " + path);
        ComeToRest();
        BringUp();
        HWND dialog = nullptr;
        const auto shown = [&] { return (dialog = ModalOver(Main())) != nullptr; };
        Await([&] { return ClickButton("Open Menu") && Until(shown, kBetweenTries); },
              "the Open dialog does not come", kDeadline);
        Demand(GetDlgItem(dialog, kOpenPath) != nullptr, "another dialog comes: " + TextOf(dialog));
        SetText(GetDlgItem(dialog, kOpenPath), path);
        PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    }

    void OpenAndWait(const std::string& path)
    {
        SetSetting("Settings", "Last", "");
        OpenByDialog(path);
        ComeToRest(); // a question about changes is answered
        Demand(WaitUntilLoaded(path, kLoad), "not opened: " + path);
        ComeToRest();
    }

    std::string Save(const std::string& path)
    {
        const ULONGLONG before = MadeOld(path);
        PressWithControl('S');
        const auto saved = [&] {
            // The menu was restored while it was open.
            const auto box = Running().BoxNow();
            if (box && box->text.find(" was changed by another program.") != std::string::npos) {
                Running().Answer(*box, "Yes");
            }
            return LastWrite(path) > before;
        };
        Await(saved, "not saved: " + path);
        DemandAlive();
        return Contents(path);
    }

    void DemandSavedAs(const EditorModel& model)
    {
        const std::string saved = Save(Path(kModelName));
        Demand(saved == FileOf(model), "expected was\n" + FileOf(model) + "saved is\n" + saved);
    }

    // What is being edited, whatever it has come to, is what a save writes.
    void CheckSave()
    {
        ComeToRest();
        BringUp();
        const std::string start = std::string(kPlainTitle) + " - ";
        if (Running().Title() == kPlainTitle) {
            return; // no menu is open
        }
        // There and back: no load can be under way then.
        SwitchTo(!Editing());
        SwitchTo(true);
        const std::string title = Running().Title();
        Demand(title.rfind(start, 0) == 0, "editing, but no menu is open");
        std::string path = title.substr(start.size());
        path.erase(path.ends_with(" *") ? path.size() - 2 : path.size());
        hand_->Note("save and check " + path);
        const std::string content = Save(path);
        Demand(WrittenAgain(path) == content,
               "the saved file is not written as it is read: " + path);
        const std::string shown = std::to_string(Ask(LB_GETCOUNT));
        Demand(shown == std::to_string(std::count(content.begin(), content.end(), '\n')),
               "the list shows " + shown + " entries, not as many as saved");
        ++saves_;
    }

    // A place of an entry in the list, in its upper half. Never the same twice: two quick clicks
    // there would be a double click, which selects nothing.
    POINT RowPoint(std::size_t index)
    {
        const RECT place = PlaceOf(Running().Control(kList));
        const auto row = static_cast<LONG>(static_cast<LRESULT>(index) - Ask(LB_GETTOPINDEX));
        const auto height = static_cast<LONG>(Ask(LB_GETITEMHEIGHT));
        return {place.left + 20 + static_cast<LONG>(++points_ % 16) * 15,
                place.top + 2 + row * height + height / 4};
    }

    void SelectRow(EditorModel& model, std::size_t index)
    {
        Click(RowPoint(index));
        const auto selected = [&] {
            return Ask(LB_GETCURSEL) == static_cast<LRESULT>(index) &&
                   Running().Focus() == "ListBox";
        };
        Await(selected, "a click does not select entry " + std::to_string(index), kDeadline);
        model.Select(static_cast<int>(index));
    }

    void TypeIntoCommand(EditorModel& model, Random& random)
    {
        const HWND box = Running().Control(kCommand);
        const std::string before = TextOf(box);
        const std::string typed(static_cast<std::size_t>(random.From(1, 6)), 'q');
        Click(CentreOf(box));
        PressKey(VK_END);
        Type(typed);
        Await([&] { return TextOf(box) == before + typed; }, "typing does not arrive", kDeadline);
        model.SetLink(model.fields.link + typed);
        DemandSavedAs(model);
    }

    void Drag(EditorModel& model, Random& random)
    {
        const int count = model.Count();
        const auto from = static_cast<std::size_t>(random.Below(count));
        const auto gap = static_cast<std::size_t>(random.Below(count));
        SelectRow(model, from);
        PressMouse(RowPoint(from));
        DemandAlive();
        MoveMouse(RowPoint((from + 1) % model.now.lines.size()));
        MoveMouse(RowPoint(gap));
        ReleaseMouse(RowPoint(gap));
        model.MoveTo(static_cast<int>(gap));
    }

    // What was done.
    std::string DoModelled(EditorModel& model, Random& random)
    {
        static constexpr struct {
            const char* name;
            bool control;
            WORD key;
            void (EditorModel::*deed)();
        } kKeys[] = {{"undo", true, 'Z', &EditorModel::Undo},
                     {"redo", true, 'Y', &EditorModel::Redo},
                     {"delete", false, VK_DELETE, &EditorModel::Remove},
                     {"move up", true, VK_UP, &EditorModel::MoveUp},
                     {"move down", true, VK_DOWN, &EditorModel::MoveDown},
                     {"down", false, VK_DOWN, &EditorModel::SelectNext}};
        const int count = model.Count();
        const int choice = random.Below(9);
        if (choice == 6) {
            ClickButton("Insert New");
            model.InsertNew();
            return "Insert New";
        }
        if (choice > 1 && count == 0) {
            return "nothing";
        }
        if (choice == 7) {
            Drag(model, random);
            return "drag";
        }
        if (choice > 1) {
            // Without another one too: the list takes the keys.
            const bool another = model.now.selected < 0 || random.Chance(40);
            const int row = another ? random.Below(count) : model.now.selected;
            SelectRow(model, static_cast<std::size_t>(row));
        }
        if (choice == 8) {
            TypeIntoCommand(model, random);
            return "type";
        }
        const auto& act = kKeys[choice];
        act.control ? PressWithControl(act.key) : PressKey(act.key);
        (model.*act.deed)();
        return act.name;
    }

    void FollowModel()
    {
        Random random(seed_ + 2, rounds_);
        EditorModel model;
        for (int left = random.From(1, 9); left > 0; --left) {
            model.now.lines.push_back(LineOf({kLink, "q" + std::to_string(left), "q.qq"}));
        }
        OpenAndWait(Write(kModelName, FileOf(model)));
        SwitchTo(false);
        SwitchTo(true);
        if (const LRESULT first = Ask(LB_GETCURSEL); first >= 0) {
            model.Select(static_cast<int>(first));
        }
        for (int count = 0; count < kModelledCommands; ++count) {
            const std::string done = DoModelled(model, random);
            const int selected = model.now.selected; // -1, like LB_ERR: none
            hand_->Note("model: " + done + ", expects " + std::to_string(selected) + " of " +
                        std::to_string(model.Count()));
            DemandAlive();
            const auto agrees = [&] {
                return Ask(LB_GETCOUNT) == model.Count() && Ask(LB_GETCURSEL) == selected;
            };
            Demand(Until(agrees),
                   "another selection or count: " + std::to_string(Ask(LB_GETCURSEL)) + " of " +
                       std::to_string(Ask(LB_GETCOUNT)));
            ++modelled_;
        }
        DemandSavedAs(model);
    }

    void Round()
    {
        ++rounds_;
        RestoreMenus();
        Random random(seed_ + 3, rounds_);
        OpenByDialog(Path(random.Of(hand_->Names())));
        Play(kActionsInARound);
        CheckSave();
        if (rounds_ % 2 == 0) {
            FollowModel();
        }
        // The same state each time, so that what is in use can be compared.
        OpenAndWait(Path(kHomeName));
        SwitchTo(false);
        MoveMouse({0, 0});
        DemandAllTaken();
    }

    // One run of the program for most of the time: what it takes at rest must not grow.
    void UseTheProgram()
    {
        const ULONGLONG start = GetTickCount64();
        RestoreMenus();
        Open(Path(kHomeName));
        // What is remembered of the largest menus is there from the beginning.
        for (const std::string& name : hand_->Names()) {
            OpenAndWait(Path(name));
            SwitchTo(true);
            SwitchTo(false);
        }
        std::vector<Usage> samples;
        do {
            Round();
            samples.push_back(UsageOf(Main()));
            // On a slow machine it takes longer: fewer rounds would prove nothing.
        } while (rounds_ < 6 || GetTickCount64() - start < ULONGLONG{seconds_} * 1000 * 9 / 10);
        Demand(saves_ > 0 && modelled_ > 0, "nothing was checked");
        const Comparison comparison = Compare(samples);
        std::printf("%s", comparison.table.c_str());
        for (const std::string& name : comparison.grown) {
            ADD_FAILURE() << "grows: " << name;
        }
        Demand(Close() == 0u, "the program does not end as it should");
    }

    // Many short runs, each ended at any moment.
    void StartAndEnd()
    {
        const ULONGLONG start = GetTickCount64();
        do {
            RestoreMenus();
            Random random(seed_ + 4, ++lives_);
            const std::string path = Path(random.Of(hand_->Names()));
            const std::string locked = random.Chance(30) ? " /l" : "";
            hand_->Note("start with " + path + locked);
            Start('"' + path + '"' + locked);
            Demand(Running().Window() != nullptr, "the program does not start");
            Play(random.Below(25));
            hand_->Note("close");
            const auto ended = [this] {
                const HWND main = Main();
                if (const HWND modal = ModalOver(main)) {
                    Dismiss(modal);
                } else if (main != nullptr) {
                    PostMessageA(main, WM_CLOSE, 0, 0);
                }
                return Running().ExitCode(200).has_value();
            };
            Await(ended, "the program does not end");
            Demand(Running().ExitCode() == 0u, "the program ends with an error");
        } while (GetTickCount64() - start < ULONGLONG{seconds_} * 1000 / 10);
    }

    const unsigned seconds_ = std::max(Number("NAVRIX_ROBOT_SECONDS"), 30U);
    const unsigned seed_ = Number("NAVRIX_ROBOT_SEED");
    unsigned rounds_ = 0;
    unsigned saves_ = 0;
    unsigned modelled_ = 0;
    unsigned lives_ = 0;
    unsigned points_ = 0;
    std::unique_ptr<Hand> hand_;
};

TEST_F(Robot, UsesTheProgramAtRandom)
{
    try {
        UseTheProgram();
        StartAndEnd();
    } catch (const std::exception& failure) {
        ADD_FAILURE() << failure.what();
        std::printf("The last actions:\n%s", hand_->LastActions().c_str());
    }
    std::printf("%u actions in %u rounds and %u short runs, %u commands after the model, %u saves "
                "checked\n",
                hand_->Actions(), rounds_, lives_, modelled_, saves_);
}

} // namespace nv::robot
