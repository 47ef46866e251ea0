#include "win32/message_pump.h"

namespace nv
{

namespace
{

// An empty pass through the queue costs some 45 microseconds under Wine: too much for every line.
constexpr LONGLONG kMillisecondsBetween = 5;
// The exact clock takes a tenth of a microsecond, as long as a line: it is read for every so many
// calls, or when the coarse one, which costs nothing, has moved on.
constexpr int kCallsBetween = 16;
// Keeps a flood of messages from holding up the work for good.
constexpr int kMessagesAtOnce = 200;

LONGLONG Now()
{
    LARGE_INTEGER counter = {};
    QueryPerformanceCounter(&counter);
    return counter.QuadPart;
}

} // namespace

MessagePump::MessagePump()
{
    LARGE_INTEGER frequency = {};
    QueryPerformanceFrequency(&frequency);
    interval_ = frequency.QuadPart * kMillisecondsBetween / 1000;
}

// Messages are taken and handed on with the wide calls, although all windows are ANSI: a typed
// character stays whole until the system hands it over to its window. Taken as two messages the
// bytes of a Japanese one do not come together again in Wine's edit boxes.

int MessagePump::Run()
{
    MSG message = {};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        Dispatch(message);
    }
    return static_cast<int>(message.wParam);
}

void MessagePump::Dispatch(MSG& message)
{
    if (!Filter || !Filter(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void MessagePump::BeginWork()
{
    wanted_ = true;
    last_ = Now();
}

bool MessagePump::LetEventsThrough()
{
    const DWORD tick = GetTickCount();
    if (wanted_ && (++calls_ >= kCallsBetween || tick != lastTick_)) {
        calls_ = 0;
        lastTick_ = tick;
        if (Now() - last_ >= interval_) {
            EmptyQueue();
            last_ = Now();
        }
    }
    return wanted_;
}

void MessagePump::EmptyQueue()
{
    MSG message = {};
    for (int count = 0; wanted_ && count < kMessagesAtOnce; ++count) {
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == 0) {
            return;
        }
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam)); // for the loop that runs the program
            EndWork();
            return;
        }
        Dispatch(message);
    }
}

} // namespace nv
