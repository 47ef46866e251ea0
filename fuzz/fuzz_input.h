// What the fuzzers share: how they stop, and how they part their input.
#pragma once

#include "platform/ansi_text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

// Stops the fuzzer, which keeps its input, unless condition holds.
#define CHECK(condition)                                                                           \
    (static_cast<bool>(condition) ? static_cast<void>(0)                                           \
                                  : nv::StopAt(__FILE__, __LINE__, #condition))

namespace nv
{

[[noreturn]] inline void StopAt(const char* file, int line, const char* condition)
{
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
    std::abort();
}

// One of single bytes, two whose trail bytes may be a backslash, "@", "^" or a letter, and UTF-8.
inline const std::array kCodePages = {CodePage(1252), CodePage(932), CodePage(1361),
                                      CodePage(65001)};

inline std::string_view InputText(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

// An input of several texts: code 30 stands between them. Those that are missing are empty.
inline std::vector<std::string_view> Fields(std::string_view input, std::size_t atLeast = 0)
{
    std::vector<std::string_view> fields;
    for (std::size_t at = 0; at != std::string_view::npos;) {
        const auto end = input.find('\x1E', at);
        fields.push_back(input.substr(at, end - at));
        at = end == std::string_view::npos ? end : end + 1;
    }
    if (fields.size() < atLeast) {
        fields.resize(atLeast);
    }
    return fields;
}

} // namespace nv
