// SPDX-License-Identifier: MIT
#include "hotkey/HotKeysController.h"

#include <algorithm>

namespace hotkey::HotKeysController {

using platform::HotkeyEvent;
using platform::HotkeyEventType;

namespace {

struct State
{
    platform::HotkeyService *service = nullptr;
    HotKeys hotKeys;
    quint32 hotKeyId = 0;
    std::optional<platform::HotkeyHandlerRef> eventHandler;
};

State &state()
{
    static State instance;
    return instance;
}

HotKeys::iterator findBox(const HotKey &hotKey)
{
    return std::ranges::find_if(state().hotKeys, [&hotKey](const auto &entry) {
        return entry.second.identifier == hotKey.identifier();
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
    state().service->addEventTypes(*handler, platform::hotKeyEventTypes);
}

bool isHotKeyEvent(const HotkeyEvent &event)
{
    return std::ranges::find(platform::hotKeyEventTypes, event.type) !=
           platform::hotKeyEventTypes.end();
}

// Works on a copy of the handler, because a handler may end its own hot key.
void call(const HotKey &hotKey, quint32 kind)
{
    const HotKey::Handler handler =
        kind == HotkeyEventType::kHotkeyPressed ? hotKey.keyDownHandler : hotKey.keyUpHandler;
    if (handler)
        handler();
}

} // namespace

void setUp(platform::HotkeyService &service)
{
    tearDown();
    state().service = &service;
}

void tearDown()
{
    for (const auto &[id, box] : state().hotKeys)
        state().service->unregisterHotkey(box.carbonEventHotKey);
    if (state().eventHandler)
        state().service->removeEventTypes(*state().eventHandler, platform::hotKeyEventTypes);
    state() = State();
}

void registerHotKey(HotKey &hotKey)
{
    if (state().service == nullptr || findBox(hotKey) != state().hotKeys.end())
        return;
    const quint32 id = ++state().hotKeyId;
    const KeyCombo &combo = hotKey.keyCombo();
    const auto ref = state().service->registerHotkey(combo.carbonKeyCode, combo.carbonModifiers,
                                                     {kSignature, id});
    if (!ref)
        return;
    state().hotKeys.emplace(id, HotKeyBox{hotKey.identifier(), &hotKey, id, *ref});
    installHandlerOnce();
}

void unregister(const HotKey &hotKey)
{
    const auto found = findBox(hotKey);
    if (found == state().hotKeys.end())
        return;
    state().service->unregisterHotkey(found->second.carbonEventHotKey);
    state().hotKeys.erase(found);
}

qint32 handleEvent(const HotkeyEvent *event)
{
    if (event == nullptr || !isHotKeyEvent(*event) || !event->hotkeyId ||
        event->hotkeyId->signature != kSignature) {
        return platform::eventNotHandledErr;
    }
    const auto found = state().hotKeys.find(event->hotkeyId->id);
    if (found == state().hotKeys.end())
        return platform::eventNotHandledErr;
    if (const HotKey *hotKey = found->second.hotKey)
        call(*hotKey, event->type.kind);
    return platform::noErr;
}

const HotKeys &hotKeys()
{
    return state().hotKeys;
}

quint32 hotKeyId()
{
    return state().hotKeyId;
}

const std::optional<platform::HotkeyHandlerRef> &eventHandler()
{
    return state().eventHandler;
}

} // namespace hotkey::HotKeysController
