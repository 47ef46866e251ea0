#include "win32/dropped_files.h"

namespace nv
{

DroppedFiles TakeDroppedFiles(HWND window, HDROP drop)
{
    DroppedFiles dropped = {};
    DragQueryPoint(drop, &dropped.at);
    ClientToScreen(window, &dropped.at);
    const UINT count = DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT index = 0; index < count; ++index) {
        std::string path(DragQueryFileA(drop, index, nullptr, 0) + 1, '\0');
        path.resize(DragQueryFileA(drop, index, path.data(), static_cast<UINT>(path.size())));
        dropped.paths.push_back(std::move(path));
    }
    DragFinish(drop);
    return dropped;
}

} // namespace nv
