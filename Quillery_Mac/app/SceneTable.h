// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <map>
#include <vector>

/// One of the program's windows, by the identifier that other code opens it by.
struct Scene
{
    enum class Kind {
        Single, ///< one window at most; opening it again brings it to the front
        Group,  ///< a new window every time
    };

    QString id;
    QString title;
    Kind kind = Kind::Single;
    bool isSizedByContent = false;
    /// The content begins at the window's upper edge. Here every frame is the window manager's, and
    /// keeps its title; so the content just has no head line of its own.
    bool hasHiddenTitleBar = false;
    bool acceptsPlainText = false; ///< text from other programs may be dropped on the content
    std::function<QWidget *()> build = {}; ///< a new content widget without parent; never null
};

/// The one table of the program's windows. Owned by the entry type, main thread only.
class SceneTable
{
public:
    using Activate = std::function<void(QWidget &window)>;

    /// @param activate brings a window to the front, whatever program is active
    SceneTable(std::vector<Scene> scenes, Activate activate);

    /// Opens the window of a scene, or brings a single scene's open window to the front. An
    /// identifier that is not in the table is ignored.
    void openWindow(const QString &id);

    /// The open window of a scene; null if there is none.
    QWidget *openWindowOf(const QString &id) const;

    /// Destroys every window that was opened here and is still there.
    void closeWindows();

    /// The identifiers in the order of the table.
    QStringList ids() const;

private:
    QWidget *makeWindow(const Scene &scene);

    std::vector<Scene> m_scenes;
    Activate m_activate;
    std::multimap<QString, QPointer<QWidget>> m_openWindows;
};
