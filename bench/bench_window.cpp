#include "bench_window.h"

#include "sample_menu.h"

#include <commctrl.h>

#include <cstdio>
#include <cstdlib>

namespace nv::bench
{

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

BenchWindow::BenchWindow(const std::string& folder, std::vector<std::size_t> entries,
                         std::vector<std::string> targets)
    : form_(MakeForm(ProgramFolder() + "\\" + folder, entries, targets))
{
    SetUpProcess();
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_WIN95_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    if (!form_.StartUp("", SW_SHOWNORMAL)) {
        std::fprintf(stderr, "no window\n");
        std::exit(1);
    }
    SetWindowSubclass(View(), WatchPaint, 1, reinterpret_cast<DWORD_PTR>(this));
    Settle();
}

Form1& BenchWindow::MakeForm(const std::string& folder, const std::vector<std::size_t>& entries,
                             const std::vector<std::string>& targets)
{
    CreateDirectoryA(folder.c_str(), nullptr);
    CreateDirectoryA((folder + "\\menus").c_str(), nullptr);
    // The main window only looks whether it is there.
    std::fclose(std::fopen((folder + "\\NVSub.exe").c_str(), "wb"));
    std::vector<std::string> menus;
    for (const std::size_t count : entries) {
        menus.push_back(folder + "\\menus\\" + std::to_string(count) + ".nvm");
        fileSizes_.push_back(WriteMenu(menus.back(), count));
    }
    menus.insert(menus.end(), targets.begin(), targets.end());
    WriteMenu(folder + "\\Home.nvm", 10, menus);
    return ownForm_.emplace(pump_, folder, Form1::Version{1, 0, 0}, "");
}

bool BenchWindow::FillsView()
{
    const auto& rows = Pane().Column().Rows();
    return !form_.Document().Loading() ||
           (!rows.empty() && Pane().AreaOf(static_cast<std::uint32_t>(rows.size() - 1)).top >
                                 Pane().ViewSize().height);
}

LRESULT CALLBACK BenchWindow::WatchPaint(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR, DWORD_PTR bench)
{
    auto& self = *reinterpret_cast<BenchWindow*>(bench);
    const bool full = message == WM_PAINT && self.painted_ == 0 && self.FillsView();
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    if (full) {
        GdiFlush();
        self.painted_ = Milliseconds();
    }
    return result;
}

Opening BenchWindow::Open(std::size_t menu)
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
    form_.View().EntryClick(static_cast<std::uint32_t>(menu));
    const double whole = Milliseconds() - start;
    MSG message = {};
    while (painted_ == 0 && GetMessageA(&message, nullptr, 0, 0) > 0) {
        DispatchMessageA(&message);
    }
    const double firstScreen = painted_ - start;
    Settle();
    return {firstScreen, whole};
}

void BenchWindow::Settle()
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

void BenchWindow::Paint()
{
    RedrawWindow(form_.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

} // namespace nv::bench
