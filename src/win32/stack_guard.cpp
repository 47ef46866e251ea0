// What functions with buffers on the stack compare when they return, and what happens when it was
// written over. The compiler's own library asks the system's cryptography for the value, which
// loads three more DLLs at every start.

#define _CRT_RAND_S // for rand_s
#include <windows.h>

#include <cstdint>
#include <cstdlib>

namespace
{

constexpr std::uint32_t kStackCookieCheckFailure = 2; // of the system's fast failures
constexpr DWORD kFastFailAvailable = 23;              // not before Windows 8
constexpr UINT kStackBufferOverrun = 0xC0000409;      // the status that a fast failure leaves

// The system's random number generator, without a provider of keys.
std::uint64_t Random()
{
    unsigned low = 0;
    unsigned high = 0;
    if (rand_s(&low) != 0 || rand_s(&high) != 0) {
        LARGE_INTEGER counter = {};
        QueryPerformanceCounter(&counter);
        return static_cast<std::uint64_t>(counter.QuadPart) * 0x9E3779B97F4A7C15u;
    }
    return std::uint64_t{high} << 32 | low;
}

} // namespace

// The names are the compiler's.
extern "C" {

void* __stack_chk_guard = nullptr;

// Before all other constructors.
__attribute__((constructor(101), no_stack_protector)) static void SetStackGuard()
{
    // Its first byte is zero: no text that is copied too far can hold it.
    __stack_chk_guard = reinterpret_cast<void*>(static_cast<std::uintptr_t>(Random() << 8));
}

// Ends the process at once: nothing on the stack can be trusted, handlers neither.
[[noreturn]] void __stack_chk_fail()
{
    if (!IsProcessorFeaturePresent(kFastFailAvailable)) {
        TerminateProcess(GetCurrentProcess(), kStackBufferOverrun);
    }
    __asm__ volatile("int $0x29" : : "c"(kStackCookieCheckFailure));
    __builtin_unreachable();
}
}
