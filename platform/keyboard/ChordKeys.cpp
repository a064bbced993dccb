// SPDX-License-Identifier: MIT
#include "platform/keyboard/ChordKeys.h"

#include "platform/x11/X11Connection.h"

#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

namespace platform {

namespace {

constexpr xkb_keycode_t kFirstKey = 8;
constexpr xkb_keycode_t kLastKey = 255;

xkb_keysym_t symbolOf(xkb_keymap *keymap, xkb_keycode_t key, xkb_layout_index_t group)
{
    const xkb_layout_index_t groups = xkb_keymap_num_layouts_for_key(keymap, key);
    if (groups == 0)
        return XKB_KEY_NoSymbol;
    // A key with fewer groups than the keyboard wraps round (XKB protocol, section 7.2).
    const xkb_keysym_t *symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, key, group % groups, 0, &symbols);
    return count == 1 ? symbols[0] : XKB_KEY_NoSymbol;
}

std::optional<quint8> keyIn(xkb_keymap *keymap, xkb_layout_index_t group, xkb_keysym_t symbol)
{
    for (xkb_keycode_t key = kFirstKey; key <= kLastKey; ++key) {
        if (symbolOf(keymap, key, group) == symbol)
            return static_cast<quint8>(key);
    }
    return std::nullopt;
}

bool isLock(xkb_keysym_t symbol)
{
    switch (symbol) {
    case XKB_KEY_Caps_Lock:
    case XKB_KEY_Shift_Lock:
    case XKB_KEY_Num_Lock:
    case XKB_KEY_Scroll_Lock:
    case XKB_KEY_ISO_Lock:
    case XKB_KEY_ISO_Level3_Lock:
    case XKB_KEY_ISO_Level5_Lock:
    case XKB_KEY_ISO_Group_Lock:
        return true;
    default:
        return false;
    }
}

} // namespace

void ChordKeys::Unreference::operator()(xkb_context *context) const
{
    xkb_context_unref(context);
}

void ChordKeys::Unreference::operator()(xkb_keymap *keymap) const
{
    xkb_keymap_unref(keymap);
}

ChordKeys::ChordKeys(X11Connection &connection)
    : m_connection(connection)
    , m_keyboard(X11Keyboard::create(connection))
    , m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
    if (m_keyboard == nullptr)
        return;
    QObject::connect(m_keyboard.get(), &X11Keyboard::mapChanged, m_keyboard.get(),
                     [this] { forget(); });
    QObject::connect(m_keyboard.get(), &X11Keyboard::groupChanged, m_keyboard.get(),
                     [this](int group) { m_group = group; });
    m_keyboard->watchGroup();
    m_group = m_keyboard->group();
}

ChordKeys::~ChordKeys() = default;

void ChordKeys::prepare()
{
    keymap();
    modifiers();
}

quint8 ChordKeys::find(quint32 keysym, quint8 fallback)
{
    xkb_keymap *const map = keymap();
    if (map == nullptr)
        return fallback;
    if (const auto key = keyIn(map, static_cast<xkb_layout_index_t>(m_group), keysym))
        return *key;
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(map); ++group) {
        if (const auto key = keyIn(map, group, keysym))
            return *key;
    }
    return fallback;
}

// Without XKB nobody tells of a change.
KeySet ChordKeys::modifiers()
{
    if (!m_modifiers || m_keyboard == nullptr)
        m_modifiers = readModifiers();
    return *m_modifiers;
}

KeySet ChordKeys::readModifiers() const
{
    const auto mapping = m_connection.reply(xcb_get_modifier_mapping_reply,
                                            xcb_get_modifier_mapping(m_connection.xcb()));
    KeySet keys;
    if (!mapping)
        return keys;
    const xcb_keycode_t *codes = xcb_get_modifier_mapping_keycodes(mapping.get());
    const int count = xcb_get_modifier_mapping_keycodes_length(mapping.get());
    for (int i = 0; i < count; ++i) {
        if (codes[i] != 0)
            keys.set(codes[i]);
    }
    return keys;
}

KeySet ChordKeys::locks()
{
    KeySet keys;
    xkb_keymap *const map = keymap();
    if (map == nullptr)
        return keys;
    for (xkb_keycode_t key = kFirstKey; key <= kLastKey; ++key) {
        for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts_for_key(map, key);
             ++group)
            keys[key] = keys[key] || isLock(symbolOf(map, key, group));
    }
    return keys;
}

void ChordKeys::forget()
{
    m_keymap.reset();
    m_modifiers.reset();
}

xkb_keymap *ChordKeys::keymap()
{
    if (m_keymap != nullptr || m_keyboard == nullptr)
        return m_keymap.get();
    m_keymap.reset(xkb_x11_keymap_new_from_device(
        m_context.get(), m_connection.xcb(), m_keyboard->deviceId(), XKB_KEYMAP_COMPILE_NO_FLAGS));
    return m_keymap.get();
}

} // namespace platform
