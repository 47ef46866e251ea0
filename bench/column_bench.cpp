// column_bench: opens, paints, scrolls and points at menus of 10, 100 and 100,000 entries in a main
// window of the program's own, in this process.
#include "figures.h"
#include "mainwindow/form1.h"
#include "sample_menu.h"
#include "win32/process.h"

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <psapi.h>

namespace
{

using namespace nv;
using bench::LowQuarter;
using bench::Median;
using bench::Report;
using bench::Tell;

constexpr int kRounds = 9;
constexpr std::size_t kEntries = 100000;

double Milliseconds()
{
    LARGE_INTEGER now = {};
    LARGE_INTEGER frequency = {};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(now.QuadPart) * 1000 / static_cast<double>(frequency.QuadPart);
}

double TimeOf(const std::function<void()>& work)
{
    const double start = Milliseconds();
    work();
    return Milliseconds() - start;
}

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

struct Opening {
    double firstScreen; // milliseconds until the first rows that fill the view were painted
    double whole;       // ... until the column and the item list stand
};

// The main window on a folder of its own, with a home menu that leads to the menus to be opened.
class Bench
{
public:
    Bench();
    // Back to the home menu, then the menu of its entry.
    Opening Open(std::uint32_t homeEntry);
    // Lets the program do what waits.
    void Settle();

    MenuPane& Pane() { return form_.View().Pane(); }
    HWND View() { return form_.View().Handle(); }
    // Paints what is invalid now.
    void Paint() { UpdateWindow(View()); }
    // One message of the view's scroll bar, with all that follows from it.
    void Scroll(WPARAM request);
    void PointAt(int y) { SendMessageA(View(), WM_MOUSEMOVE, 0, MAKELPARAM(100, y)); }
    std::size_t FileSize() const { return fileSize_; }

private:
    static LRESULT CALLBACK WatchPaint(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR, DWORD_PTR bench);
    bool FillsView();

    std::size_t fileSize_ = 0;
    MessagePump pump_;
    std::optional<Form1> ownForm_;
    Form1& form_;
    double painted_ = 0; // when the first full screen was, 0: not yet

    static Form1& MakeForm(Bench& bench);
};

Form1& Bench::MakeForm(Bench& bench)
{
    const std::string folder = ProgramFolder() + "\\column";
    CreateDirectoryA(folder.c_str(), nullptr);
    CreateDirectoryA((folder + "\\menus").c_str(), nullptr);
    // The main window only looks whether it is there.
    std::fclose(std::fopen((folder + "\\NVSub.exe").c_str(), "wb"));
    const std::vector<std::string> menus = {folder + "\\menus\\10.nvm", folder + "\\menus\\100.nvm",
                                            folder + "\\menus\\100000.nvm"};
    bench::WriteMenu(folder + "\\Home.nvm", 10, menus);
    bench::WriteMenu(menus[0], 10);
    bench::WriteMenu(menus[1], 100);
    bench.fileSize_ = bench::WriteMenu(menus[2], kEntries);
    return bench.ownForm_.emplace(bench.pump_, folder, Form1::Version{1, 0, 0});
}

Bench::Bench() : form_(MakeForm(*this))
{
    if (!form_.StartUp("", SW_SHOWNORMAL)) {
        std::fprintf(stderr, "column_bench: no window\n");
        std::exit(1);
    }
    SetWindowSubclass(View(), WatchPaint, 1, reinterpret_cast<DWORD_PTR>(this));
    Settle();
}

bool Bench::FillsView()
{
    const auto& rows = Pane().Column().Rows();
    return !form_.Document().Loading() ||
           (!rows.empty() && Pane().AreaOf(static_cast<std::uint32_t>(rows.size() - 1)).top >
                                 Pane().ViewSize().height);
}

LRESULT CALLBACK Bench::WatchPaint(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                   UINT_PTR, DWORD_PTR bench)
{
    auto& self = *reinterpret_cast<Bench*>(bench);
    const bool full = message == WM_PAINT && self.painted_ == 0 && self.FillsView();
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    if (full) {
        GdiFlush();
        self.painted_ = Milliseconds();
    }
    return result;
}

Opening Bench::Open(std::uint32_t homeEntry)
{
    MSG home = {};
    home.hwnd = View();
    home.message = WM_SYSKEYDOWN;
    home.wParam = VK_HOME;
    home.lParam = static_cast<LPARAM>(KF_ALTDOWN) << 16;
    pump_.Filter(home);
    Settle();

    painted_ = 0;
    const double start = Milliseconds();
    form_.View().EntryClick(homeEntry);
    const double whole = Milliseconds() - start;
    MSG message = {};
    while (painted_ == 0 && GetMessageA(&message, nullptr, 0, 0) > 0) {
        DispatchMessageA(&message);
    }
    const double firstScreen = painted_ - start;
    Settle();
    return {firstScreen, whole};
}

void Bench::Settle()
{
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < 300) {
        MSG message = {};
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageA(&message);
        }
        Sleep(1);
    }
}

