// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QList>

#include <functional>

class QAction;

namespace platform {
class SystemShortcuts;
}

namespace KeyboardShortcuts {

/// What a field that records a shortcut asks others for. The references outlive the field.
struct RecorderLinks
{
    platform::SystemShortcuts &systemShortcuts;
    std::function<QList<QAction *>()> mainMenu; ///< of the whole program; may be empty
    std::function<void()> beep = QApplication::beep;
};

} // namespace KeyboardShortcuts
