#pragma once

#include <xcb/xcb.h>

// A member of the C header bears the name of a C++ keyword.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpragmas"
#pragma GCC diagnostic ignored "-Wunknown-warning-option"
#pragma GCC diagnostic ignored "-Wkeyword-macro"
#define explicit explicitActions
#include <xcb/xkb.h>
#undef explicit
#pragma GCC diagnostic pop
