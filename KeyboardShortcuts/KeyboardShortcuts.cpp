// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/KeyboardShortcuts.h"

#include "KeyboardShortcuts/CarbonKeyboardShortcuts.h"
#include "KeyboardShortcuts/MenuTracking.h"
#include "platform/defaults/Defaults.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace KeyboardShortcuts {

namespace {

struct State
{
    platform::Defaults *defaults = nullptr;
    platform::KeyboardLayout *layout = nullptr;
    bool isEnabled = true;
    bool isPaused = false;
    bool isMenuOpen = false;
    QSet<Shortcut> registeredShortcuts;
    QSet<Shortcut> pressedWhilePaused;         ///< and not let go since
    QMap<Name, std::optional<Shortcut>> known; ///< what each name had when it was looked at last
    Handlers keyDownHandlers;
    Handlers keyUpHandlers;
    std::unique_ptr<MenuTracking> menuTracking;
    QMetaObject::Connection edits;
};

State &state()
{
    static State instance;
    return instance;
}

/// Calls the handlers of every name whose shortcut fired. They may change shortcuts and handlers;
/// that counts from the next key on.
void dispatch(const Shortcut &shortcut, Handlers State::*table)
{
    if (state().isPaused)
        return;
    const Handlers handlers = state().*table;
    for (auto entry = handlers.cbegin(); entry != handlers.cend(); ++entry) {
        if (getShortcut(entry.key()) != shortcut)
            continue;
        for (const Action &action : entry.value())
            action();
    }
}

void dispatchKeyDown(const Shortcut &shortcut)
{
    if (state().isPaused) {
        state().pressedWhilePaused.insert(shortcut);
        emit notifications().didPressWhilePaused(shortcut);
        return;
    }
    state().pressedWhilePaused.remove(shortcut);
    dispatch(shortcut, &State::keyDownHandlers);
}

// The press of a key may end the pause, for example by being recorded. Letting go of it is then not
// yet the use of a shortcut.
void dispatchKeyUp(const Shortcut &shortcut)
{
    if (!state().pressedWhilePaused.remove(shortcut))
        dispatch(shortcut, &State::keyUpHandlers);
}

void registerIfNeeded(const Shortcut &shortcut)
{
    if (state().registeredShortcuts.contains(shortcut))
        return;
    CarbonKeyboardShortcuts::registerShortcut(shortcut, dispatchKeyDown, dispatchKeyUp);
    state().registeredShortcuts.insert(shortcut);
}

void unregister(const Shortcut &shortcut)
{
    CarbonKeyboardShortcuts::unregister(shortcut);
    state().registeredShortcuts.remove(shortcut);
}

void store(const Shortcut &shortcut, const Name &name)
{
    if (const std::optional<Shortcut> old = getShortcut(name))
        unregister(*old);
    registerIfNeeded(shortcut);
    state().known[name] = shortcut;
    state().defaults->setString(name.defaultsKey(), shortcut.toJson());
    emit notifications().shortcutByNameDidChange(name);
}

// A name with a default keeps false in its place: nothing at all would bring the default back at
// the next start.
void clear(const Name &name)
{
    const std::optional<Shortcut> old = getShortcut(name);
    if (!old)
        return;
    state().known[name] = std::nullopt;
    if (name.defaultShortcut())
        state().defaults->setBoolean(name.defaultsKey(), false);
    else
        state().defaults->remove(name.defaultsKey());
    unregister(*old);
    emit notifications().shortcutByNameDidChange(name);
}

// Unlike clear() it takes away whatever stands there, and is always announced.
void forget(const Name &name)
{
    const std::optional<Shortcut> old = getShortcut(name);
    state().known[name] = std::nullopt;
    state().defaults->remove(name.defaultsKey());
    if (old)
        unregister(*old);
    emit notifications().shortcutByNameDidChange(name);
}

void addHandler(const Name &name, Action action, Handlers State::*table)
{
    (state().*table)[name].push_back(std::move(action));
    const std::optional<Shortcut> shortcut = getShortcut(name);
    state().known[name] = shortcut;
    if (shortcut)
        registerIfNeeded(*shortcut);
}

bool isUsedByAName(const Shortcut &shortcut)
{
    const auto &known = state().known;
    return std::find(known.cbegin(), known.cend(), shortcut) != known.cend();
}

// What was written by hand while the program runs holds at once, as if it had been recorded.
void followEdit(const Name &name)
{
    const std::optional<Shortcut> now = getShortcut(name);
    const std::optional<Shortcut> old = std::exchange(state().known[name], now);
    if (now == old)
        return;
    if (old && !isUsedByAName(*old))
        unregister(*old);
    if (now)
        registerIfNeeded(*now);
    emit notifications().shortcutByNameDidChange(name);
}

void followEdits(const QString &key)
{
    const QList<Name> names = state().known.keys();
    for (const Name &name : names) {
        if (name.defaultsKey() == key)
            followEdit(name);
    }
}

} // namespace

