// column_bench: opens, paints, scrolls and points at menus of 10 to 100,000 entries in a main
// window of the program's own, in this process.
#include "bench_window.h"
#include "figures.h"

#include <array>
#include <cstring>
#include <psapi.h>
#include <winternl.h>

namespace
{

using namespace nv;
using bench::BenchWindow;
using bench::LowQuarter;
using bench::Median;
using bench::Opening;
using bench::Report;
using bench::Rounds;
using bench::Tell;
using bench::TimeOf;

constexpr int kRounds = 9;
constexpr std::array<std::size_t, 5> kEntries = {10, 100, 1000, 10000, 100000};
constexpr std::size_t kTen = 0;
constexpr std::size_t kHundred = 1;
constexpr std::size_t kThousand = 2;
constexpr std::size_t kLarge = 4;

BOOL CALLBACK Count(HWND window, LPARAM count)
{
    EnumChildWindows(
        window,
        [](HWND, LPARAM sum) -> BOOL {
            ++*reinterpret_cast<int*>(sum);
            return TRUE;
        },
        count);
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

// Paints what is invalid in the view now.
void Paint(BenchWindow& bench)
{
    UpdateWindow(bench.View());
}

// One message of the view's scroll bar, with all that follows from it.
void Scroll(BenchWindow& bench, WPARAM request)
{
    SendMessageA(bench.View(), WM_VSCROLL, request, 0);
    MSG message = {};
    while (PeekMessageA(&message, bench.View(), WM_APP, 0xBFFF, PM_REMOVE)) {
        DispatchMessageA(&message);
    }
    Paint(bench);
}

void PointAt(BenchWindow& bench, int y)
{
    SendMessageA(bench.View(), WM_MOUSEMOVE, 0, MAKELPARAM(100, y));
}

// What a user does with an open menu, in milliseconds for each time.
struct Costs {
    std::vector<double> paint;
    std::vector<double> scroll;
    std::vector<double> point;
};

Costs Measure(BenchWindow& bench)
{
    Costs costs;
    bench.Pane().ScrollBy(bench.Pane().Scroll().Maximum() / 2);
    bench.Settle();
    for (int turn = 0; turn < 20; ++turn) {
        InvalidateRect(bench.View(), nullptr, FALSE);
        costs.paint.push_back(TimeOf([&] { Paint(bench); }));
    }
    for (int turn = 0; turn < 200; ++turn) {
        costs.point.push_back(TimeOf([&] { PointAt(bench, 10 + turn * 53 % 300); }));
    }
    bench.Pane().ScrollBy(-bench.Pane().Scroll().Maximum());
    bench.Settle();
    // The short menu comes to its end, and then turns.
    WPARAM direction = SB_LINEDOWN;
    for (int turn = 0; turn < 30; ++turn) {
        const int before = bench.Pane().Scroll().Value();
        const double time = TimeOf([&] { Scroll(bench, direction); });
        if (bench.Pane().Scroll().Value() == before) {
            direction = direction == SB_LINEDOWN ? SB_LINEUP : SB_LINEDOWN;
        } else {
            costs.scroll.push_back(time);
        }
    }
    return costs;
}

// Bytes of memory that the process uses: in RAM, and of its own.
struct Memory {
    double inRam;
    double own;
};

Memory UsedMemory()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return {static_cast<double>(counters.WorkingSetSize),
            static_cast<double>(counters.PagefileUsage)};
}

int Windows()
{
    int count = 0;
    EnumThreadWindows(GetCurrentThreadId(), Count, reinterpret_cast<LPARAM>(&count));
    return count;
}

// The process's handles in the system's table of all; the count that the system keeps for each
// process is always 0 under Wine.
int Handles()
{
    struct Entry {
        ULONG process;
        BYTE rest[20];
    };
    std::vector<BYTE> table(16);
    const auto information = static_cast<SYSTEM_INFORMATION_CLASS>(16); // SystemHandleInformation
    while (NtQuerySystemInformation(information, table.data(), static_cast<ULONG>(table.size()),
                                    nullptr) != 0) {
        table.resize(table.size() * 2);
        if (table.size() > (1u << 28)) {
            return -1;
        }
    }
    ULONG count = 0;
    std::memcpy(&count, table.data(), sizeof count);
    int own = 0;
    for (ULONG index = 0; index < count; ++index) {
        Entry entry = {};
        std::memcpy(&entry, table.data() + 8 + index * sizeof entry, sizeof entry);
        own += entry.process == GetCurrentProcessId() ? 1 : 0;
    }
    return own;
}

void ReportMemoryAndHandles(BenchWindow& bench)
{
    bench.Open(kTen);
    const Memory small = UsedMemory();
    const int windows = Windows();
    const int handles = Handles();
    bench.Open(kLarge);
    const Memory large = UsedMemory();
    const auto text = static_cast<double>(bench.FileSize(kLarge));
    const auto entries = static_cast<double>(kEntries[kLarge]);
    Tell("memory an entry beyond its text, own", (large.own - small.own - text) / entries, "bytes");
    Report("memory an entry beyond its text (in RAM)", (large.inRam - small.inRam - text) / entries,
           1024, "bytes");
    Tell("windows with 10 entries", windows, "");
    Report("windows more with 100,000 entries than with 10", Windows() - windows, 0, "windows");
    Tell("handles of the kernel with 10 entries", handles, "");
    Report("handles more with 100,000 entries than with 10", Handles() - handles, 0, "handles");
}

void ReportOpening(BenchWindow& bench)
{
    std::array<std::vector<double>, kEntries.size()> first;
    std::array<std::vector<double>, kEntries.size()> whole;
    for (int round = 0; round < Rounds(kRounds); ++round) {
        for (std::size_t menu = 0; menu < kEntries.size(); ++menu) {
            const Opening opening = bench.Open(menu);
            first[menu].push_back(opening.firstScreen);
            whole[menu].push_back(opening.whole);
        }
    }
    for (std::size_t menu = 0; menu < kEntries.size(); ++menu) {
        const std::string of = " of " + std::to_string(kEntries[menu]) + " entries";
        Tell("first screen" + of, LowQuarter(first[menu]), "ms");
        Tell("whole column" + of, LowQuarter(whole[menu]), "ms");
    }
    Report("first screen: 100,000 entries later than 10",
           LowQuarter(first[kLarge]) - LowQuarter(first[kTen]), 60, "ms");
    Report("whole column and item list of 100,000", LowQuarter(whole[kLarge]), 1000, "ms");
    const auto more = static_cast<double>(kEntries[kLarge] / kEntries[kThousand]);
    Report("whole column, an entry: 100,000 entries / 1,000",
           LowQuarter(whole[kLarge]) / LowQuarter(whole[kThousand]) / more, 1.2, "times");
}

// One of the costs in both menus, round by round.
struct Comparison {
    const char* what;
    std::vector<double> Costs::*cost;
    std::vector<double> hundred;
    std::vector<double> large;
    std::vector<double> ratio;
};

void ReportCosts(BenchWindow& bench)
{
    Comparison comparisons[] = {{"painting a screen", &Costs::paint, {}, {}, {}},
                                {"scrolling a step", &Costs::scroll, {}, {}, {}},
                                {"pointing at an entry", &Costs::point, {}, {}, {}}};
    for (int round = 0; round < Rounds(kRounds); ++round) {
        bench.Open(kHundred);
        const Costs hundred = Measure(bench);
        bench.Open(kLarge);
        const Costs large = Measure(bench);
        for (Comparison& each : comparisons) {
            each.hundred.push_back(LowQuarter(hundred.*each.cost));
            each.large.push_back(LowQuarter(large.*each.cost));
            each.ratio.push_back(each.large.back() / each.hundred.back());
        }
    }
    for (const Comparison& each : comparisons) {
        const std::string what = each.what;
        Tell(what + " with 100 entries", Median(each.hundred) * 1000, "us");
        Tell(what + " with 100,000 entries", Median(each.large) * 1000, "us");
        Report(what + ": 100,000 entries / 100", Median(each.ratio), 1.5, "times");
    }
}

} // namespace

int main()
{
    BenchWindow bench("column", {kEntries.begin(), kEntries.end()});
    ReportMemoryAndHandles(bench);
    ReportOpening(bench);
    ReportCosts(bench);
}
