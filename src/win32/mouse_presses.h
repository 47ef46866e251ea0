#pragma once

namespace nv
{

// As long as it lives, the windows of this thread get no release of a mouse button whose press was
// outside the program: in a window's frame (a double click there maximizes the window, and the
// release would press what then lies below the mouse), in a menu or picker of the system, in a
// window of another program. What is sent or posted as a message, by tests or by programs that help
// people use the screen, comes from no mouse and is let through. One for each thread.
class MousePresses
{
public:
    MousePresses();
    ~MousePresses();
    MousePresses(const MousePresses&) = delete;
    MousePresses& operator=(const MousePresses&) = delete;

private:
    void* hook_;
};

// As long as it lives, presses are those in a picker of the system, which gets every release.
class PressesInPicker
{
public:
    PressesInPicker();
    ~PressesInPicker();
    PressesInPicker(const PressesInPicker&) = delete;
    PressesInPicker& operator=(const PressesInPicker&) = delete;
};

} // namespace nv
