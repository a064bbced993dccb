// SPDX-License-Identifier: MIT
#include "platform/hotkeys/X11Modifiers.h"

#include "platform/hotkeys/HotkeyService.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace platform {

namespace {

constexpr int kModifierCount = 8;
constexpr quint16 kAllModifiers = 0xFF;

/// The keyboard's two maps: the keys of each modifier, and the symbols of each key.
struct Maps
{
    XcbPointer<xcb_get_modifier_mapping_reply_t> modifiers;
    XcbPointer<xcb_get_keyboard_mapping_reply_t> symbols;
    xcb_keycode_t firstKey = 0;

    std::span<const xcb_keycode_t> keysOf(int modifier) const
    {
        const int width = modifiers->keycodes_per_modifier;
        return {xcb_get_modifier_mapping_keycodes(modifiers.get()) + modifier * width,
                static_cast<std::size_t>(width)};
    }

    std::span<const xcb_keysym_t> symbolsOf(xcb_keycode_t key) const
    {
        const int width = symbols->keysyms_per_keycode;
        const int start = (key - firstKey) * width;
        const int end = xcb_get_keyboard_mapping_keysyms_length(symbols.get());
        if (key < firstKey || start + width > end)
            return {};
        return {xcb_get_keyboard_mapping_keysyms(symbols.get()) + start,
                static_cast<std::size_t>(width)};
    }
};

Maps readMaps(X11Connection &connection)
{
    const xcb_setup_t *setup = xcb_get_setup(connection.xcb());
    const auto count = static_cast<quint8>(setup->max_keycode - setup->min_keycode + 1);
    const auto modifiers = xcb_get_modifier_mapping(connection.xcb());
    const auto symbols = xcb_get_keyboard_mapping(connection.xcb(), setup->min_keycode, count);
    Maps maps;
    maps.modifiers = connection.reply(xcb_get_modifier_mapping_reply, modifiers);
    maps.symbols = connection.reply(xcb_get_keyboard_mapping_reply, symbols);
    maps.firstKey = setup->min_keycode;
    return maps;
}

/// The modifiers that a key with one of these symbols belongs to; `fallback` if no key does.
quint16 maskOf(const Maps &maps, std::span<const xcb_keysym_t> wanted, quint16 fallback)
{
    quint16 mask = 0;
    for (int modifier = 0; modifier < kModifierCount; ++modifier) {
        for (const xcb_keycode_t key : maps.keysOf(modifier)) {
            const auto symbols = maps.symbolsOf(key);
            if (key != 0 && std::ranges::find_first_of(symbols, wanted) != symbols.end())
                mask |= static_cast<quint16>(1 << modifier);
        }
    }
    return mask == 0 ? fallback : mask;
}

quint16 lowestBit(quint16 mask)
{
    return mask == 0 ? quint16(0) : static_cast<quint16>(1 << std::countr_zero(mask));
}

constexpr std::array<xcb_keysym_t, 2> kSuper = {XKB_KEY_Super_L, XKB_KEY_Super_R};
constexpr std::array<xcb_keysym_t, 2> kAlt = {XKB_KEY_Alt_L, XKB_KEY_Alt_R};
constexpr std::array<xcb_keysym_t, 1> kNumLock = {XKB_KEY_Num_Lock};
constexpr std::array<xcb_keysym_t, 1> kScrollLock = {XKB_KEY_Scroll_Lock};

} // namespace

X11Modifiers X11Modifiers::read(X11Connection &connection)
{
    X11Modifiers result;
    const Maps maps = readMaps(connection);
    if (!maps.modifiers || !maps.symbols)
        return result;
    result.m_command = lowestBit(maskOf(maps, kSuper, result.m_command));
    result.m_option = lowestBit(maskOf(maps, kAlt, result.m_option));
    result.m_numLock = maskOf(maps, kNumLock, 0);
    result.m_scrollLock = maskOf(maps, kScrollLock, 0);
    return result;
}

std::optional<quint16> X11Modifiers::mask(quint32 hotkeyModifiers) const
{
    if ((hotkeyModifiers & ~HotkeyModifier::kAll) != 0)
        return std::nullopt;
    unsigned mask = 0;
    if ((hotkeyModifiers & HotkeyModifier::kCommand) != 0)
        mask |= m_command;
    if ((hotkeyModifiers & HotkeyModifier::kShift) != 0)
        mask |= XCB_MOD_MASK_SHIFT;
    if ((hotkeyModifiers & HotkeyModifier::kOption) != 0)
        mask |= m_option;
    if ((hotkeyModifiers & HotkeyModifier::kControl) != 0)
        mask |= XCB_MOD_MASK_CONTROL;
    return static_cast<quint16>(mask);
}

std::vector<quint16> X11Modifiers::lockVariants(quint16 chord) const
{
    std::vector<quint16> variants = {0};
    for (const quint16 lock : {quint16(XCB_MOD_MASK_LOCK), m_numLock, m_scrollLock}) {
        const auto added = static_cast<quint16>(lock & ~chord);
        const std::vector<quint16> before = variants;
        for (const quint16 variant : before) {
            const auto combined = static_cast<quint16>(variant | added);
            if (std::ranges::find(variants, combined) == variants.end())
                variants.push_back(combined);
        }
    }
    return variants;
}

quint16 X11Modifiers::withoutLocks(quint16 state) const
{
    const int locks = XCB_MOD_MASK_LOCK | m_numLock | m_scrollLock;
    return static_cast<quint16>(state & kAllModifiers & ~locks);
}

} // namespace platform
