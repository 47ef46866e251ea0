#include "win32/help_viewer.h"

namespace nv
{

SystemError HelpViewer::ShowKeyword(HWND owner, const std::string& file, const std::string& keyword)
{
    file_ = file;
    SetLastError(ERROR_SUCCESS);
    if (WinHelpA(owner, file.c_str(), HELP_KEY, reinterpret_cast<ULONG_PTR>(keyword.c_str()))) {
        return ERROR_SUCCESS;
    }
    const DWORD error = GetLastError();
    // A viewer that refuses gives no reason.
    return error != ERROR_SUCCESS ? error : ERROR_CAN_NOT_COMPLETE;
}

void HelpViewer::Quit(HWND owner)
{
    if (!file_.empty()) {
        WinHelpA(owner, file_.c_str(), HELP_QUIT, 0);
        file_.clear();
    }
}

} // namespace nv
