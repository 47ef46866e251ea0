#include "e2e/driver.h"

#include "e2e/picture.h"

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace nv::e2e
{

namespace
{

constexpr char kMainClass[] = "NavrixForm1";
constexpr char kBoxClass[] = "#32770";
constexpr int kBoxText = 0xFFFF;
constexpr int kBoxIcon = 0x440; // the control ids that the system gives them

BOOL CALLBACK Add(HWND window, LPARAM list)
{
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::string WithoutMnemonic(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), '&'), text.end());
    return text;
}

HWND ChildOf(HWND parent, const std::string& className, const std::string& text)
{
    const std::vector<HWND> all = ChildrenOf(parent);
    const auto found = std::find_if(all.begin(), all.end(), [&](HWND child) {
        return ClassOf(child) == className && WithoutMnemonic(TextOf(child)) == text;
    });
    return found != all.end() ? *found : nullptr;
}

// Icon handles mean nothing in another process: what stands on the screen is compared with each
// of the system's icons.
BoxIcon IconOf(HWND control)
{
    if (control == nullptr || SendMessageA(control, STM_GETICON, 0, 0) == 0) {
        return BoxIcon::none;
    }
    constexpr int kSize = 32;
    const Picture shown(control);
    const std::pair<BoxIcon, LPCSTR> kinds[] = {{BoxIcon::stop, IDI_HAND},
                                                {BoxIcon::question, IDI_QUESTION},
                                                {BoxIcon::exclamation, IDI_EXCLAMATION},
                                                {BoxIcon::information, IDI_ASTERISK}};
    for (const auto& [kind, name] : kinds) {
        const HICON icon = LoadIconA(nullptr, name);
        const Picture drawn({kSize, kSize}, [icon](HDC dc) {
            DrawIconEx(dc, 0, 0, icon, kSize, kSize, 0, nullptr, DI_NORMAL);
        });
        if (shown.Contains(drawn)) {
            return kind;
        }
    }
    return BoxIcon::unknown;
}

void Send(INPUT input)
{
    SendInput(1, &input, sizeof input);
}

// Stops the thread that has the keyboard, unless it is of this program, so that it takes what is
// done meanwhile all at once. The display reports late that a window has got the keyboard or the
// pointer; Wine then takes every key for released that the display's own keyboard does not hold,
// even Control in the midst of a Ctrl+E, or ends a click half-way.
class Stopped
{
public:
    Stopped()
    {
        DWORD process = 0;
        const DWORD thread = GetWindowThreadProcessId(GetForegroundWindow(), &process);
        if (process != GetCurrentProcessId()) {
            thread_ = OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT, FALSE, thread);
        }
        if (thread_ != nullptr) {
            SuspendThread(thread_);
            CONTEXT context = {};
            context.ContextFlags = CONTEXT_CONTROL;
            GetThreadContext(thread_, &context); // waits until it has stopped, the above does not
        }
    }
    Stopped(const Stopped&) = delete;
    Stopped& operator=(const Stopped&) = delete;
    ~Stopped()
    {
        if (thread_ != nullptr) {
            ResumeThread(thread_);
            CloseHandle(thread_);
        }
    }

private:
    HANDLE thread_ = nullptr;
};

} // namespace

bool Until(const std::function<bool()>& condition, DWORD within)
{
    const ULONGLONG start = GetTickCount64();
    while (!condition()) {
        if (GetTickCount64() - start > within) {
            return false;
        }
        Sleep(5);
    }
    return true;
}

// A program

Program::Program(const std::string& command)
{
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWNORMAL;
    std::string line = command;
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                        nullptr, &startup, &process_)) {
        throw std::runtime_error("cannot start " + command);
    }
    TakeIntoJob();
    ResumeThread(process_.hThread);
}

Program::Program()
{
    HWND window = nullptr;
    Until([&] { return (window = FindWindowA(kMainClass, nullptr)) != nullptr; });
    GetWindowThreadProcessId(window, &process_.dwProcessId);
    process_.hProcess = OpenProcess(PROCESS_ALL_ACCESS, FALSE, process_.dwProcessId);
    if (process_.hProcess == nullptr) {
        throw std::runtime_error("no program has started");
    }
    TakeIntoJob();
}

void Program::TakeIntoJob()
{
    job_ = CreateJobObjectA(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job_, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job_, process_.hProcess);
}

Program::~Program()
{
    TerminateProcess(process_.hProcess, 99);
    WaitForSingleObject(process_.hProcess, kDeadline);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
    CloseHandle(job_);
}

