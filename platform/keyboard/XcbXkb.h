// SPDX-License-Identifier: MIT
// xcb's XKB header for C++: it is written for C and names a structure member "explicit".
#pragma once

// Compilers warn of macros that hide a keyword, except in headers of the system, which this one
// stands in for.
#pragma GCC system_header

#include <xcb/xcb.h>

#define explicit explicit_member
#include <xcb/xkb.h>
#undef explicit
