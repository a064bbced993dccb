// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

class LibraryActions;

/// The buttons above the editor: add a snippet, add a folder, and, while something is selected,
/// delete it.
class LibraryToolbar : public QToolBar
{
    Q_OBJECT

public:
    LibraryToolbar(LibraryActions &actions, QWidget *parent);
};
