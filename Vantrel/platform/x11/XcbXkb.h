// xcb/xkb.h, which names a field "explicit" (libxcb 1.15) and so does not compile as C++ by itself.
#pragma once

#define explicit explicitModifiers
#include <xcb/xkb.h>
#undef explicit
