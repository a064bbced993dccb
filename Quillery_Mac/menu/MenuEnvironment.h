// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>

class Funcs;
class ManagedObjectContext;
class SnippetMatcher;

namespace platform {
class Defaults;
class Desktop;
class MenuWindows;
class Pasteboard;
} // namespace platform

/// What every menu is given by the program around it. All of it outlives the menus.
struct MenuEnvironment
{
    Funcs &funcs;
    ManagedObjectContext &viewContext;
    platform::Defaults &defaults;
    platform::Pasteboard &pasteboard;
    platform::MenuWindows &windows; ///< the group that this menu is shown in
    platform::Desktop &desktop;
    /// Shared by all menus, so that the folded texts are made only once.
    SnippetMatcher &matcher;

    /// The shortcut that adds a selection, as the menu-bar window shows it; empty for none.
    std::function<QString()> addShortcutHint = [] { return QString(); };
    /// A search field comes up: the searched texts may be prepared in the background.
    std::function<void()> searchMayBegin = [] {};
    std::function<void()> terminate = [] { QCoreApplication::quit(); };
};
