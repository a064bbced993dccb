// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/FieldMenu.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>

namespace fieldMenu {

namespace {

// The pasteboard listens for the keys; so one way to paste, cut and undo serves keys and menu.
void press(QWidget &field, const QKeySequence &keys)
{
    const QKeyCombination first = keys[0];
    QKeyEvent event(QEvent::KeyPress, first.key(), first.keyboardModifiers());
    QCoreApplication::sendEvent(&field, &event);
}

} // namespace

void open(QWidget &field, const State &state, const QPoint &globalPos)
{
    auto *menu = new QMenu(&field);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString &text, QKeySequence::StandardKey key, bool isEnabled) {
        const QKeySequence keys(key);
        QAction *action = menu->addAction(text, &field, [&field, keys] { press(field, keys); });
        action->setShortcut(keys);
        action->setEnabled(isEnabled && !keys.isEmpty());
    };
    add(QCoreApplication::translate("FieldMenu", "&Undo"), QKeySequence::Undo, state.canUndo);
    add(QCoreApplication::translate("FieldMenu", "&Redo"), QKeySequence::Redo, state.canRedo);
    menu->addSeparator();
    add(QCoreApplication::translate("FieldMenu", "Cu&t"), QKeySequence::Cut,
        state.hasSelection && state.isEditable);
    add(QCoreApplication::translate("FieldMenu", "&Copy"), QKeySequence::Copy, state.hasSelection);
    add(QCoreApplication::translate("FieldMenu", "&Paste"), QKeySequence::Paste, state.isEditable);
    add(QCoreApplication::translate("FieldMenu", "Delete"), QKeySequence::Delete,
        state.hasSelection && state.isEditable);
    menu->addSeparator();
    add(QCoreApplication::translate("FieldMenu", "Select All"), QKeySequence::SelectAll, true);
    menu->popup(globalPos);
}

} // namespace fieldMenu
