#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

namespace nv
{

struct DroppedFiles {
    POINT at; // pixels of the screen
    std::vector<std::string> paths;
};

// What WM_DROPFILES brought to window; drop is released.
DroppedFiles TakeDroppedFiles(HWND window, HDROP drop);

} // namespace nv
