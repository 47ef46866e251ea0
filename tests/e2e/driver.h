// Drives the built program from outside, as a user would: mouse, keyboard, message boxes, and what
// stands on the screen. Everything that waits polls up to a deadline; nothing waits a fixed time.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace nv::e2e
{

constexpr DWORD kDeadline = 10000; // milliseconds; far more than anything takes

// Polls until condition holds; false when it did not in time.
bool Until(const std::function<bool()>& condition, DWORD within = kDeadline);

enum class BoxIcon { none, stop, question, exclamation, information, unknown };

struct Box {
    HWND window = nullptr;
    std::string title;
    std::string text;
    std::vector<std::string> buttons; // left to right, without "&"
    std::string defaultButton;
    BoxIcon icon = BoxIcon::none;
};

// One run of a program. Ends it at the latest when it goes, even if this process dies.
class Program
{
public:
    // command: the whole command line. Throws when it does not start.
    explicit Program(const std::string& command);
    // Takes over the program whose main window comes up, whoever started it. Throws when none does.
    Program();
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    bool Running() const;
    // Nothing when the program still runs after that time.
    std::optional<DWORD> ExitCode(DWORD within = kDeadline) const;

    // The main window when it is there and visible; waits for it. Null: it did not come.
    HWND Window();
    // The main window of this moment, or null.
    HWND WindowNow() const;
    std::string Title() const;
    bool WaitForTitle(const std::string& title, DWORD within = kDeadline) const;
    HWND View();
    // The edit panel, and the control in it with that number.
    HWND Panel();
    HWND Control(int id);
    HWND Button(const std::string& caption);
    // Whether the program's message loop answers soon.
    bool Answers(DWORD within = 5000) const;
    // The window with the keyboard: a button's caption, else the class; empty when none.
    std::string Focus() const;
    bool WaitForFocus(const std::string& focus) const;

    // The message box that is shown; waits for it. Nothing: none came.
    std::optional<Box> WaitForBox(DWORD within = kDeadline) const;
    std::optional<Box> BoxNow() const;
    // Presses the button of that name in the box and waits until the box is gone.
    bool Answer(const Box& box, const std::string& button) const;

    // The dialog of that title when it is shown; waits for it. Null: it did not come.
    HWND WaitForDialog(const std::string& title) const;
    // In the file picker of that title, when it is shown: enters name and, unless it is empty,
    // confirms it, else cancels. The picker, which may still be shown, or null.
    HWND PickFile(const std::string& title, const std::string& name) const;

    // Closes the main window as its close button does, and waits for the end. A dialog that is
    // shown is closed before.
    std::optional<DWORD> Close(DWORD within = kDeadline);
    // What the program shows; Stage prints it at the end of a test that failed.
    std::string OnScreen() const;

private:
    void TakeIntoJob();
    std::vector<HWND> TopWindows() const;

    PROCESS_INFORMATION process_ = {};
    HANDLE job_ = nullptr;
};

// The mouse and the keyboard. Points are pixels of the screen.
void SendMouse(POINT at, DWORD flags, DWORD data = 0); // as mouse_event takes them
inline void MoveMouse(POINT at)
{
    SendMouse(at, 0);
}
inline void PressMouse(POINT at, DWORD button = MOUSEEVENTF_LEFTDOWN)
{
    SendMouse(at, button);
}
inline void ReleaseMouse(POINT at, DWORD button = MOUSEEVENTF_LEFTUP)
{
    SendMouse(at, button);
}
void Click(POINT at);                  // while the program stands still
void TurnWheel(POINT at, int notches); // up is positive
POINT CentreOf(HWND window);
// Presses key and lets it go, while the others are held; with others, while the program stands
// still.
void PressKey(WORD key, std::initializer_list<WORD> held = {});
// One half of that.
void SendKey(WORD key, bool down);

// Presses the keys that write text: letters, digits and blanks; "\r" is Enter.
void Type(const std::string& text);

// Waits until a pixel of that colour shows in the window; its place on the screen.
std::optional<POINT> WaitForColor(HWND window, COLORREF color, DWORD within = kDeadline);

// All windows below parent.
std::vector<HWND> ChildrenOf(HWND parent);
// Of a process, the topmost first; shown or not.
std::vector<HWND> TopWindowsOf(DWORD process);
// The window with the keyboard among those of its thread.
HWND FocusOf(HWND window);
std::string TextOf(HWND window);
bool WaitForText(HWND window, const std::string& text);
bool WaitUntilGone(HWND window);
std::string ClassOf(HWND window);
RECT PlaceOf(HWND window);

} // namespace nv::e2e
