// edit_bench: edits in the middle of menus of 100 to 100,000 entries, saves, and switches to edit
// mode and back, in a main window of the program's own, in this process.
#include "bench_window.h"
#include "figures.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace
{

using namespace nv;
using bench::BenchWindow;
using bench::LowQuarter;
using bench::Median;
using bench::Report;
using bench::Rounds;
using bench::Tell;
using bench::TimeOf;

constexpr int kRounds = 9;
constexpr int kTurns = 20;
constexpr int kSaves = 4;
constexpr int kKeys = 5; // typed in a row
constexpr std::array<std::size_t, 4> kEntries = {100, 1000, 10000, 100000};
constexpr std::size_t kThousand = 1;
constexpr std::size_t kLarge = 3;

// A figure counts only for what really happened.
void Need(bool done, const char* what)
{
    if (!done) {
        std::fprintf(stderr, "edit_bench: failed: %s\n", what);
        std::exit(1);
    }
}

// What a user does, in milliseconds for each time.
struct Costs {
    std::vector<double> firstEnter, enter, leave;
    std::vector<double> firstKey, key, undoKeys;
    std::vector<double> insert, undoInsert;
    std::vector<double> remove, undoRemove;
    std::vector<double> move, moveFar;
    std::vector<double> save;
    std::vector<double> shift; // of the list's memory behind its middle, and nothing else
};

struct Wanted {
    const char* caption;
    HWND found;
};

BOOL CALLBACK FindShown(HWND window, LPARAM wanted)
{
    auto& search = *reinterpret_cast<Wanted*>(wanted);
    char text[32] = "";
    GetWindowTextA(window, text, sizeof text);
    if (IsWindowVisible(window) && std::string_view(text) == search.caption) {
        search.found = window;
    }
    return search.found == nullptr;
}

// The middle of one open menu in the main window.
class Editing
{
public:
    explicit Editing(BenchWindow& bench)
        : bench_(bench), editor_(bench.Form().Panel().Editor()),
          middle_(bench.Form().Document().Lines().size() / 2)
    {
    }

    void Switches(Costs& costs);
    void Edits(Costs& costs);

private:
    // Presses a button of the toolbar, with the painting that follows.
    double Press(const char* caption);
    bool InEditMode() const { return IsWindowVisible(bench_.Form().Panel().Handle()) != 0; }
    // A change, with the painting that follows.
    double Change(const std::function<void()>& change);
    double Key();
    double Undo();
    void OneOfEach(Costs& costs);

    BenchWindow& bench_;
    MenuEditor& editor_;
    std::size_t middle_;
};

double Editing::Press(const char* caption)
{
    Wanted button = {caption, nullptr};
    EnumChildWindows(bench_.Form().Handle(), FindShown, reinterpret_cast<LPARAM>(&button));
    Need(button.found != nullptr, caption);
    bench_.Paint();
    return TimeOf([&] {
        SendMessageA(button.found, WM_LBUTTONUP, 0, 0);
        bench_.Paint();
    });
}

void Editing::Switches(Costs& costs)
{
    costs.firstEnter.push_back(Press("Edit"));
    for (int turn = 0; turn < kTurns; ++turn) {
        Need(InEditMode(), "entering edit mode");
        costs.leave.push_back(Press("Normal"));
        Need(!InEditMode(), "leaving edit mode");
        costs.enter.push_back(Press("Edit"));
    }
    bench_.Settle();
}

double Editing::Change(const std::function<void()>& change)
{
    bench_.Paint();
    return TimeOf([&] {
        change();
        bench_.Paint();
    });
}

double Editing::Key()
{
    const HWND box = GetDlgItem(bench_.Form().Panel().Handle(), EditPanel::kCaptionBox);
    const std::size_t length = editor_.Fields().caption.size();
    const double time = Change([&] { SendMessageA(box, WM_CHAR, 'n', 1); });
    Need(editor_.Fields().caption.size() == length + 1, "typing");
    return time;
}

double Editing::Undo()
{
    return Change([this] { editor_.Undo(); });
}

void Editing::Edits(Costs& costs)
{
    SetFocus(GetDlgItem(bench_.Form().Panel().Handle(), EditPanel::kCaptionBox));
    editor_.Select(middle_);
    bench_.Settle();
    costs.firstKey.push_back(Key());
    Undo();
    for (int turn = 0; turn < kTurns; ++turn) {
        OneOfEach(costs);
        Need(editor_.Selected() == middle_ && editor_.Count() == 2 * middle_ && !editor_.CanUndo(),
             "taking everything back");
    }
    // The last save writes the menu as it was.
    for (int turn = 0; turn < kSaves; ++turn) {
        if (turn % 2 == 0) {
            Key();
        } else {
            Undo();
        }
        Need(bench_.Form().Document().UnsavedChanges(), "changing");
        costs.save.push_back(Press("Save Menu"));
        Need(!bench_.Form().Document().UnsavedChanges(), "saving");
    }
    Press("Normal");
    bench_.Settle();
}

void Editing::OneOfEach(Costs& costs)
{
    for (int key = 0; key < kKeys; ++key) {
        costs.key.push_back(Key());
    }
    costs.undoKeys.push_back(Undo());

    costs.insert.push_back(Change([this] { editor_.InsertNew(); }));
    Need(editor_.Count() == 2 * middle_ + 1, "inserting");
    costs.undoInsert.push_back(Undo());

    costs.remove.push_back(Change([this] { editor_.Remove(); }));
    Need(editor_.Count() == 2 * middle_ - 1, "removing");
    costs.undoRemove.push_back(Undo());

    costs.move.push_back(Change([this] { editor_.MoveDown(); }));
    Need(editor_.Selected() == middle_ + 1, "moving");
    Undo();
    costs.moveFar.push_back(Change([this] { editor_.MoveTo(editor_.Count()); }));
    Need(editor_.Selected() == editor_.Count() - 1, "moving to the end");
    Undo();
}

// What no list of lines that stands in one piece can do without.
void MeasureShift(std::size_t entries, Costs& costs)
{
    std::vector<std::string_view> lines(entries);
    lines.reserve(entries + 1);
    const auto middle = lines.begin() + static_cast<std::ptrdiff_t>(entries / 2);
    for (int turn = 0; turn < kTurns; ++turn) {
        costs.shift.push_back(TimeOf([&] { lines.insert(middle, "a line"); }));
        lines.erase(middle);
    }
}

// What the time with 100,000 entries is held against.
enum class Against {
    thousand,
    thousandBeyondShift, // less what moving the list's memory costs
    thousandByEntry,     // what a hundred times as long would be
};

// One of the costs in all menus, round by round.
struct Comparison {
    const char* what;
    std::vector<double> Costs::*cost;
    Against against;
    std::array<std::vector<double>, kEntries.size()> times = {};
    std::vector<double> ratio = {};
};

void Add(Comparison& comparison, const std::array<Costs, kEntries.size()>& costs)
{
    std::array<double, kEntries.size()> counted = {};
    for (std::size_t menu = 0; menu < costs.size(); ++menu) {
        const double time = LowQuarter(costs[menu].*comparison.cost);
        comparison.times[menu].push_back(time);
        const bool shifts = comparison.against == Against::thousandBeyondShift;
        counted[menu] = time - (shifts ? LowQuarter(costs[menu].shift) : 0);
    }
    const bool byEntry = comparison.against == Against::thousandByEntry;
    const std::size_t more = byEntry ? kEntries[kLarge] / kEntries[kThousand] : 1;
    comparison.ratio.push_back(counted[kLarge] / counted[kThousand] / static_cast<double>(more));
}

void ReportAll(const std::vector<Comparison>& comparisons)
{
    for (const Comparison& each : comparisons) {
        for (std::size_t menu = 0; menu < kEntries.size(); ++menu) {
            Tell(std::string(each.what) + " with " + std::to_string(kEntries[menu]) + " entries",
                 Median(each.times[menu]) * 1000, "us");
        }
    }
    for (const Comparison& each : comparisons) {
        const char* beyond =
            each.against == Against::thousandBeyondShift ? " beyond the shift" : "";
        const bool byEntry = each.against == Against::thousandByEntry;
        Report(std::string(each.what) + beyond + (byEntry ? ", an entry" : "") +
                   ": 100,000 entries / 1,000",
               Median(each.ratio), byEntry ? 1.2 : 2, "times");
    }
}

} // namespace

