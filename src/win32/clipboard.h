// Plain text on the clipboard. While another program has the clipboard open, both calls wait for
// it, for half a second at most.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace nv
{

// Makes text, in the code page of the process, all that the clipboard holds. owner: a window of
// this thread. False: the system refuses, as it does while another program keeps the clipboard
// open; it then holds what it held, or nothing. Throws std::bad_alloc before it opens the
// clipboard.
bool PutOnClipboard(HWND owner, const std::string& text);

// The text on the clipboard; nothing: it holds none, or cannot be opened.
std::optional<std::string> TextOnClipboard(HWND owner);

} // namespace nv
