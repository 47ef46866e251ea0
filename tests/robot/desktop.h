// What is on the screen, and asking windows that may hang.
#pragma once

#include "e2e/driver.h"

#include <string>
#include <vector>

namespace nv::robot
{

constexpr DWORD kPatience = 15000; // milliseconds in which every window answers

// SendMessageA to a window that may be gone or hang; 0 then.
LRESULT Tell(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
void SetText(HWND window, const std::string& text);

// Of the process that owns main, the topmost first; shown or not.
std::vector<HWND> TopWindowsBeside(HWND main);
// What takes the input of that process instead of its main window: a message box, a dialog, a
// picker, a menu. Null: nothing.
HWND ModalOver(HWND main);
// Whether a dialog takes input although a message box waits for an answer.
bool BoxIsNotAlone(HWND main);

enum class ModalKind { none, menu, box, fileNames, fonts, dialog };
ModalKind KindOf(HWND modal);
// Has a box answered with No, else OK; cancels what else it is.
void Dismiss(HWND modal);

// Those that take input; of one class or of all, and with one text or any.
std::vector<HWND> EnabledChildren(HWND parent, const std::string& className = "",
                                  const std::string& text = "");

} // namespace nv::robot
