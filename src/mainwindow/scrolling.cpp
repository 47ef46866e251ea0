#include "mainwindow/scrolling.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace nv
{

void Scrolling::SC(Twips viewHeight, Twips contentHeight)
{
    const std::int64_t view = std::llrint(double{viewHeight});
    const std::int64_t content = std::llrint(double{contentHeight});
    shown_ = view <= content;
    if (!shown_) {
        top_ = 0;
        return;
    }
    const std::int64_t range = content - view + 100;
    steps_ = range / 32767 + 1;
    maximum_ = RoundHalfEven(static_cast<double>(range) / static_cast<double>(steps_));
    // Comes to 5000 for every maximum; the formula is the bar's definition all the same.
    largeChange_ = RoundHalfEven(maximum_ / (maximum_ / 5000.0));
    smallChange_ = RoundHalfEven(largeChange_ / 5.0);
    value_ = std::min(value_, maximum_);
    top_ = -(value_ * steps_);
}

bool Scrolling::SetValue(std::int64_t value)
{
    const auto wanted =
        static_cast<int>(std::clamp<std::int64_t>(value, 0, shown_ ? maximum_ : value_));
    return std::exchange(value_, wanted) != wanted;
}

int Scrolling::ValueShowing(Twips top, Twips bottom, Twips viewHeight) const
{
    const double steps = static_cast<double>(steps_);
    const double highest = double{top} / steps; // beyond it the top is out of view
    const double lowest = (double{bottom} - double{viewHeight}) / steps;
    double value = value_;
    if (value < lowest) {
        value = std::ceil(lowest);
    }
    if (value > highest) {
        value = std::floor(highest);
    }
    return static_cast<int>(std::clamp(value, 0.0, double{32767}));
}

} // namespace nv
