#pragma once

#include <windows.h>

namespace nv
{

// Lets an edit box take digits only, typed or pasted. What else is typed or pasted is refused with
// a beep. For the life of the box.
void TakeDigitsOnly(HWND box);

} // namespace nv
