// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/Scenes.h"

#include <QCoreApplication>

std::vector<Scene> makeScenes(const SceneBuilders &build)
{
    const auto addSnippet = [build = build.addSnippet](bool copy) {
        return [build, copy] { return build(copy); };
    };
    return {
        {.id = SceneId::kWelcome,
         .title = QCoreApplication::translate("Scenes", "Welcome to Quillery!"),
         .build = build.welcome},
        {.id = SceneId::kAddSnippet,
         .title = QCoreApplication::translate("Scenes", "Add Snippet"),
         .kind = Scene::Kind::Group,
         .isSizedByContent = true,
         .build = addSnippet(false)},
        {.id = SceneId::kAddSnippetCopy,
         .title = QCoreApplication::translate("Scenes", "Add Snippet"),
         .kind = Scene::Kind::Group,
         .isSizedByContent = true,
         .build = addSnippet(true)},
        {.id = SceneId::kLibrary,
         .title = QCoreApplication::translate("Scenes", "Quillery"),
         .hasHiddenTitleBar = true,
         .acceptsPlainText = true,
         .build = build.snippetLibrary},
        {.id = SceneId::kSettings,
         .title = QCoreApplication::translate("Scenes", "Quillery Settings"),
         .isSizedByContent = true,
         .build = build.settings},
    };
}
