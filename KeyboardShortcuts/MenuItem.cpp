// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/MenuItem.h"

#include "KeyboardShortcuts/ShortcutText.h"

namespace KeyboardShortcuts {

namespace {

/// What is searched for: the text of a key, and the modifiers held with it.
struct Wanted
{
    QString keyText;
    Modifiers modifiers;
};

bool isMatch(const MenuItem &item, const Wanted &wanted)
{
    QString keyEquivalent = item.keyEquivalent;
    Modifiers mask = item.keyEquivalentModifierMask;
    const QString lower = keyEquivalent.toLower();
    if (wanted.modifiers.testFlag(Modifier::Shift) && lower != keyEquivalent) {
        keyEquivalent = lower;
        mask |= Modifier::Shift;
    }
    return keyEquivalent == wanted.keyText && mask == wanted.modifiers;
}

std::optional<QString> find(const std::vector<MenuItem> &menu, const Wanted &wanted)
{
    for (const MenuItem &item : menu) {
        if (isMatch(item, wanted))
            return item.title;
        if (auto title = find(item.submenu, wanted))
            return title;
    }
    return std::nullopt;
}

} // namespace

std::optional<QString> titleOfItemUsing(const Shortcut &shortcut, const std::vector<MenuItem> &menu,
                                        platform::KeyboardLayout *layout)
{
    const std::optional<QString> text = layoutText(shortcut.carbonKeyCode, layout);
    if (!text || text->isEmpty())
        return std::nullopt;
    return find(menu, {*text, shortcut.modifiers()});
}

} // namespace KeyboardShortcuts
