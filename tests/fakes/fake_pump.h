#pragma once

#include "platform/event_pump.h"

#include <functional>

namespace nv
{

// Counts the calls, and ends the work at one of them.
class FakePump : public EventPump
{
public:
    int calls = 0;
    int endAt = 0;                   // the call that answers "no longer wanted"; 0: none
    std::function<void()> whileThen; // runs in every call, as waiting events would

    bool LetEventsThrough() override
    {
        ++calls;
        if (whileThen) {
            whileThen();
        }
        return calls != endAt;
    }
};

} // namespace nv
