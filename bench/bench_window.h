// A main window of the program's own, in this process, and the clock that is held against it.
#pragma once

#include "mainwindow/form1.h"
#include "win32/process.h"

#include <windows.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace nv::bench
{

double Milliseconds();
// How many of them work takes.
double TimeOf(const std::function<void()>& work);

struct Opening {
    double firstScreen; // milliseconds until the first rows that fill the view were painted
    double whole;       // ... until the column and the item list stand
};

// The main window on a folder of its own, with a home menu that leads to the menus to be opened.
class BenchWindow
{
public:
    // folder: its name, beside the benchmark. entries: of each menu. targets: further commands that
    // the home menu has links for, after those to the menus. Ends the process when there is no
    // window.
    BenchWindow(const std::string& folder, std::vector<std::size_t> entries,
                std::vector<std::string> targets = {});

    // Back to the home menu, then the menu of that index.
    Opening Open(std::size_t menu);
    // Lets the program do what waits.
    void Settle();
    // The file's size.
    std::size_t FileSize(std::size_t menu) const { return fileSizes_[menu]; }

    Form1& Form() { return form_; }
    MenuPane& Pane() { return form_.View().Pane(); }
    HWND View() { return form_.View().Handle(); }
    // Paints what is invalid now, in all windows.
    void Paint();

private:
    static LRESULT CALLBACK WatchPaint(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR, DWORD_PTR bench);
    Form1& MakeForm(const std::string& folder, const std::vector<std::size_t>& entries,
                    const std::vector<std::string>& targets);
    bool FillsView();

    std::vector<std::size_t> fileSizes_;
    MessagePump pump_;
    std::optional<Form1> ownForm_;
    Form1& form_;
    double painted_ = 0; // when the first full screen was, 0: not yet
};

} // namespace nv::bench
