// SPDX-License-Identifier: MIT
#include "platform/keyboard/KeyTexts.h"

#include "platform/keyboard/KeyCodes.h"

#include <QSet>

#include <algorithm>
#include <array>

#include <xkbcommon/xkbcommon.h>

namespace platform {

namespace {

struct DeadKey
{
    xkb_keysym_t symbol;
    char16_t accent;
};

/// Dead keys are shown by the accent that they put on the next letter.
constexpr auto kDeadKeys = std::to_array<DeadKey>({
    {XKB_KEY_dead_grave, u'`'},
    {XKB_KEY_dead_acute, u'´'},
    {XKB_KEY_dead_circumflex, u'^'},
    {XKB_KEY_dead_tilde, u'~'},
    {XKB_KEY_dead_macron, u'¯'},
    {XKB_KEY_dead_breve, u'˘'},
    {XKB_KEY_dead_abovedot, u'˙'},
    {XKB_KEY_dead_diaeresis, u'¨'},
    {XKB_KEY_dead_abovering, u'˚'},
    {XKB_KEY_dead_doubleacute, u'˝'},
    {XKB_KEY_dead_caron, u'ˇ'},
    {XKB_KEY_dead_cedilla, u'¸'},
    {XKB_KEY_dead_ogonek, u'˛'},
});

QString textOf(xkb_keysym_t symbol)
{
    const auto dead = std::ranges::find(kDeadKeys, symbol, &DeadKey::symbol);
    if (dead != kDeadKeys.end())
        return QString(QChar(dead->accent));
    const char32_t character = xkb_keysym_to_utf32(symbol);
    if (character == 0 || QChar::category(character) == QChar::Other_Control)
        return {};
    return QString::fromUcs4(&character, 1);
}

QHash<int, QString> textsOf(xkb_keymap *keymap, xkb_layout_index_t group)
{
    QHash<int, QString> texts;
    for (const KeyCodePair &pair : kKeyCodes) {
        const xkb_keycode_t keycode = static_cast<xkb_keycode_t>(pair.evdev) + kX11KeycodeOffset;
        const xkb_keysym_t *symbols = nullptr;
        // Keys with fewer groups (Space has one) are the same in all of them.
        const int count = xkb_keymap_key_get_syms_by_level(keymap, keycode, group, 0, &symbols);
        QString text;
        for (int i = 0; i < count; ++i)
            text += textOf(symbols[i]);
        if (!text.isEmpty())
            texts.insert(pair.carbon, text);
    }
    return texts;
}

} // namespace

KeyTexts::KeyTexts(xkb_keymap *keymap)
{
    const xkb_layout_index_t count = xkb_keymap_num_layouts(keymap);
    for (xkb_layout_index_t group = 0; group < count; ++group)
        m_groups.push_back(textsOf(keymap, group));
}

bool KeyTexts::isAsciiCapable(int group) const
{
    constexpr int kMostLetters = 14; // of 26; some Latin layouts lack q, w, x and y
    if (group < 0 || group >= groupCount())
        return false;
    QSet<QString> letters;
    for (const QString &text : m_groups.at(static_cast<std::size_t>(group))) {
        if (text.size() == 1 && text.front() >= u'a' && text.front() <= u'z')
            letters.insert(text);
    }
    return letters.size() >= kMostLetters;
}

std::optional<QString> KeyTexts::text(int group, int carbonKeyCode) const
{
    if (group < 0 || group >= groupCount())
        return std::nullopt;
    const QHash<int, QString> &texts = m_groups.at(static_cast<std::size_t>(group));
    const auto found = texts.constFind(carbonKeyCode);
    return found == texts.cend() ? std::nullopt : std::optional(*found);
}

} // namespace platform
