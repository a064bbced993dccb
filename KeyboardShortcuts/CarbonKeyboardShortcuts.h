// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcuts/RunLoopLocalEventMonitor.h"
#include "KeyboardShortcuts/Shortcut.h"
#include "platform/hotkeys/HotkeyService.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>

/// The hot keys behind the named shortcuts: one registration per shortcut, one event handler for
/// all of them. Every failure of the desktop is silent here; the desktop's side logs it. Main
/// thread only.
namespace CarbonKeyboardShortcuts {

using KeyboardShortcuts::Shortcut;
using Callback = std::function<void(const Shortcut &shortcut)>;

/// 'TWKS', the mark on the hot keys of this library.
inline constexpr quint32 kSignature = 0x54574B53;

/// Answers of the event handler.
using platform::eventNotHandledErr;
using platform::noErr;
inline constexpr qint32 eventParameterNotFoundErr = -9870;

using platform::hotKeyEventTypes;
inline constexpr auto rawKeyEventTypes = std::to_array<platform::HotkeyEventType>({
    {platform::HotkeyEventType::kKeyboardClass, platform::HotkeyEventType::kRawKeyDown},
    {platform::HotkeyEventType::kKeyboardClass, platform::HotkeyEventType::kRawKeyUp},
});

/// One registered shortcut.
struct HotKey
{
    Shortcut shortcut;
    qint64 carbonHotKeyId = 0;
    std::optional<platform::HotkeyRef> carbonHotKey; ///< none while it is given back for a time
    Callback onKeyDown;
    Callback onKeyUp;
};

using HotKeys = std::map<qint64, std::shared_ptr<HotKey>>;

void setUp(platform::HotkeyService &service);
/// Gives every hot key back; ids start anew.
void tearDown();

/// Registers one hot key. A shortcut that the desktop refuses, or whose numbers no hot key can
/// have, is not recorded.
void registerShortcut(const Shortcut &shortcut, Callback onKeyDown, Callback onKeyUp);

/// Unregisters every hot key with this shortcut.
void unregister(const Shortcut &shortcut);

/// Brings registrations, event types and key monitor in line with KeyboardShortcuts::isEnabled()
/// and KeyboardShortcuts::isMenuOpen(). Does nothing before the handler is installed.
void updateEventHandler();

/// The one event handler.
/// @param event null counts as an event of no interest
/// @return noErr if a callback was called
qint32 handleEvent(const platform::HotkeyEvent *event);

/// By id. The first id is 1; ids are never used again.
const HotKeys &hotKeys();
qint64 hotKeyId();
const std::optional<platform::HotkeyHandlerRef> &eventHandler();

/// Sees the key events of the program's own menus; created on first use.
KeyboardShortcuts::RunLoopLocalEventMonitor &keyEventMonitor();

} // namespace CarbonKeyboardShortcuts
