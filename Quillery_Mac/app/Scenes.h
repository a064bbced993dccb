// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/app/SceneTable.h"

/// The identifiers by which other code opens the program's windows.
namespace SceneId {

inline constexpr QLatin1String kWelcome("welcome-view");
inline constexpr QLatin1String kAddSnippet("add-snippet");
inline constexpr QLatin1String kAddSnippetCopy("add-snippet-copy");
inline constexpr QLatin1String kLibrary("quillery");
inline constexpr QLatin1String kSettings("settings");

} // namespace SceneId

/// Builds the content of each scene. Every function returns a new widget without parent.
struct SceneBuilders
{
    std::function<QWidget *()> welcome;
    std::function<QWidget *(bool copy)> addSnippet;
    std::function<QWidget *()> snippetLibrary;
    std::function<QWidget *()> settings;
};

/// The scenes in their order of declaration. The menu-bar window is not among them: it has no
/// identifier, and the tray icon opens it. Nor is there a settings scene without identifier: the
/// one entry of the desktop's menus for the settings is the "settings" scene.
std::vector<Scene> makeScenes(const SceneBuilders &build);
