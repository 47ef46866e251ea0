#pragma once

#include "platform/units.h"

#include <cstdint>

namespace nv
{

// The scroll bar VS1 and where it puts the column. A column taller than 32767 twips scrolls in
// steps of several twips, so that the bar's numbers stay within 16 bits.
class Scrolling
{
public:
    // Recomputes the bar for a viewport and a column of these heights, and applies its value.
    void SC(Twips viewHeight, Twips contentHeight);

    bool Shown() const { return shown_; }
    int Maximum() const { return maximum_; }
    int LargeChange() const { return largeChange_; }
    int SmallChange() const { return smallChange_; }
    int Value() const { return value_; }
    // Sets the value, kept within 0 and the maximum; true when it is another one. SC must follow.
    bool SetValue(std::int64_t value);
    // Twips that one step of the value moves.
    std::int64_t Steps() const { return steps_; }
    // Top of the column, zero or negative.
    std::int64_t Top() const { return top_; }
    // The value at which the column's part from top to bottom (twips) is in view, as near to the
    // present one as it can be; a part higher than the viewport shows its top.
    int ValueShowing(Twips top, Twips bottom, Twips viewHeight) const;
    bool operator==(const Scrolling&) const = default;

private:
    bool shown_ = false;
    int maximum_ = 0;
    int largeChange_ = 0;
    int smallChange_ = 0;
    int value_ = 0;
    std::int64_t steps_ = 1;
    std::int64_t top_ = 0;
};

} // namespace nv
