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

// The selection of a box, in its own units; where begin and end are the same, the caret.
struct BoxSelection {
    DWORD begin;
    DWORD end;
    bool operator==(const BoxSelection&) const = default;
};
BoxSelection SelectionOf(HWND box);
void SetSelection(HWND box, const BoxSelection& selection);
// Selects the whole text, of which the beginning stays in view.
void SelectAll(HWND box);

struct TextAround {
    std::string before;
    std::string after;
};
// What stands in a box before and behind its selection.
TextAround TextAroundSelection(HWND box);

} // namespace nv
