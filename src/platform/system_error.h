// The few failures that the rules tell apart, by the system's own numbers.
#pragma once

#include "platform/files.h"

namespace nv
{

inline constexpr SystemError kNotFound = 2;
inline constexpr SystemError kAccessDenied = 5;
inline constexpr SystemError kNotEnoughMemory = 8;
inline constexpr SystemError kSharingViolation = 32;
inline constexpr SystemError kFileExists = 80;
inline constexpr SystemError kAlreadyExists = 183;

} // namespace nv
