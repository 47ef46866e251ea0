#pragma once

#include "platform/files.h"

#include <windows.h>

#include <string>

namespace nv
{

// The platform's viewer of help files. It is a program of its own, which starts at the first
// request and stays until each window that asked has said that it is done.
class HelpViewer
{
public:
    // Has the viewer show what file has under keyword, for owner. 0: the viewer took the request;
    // what comes of it only the viewer tells. May re-enter.
    SystemError ShowKeyword(HWND owner, const std::string& file, const std::string& keyword);
    // owner is done with the viewer. Nothing happens when it never asked for anything.
    void Quit(HWND owner);

private:
    std::string file_; // of the last request
};

} // namespace nv
