// Includes xcb/xkb.h, which does not compile as C++ because it has a field named "explicit" (libxcb 1.15).
#pragma once

#define explicit explicitModifiers
#include <xcb/xkb.h>
#undef explicit
