#include <cstddef>
#include <cstdint>
#include <gtest/gtest.h>

extern "C" void* __stack_chk_guard;

namespace
{

// A function as a mistake would write it.
[[gnu::noinline]] char CopyTooMuch(std::size_t length)
{
    char small[8] = {};
    volatile char* to = small;
    for (std::size_t i = 0; i < length; ++i) {
        to[i] = 'x';
    }
    return to[0];
}

TEST(StackGuardDeathTest, EndsTheProgramInsteadOfReturning)
{
    const auto guard = reinterpret_cast<std::uintptr_t>(__stack_chk_guard);
    EXPECT_NE(guard, 0u);
    EXPECT_EQ(guard & 0xff, 0u) << "a copied text could hold it";
    CopyTooMuch(8);
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto overrun = [](int code) {
        return static_cast<std::uint32_t>(code) == 0xC0000409; // the system's: stack buffer overrun
    };
    EXPECT_EXIT(CopyTooMuch(24), overrun, "");
}

} // namespace
