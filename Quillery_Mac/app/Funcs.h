// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class ManagedObjectContext;

/// The shared helper that every menu is handed: opens the program's windows without knowing how
/// they are built. One object, owned by the entry type, main thread only.
class Funcs : public QObject
{
    Q_OBJECT

public:
    /// Opens the window of a scene by its identifier (SceneTable).
    using OpenWindow = std::function<void(const QString &scene)>;
    /// Builds the add-snippet view; `copy` fills it from the pasteboard. Never null.
    using BuildAddSnippet = std::function<QWidget *(bool copy, ManagedObjectContext &context)>;
    /// Brings a window of ours to the front, whatever program is active.
    using Activate = std::function<void(QWidget &window)>;

    Funcs(BuildAddSnippet buildAddSnippet, Activate activate, QObject *parent = nullptr);

    /// Opens an add-snippet window outside the scenes: builds the view over `context`, centres the
    /// window, titles it "Add Snippet", and makes it the active one. The window deletes itself when
    /// it is closed.
    void openAddSnippetWindow(bool copy, ManagedObjectContext &context);

    /// Destroys every window that was opened here and is still there.
    void closeWindows();

    OpenWindow openWindow;
    /// The window that openAddSnippetWindow() opened last, while it exists.
    QPointer<QWidget> window;

private:
    BuildAddSnippet m_buildAddSnippet;
    Activate m_activate;
    std::vector<QPointer<QWidget>> m_windows;
};
