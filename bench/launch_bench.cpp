// launch_bench: from the click on a link until the program that it names runs, and from a bare
// ShellExecute of the same program, by turns.
#include "bench_window.h"
#include "figures.h"
#include "win32/process.h"

#include <shellapi.h>

#include <cstdio>
#include <cstdlib>

namespace
{

using namespace nv::bench;

constexpr int kRounds = 41;
constexpr DWORD kLongest = 30000;  // milliseconds until a wait is given up
constexpr std::uint32_t kLink = 1; // in the home menu, after the one to the only menu

void Need(bool done, const char* what)
{
    if (!done) {
        std::fprintf(stderr, "launch_bench: failed: %s\n", what);
        std::exit(1);
    }
}

// Milliseconds from start until the started program says that it runs; the window lives meanwhile.
double UntilItRuns(HANDLE runs, const std::function<void()>& start)
{
    const double began = Milliseconds();
    start();
    while (MsgWaitForMultipleObjects(1, &runs, FALSE, kLongest, QS_ALLINPUT) != WAIT_OBJECT_0) {
        MSG message = {};
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageA(&message);
        }
        Need(Milliseconds() - began < kLongest, "waiting for the program");
    }
    return Milliseconds() - began;
}

// A click in the middle of the link.
void Click(BenchWindow& bench)
{
    const nv::TwipRect area = bench.Pane().AreaOf(kLink);
    RECT view = {};
    GetClientRect(bench.View(), &view);
    const nv::Twips middle = area.top + area.height / 2;
    const auto y = static_cast<int>(middle / bench.Pane().ViewSize().height *
                                    static_cast<nv::Twips>(view.bottom));
    for (const UINT message :
         std::initializer_list<UINT>{WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP}) {
        PostMessageA(bench.View(), message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0,
                     MAKELPARAM(100, y));
    }
}

} // namespace

int main()
{
    const std::string program = nv::ProgramFolder() + "\\launched.exe";
    const HANDLE runs = CreateEventA(nullptr, FALSE, FALSE, "NavrixLaunched");
    Need(runs != nullptr, "making the event");
    BenchWindow bench("launch", {10}, {program});
    std::vector<double> click;
    std::vector<double> bare;
    std::vector<double> ratio;
    for (int round = 0; round < Rounds(kRounds); ++round) {
        bare.push_back(UntilItRuns(runs, [&] {
            ShellExecuteA(nullptr, "open", program.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
        }));
        bench.Settle();
        click.push_back(UntilItRuns(runs, [&] { Click(bench); }));
        bench.Settle();
        ratio.push_back(click.back() / bare.back());
    }
    Tell("a bare ShellExecute until the program runs", Median(bare), "ms");
    Tell("a click until the program runs", Median(click), "ms");
    Report("click to running program / bare ShellExecute", Median(ratio), 1.2, "times");
}