bool Program::Running() const
{
    return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

std::optional<DWORD> Program::ExitCode(DWORD within) const
{
    DWORD code = 0;
    if (WaitForSingleObject(process_.hProcess, within) != WAIT_OBJECT_0 ||
        !GetExitCodeProcess(process_.hProcess, &code)) {
        return std::nullopt;
    }
    return code;
}

std::vector<HWND> Program::TopWindows() const
{
    std::vector<HWND> windows = TopWindowsOf(process_.dwProcessId);
    std::erase_if(windows, [](HWND window) { return !IsWindowVisible(window); });
    return windows;
}

HWND Program::WindowNow() const
{
    for (const HWND window : TopWindows()) {
        if (ClassOf(window) == kMainClass) {
            return window;
        }
    }
    return nullptr;
}

HWND Program::Window()
{
    HWND window = nullptr;
    Until([&] { return (window = WindowNow()) != nullptr || !Running(); });
    return window;
}

std::string Program::Title() const
{
    return TextOf(WindowNow());
}

bool Program::WaitForTitle(const std::string& title, DWORD within) const
{
    return Until([&] { return Title() == title; }, within);
}

HWND Program::View()
{
    return FindWindowExA(Window(), nullptr, "NavrixMenuView", nullptr);
}

HWND Program::Panel()
{
    return FindWindowExA(Window(), nullptr, "NavrixEditPanel", nullptr);
}

HWND Program::Control(int id)
{
    return GetDlgItem(Panel(), id);
}

HWND Program::Button(const std::string& caption)
{
    return ChildOf(Window(), "KelButton", caption);
}

bool Program::Answers(DWORD within) const
{
    DWORD_PTR result = 0;
    const HWND window = WindowNow();
    return window != nullptr &&
           SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, within, &result) != 0;
}

std::string Program::Focus() const
{
    const HWND window = WindowNow();
    const HWND focus = window != nullptr ? FocusOf(window) : nullptr;
    if (focus == nullptr) {
        return {};
    }
    const std::string className = ClassOf(focus);
    return className == "KelButton" ? TextOf(focus) : className;
}

bool Program::WaitForFocus(const std::string& focus) const
{
    return Until([&] { return Focus() == focus; });
}

std::optional<Box> Program::BoxNow() const
{
    for (const HWND window : TopWindows()) {
        const HWND text = GetDlgItem(window, kBoxText);
        if (ClassOf(window) != kBoxClass || text == nullptr) {
            continue;
        }
        Box box;
        box.window = window;
        box.title = TextOf(window);
        box.text = TextOf(text);
        const HWND focus = FocusOf(window);
        for (const HWND child : ChildrenOf(window)) {
            if (ClassOf(child) == "Button" && IsWindowVisible(child)) {
                box.buttons.push_back(WithoutMnemonic(TextOf(child)));
                if (child == focus) {
                    box.defaultButton = box.buttons.back();
                }
            }
        }
        // Until it has the keyboard the box is still being made.
        if (!box.defaultButton.empty()) {
            return box;
        }
    }
    return std::nullopt;
}

std::optional<Box> Program::WaitForBox(DWORD within) const
{
    std::optional<Box> box;
    if (!Until([&] { return (box = BoxNow()).has_value() || !Running(); }, within) || !box) {
        return std::nullopt;
    }
    const HWND icon = GetDlgItem(box->window, kBoxIcon);
    // It may not be painted yet.
    Until([&] { return (box->icon = IconOf(icon)) != BoxIcon::unknown; }, 2000);
    return box;
}

bool Program::Answer(const Box& box, const std::string& button) const
{
    const HWND child = ChildOf(box.window, "Button", button);
    if (child == nullptr) {
        return false;
    }
    Click(CentreOf(child));
    return WaitUntilGone(box.window);
}

HWND Program::WaitForDialog(const std::string& title) const
{
    HWND found = nullptr;
    Until([&] {
        for (const HWND window : TopWindows()) {
            found = ClassOf(window) == kBoxClass && TextOf(window) == title ? window : found;
        }
        return found != nullptr || !Running();
    });
    return found;
}

HWND Program::PickFile(const std::string& title, const std::string& name) const
{
    constexpr int kFileName = 0x47c;
    const HWND picker = WaitForDialog(title);
    Until([&] {
        SetDlgItemTextA(picker, kFileName, name.c_str());
        return TextOf(GetDlgItem(picker, kFileName)) == name;
    });
    PostMessageA(picker, WM_COMMAND, name.empty() ? IDCANCEL : IDOK, 0);
    return picker;
}

