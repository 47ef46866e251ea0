// How memory is counted in a test build: see handle_counts.h.
#include "win32/handle_counts.h"

#ifdef NAVRIX_COUNT_HANDLES

#include <cstdlib>
#include <malloc.h>
#include <new>

namespace
{

volatile LONGLONG bytes = 0;

void* Allocate(std::size_t size)
{
    void* block = std::malloc(size != 0 ? size : 1);
    if (block != nullptr) {
        InterlockedExchangeAdd64(&bytes, static_cast<LONGLONG>(_msize(block)));
    }
    return block;
}

void Free(void* block)
{
    if (block != nullptr) {
        InterlockedExchangeAdd64(&bytes, -static_cast<LONGLONG>(_msize(block)));
        std::free(block);
    }
}

} // namespace

LONGLONG nv::OwnBytes()
{
    return bytes;
}

LONGLONG nv::AllBytes()
{
    // Told to watch for writes into freed blocks, Wine's heap keeps so many of those that were
    // freed last, as if they were in use.
    constexpr int kKeptWhenFreed = 1024;
    HANDLE heaps[64]; // more than there are
    const DWORD count = GetProcessHeaps(64, heaps);
    LONGLONG all = 0;
    for (DWORD at = 0; at < count; ++at) {
        for (int left = kKeptWhenFreed; left > 0; --left) {
            HeapFree(heaps[at], 0, HeapAlloc(heaps[at], 0, 1));
        }
        PROCESS_HEAP_ENTRY block = {};
        HeapLock(heaps[at]);
        while (HeapWalk(heaps[at], &block)) {
            all += (block.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? LONGLONG{block.cbData} : 0;
        }
        HeapUnlock(heaps[at]);
    }
    return all;
}

// The other forms call these, save those for aligned blocks, which nothing of ours asks for.

void* operator new(std::size_t size)
{
    if (void* block = Allocate(size)) {
        return block;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}

void operator delete(void* block) noexcept
{
    Free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    Free(block);
}

#endif
