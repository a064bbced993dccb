// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/SceneTable.h"

#include "Quillery_Mac/app/WindowPlacement.h"
#include "platform/log/Log.h"

#include <QLayout>

#include <algorithm>

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

    QPointer<QWidget> &open = m_openWindows[id];
    if (scene->kind == Scene::Kind::Group || open.isNull()) {
        open = scene->build();
        open->setAttribute(Qt::WA_DeleteOnClose);
        open->setWindowTitle(scene->title);
        if (scene->isSizedByContent && open->layout() != nullptr)
            open->layout()->setSizeConstraint(QLayout::SetFixedSize);
        centreOnScreen(*open);
    }
    m_activate(*open);
}

QStringList SceneTable::ids() const
{
    QStringList ids;
    for (const Scene &scene : m_scenes)
        ids.append(scene.id);
    return ids;
}
