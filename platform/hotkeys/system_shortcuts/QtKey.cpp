// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/QtKey.h"

#include "platform/hotkeys/HotkeyService.h"

#include <QChar>
#include <QtCore/qnamespace.h>

#include <algorithm>
#include <array>
#include <span>

#include <xkbcommon/xkbcommon.h>

namespace platform {

namespace {

struct NamedKey
{
    int key; ///< Qt::Key
    quint32 symbol;
};

constexpr auto kNamedKeys = std::to_array<NamedKey>({
    {Qt::Key_Escape, XKB_KEY_Escape},
    {Qt::Key_Tab, XKB_KEY_Tab},
    {Qt::Key_Backtab, XKB_KEY_Tab},
    {Qt::Key_Backspace, XKB_KEY_BackSpace},
    {Qt::Key_Return, XKB_KEY_Return},
    {Qt::Key_Enter, XKB_KEY_KP_Enter},
    {Qt::Key_Insert, XKB_KEY_Insert},
    {Qt::Key_Delete, XKB_KEY_Delete},
    {Qt::Key_Home, XKB_KEY_Home},
    {Qt::Key_End, XKB_KEY_End},
    {Qt::Key_Left, XKB_KEY_Left},
    {Qt::Key_Up, XKB_KEY_Up},
    {Qt::Key_Right, XKB_KEY_Right},
    {Qt::Key_Down, XKB_KEY_Down},
    {Qt::Key_PageUp, XKB_KEY_Page_Up},
    {Qt::Key_PageDown, XKB_KEY_Page_Down},
    {Qt::Key_Menu, XKB_KEY_Menu},
    {Qt::Key_VolumeDown, XKB_KEY_XF86AudioLowerVolume},
    {Qt::Key_VolumeMute, XKB_KEY_XF86AudioMute},
    {Qt::Key_VolumeUp, XKB_KEY_XF86AudioRaiseVolume},
});

constexpr auto kKeypadKeys = std::to_array<NamedKey>({
    {Qt::Key_0, XKB_KEY_KP_0},
    {Qt::Key_1, XKB_KEY_KP_1},
    {Qt::Key_2, XKB_KEY_KP_2},
    {Qt::Key_3, XKB_KEY_KP_3},
    {Qt::Key_4, XKB_KEY_KP_4},
    {Qt::Key_5, XKB_KEY_KP_5},
    {Qt::Key_6, XKB_KEY_KP_6},
    {Qt::Key_7, XKB_KEY_KP_7},
    {Qt::Key_8, XKB_KEY_KP_8},
    {Qt::Key_9, XKB_KEY_KP_9},
    {Qt::Key_Home, XKB_KEY_KP_Home},
    {Qt::Key_End, XKB_KEY_KP_End},
    {Qt::Key_Left, XKB_KEY_KP_Left},
    {Qt::Key_Up, XKB_KEY_KP_Up},
    {Qt::Key_Right, XKB_KEY_KP_Right},
    {Qt::Key_Down, XKB_KEY_KP_Down},
    {Qt::Key_PageUp, XKB_KEY_KP_Page_Up},
    {Qt::Key_PageDown, XKB_KEY_KP_Page_Down},
    {Qt::Key_Insert, XKB_KEY_KP_Insert},
    {Qt::Key_Delete, XKB_KEY_KP_Delete},
    {Qt::Key_Enter, XKB_KEY_KP_Enter},
    {Qt::Key_Period, XKB_KEY_KP_Decimal},
    {Qt::Key_Comma, XKB_KEY_KP_Separator},
    {Qt::Key_Plus, XKB_KEY_KP_Add},
    {Qt::Key_Minus, XKB_KEY_KP_Subtract},
    {Qt::Key_Asterisk, XKB_KEY_KP_Multiply},
    {Qt::Key_Slash, XKB_KEY_KP_Divide},
    {Qt::Key_Equal, XKB_KEY_KP_Equal},
});

constexpr unsigned kUnderstood = static_cast<unsigned>(Qt::ShiftModifier) | Qt::ControlModifier |
                                 Qt::AltModifier | Qt::MetaModifier | Qt::KeypadModifier;

quint32 symbolIn(std::span<const NamedKey> keys, int key)
{
    const auto found = std::ranges::find(keys, key, &NamedKey::key);
    return found == keys.end() ? quint32(XKB_KEY_NoSymbol) : found->symbol;
}

quint32 symbolOf(int key)
{
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return XKB_KEY_F1 + static_cast<quint32>(key - Qt::Key_F1);
    // Below the named keys a Qt::Key is a character, letters in upper case.
    if (key > 0 && key <= static_cast<int>(QChar::LastValidCodePoint))
        return xkb_keysym_to_lower(xkb_utf32_to_keysym(static_cast<quint32>(key)));
    return symbolIn(kNamedKeys, key);
}

quint32 modifiersOf(unsigned bits)
{
    quint32 modifiers = 0;
    if ((bits & Qt::ShiftModifier) != 0)
        modifiers |= HotkeyModifier::kShift;
    if ((bits & Qt::ControlModifier) != 0)
        modifiers |= HotkeyModifier::kControl;
    if ((bits & Qt::AltModifier) != 0)
        modifiers |= HotkeyModifier::kOption;
    if ((bits & Qt::MetaModifier) != 0)
        modifiers |= HotkeyModifier::kCommand;
    return modifiers;
}

} // namespace

// KDE's settings leave Shift out of a chord whose symbol needs it anyway, and so does its service
// when it takes the key. On the keypad the upper symbols belong to Num Lock.
std::optional<SymbolChord> chordOfQtKey(int key)
{
    const auto bits = static_cast<unsigned>(key) & Qt::KeyboardModifierMask;
    const int bare = key & ~static_cast<int>(Qt::KeyboardModifierMask);
    if ((bits & ~kUnderstood) != 0)
        return std::nullopt;
    const bool isOnKeypad = (bits & Qt::KeypadModifier) != 0;
    SymbolChord chord;
    chord.symbol = isOnKeypad ? symbolIn(kKeypadKeys, bare) : symbolOf(bare);
    chord.modifiers = modifiersOf(bits);
    if (bare == Qt::Key_Backtab)
        chord.modifiers |= HotkeyModifier::kShift;
    if (!isOnKeypad)
        chord.upper = SymbolChord::UpperSymbol::TakesShift;
    return chord.symbol == XKB_KEY_NoSymbol ? std::nullopt : std::optional(chord);
}

} // namespace platform
