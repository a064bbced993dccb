// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/Name.h"
#include "KeyboardShortcuts/Notifications.h"
#include "KeyboardShortcuts/Shortcut.h"

#include <QMap>
#include <QSet>

#include <functional>
#include <optional>
#include <vector>

namespace platform {
class Defaults;
class HotkeyService;
class KeyboardLayout;
} // namespace platform

/// Named keyboard shortcuts that work in every program, and that the user can change.
///
/// A name owns one entry of the defaults store, "KeyboardShortcuts_" and its text: nothing (no
/// shortcut), the JSON text of a Shortcut, or false (the user removed the shortcut of a name that
/// has a default). Whatever else stands there reads as no shortcut and is left alone. An entry that
/// is edited by hand while the program runs is followed at once, for names that have a handler or
/// were stored. Main thread only; the state is the program's.
namespace KeyboardShortcuts {

using Action = std::function<void()>;
using Handlers = QMap<Name, std::vector<Action>>;

/// Gives the library what it works with. Called once, before the first Name; all three must live
/// until tearDown() or the end of the process.
void setUp(platform::Defaults &defaults, platform::HotkeyService &service,
           platform::KeyboardLayout &layout);

/// Gives every hot key back and forgets handlers, flags and names.
void tearDown();

/// The stored shortcut of a name.
std::optional<Shortcut> getShortcut(const Name &name);

/// Stores and registers a shortcut, also when it equals the stored one, or removes the stored one.
/// Removing where nothing is stored does nothing at all.
void setShortcut(const std::optional<Shortcut> &shortcut, const Name &name);

/// Puts each name back to its default; what stands under a name without one is taken away. Always
/// announced.
void reset(const std::vector<Name> &names);

/// Adds a handler for a name, after those it has. Its shortcut is registered if it is not yet.
void onKeyDown(const Name &name, Action action);
void onKeyUp(const Name &name, Action action);

/// While false no hot key is held.
bool isEnabled();
void setEnabled(bool isEnabled);

/// While true the hot keys stay ours but no handler is called; what is pressed is announced by
/// Notifications::didPressWhilePaused(). Nor is a handler called for letting go of such a key
/// later.
bool isPaused();
void setPaused(bool isPaused);

/// Whether a menu of the program holds the keyboard; shortcuts are then taken from its key events.
bool isMenuOpen();
void setMenuOpen(bool isMenuOpen);

/// The shortcuts that were handed to the desktop, those that it refused included.
const QSet<Shortcut> &registeredShortcuts();

const Handlers &keyDownHandlers();
const Handlers &keyUpHandlers();

/// Announces changes of stored shortcuts; lives as long as the process.
Notifications &notifications();

/// The layout that names keys; null before setUp().
platform::KeyboardLayout *keyboardLayout();

/// Observes the program's menus. Runs once; every creation of a name calls it.
void startUp();

/// Whether anything at all stands under the name's key.
bool hasStoredObject(const Name &name);

} // namespace KeyboardShortcuts
