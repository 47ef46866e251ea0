#pragma once

#include "platform/event_pump.h"

#include <windows.h>

#include <functional>

namespace nv
{

// The message loop of the program, and its short form inside long work.
class MessagePump final : public EventPump
{
public:
    MessagePump();

    // Sees every message before its window does; true: the message was used up.
    std::function<bool(MSG&)> Filter;

    // Runs until the program is to end; its exit code. May re-enter, as everything below.
    int Run();
    bool LetEventsThrough() override;

    // A new long work begins; the one that runs is no longer wanted. If it turns out to be short,
    // no events come between.
    void BeginWork();
    void EndWork() { wanted_ = false; }

private:
    void Dispatch(MSG& message);
    void EmptyQueue();

    LONGLONG interval_ = 0; // of the performance counter
    LONGLONG last_ = 0;
    DWORD lastTick_ = 0;
    int calls_ = 0; // since the exact clock was read
    bool wanted_ = true;
};

} // namespace nv