std::optional<DWORD> Program::Close(DWORD within)
{
    for (const HWND window : TopWindows()) {
        if (ClassOf(window) == kBoxClass) {
            PostMessageA(window, WM_CLOSE, 0, 0);
            WaitUntilGone(window);
        }
    }
    PostMessageA(WindowNow(), WM_SYSCOMMAND, SC_CLOSE, 0);
    return ExitCode(within);
}

std::string Program::OnScreen() const
{
    if (!Running()) {
        return "the program has ended with code " + std::to_string(ExitCode(0).value_or(0)) + "\n";
    }
    std::string report = Answers(1000) ? "" : "the program does not answer\n";
    for (const HWND window : TopWindows()) {
        report += ClassOf(window) + " \"" + TextOf(window) + "\"\n";
        for (const HWND child : ChildrenOf(window)) {
            report += "    " + ClassOf(child) + " \"" + TextOf(child) + "\"" +
                      (IsWindowEnabled(child) ? "\n" : " (disabled)\n");
        }
    }
    return report + "focus: " + Focus() + "\n";
}

// Mouse and keyboard

// Each event carries its place: between two of them the program may still report a movement of
// the pointer that lies some time back, and takes the pointer there.
void SendMouse(POINT at, DWORD flags, DWORD data)
{
    constexpr LONG kWhole = 65536; // the width and the height of the screen
    const LONG width = GetSystemMetrics(SM_CXSCREEN);
    const LONG height = GetSystemMetrics(SM_CYSCREEN);
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = (at.x * kWhole + width - 1) / width;
    input.mi.dy = (at.y * kWhole + height - 1) / height;
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | flags;
    input.mi.mouseData = data;
    Send(input);
}

void Click(POINT at)
{
    const Stopped stopped;
    PressMouse(at);
    ReleaseMouse(at);
}

void TurnWheel(POINT at, int notches)
{
    SendMouse(at, MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA));
}

POINT CentreOf(HWND window)
{
    const RECT place = PlaceOf(window);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

void SendKey(WORD key, bool down)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
    const bool extended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_DELETE;
    input.ki.dwFlags =
        (down ? 0U : DWORD{KEYEVENTF_KEYUP}) | (extended ? DWORD{KEYEVENTF_EXTENDEDKEY} : 0U);
    Send(input);
}

void PressKey(WORD key, std::initializer_list<WORD> held)
{
    std::optional<Stopped> stopped;
    if (held.size() != 0) {
        stopped.emplace();
    }
    for (const WORD modifier : held) {
        SendKey(modifier, true);
    }
    SendKey(key, true);
    SendKey(key, false);
    for (const WORD modifier : held) {
        SendKey(modifier, false);
    }
}

void Type(const std::string& text)
{
    for (const char ch : text) {
        const SHORT key = VkKeyScanA(ch);
        const auto code = static_cast<WORD>(LOBYTE(key));
        if ((HIBYTE(key) & 1) != 0) {
            PressKey(code, {VK_SHIFT});
        } else {
            PressKey(code);
        }
    }
}

// The screen

std::optional<POINT> WaitForColor(HWND window, COLORREF color, DWORD within)
{
    std::optional<POINT> found;
    Until([&] { return (found = Picture(window).Find(color)).has_value(); }, within);
    if (found) {
        ClientToScreen(window, &*found);
    }
    return found;
}

std::vector<HWND> ChildrenOf(HWND parent)
{
    std::vector<HWND> children;
    EnumChildWindows(parent, Add, reinterpret_cast<LPARAM>(&children));
    return children;
}

std::vector<HWND> TopWindowsOf(DWORD process)
{
    std::vector<HWND> windows;
    EnumWindows(Add, reinterpret_cast<LPARAM>(&windows));
    std::erase_if(windows, [process](HWND window) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        return owner != process;
    });
    return windows;
}

HWND FocusOf(HWND window)
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) ? info.hwndFocus
                                                                              : nullptr;
}

std::string TextOf(HWND window)
{
    // Of a program that hangs nothing is to be had.
    char text[4096] = "";
    DWORD_PTR length = 0;
    if (window == nullptr ||
        SendMessageTimeoutA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text),
                            SMTO_NORMAL, 5000, &length) == 0) {
        return {};
    }
    return text;
}

bool WaitForText(HWND window, const std::string& text)
{
    return Until([&] { return TextOf(window) == text; });
}

bool WaitUntilGone(HWND window)
{
    return Until([&] { return !IsWindow(window); });
}

std::string ClassOf(HWND window)
{
    char name[256] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

RECT PlaceOf(HWND window)
{
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

} // namespace nv::e2e
