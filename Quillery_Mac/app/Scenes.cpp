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
        {SceneId::kWelcome, tr("Welcome to Quillery!"), Scene::Kind::Single, false, build.welcome},
        {SceneId::kAddSnippet, tr("Add Snippet"), Scene::Kind::Group, true, addSnippet(false)},
        {SceneId::kAddSnippetCopy, tr("Add Snippet"), Scene::Kind::Group, true, addSnippet(true)},
        {SceneId::kLibrary, tr("Quillery"), Scene::Kind::Single, false, build.snippetLibrary},
        {SceneId::kSettings, tr("Quillery Settings"), Scene::Kind::Single, true, build.settings},
    };
}

QWidget *buildEmptyWindow()
{
    // The look gives every one of our windows its own measures; 480 by 350 is the setup window's.
    auto *window = new QWidget;
    window->resize(480, 350);
    return window;
}
