// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/Scenes.h"

#include <QCoreApplication>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("Scenes", text);
}

} // namespace

std::vector<Scene> makeScenes(const SceneBuilders &build)
{
    const auto addSnippet = [build = build.addSnippet](bool copy) {
        return [build, copy] { return build(copy); };
    };
    return {
        {.id = SceneId::kWelcome, .title = tr("Welcome to Quillery!"), .build = build.welcome},
        {.id = SceneId::kAddSnippet,
         .title = tr("Add Snippet"),
         .kind = Scene::Kind::Group,
         .isSizedByContent = true,
         .build = addSnippet(false)},
        {.id = SceneId::kAddSnippetCopy,
         .title = tr("Add Snippet"),
         .kind = Scene::Kind::Group,
         .isSizedByContent = true,
         .build = addSnippet(true)},
        {.id = SceneId::kLibrary,
         .title = tr("Quillery"),
         .hasHiddenTitleBar = true,
         .acceptsPlainText = true,
         .build = build.snippetLibrary},
        {.id = SceneId::kSettings,
         .title = tr("Quillery Settings"),
         .isSizedByContent = true,
         .build = build.settings},
    };
}

QWidget *buildEmptyWindow()
{
    // The look gives every one of our windows its own measures; 480 by 350 is the setup window's.
    auto *window = new QWidget;
    window->resize(480, 350);
    return window;
}
