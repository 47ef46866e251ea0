#include "win32/window_text.h"

namespace nv
{

namespace
{

// Boxes count positions in characters of the platform's own coding, texts come in the code page.
std::string FirstCharacters(const std::string& text, int count)
{
    const auto size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
    std::string first(text.size(), '\0');
    const int bytes = WideCharToMultiByte(CP_ACP, 0, wide.data(), count < length ? count : length,
                                          first.data(), size, nullptr, nullptr);
    first.resize(static_cast<std::size_t>(bytes));
    return first;
}

} // namespace

std::string TextOf(HWND window)
{
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

void SetTextOf(HWND window, const std::string& text)
{
    if (TextOf(window) == text) {
        return;
    }
    SetWindowTextA(window, text.c_str());
    if (GetFocus() == window) {
        // Who is writing there goes on at the end.
        const int end = GetWindowTextLengthA(window);
        SendMessageA(window, EM_SETSEL, static_cast<WPARAM>(end), end);
    }
}

BoxSelection SelectionOf(HWND box)
{
    BoxSelection selection = {};
    SendMessageA(box, EM_GETSEL, reinterpret_cast<WPARAM>(&selection.begin),
                 reinterpret_cast<LPARAM>(&selection.end));
    return selection;
}

void SetSelection(HWND box, const BoxSelection& selection)
{
    SendMessageA(box, EM_SETSEL, selection.begin, static_cast<LPARAM>(selection.end));
}

void SelectAll(HWND box)
{
    // From the end on: where a selection ends, the caret stands.
    SetSelection(box, {static_cast<DWORD>(GetWindowTextLengthA(box)), 0});
}

TextAround TextAroundSelection(HWND box)
{
    const BoxSelection selection = SelectionOf(box);
    const std::string text = TextOf(box);
    TextAround around;
    around.before = FirstCharacters(text, static_cast<int>(selection.begin));
    around.after = text.substr(FirstCharacters(text, static_cast<int>(selection.end)).size());
    return around;
}

} // namespace nv
