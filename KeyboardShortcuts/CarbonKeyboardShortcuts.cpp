// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/CarbonKeyboardShortcuts.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "platform/keyboard/KeyCodes.h"

#include <QKeyEvent>

#include <algorithm>
#include <limits>
#include <utility>

namespace CarbonKeyboardShortcuts {

using KeyboardShortcuts::RunLoopLocalEventMonitor;
using platform::HotkeyEvent;
using platform::HotkeyEventType;

namespace {

struct State
{
    platform::HotkeyService *service = nullptr;
    HotKeys hotKeys;
    qint64 hotKeyId = 0;
    std::optional<platform::HotkeyHandlerRef> eventHandler;
    std::unique_ptr<RunLoopLocalEventMonitor> keyEventMonitor;
};

State &state()
{
    static State instance;
    return instance;
}

/// Stored numbers can be anything. Key codes have 16 bits, modifiers 32.
bool canBeHotKey(const Shortcut &shortcut)
{
    return shortcut.carbonKeyCode >= 0 &&
           shortcut.carbonKeyCode <= std::numeric_limits<quint16>::max() &&
           shortcut.carbonModifiers >= 0 &&
           shortcut.carbonModifiers <= std::numeric_limits<quint32>::max();
}

/// Asks the desktop for the key; none if it says no.
std::optional<platform::HotkeyRef> acquire(const Shortcut &shortcut, qint64 id)
{
    if (!canBeHotKey(shortcut))
        return std::nullopt;
    const auto ref = state().service->registerHotkey(static_cast<quint32>(shortcut.carbonKeyCode),
                                                     static_cast<quint32>(shortcut.carbonModifiers),
                                                     {kSignature, static_cast<quint32>(id)});
    return ref ? std::optional(*ref) : std::nullopt;
}

void release(HotKey &hotKey)
{
    if (hotKey.carbonHotKey)
        state().service->unregisterHotkey(*hotKey.carbonHotKey);
    hotKey.carbonHotKey.reset();
}

void releaseAll()
{
    for (const auto &[id, hotKey] : state().hotKeys)
        release(*hotKey);
}

void acquireAll()
{
    std::erase_if(state().hotKeys, [](const auto &entry) {
        HotKey &hotKey = *entry.second;
        if (!hotKey.carbonHotKey)
            hotKey.carbonHotKey = acquire(hotKey.shortcut, hotKey.carbonHotKeyId);
        return !hotKey.carbonHotKey;
    });
}

// Without a handler the hot key stays registered, but nothing hears of it.
void installHandlerOnce()
{
    if (state().eventHandler)
        return;
    const auto handler = state().service->installHandler(handleEvent);
    if (!handler)
        return;
    state().eventHandler = *handler;
    updateEventHandler();
}

qint32 handleHotKeyEvent(const HotkeyEvent &event)
{
    if (!event.hotkeyId)
        return eventParameterNotFoundErr;
    if (event.hotkeyId->signature != kSignature)
        return eventNotHandledErr;
    const auto found = state().hotKeys.find(event.hotkeyId->id);
    if (found == state().hotKeys.end())
        return eventNotHandledErr;
    // A callback may unregister its own hot key.
    const std::shared_ptr<HotKey> hotKey = found->second;
    if (event.type.kind == HotkeyEventType::kHotkeyPressed)
        hotKey->onKeyDown(hotKey->shortcut);
    else
        hotKey->onKeyUp(hotKey->shortcut);
    return noErr;
}

qint32 handleRawKeyEvent(const HotkeyEvent &event)
{
    if (!event.keyCode || !event.modifiers)
        return eventParameterNotFoundErr;
    const qint64 modifiers =
        KeyboardShortcuts::carbonModifiers(KeyboardShortcuts::eventModifiers(*event.modifiers));
    const Shortcut shortcut(*event.keyCode, modifiers);
    const auto found = std::ranges::find_if(state().hotKeys, [&shortcut](const auto &entry) {
        return entry.second->shortcut == shortcut;
    });
    if (found == state().hotKeys.end())
        return eventNotHandledErr;
    const std::shared_ptr<HotKey> hotKey = found->second;
    if (event.type.kind == HotkeyEventType::kRawKeyDown)
        hotKey->onKeyDown(hotKey->shortcut);
    else
        hotKey->onKeyUp(hotKey->shortcut);
    return noErr;
}

/// A key event of the program as a raw key event; none for a key without a number. Repeats of a
/// held key are a kind of their own, which nobody takes.
std::optional<HotkeyEvent> rawKeyEvent(const QKeyEvent &key)
{
    const auto shortcut = Shortcut::fromEvent(key);
    if (!shortcut)
        return std::nullopt;
    HotkeyEvent event;
    if (key.isAutoRepeat())
        event.type.kind = HotkeyEventType::kRawKeyRepeat;
    else if (key.type() == QEvent::KeyPress)
        event.type.kind = HotkeyEventType::kRawKeyDown;
    else
        event.type.kind = HotkeyEventType::kRawKeyUp;
    event.keyCode = static_cast<quint32>(shortcut->carbonKeyCode);
    event.modifiers = static_cast<quint32>(shortcut->carbonModifiers);
    return event;
}

QEvent *monitorKeyEvent(QEvent *event)
{
    const auto raw = rawKeyEvent(static_cast<const QKeyEvent &>(*event));
    return raw && handleEvent(&*raw) == noErr ? nullptr : event;
}

} // namespace

void setUp(platform::HotkeyService &service)
{
    tearDown();
    state().service = &service;
}

void tearDown()
{
    releaseAll();
    if (state().eventHandler)
        state().service->removeEventTypes(*state().eventHandler, hotKeyEventTypes);
    state() = State();
}

void registerShortcut(const Shortcut &shortcut, Callback onKeyDown, Callback onKeyUp)
{
    const qint64 id = ++state().hotKeyId;
    const auto ref = acquire(shortcut, id);
    if (!ref)
        return;
    state().hotKeys.emplace(id, std::make_shared<HotKey>(HotKey{
                                    shortcut, id, ref, std::move(onKeyDown), std::move(onKeyUp)}));
    installHandlerOnce();
}

void unregister(const Shortcut &shortcut)
{
    std::erase_if(state().hotKeys, [&shortcut](const auto &entry) {
        if (entry.second->shortcut != shortcut)
            return false;
        release(*entry.second);
        return true;
    });
}

void updateEventHandler()
{
    if (!state().eventHandler)
        return;
    platform::HotkeyService &service = *state().service;
    const platform::HotkeyHandlerRef handler = *state().eventHandler;
    if (KeyboardShortcuts::isEnabled() && !KeyboardShortcuts::isMenuOpen()) {
        acquireAll();
        keyEventMonitor().stop();
        service.addEventTypes(handler, hotKeyEventTypes);
        return;
    }
    releaseAll();
    service.removeEventTypes(handler, hotKeyEventTypes);
    if (KeyboardShortcuts::isEnabled())
        keyEventMonitor().start();
    else
        keyEventMonitor().stop();
}

qint32 handleEvent(const HotkeyEvent *event)
{
    if (event == nullptr || event->type.eventClass != HotkeyEventType::kKeyboardClass)
        return eventNotHandledErr;
    switch (event->type.kind) {
    case HotkeyEventType::kHotkeyPressed:
    case HotkeyEventType::kHotkeyReleased:
        return handleHotKeyEvent(*event);
    case HotkeyEventType::kRawKeyDown:
    case HotkeyEventType::kRawKeyUp:
        return handleRawKeyEvent(*event);
    default:
        return eventNotHandledErr;
    }
}

const HotKeys &hotKeys()
{
    return state().hotKeys;
}

qint64 hotKeyId()
{
    return state().hotKeyId;
}

const std::optional<platform::HotkeyHandlerRef> &eventHandler()
{
    return state().eventHandler;
}

RunLoopLocalEventMonitor &keyEventMonitor()
{
    constexpr quint32 kKeyEvents =
        RunLoopLocalEventMonitor::KeyDownMask | RunLoopLocalEventMonitor::KeyUpMask;
    if (!state().keyEventMonitor) {
        state().keyEventMonitor =
            std::make_unique<RunLoopLocalEventMonitor>(kKeyEvents, monitorKeyEvent);
    }
    return *state().keyEventMonitor;
}

} // namespace CarbonKeyboardShortcuts
