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

// As long as it lives, this thread shows a picker or another dialog of the system: presses count as
// outside the program, and no release is dropped.
class PressesInPicker
{
public:
    PressesInPicker();
    ~PressesInPicker();
    PressesInPicker(const PressesInPicker&) = delete;
    PressesInPicker& operator=(const PressesInPicker&) = delete;
};

} // namespace nv
