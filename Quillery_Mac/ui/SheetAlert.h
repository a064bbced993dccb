// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class QMessageBox;
class QWidget;

/// A warning that goes before everything else in one window. Main thread only.
struct SheetAlert
{
    QString message;
    QString informativeText; ///< empty: none
    QStringList buttons;     ///< the first is the default one; none: the desktop's "OK"

    /// The answers: this one for the first button, one more for the second, and so on.
    static constexpr int kFirstButton = 1000;

    /// Shows the alert on the window of `view` and returns when it was answered; the other windows
    /// stay in use meanwhile. Closing it, or Escape, is its first button.
    ///
    /// @param view null: the alert goes before all windows of the program
    /// @return none if the alert went away without an answer: with its window, or because the
    ///         program ends. `view` may be gone then
    std::optional<int> run(QWidget *view) const;

private:
    QMessageBox *makeBox(QWidget *window) const;
};
