#pragma once

#include "platform/canvas.h"

namespace nv
{

// A separator entry: a horizontal etched line.
class KelLine
{
public:
    static constexpr Twips kHeight = 60;
    static void Paint(Canvas& canvas, TwipPoint origin, Twips width);
};

} // namespace nv
