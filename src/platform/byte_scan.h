// Searches that look at eight bytes at a time. A menu of 36 MB is searched byte for byte when it is
// opened, and the C library's memchr is slow on Windows (msvcrt goes byte by byte).
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace nv
{

namespace byte_scan
{

// The first byte of memory must be the lowest of the word, or the borrows below point elsewhere.
static_assert(std::endian::native == std::endian::little);

inline constexpr std::uint64_t kEach = 0x0101010101010101u;
inline constexpr std::uint64_t kTops = 0x8080808080808080u;

// The top bit of every byte of word that is below limit (1 to 128); only the lowest bit set is
// certain, those above it may come from a borrow.
constexpr std::uint64_t BytesBelow(std::uint64_t word, std::uint64_t limit)
{
    return (word - kEach * limit) & ~word & kTops;
}

inline std::uint64_t Load(const char* at)
{
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    return word;
}

} // namespace byte_scan

// The first byte below code 32 in [at, end), or end.
inline const char* FindControl(const char* at, const char* end)
{
    using namespace byte_scan;
    for (; end - at >= 8; at += 8) {
        if (const std::uint64_t found = BytesBelow(Load(at), 32)) {
            return at + std::countr_zero(found) / 8;
        }
    }
    while (at != end && static_cast<unsigned char>(*at) >= 32) {
        ++at;
    }
    return at;
}

// The first byte ch in [at, end), or end.
inline const char* FindByte(const char* at, const char* end, char ch)
{
    using namespace byte_scan;
    const std::uint64_t pattern = kEach * static_cast<unsigned char>(ch);
    for (; end - at >= 8; at += 8) {
        if (const std::uint64_t found = BytesBelow(Load(at) ^ pattern, 1)) {
            return at + std::countr_zero(found) / 8;
        }
    }
    while (at != end && *at != ch) {
        ++at;
    }
    return at;
}

} // namespace nv
