// What a window tells screen readers and other programs for people who cannot use the screen, the
// mouse or the keyboard, through the platform's interface IAccessible.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace nv
{

// What a window says about itself and about its parts, the children: parts 1 to ChildCount(); part
// 0 is the window. A part that is no window costs nothing until it is asked for. Texts are of the
// ANSI code page unless it is said otherwise, on one line, without line breaks. All is called on
// the window's thread, from its message loop, and must not let events through. Nothing but memory's
// end may be thrown.
class AccessibleSource
{
public:
    virtual LONG ChildCount() const { return 0; }
    // These are asked for parts that are there.
    // One of ROLE_SYSTEM_...
    virtual LONG Role(LONG part) const = 0;
    // Those of STATE_SYSTEM_... that are the part's own. Which part has the keyboard, and whether
    // the window is shown and enabled, is known without the source.
    virtual LONG State(LONG part) const = 0;
    virtual std::string Name(LONG part) const = 0;
    // The code page of name, which is what Name has just told of the part.
    virtual UINT PageOfName(LONG, const std::string&) const { return CP_ACP; }
    // What its tooltip tells; empty: nothing.
    virtual std::string Description(LONG) const { return {}; }
    // Where a child stands: pixels of the window's client area.
    virtual RECT Area(LONG) { return {}; }
    // The child at a point of the client area, or 0.
    virtual LONG ChildAt(POINT) { return 0; }
    // The child that has the keyboard whenever the window has it; the one that is selected.
    virtual std::optional<LONG> FocusedChild() const { return std::nullopt; }
    virtual std::optional<LONG> SelectedChild() const { return std::nullopt; }
    // What a click does to the part, as a verb; empty: nothing.
    virtual std::string DefaultAction(LONG) const { return {}; }
    // Sees to it that it happens soon, but not within the call: the caller waits for its end, and
    // a box might come up. Asked only where there is a default action and TakesInput holds.
    virtual void DoDefaultAction(LONG) {}
    // Gives a focusable child the window's focus and, in a list, the selection; false: it takes
    // none.
    virtual bool FocusChild(LONG) { return false; }

protected:
    ~AccessibleSource() = default;
};

// Whether the user could click into the window: it is shown, and no box waits for an answer.
bool TakesInput(HWND window);

// Tells of a change (EVENT_OBJECT_...) of a part of a window.
void TellChange(DWORD event, HWND window, LONG part);

// Answers who asks a window for its IAccessible. The object that is given out lives as long as
// somebody holds it: when the window has ended before, each call of it fails.
class AccessibleHost
{
public:
    AccessibleHost() = default;
    ~AccessibleHost() { Disconnect(); }
    AccessibleHost(const AccessibleHost&) = delete;
    AccessibleHost& operator=(const AccessibleHost&) = delete;

    // The result of WM_GETOBJECT; nothing when something else than the client area is asked for,
    // or the platform has no such interface. source must live until Disconnect.
    std::optional<LRESULT> OnGetObject(HWND window, AccessibleSource& source, WPARAM wParam,
                                       LPARAM lParam);
    // The window ends.
    void Disconnect();

private:
    class Object;

    Object* object_ = nullptr; // a counted reference
};

} // namespace nv
