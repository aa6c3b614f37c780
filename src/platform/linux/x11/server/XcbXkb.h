#pragma once

#include <xcb/xcb.h>

// xcb/xkb.h has a member named `explicit`, which is a keyword in C++.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpragmas"
#pragma GCC diagnostic ignored "-Wunknown-warning-option"
#pragma GCC diagnostic ignored "-Wkeyword-macro"
#define explicit explicitActions
#include <xcb/xkb.h>
#undef explicit
#pragma GCC diagnostic pop
