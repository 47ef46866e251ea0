#include "support/count_box.h"

#include "platform/ansi_text.h"
#include "support/trouble_ticket.h"
#include "win32/clipboard.h"

#include <commctrl.h>

#include <algorithm>
#include <new>

namespace nv
{

namespace
{

// What Ctrl makes of a letter key.
constexpr WPARAM Control(char letter)
{
    return static_cast<WPARAM>(letter - '@');
}

bool TakesKey(WPARAM character)
{
    for (const char letter : {'A', 'C', 'V', 'X', 'Z'}) {
        if (character == Control(letter)) {
            return true; // selects, copies, pastes, cuts, undoes
        }
    }
    return character < 0x80 && CountBoxTakes(static_cast<char>(character));
}

// Puts the first line on the clipboard in place of the selection, if it is all digits; blanks round
// them, as tables have them, do not count.
void PasteDigits(HWND box)
{
    const std::string all = TextOnClipboard(box).value_or("");
    const std::string text(Trim(std::string_view(all).substr(0, all.find_first_of("\r\n"))));
    const bool digits =
        std::all_of(text.begin(), text.end(), [](char ch) { return ch >= '0' && ch <= '9'; });
    if (text.empty() || !digits) {
        MessageBeep(MB_OK);
        return;
    }
    SendMessageA(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

LRESULT CALLBACK Procedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                           DWORD_PTR)
{
    switch (message) {
    case WM_CHAR:
        if (!TakesKey(wParam)) {
            MessageBeep(MB_OK);
            return 0;
        }
        break;
    case WM_KEYDOWN:
        if (wParam == VK_INSERT && GetKeyState(VK_SHIFT) < 0) {
            // Not every system's boxes send themselves this message for the key.
            return SendMessageA(box, WM_PASTE, 0, 0);
        }
        break;
    case WM_PASTE:
        try {
            PasteDigits(box);
        } catch (const std::bad_alloc&) {
            MessageBeep(MB_ICONHAND); // no exception may get into the platform
        }
        return 0;
    case WM_NCDESTROY:
        RemoveWindowSubclass(box, Procedure, id);
        break;
    default:
        break;
    }
    return DefSubclassProc(box, message, wParam, lParam);
}

} // namespace

void TakeDigitsOnly(HWND box)
{
    // Ignored: at worst the box takes more than digits, of which the ticket then tells.
    (void)SetWindowSubclass(box, Procedure, 0, 0);
}

} // namespace nv
