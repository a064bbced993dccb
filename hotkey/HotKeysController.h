// SPDX-License-Identifier: MIT
#pragma once

#include "hotkey/HotKey.h"
#include "platform/hotkeys/HotkeyService.h"

#include <QPointer>

#include <map>
#include <optional>

/// Registers the hot keys and calls their handlers. Every failure of the desktop is silent here;
/// the desktop's side logs it. Main thread only.
namespace hotkey::HotKeysController {

/// 'RVHk', the mark on the hot keys of this library.
inline constexpr quint32 kSignature = 0x5256486B;

/// A registration. It does not keep its hot key alive.
struct HotKeyBox
{
    QUuid identifier; ///< the hot key's
    QPointer<HotKey> hotKey;
    quint32 carbonHotKeyID = 0;
    platform::HotkeyRef carbonEventHotKey{};
};

using HotKeys = std::map<quint32, HotKeyBox>;

/// Called before the first HotKey; `service` must live until tearDown() or the end of the process.
/// Without it hot keys do nothing.
void setUp(platform::HotkeyService &service);
/// Gives every hot key back; ids start anew. HotKey objects that are left do nothing any more.
void tearDown();

/// Asks the desktop for the hot key's combo, unless it is registered already.
void registerHotKey(HotKey &hotKey);
/// Gives the combo back, if it is registered.
void unregister(const HotKey &hotKey);

/// The one event handler. Events of other libraries, known by their signature, are passed on.
/// @param event null counts as an event of no interest
/// @return noErr if a registration matches, whether or not it has a handler; else
///         eventNotHandledErr
qint32 handleEvent(const platform::HotkeyEvent *event);

/// By id. The first id is 1; ids are never used again.
const HotKeys &hotKeys();
/// The last id that was given to a registration, also to one that failed.
quint32 hotKeyId();
const std::optional<platform::HotkeyHandlerRef> &eventHandler();

} // namespace hotkey::HotKeysController
