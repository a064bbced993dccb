// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/EditorLinks.h"

#include <QAction>
#include <QObject>
#include <QPoint>
#include <QPropertyNotifier>

#include <vector>

class ContentViewMac;
class LibraryFiles;
class LibraryState;
class QMenu;
class QMenuBar;

/// What can be done in the library window, as the entries of its menus and its toolbar, with their
/// keys. Everything that the mouse does has an entry here.
class LibraryActions : public QObject
{
    Q_OBJECT

public:
    LibraryActions(ContentViewMac &window, const EditorLinks &links, LibraryState &state);

    QAction &addSnippet() { return *m_addSnippet; }
    QAction &addFolder() { return *m_addFolder; }
    /// Visible only while an item is selected.
    QAction &deleteItem() { return *m_delete; }

    void fill(QMenuBar &bar);
    /// Shows the context menu of the selected item.
    void popUp(const QPoint &globalPosition);
    /// Draws the images anew in the colours of the palette.
    void takeColors();

private:
    using Command = std::function<void()>;

    QAction *make(const QString &text, const QKeySequence &keys, const Command &command);
    QAction *makeEdit(const QString &text, QKeySequence::StandardKey key);
    void fillFile(QMenu &menu);
    void fillEdit(QMenu &menu);
    void fillItem(QMenu &menu);
    void fillView(QMenu &menu);
    void followSelection();
    void followFolder();

    ContentViewMac &m_window;
    const EditorLinks &m_links;
    LibraryState &m_state;
    LibraryFiles *m_files;
    QAction *m_addSnippet = nullptr;
    QAction *m_addFolder = nullptr;
    QAction *m_delete = nullptr;
    QAction *m_toggle = nullptr;
    QAction *m_moveUp = nullptr;
    QAction *m_moveDown = nullptr;
    std::vector<QPropertyNotifier> m_observers;
};