void Bench::Scroll(WPARAM request)
{
    SendMessageA(View(), WM_VSCROLL, request, 0);
    MSG message = {};
    while (PeekMessageA(&message, View(), WM_APP, 0xBFFF, PM_REMOVE)) {
        DispatchMessageA(&message);
    }
    Paint();
}

// What a user does with an open menu, in milliseconds for each time.
struct Costs {
    std::vector<double> paint;
    std::vector<double> scroll;
    std::vector<double> point;
};

Costs Measure(Bench& bench)
{
    Costs costs;
    bench.Pane().ScrollBy(bench.Pane().Scroll().Maximum() / 2);
    bench.Settle();
    for (int turn = 0; turn < 20; ++turn) {
        InvalidateRect(bench.View(), nullptr, FALSE);
        costs.paint.push_back(TimeOf([&] { bench.Paint(); }));
    }
    for (int turn = 0; turn < 200; ++turn) {
        costs.point.push_back(TimeOf([&] { bench.PointAt(10 + turn * 53 % 300); }));
    }
    bench.Pane().ScrollBy(-bench.Pane().Scroll().Maximum());
    bench.Settle();
    // The short menu comes to its end, and then turns.
    WPARAM direction = SB_LINEDOWN;
    for (int turn = 0; turn < 30; ++turn) {
        const int before = bench.Pane().Scroll().Value();
        const double time = TimeOf([&] { bench.Scroll(direction); });
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

void ReportMemoryAndWindows(Bench& bench)
{
    bench.Open(0);
    const Memory small = UsedMemory();
    const int windows = Windows();
    bench.Open(2);
    const Memory large = UsedMemory();
    const auto text = static_cast<double>(bench.FileSize());
    const auto entries = static_cast<double>(kEntries);
    Tell("memory an entry beyond its text, own", (large.own - small.own - text) / entries, "bytes");
    Report("memory an entry beyond its text (in RAM)", (large.inRam - small.inRam - text) / entries,
           1024, "bytes");
    Tell("windows with 10 entries", windows, "");
    Report("windows more with 100,000 entries than with 10", Windows() - windows, 0, "windows");
}

void ReportOpening(Bench& bench)
{
    std::vector<double> smallFirst;
    std::vector<double> largeFirst;
    std::vector<double> whole;
    for (int round = 0; round < kRounds; ++round) {
        smallFirst.push_back(bench.Open(0).firstScreen);
        const Opening large = bench.Open(2);
        largeFirst.push_back(large.firstScreen);
        whole.push_back(large.whole);
    }
    Tell("first screen of 10 entries", LowQuarter(smallFirst), "ms");
    Tell("first screen of 100,000 entries", LowQuarter(largeFirst), "ms");
    Report("first screen: 100,000 entries later than 10",
           LowQuarter(largeFirst) - LowQuarter(smallFirst), 60, "ms");
    Report("whole column and item list of 100,000", LowQuarter(whole), 1000, "ms");
}

// One of the costs in both menus, round by round.
struct Comparison {
    const char* what;
    std::vector<double> Costs::*cost;
    std::vector<double> hundred;
    std::vector<double> large;
    std::vector<double> ratio;
};

void ReportCosts(Bench& bench)
{
    Comparison comparisons[] = {{"painting a screen", &Costs::paint, {}, {}, {}},
                                {"scrolling a step", &Costs::scroll, {}, {}, {}},
                                {"pointing at an entry", &Costs::point, {}, {}, {}}};
    for (int round = 0; round < kRounds; ++round) {
        bench.Open(1);
        const Costs hundred = Measure(bench);
        bench.Open(2);
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
    const ProcessSetup setup;
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    Bench bench;
    ReportMemoryAndWindows(bench);
    ReportOpening(bench);
    ReportCosts(bench);
}
