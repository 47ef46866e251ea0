// start_bench NVMENU_EXE: the time from CreateProcess to a window on the screen, of the program
// with a menu of 50 entries and of the system's notepad, started by turns.
//
// "On the screen" means the same for both: the window is visible, its thread answers a message, and
// the screen shows the picture that stands there in the end. Left out of the picture is what moves
// or comes later: notepad's caret, and the icons beside the entries.
#include "e2e/picture.h"
#include "figures.h"
#include "sample_menu.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace
{

constexpr int kRounds = 21;
constexpr DWORD kLongest = 30000; // milliseconds until a wait is given up

[[noreturn]] void Fail(const char* what)
{
    std::fprintf(stderr, "start_bench: %s\n", what);
    std::exit(1);
}

double Milliseconds()
{
    LARGE_INTEGER now = {};
    LARGE_INTEGER frequency = {};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(now.QuadPart) * 1000 / static_cast<double>(frequency.QuadPart);
}

// What a user would see there, of whatever process.
std::vector<DWORD> ScreenPart(const RECT& area)
{
    const HDC screen = GetDC(nullptr);
    auto pixels = nv::e2e::PixelsOf(screen, area);
    ReleaseDC(nullptr, screen);
    return pixels;
}

// The part of notepad's window that tells whether it stands: caption, menu bar and the paper right
// of the caret.
RECT NotepadPart(HWND window)
{
    RECT part = {};
    GetWindowRect(window, &part);
    part.left += 40;
    return part;
}

// The captions of the entries.
RECT MenuPart(HWND window)
{
    RECT part = {};
    if (const HWND view = FindWindowExA(window, nullptr, "NavrixMenuView", nullptr)) {
        GetWindowRect(view, &part);
        part.left += 64; // the icons
    }
    return part;
}

struct Program {
    const char* name;
    std::string commandLine;
    const char* windowClass;
    RECT (*part)(HWND);
    std::vector<DWORD> picture; // what its part shows in the end
    std::vector<double> visible;
    std::vector<double> onScreen;
};

class Run
{
public:
    explicit Run(Program& program) : program_(program), start_(Milliseconds())
    {
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        std::string commandLine = program.commandLine;
        if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                            nullptr, &startup, &process_)) {
            Fail(program.name);
        }
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run()
    {
        PostMessageA(window_, WM_CLOSE, 0, 0);
        if (WaitForSingleObject(process_.hProcess, kLongest) != WAIT_OBJECT_0) {
            Fail("a program did not end");
        }
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }

    // Milliseconds from the start until the window is visible.
    double UntilVisible()
    {
        WaitFor([this] {
            window_ = FindWindowA(program_.windowClass, nullptr);
            return window_ != nullptr && IsWindowVisible(window_);
        });
        return Milliseconds() - start_;
    }
    // ... until it is on the screen; needs the program's picture.
    double UntilOnScreen()
    {
        WaitFor([this] { return Answers() && LastLineStands() && Part() == program_.picture; });
        return Milliseconds() - start_;
    }
    // The picture that stands when nothing has changed for a while.
    std::vector<DWORD> LastPicture()
    {
        std::vector<DWORD> last;
        for (int same = 0; same < 20;) {
            Sleep(50);
            auto now = Part();
            same = !now.empty() && now == last ? same + 1 : 0;
            last = std::move(now);
        }
        return last;
    }

private:
    static void WaitFor(const std::function<bool()>& reached)
    {
        const DWORD start = GetTickCount();
        while (!reached()) {
            if (GetTickCount() - start > kLongest) {
                Fail("waited in vain");
            }
            Sleep(1);
        }
    }
    bool Answers() const
    {
        DWORD_PTR result = 0;
        return SendMessageTimeoutA(window_, WM_NULL, 0, 0, SMTO_NORMAL, kLongest, &result) != 0;
    }
    // To look at the whole picture every millisecond would keep the screen from being painted.
    bool LastLineStands() const
    {
        RECT line = program_.part(window_);
        const auto width = static_cast<std::size_t>(line.right - line.left);
        const auto& picture = program_.picture;
        if (width == 0 || picture.size() < width) {
            return true;
        }
        std::size_t first = picture.size() - width; // of the lowest line that shows something
        while (first >= width && std::count(picture.data() + first, picture.data() + first + width,
                                            picture[first]) == static_cast<std::ptrdiff_t>(width)) {
            first -= width;
        }
        line.top += static_cast<LONG>(first / width);
        line.bottom = line.top + 1;
        return std::ranges::equal(ScreenPart(line), std::span(picture).subspan(first, width));
    }
    std::vector<DWORD> Part() const { return ScreenPart(program_.part(window_)); }

    Program& program_;
    double start_;
    PROCESS_INFORMATION process_ = {};
    HWND window_ = nullptr;
};

// Looks at a program's picture, once it has settled, and that there is something on it.
void TakePicture(Program& program)
{
    Run run(program);
    run.UntilVisible();
    program.picture = run.LastPicture();
    const auto plain = std::count(program.picture.begin(), program.picture.end(),
                                  program.picture.empty() ? 0 : program.picture.front());
    const auto drawn = static_cast<std::ptrdiff_t>(program.picture.size()) - plain;
    if (drawn < 500) {
        Fail("the window shows nothing");
    }
    std::printf("  %s: %zu pixels looked at\n", program.name, program.picture.size());
}

} // namespace

int main(int count, char** arguments)
{
    using namespace nv::bench;
    if (count != 2) {
        return 2;
    }
    WriteMenu("fifty.nvm", 50);
    char menu[MAX_PATH] = {};
    GetFullPathNameA("fifty.nvm", sizeof menu, menu, nullptr);
    const std::string nvmenu = std::string("\"") + arguments[1] + "\" " + menu;
    Program programs[] = {{"notepad", "notepad.exe", "Notepad", NotepadPart, {}, {}, {}},
                          {"NVMenu", nvmenu, "NavrixForm1", MenuPart, {}, {}, {}}};
    SetCursorPos(0, 0); // an entry below it would change its look when the system tells of it
    for (Program& program : programs) {
        { // writes where its window stood, so that all later ones stand there
            Run run(program);
            run.UntilVisible();
        }
        TakePicture(program);
    }
    for (int round = 0; round < Rounds(kRounds); ++round) {
        for (Program& program : programs) {
            Run run(program);
            program.visible.push_back(run.UntilVisible());
            program.onScreen.push_back(run.UntilOnScreen());
        }
    }
    for (const Program& program : programs) {
        const std::string name = program.name;
        Tell(name + " visible", Median(program.visible), "ms");
        Tell(name + " on screen", Median(program.onScreen), "ms");
        Tell(name + " on screen, fastest",
             *std::min_element(program.onScreen.begin(), program.onScreen.end()), "ms");
    }
    const auto ratio = [&own = programs[1].onScreen](std::vector<double> rounds) {
        for (std::size_t round = 0; round < rounds.size(); ++round) {
            rounds[round] = own[round] / rounds[round];
        }
        return Median(rounds);
    };
    Report("start: on screen / notepad on screen", ratio(programs[0].onScreen), 1.2, "times");
    Report("start: on screen / notepad only visible", ratio(programs[0].visible), 1.2, "times");
}
