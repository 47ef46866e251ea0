#include "win32/handles.h"
