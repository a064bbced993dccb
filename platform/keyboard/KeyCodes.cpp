// SPDX-License-Identifier: MIT
#include "platform/keyboard/KeyCodes.h"

#include <cstddef>

namespace platform {

namespace {

constexpr bool isOneToOne()
{
    for (std::size_t i = 0; i < kKeyCodes.size(); ++i) {
        for (std::size_t j = i + 1; j < kKeyCodes.size(); ++j) {
            if (kKeyCodes[i].carbon == kKeyCodes[j].carbon ||
                kKeyCodes[i].evdev == kKeyCodes[j].evdev) {
                return false;
            }
        }
    }
    return true;
}

static_assert(isOneToOne(), "a position has one number on each side");
static_assert(x11KeycodeFromCarbon(9) == 55, "the key V");
static_assert(!x11KeycodeFromCarbon(63), "the function key has no X11 keycode");

} // namespace

} // namespace platform
