// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/MenuItem.h"

#include <QList>

class QAction;

namespace KeyboardShortcuts {

/// The items of a menu with their submenus, as far as shortcuts are concerned. An item with several
/// shortcuts is there once for each; one of several chords in a row has none.
std::vector<MenuItem> menuItems(const QList<QAction *> &actions);

/// The title of an item without the mark of its mnemonic: "Quit" for "&Quit", "A & B" for
/// "A && B".
QString withoutMnemonic(const QString &title);

} // namespace KeyboardShortcuts
