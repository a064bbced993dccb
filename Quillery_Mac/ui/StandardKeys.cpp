// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/StandardKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

void sendStandardKey(QWidget &target, QKeySequence::StandardKey key)
{
    const QKeySequence keys(key);
    if (keys.isEmpty())
        return;
    const QKeyCombination chord = keys[0];
    const QPointer<QWidget> receiver(&target);
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, chord.key(), chord.keyboardModifiers());
        if (receiver)
            QApplication::sendEvent(receiver, &event);
    }
}