int main()
{
    std::vector<Comparison> comparisons = {
        {"entering edit mode, first time", &Costs::firstEnter, Against::thousand},
        {"entering edit mode again", &Costs::enter, Against::thousand},
        {"leaving edit mode, unchanged", &Costs::leave, Against::thousand},
        {"first key in a menu", &Costs::firstKey, Against::thousand},
        {"typing a character", &Costs::key, Against::thousand},
        {"inserting", &Costs::insert, Against::thousandBeyondShift},
        {"removing", &Costs::remove, Against::thousandBeyondShift},
        {"moving a line down", &Costs::move, Against::thousand},
        {"moving to the end", &Costs::moveFar, Against::thousandBeyondShift},
        {"undoing typing", &Costs::undoKeys, Against::thousand},
        {"undoing an insertion", &Costs::undoInsert, Against::thousandBeyondShift},
        {"undoing a removal", &Costs::undoRemove, Against::thousandBeyondShift},
        {"saving", &Costs::save, Against::thousandByEntry},
    };
    BenchWindow bench("edit", {kEntries.begin(), kEntries.end()});
    std::vector<double> shifts;
    for (int round = 0; round < Rounds(kRounds); ++round) {
        std::array<Costs, kEntries.size()> costs;
        for (std::size_t menu = 0; menu < kEntries.size(); ++menu) {
            bench.Open(menu);
            Editing editing(bench);
            editing.Switches(costs[menu]);
            editing.Edits(costs[menu]);
            MeasureShift(kEntries[menu], costs[menu]);
        }
        shifts.push_back(LowQuarter(costs[kLarge].shift));
        for (Comparison& each : comparisons) {
            Add(each, costs);
        }
    }
    Tell("the shift: inserting into 100,000 times 16 bytes", Median(shifts) * 1000, "us");
    ReportAll(comparisons);
}