void setUp(platform::Defaults &defaults, platform::HotkeyService &service,
           platform::KeyboardLayout &layout)
{
    tearDown();
    state().defaults = &defaults;
    state().layout = &layout;
    state().edits =
        QObject::connect(&defaults, &platform::Defaults::changed, &notifications(), followEdits);
    CarbonKeyboardShortcuts::setUp(service);
}

void tearDown()
{
    QObject::disconnect(state().edits);
    CarbonKeyboardShortcuts::tearDown();
    Name::forgetAll();
    state() = State();
}

std::optional<Shortcut> getShortcut(const Name &name)
{
    const std::optional<QString> text = state().defaults->string(name.defaultsKey());
    return text ? Shortcut::fromJson(*text) : std::nullopt;
}

void setShortcut(const std::optional<Shortcut> &shortcut, const Name &name)
{
    if (shortcut)
        store(*shortcut, name);
    else
        clear(name);
}

void reset(const std::vector<Name> &names)
{
    for (const Name &name : names) {
        if (const std::optional<Shortcut> shortcut = name.defaultShortcut())
            store(*shortcut, name);
        else
            forget(name);
    }
}

void onKeyDown(const Name &name, Action action)
{
    addHandler(name, std::move(action), &State::keyDownHandlers);
}

void onKeyUp(const Name &name, Action action)
{
    addHandler(name, std::move(action), &State::keyUpHandlers);
}

bool isEnabled()
{
    return state().isEnabled;
}

void setEnabled(bool isEnabled)
{
    if (std::exchange(state().isEnabled, isEnabled) != isEnabled)
        CarbonKeyboardShortcuts::updateEventHandler();
}

bool isPaused()
{
    return state().isPaused;
}

void setPaused(bool isPaused)
{
    state().isPaused = isPaused;
}

bool isMenuOpen()
{
    return state().isMenuOpen;
}

void setMenuOpen(bool isMenuOpen)
{
    if (std::exchange(state().isMenuOpen, isMenuOpen) != isMenuOpen)
        CarbonKeyboardShortcuts::updateEventHandler();
}

const QSet<Shortcut> &registeredShortcuts()
{
    return state().registeredShortcuts;
}

const Handlers &keyDownHandlers()
{
    return state().keyDownHandlers;
}

const Handlers &keyUpHandlers()
{
    return state().keyUpHandlers;
}

Notifications &notifications()
{
    static Notifications instance;
    return instance;
}

platform::KeyboardLayout *keyboardLayout()
{
    return state().layout;
}

void startUp()
{
    if (state().menuTracking)
        return;
    state().menuTracking = std::make_unique<MenuTracking>();
    MenuTracking *tracking = state().menuTracking.get();
    QObject::connect(tracking, &MenuTracking::menuDidBeginTracking, tracking,
                     [] { setMenuOpen(true); });
    QObject::connect(tracking, &MenuTracking::menuDidEndTracking, tracking,
                     [] { setMenuOpen(false); });
}

bool hasStoredObject(const Name &name)
{
    return state().defaults->contains(name.defaultsKey());
}

} // namespace KeyboardShortcuts
