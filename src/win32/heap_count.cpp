// What new and delete do in a test build: see handle_counts.h.
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

LONGLONG nv::HeapBytes()
{
    return bytes;
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
