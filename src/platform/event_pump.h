#pragma once

namespace nv
{

// Lets the user interface live during long work on its own thread.
class EventPump
{
public:
    virtual ~EventPump() = default;
    // Called after every line of a long work. Lets waiting events through unless that was done a
    // few milliseconds ago. May re-enter. False: the work is no longer wanted (another menu was
    // asked for, or the program is closing), and the caller must end it cleanly.
    virtual bool LetEventsThrough() = 0;
};

} // namespace nv
