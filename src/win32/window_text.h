// Texts of windows.
#pragma once

#include <windows.h>

#include <string>

namespace nv
{

// The whole text of a window.
std::string TextOf(HWND window);
// Sets it, unless it is that already.
void SetTextOf(HWND window, const std::string& text);

struct TextAround {
    std::string before;
    std::string after;
};
// What stands in a box before and behind its selection.
TextAround TextAroundSelection(HWND box);

} // namespace nv
