// What the owners in handles.h own, and what memory is allocated, counted in a test build only
// (NAVRIX_COUNT_HANDLES): Wine does not say how many handles of which kind a process has, and the
// memory that a process takes says little about leaks, with all that is free in it. In what ships
// nothing of it is left.
#pragma once

#include <windows.h>

#include <optional>
#ifdef NAVRIX_COUNT_HANDLES
#include <typeinfo>
#endif

namespace nv
{

#ifdef NAVRIX_COUNT_HANDLES

// One kind of handle: how many of it are owned, and the global atom with the name of its traits.
struct HandleCount {
    LONG owned;
    ATOM kind;
};

// The kinds, in the order in which they were first owned; after them ones without a name.
inline HandleCount* HandleCounts()
{
    static HandleCount counts[32] = {}; // more than there are
    return counts;
}

template <class Traits> void CountHandles(LONG change)
{
    static LONG* const owned = [] {
        HandleCount* count = HandleCounts();
        while (count->kind != 0) {
            ++count;
        }
        count->kind = GlobalAddAtomA(typeid(Traits).name());
        return &count->owned;
    }();
    InterlockedExchangeAdd(owned, change);
}

constexpr WPARAM kInputWaits = 1000;
constexpr WPARAM kOwnBytes = 1001;
constexpr WPARAM kAllBytes = 1002;

// Bytes that the program's own objects hold now: what is allocated and not yet freed.
LONGLONG OwnBytes();
// The same of all heaps of the process, what the system's DLLs hold in them included.
LONGLONG AllBytes();

// The answer to the registered message "NavrixHandleCount": of the kind with that number how many
// are owned (low word) and its atom (high word); 0 when there is no such kind. Of number
// kInputWaits: whether keys, clicks or posted messages wait to be taken. Of kOwnBytes and
// kAllBytes: OwnBytes and AllBytes.
inline std::optional<LRESULT> AnswerHandleCount(UINT message, WPARAM number)
{
    if (message != RegisterWindowMessageA("NavrixHandleCount")) {
        return std::nullopt;
    }
    if (number == kInputWaits) {
        return HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE)) != 0;
    }
    if (number == kOwnBytes) {
        return OwnBytes();
    }
    if (number == kAllBytes) {
        return AllBytes();
    }
    const HandleCount& count = HandleCounts()[number];
    return MAKELONG(count.owned, count.kind);
}

#else

template <class Traits> void CountHandles(LONG) {}

inline std::optional<LRESULT> AnswerHandleCount(UINT, WPARAM)
{
    return std::nullopt;
}

#endif

} // namespace nv
