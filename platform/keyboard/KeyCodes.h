// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <array>
#include <optional>

namespace platform {

/// One position on the keyboard under both of its numbers.
struct KeyCodePair
{
    quint16 carbon; ///< virtual key code, the numbering of stored shortcuts
    quint16 evdev;  ///< KEY_ code of <linux/input-event-codes.h>
};

/// Every key position that has both numbers; each number occurs once.
///
/// Pairs are positions, not characters: 9 is the key that types "v" on a US layout, whatever it
/// types here. Where the two worlds name a key differently the USB HID usage decides: help is
/// Insert (usage 0x49), the keypad's clear is Num Lock (usage 0x53), command is Meta, option is
/// Alt.
inline constexpr auto kKeyCodes = std::to_array<KeyCodePair>({
    // Letters.
    {0, 30},
    {1, 31},
    {2, 32},
    {3, 33},
    {4, 35},
    {5, 34},
    {6, 44},
    {7, 45},
    {8, 46},
    {9, 47},
    {11, 48},
    {12, 16},
    {13, 17},
    {14, 18},
    {15, 19},
    {16, 21},
    {17, 20},
    {31, 24},
    {32, 22},
    {34, 23},
    {35, 25},
    {37, 38},
    {38, 36},
    {40, 37},
    {45, 49},
    {46, 50},
    // Digits 1 to 9, then 0.
    {18, 2},
    {19, 3},
    {20, 4},
    {21, 5},
    {23, 6},
    {22, 7},
    {26, 8},
    {28, 9},
    {25, 10},
    {29, 11},
    // Punctuation: return, backslash, grave, comma, equal, minus, period, quote, semicolon, slash,
    // space, tab, left bracket, right bracket.
    {36, 28},
    {42, 43},
    {50, 41},
    {43, 51},
    {24, 13},
    {27, 12},
    {47, 52},
    {39, 40},
    {41, 39},
    {44, 53},
    {49, 57},
    {48, 15},
    {33, 26},
    {30, 27},
    // Page up, page down, home, end, up, right, down, left, escape, delete, forward delete, help.
    {116, 104},
    {121, 109},
    {115, 102},
    {119, 107},
    {126, 103},
    {124, 106},
    {125, 108},
    {123, 105},
    {53, 1},
    {51, 14},
    {117, 111},
    {114, 110},
    // Mute, volume up, volume down.
    {74, 113},
    {72, 115},
    {73, 114},
    // Caps lock, shift, function, control, option, command, and the right-hand ones: command,
    // option, control, shift.
    {57, 58},
    {56, 42},
    {63, 464},
    {59, 29},
    {58, 56},
    {55, 125},
    {54, 126},
    {61, 100},
    {62, 97},
    {60, 54},
    // F1 to F20.
    {122, 59},
    {120, 60},
    {99, 61},
    {118, 62},
    {96, 63},
    {97, 64},
    {98, 65},
    {100, 66},
    {101, 67},
    {109, 68},
    {103, 87},
    {111, 88},
    {105, 183},
    {107, 184},
    {113, 185},
    {106, 186},
    {64, 187},
    {79, 188},
    {80, 189},
    {90, 190},
    // Keypad: 0 to 9, clear, decimal, divide, enter, equals, minus, multiply, plus.
    {82, 82},
    {83, 79},
    {84, 80},
    {85, 81},
    {86, 75},
    {87, 76},
    {88, 77},
    {89, 71},
    {91, 72},
    {92, 73},
    {71, 69},
    {65, 83},
    {75, 98},
    {76, 96},
    {81, 117},
    {78, 74},
    {67, 55},
    {69, 78},
    // Keys of other keyboards that have no name of their own: the key left of Z, the menu key, Yen,
    // underscore, keypad comma, and the two language keys.
    {10, 86},
    {110, 127},
    {93, 124},
    {94, 89},
    {95, 121},
    {102, 123},
    {104, 122},
});

/// X11 keycodes are evdev codes plus 8 (xkeyboard-config keycodes/evdev); 255 is the protocol's
/// last one.
inline constexpr int kX11KeycodeOffset = 8;
inline constexpr int kLastX11Keycode = 255;

/// The evdev code of a position; none when no PC keyboard has it.
constexpr std::optional<int> evdevFromCarbon(int carbonKeyCode)
{
    for (const KeyCodePair &pair : kKeyCodes) {
        if (pair.carbon == carbonKeyCode)
            return pair.evdev;
    }
    return std::nullopt;
}

/// The virtual key code of a position; none when stored shortcuts have no number for it.
constexpr std::optional<int> carbonFromEvdev(int evdevCode)
{
    for (const KeyCodePair &pair : kKeyCodes) {
        if (pair.evdev == evdevCode)
            return pair.carbon;
    }
    return std::nullopt;
}

/// The X11 keycode (8 to 255) of a position; none also for the positions beyond the protocol's
/// range.
constexpr std::optional<quint8> x11KeycodeFromCarbon(int carbonKeyCode)
{
    const std::optional<int> evdev = evdevFromCarbon(carbonKeyCode);
    if (!evdev || *evdev + kX11KeycodeOffset > kLastX11Keycode)
        return std::nullopt;
    return static_cast<quint8>(*evdev + kX11KeycodeOffset);
}

/// The virtual key code behind an X11 keycode, for example of a key event.
constexpr std::optional<int> carbonFromX11Keycode(quint32 keycode)
{
    if (keycode < kX11KeycodeOffset)
        return std::nullopt;
    return carbonFromEvdev(static_cast<int>(keycode) - kX11KeycodeOffset);
}

} // namespace platform
