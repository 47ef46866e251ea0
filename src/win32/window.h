#pragma once

#include <windows.h>

#include <optional>

namespace nv
{

// A window class of the program and the object behind each window of it. The object owns its
// window: destroying the one destroys the other; a window destroyed first leaves an object without
// one.
class Window
{
public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    // nullptr before Create and after the window's end.
    HWND Handle() const { return window_; }

protected:
    struct Style {
        const char* className;
        DWORD style;
        DWORD extendedStyle = 0;
        HICON icon = nullptr;
    };
    // Creates the window, hidden unless style says WS_VISIBLE, without size. False when the
    // platform refuses.
    bool Create(const Style& style, HWND parent, const char* text = "");

    // Registers a class whose windows do nothing until Attach gives them an object, so that dialog
    // templates may name it.
    static void RegisterBare(const char* className);
    // Becomes the object behind a window that the platform made of such a class.
    void Attach(HWND window);

    // Routes a message to the method for it; nothing: the platform's own handling follows. May
    // re-enter, and may end the window.
    virtual std::optional<LRESULT> Route(UINT message, WPARAM wParam, LPARAM lParam) = 0;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
};

} // namespace nv
