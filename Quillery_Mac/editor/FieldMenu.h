// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QPoint>
#include <QWidget>

/// The context menu of a text field. The toolkit's own asks the owner of the clipboard whether
/// there is something to paste, and waits for the answer.
namespace fieldMenu {

struct State
{
    bool canUndo;
    bool canRedo;
    bool hasSelection;
    bool isEditable;
};

/// Shows the menu; each entry does what its keys do.
void open(QWidget &field, const State &state, const QPoint &globalPos);

} // namespace fieldMenu
