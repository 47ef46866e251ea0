#pragma once

#include <cstdint>
#include <string>

namespace nv
{

// What a Menu file keeps of a font.
struct Font {
    std::string name = "Tahoma"; // face name
    double size = 8;             // points
    bool bold = false;
    bool italic = false;
    bool strikethrough = false;
    bool underline = false;
    std::int16_t charset = 0; // Windows character set: 0 Western, 238 Central European, ...
    bool operator==(const Font&) const = default;
};

// A Windows colour: red in the low byte, then green, then blue; with the top bit set (a negative
// number) the low byte is the number of a system colour instead.
using Color = std::int32_t;

// The Color of a system colour index (the platform's COLOR_... numbers).
constexpr Color SystemColor(int index)
{
    return static_cast<Color>(0x80000000u | static_cast<std::uint32_t>(index));
}

} // namespace nv
