// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/SceneTable.h"

#include "Quillery_Mac/app/WindowPlacement.h"
#include "platform/log/Log.h"

#include <QLayout>

#include <algorithm>
#include <utility>

SceneTable::SceneTable(std::vector<Scene> scenes, Activate activate)
    : m_scenes(std::move(scenes))
    , m_activate(std::move(activate))
{
}

void SceneTable::openWindow(const QString &id)
{
    const auto scene = std::find_if(m_scenes.cbegin(), m_scenes.cend(),
                                    [&id](const Scene &candidate) { return candidate.id == id; });
    if (scene == m_scenes.cend()) {
        qCWarning(logApp) << "There is no scene" << id;
        return;
    }

    QWidget *open = scene->kind == Scene::Kind::Single ? openWindowOf(id) : nullptr;
    m_activate(open != nullptr ? *open : *makeWindow(*scene));
}

void SceneTable::closeWindows()
{
    for (const auto &[id, window] : std::exchange(m_openWindows, {}))
        delete window;
}

QWidget *SceneTable::openWindowOf(const QString &id) const
{
    const auto [first, last] = m_openWindows.equal_range(id);
    // One that was closed is hidden, and lives until the event loop turns.
    const auto open = std::find_if(first, last, [](const auto &entry) {
        return !entry.second.isNull() && !entry.second->isHidden();
    });
    return open == last ? nullptr : open->second.data();
}

QWidget *SceneTable::makeWindow(const Scene &scene)
{
    std::erase_if(m_openWindows, [](const auto &entry) { return entry.second.isNull(); });
    QWidget *window = scene.build();
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(scene.title);
    window->setAcceptDrops(scene.acceptsPlainText);
    if (scene.isSizedByContent && window->layout() != nullptr)
        window->layout()->setSizeConstraint(QLayout::SetFixedSize);
    centreOnScreen(*window);
    m_openWindows.emplace(scene.id, window);
    return window;
}

QStringList SceneTable::ids() const
{
    QStringList ids;
    for (const Scene &scene : m_scenes)
        ids.append(scene.id);
    return ids;
}
