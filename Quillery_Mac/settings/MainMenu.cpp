// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/MainMenu.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

namespace KeyboardShortcuts {

namespace {

/// What the key of a chord types without modifiers; empty for a key that types nothing.
QString keyEquivalent(Qt::Key key)
{
    // From here on keys are named by what they do.
    constexpr int kFirstNamedKey = 0x01000000;
    if (key <= 0 || key >= kFirstNamedKey)
        return {};
    const auto character = static_cast<char32_t>(key);
    return QString::fromUcs4(&character, 1).toLower();
}

MenuItem plainItem(const QAction &action)
{
    MenuItem item;
    item.title = withoutMnemonic(action.text());
    if (const QMenu *menu = action.menu())
        item.submenu = menuItems(menu->actions());
    return item;
}

void append(std::vector<MenuItem> &items, const QAction &action)
{
    items.push_back(plainItem(action));
    for (const QKeySequence &sequence : action.shortcuts()) {
        if (sequence.count() != 1)
            continue;
        const QKeyCombination chord = sequence[0];
        items.push_back({withoutMnemonic(action.text()),
                         keyEquivalent(chord.key()),
                         desktopModifiers(chord.keyboardModifiers()),
                         {}});
    }
}

} // namespace

std::vector<MenuItem> menuItems(const QList<QAction *> &actions)
{
    std::vector<MenuItem> items;
    for (const QAction *action : actions)
        append(items, *action);
    return items;
}

QString withoutMnemonic(const QString &title)
{
    QString result;
    for (qsizetype at = 0; at < title.size(); ++at) {
        if (title[at] == u'&' && ++at == title.size())
            break;
        result += title[at];
    }
    return result;
}

} // namespace KeyboardShortcuts
