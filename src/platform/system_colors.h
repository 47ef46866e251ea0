#pragma once

#include "platform/font.h"

namespace nv
{

// The system colours the program draws with; the numbers are the platform's.
inline constexpr Color kWindowText = SystemColor(8);
inline constexpr Color kButtonFace = SystemColor(15);
inline constexpr Color kButtonShadow = SystemColor(16);
inline constexpr Color kGrayText = SystemColor(17);
inline constexpr Color kButtonText = SystemColor(18);
inline constexpr Color kHighlight3D = SystemColor(20);
inline constexpr Color kLight3D = SystemColor(22);

} // namespace nv
