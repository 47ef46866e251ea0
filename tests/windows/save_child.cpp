// Saves one of two menus after the other to the path given, until it is killed.
#include "save_child.h"

#include "docs/safe_save.h"
#include "win32/win_files.h"

int main(int count, char** arguments)
{
    if (count != 2) {
        return 1;
    }
    nv::WinFiles files;
    for (bool first = true;; first = !first) {
        nv::SafeSave save(files, arguments[1]);
        if (save.Begin() != 0 || save.Finish(nv::SavedMenu(first)) != 0) {
            return 2;
        }
    }
}
