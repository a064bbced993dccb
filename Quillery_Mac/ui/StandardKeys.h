// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>

class QWidget;

/// Presses and releases in `target` the first key that the desktop has for `key`, as the user
/// would; nothing if it has none. Main thread.
void sendStandardKey(QWidget &target, QKeySequence::StandardKey key);
