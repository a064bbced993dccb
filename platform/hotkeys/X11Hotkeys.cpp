// SPDX-License-Identifier: MIT
#include "platform/hotkeys/X11Hotkeys.h"

#include "platform/hotkeys/X11GrabProbe.h"
#include "platform/keyboard/KeyCodes.h"
#include "platform/log/Log.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace platform {

namespace {

constexpr quint8 kEventTypeMask = 0x7F; // the top bit marks events sent by clients

QString chordText(quint32 keyCode, quint32 modifiers)
{
    return QStringLiteral("key code %1 with modifiers 0x%2").arg(keyCode).arg(modifiers, 0, 16);
}

} // namespace

std::unique_ptr<X11Hotkeys> X11Hotkeys::create()
{
    std::unique_ptr<X11Connection> connection = X11Connection::create();
    if (!connection)
        return nullptr;
    std::unique_ptr<X11Keyboard> keyboard = X11Keyboard::create(*connection);
    std::unique_ptr<X11KeyRelease> release = X11KeyRelease::create(*connection);
    if (!keyboard || !release)
        return nullptr;
    return std::unique_ptr<X11Hotkeys>(
        new X11Hotkeys(std::move(connection), std::move(keyboard), std::move(release)));
}

X11Hotkeys::X11Hotkeys(std::unique_ptr<X11Connection> connection,
                       std::unique_ptr<X11Keyboard> keyboard,
                       std::unique_ptr<X11KeyRelease> release)
    : m_connection(std::move(connection))
    , m_keyboard(std::move(keyboard))
    , m_release(std::move(release))
    , m_modifiers(X11Modifiers::read(*m_connection))
{
    m_keyboard->makeRepeatDetectable();
    connect(m_keyboard.get(), &X11Keyboard::mapChanged, this, &X11Hotkeys::adoptMap);
    connect(m_release.get(), &X11KeyRelease::released, this, &X11Hotkeys::handleRelease);
    connect(m_connection.get(), &X11Connection::received, this, &X11Hotkeys::handle);
}

X11Hotkeys::~X11Hotkeys() = default;

QString X11Hotkeys::backendId() const
{
    return QStringLiteral("x11");
}

Availability X11Hotkeys::availability() const
{
    if (xcb_connection_has_error(m_connection->xcb()) != 0)
        return {false, QStringLiteral("The connection to the X server was lost.")};
    return {true, {}};
}

Result<HotkeyRef> X11Hotkeys::registerHotkey(quint32 keyCode, quint32 modifiers, HotkeyId id)
{
    if (const Availability now = availability(); !now.isAvailable)
        return failure(Error::Kind::Unavailable, now.reason);
    const std::optional<Chord> chord = chordOf(keyCode, modifiers);
    const QString text = chordText(keyCode, modifiers);
    if (!chord) {
        qCWarning(logHotkeys).noquote() << "No such hot key on this keyboard:" << text;
        return failure(Error::Kind::NotFound, text);
    }
    if (!grab(*chord)) {
        qCWarning(logHotkeys).noquote() << "Another program holds the hot key:" << text;
        return failure(Error::Kind::Taken, text);
    }
    const auto ref = HotkeyRef(++m_lastRef);
    m_hotkeys.emplace(ref, Hotkey{id, keyCode, modifiers});
    noteIfDown(chord->keycode);
    return ref;
}

void X11Hotkeys::unregisterHotkey(HotkeyRef hotkey)
{
    const auto found = m_hotkeys.find(hotkey);
    if (found == m_hotkeys.end())
        return;
    const auto chord = chordOf(found->second.keyCode, found->second.modifiers);
    m_hotkeys.erase(found);
    if (chord && !isWanted(*chord))
        ungrab(*chord);
}

bool X11Hotkeys::isHeldElsewhere(quint32 keyCode, quint32 modifiers)
{
    const std::optional<Chord> chord = chordOf(keyCode, modifiers);
    if (!chord || isWanted(*chord))
        return false;
    std::vector<quint16> masks = m_modifiers.lockVariants(chord->mask);
    for (quint16 &mask : masks)
        mask |= chord->mask;
    return isGrabbedByOthers(*m_connection, chord->keycode, masks);
}

Result<HotkeyHandlerRef> X11Hotkeys::installHandler(HotkeyHandler handler)
{
    return m_handlers.install(std::move(handler));
}

void X11Hotkeys::addEventTypes(HotkeyHandlerRef handler, std::span<const HotkeyEventType> types)
{
    m_handlers.addTypes(handler, types);
}

void X11Hotkeys::removeEventTypes(HotkeyHandlerRef handler, std::span<const HotkeyEventType> types)
{
    m_handlers.removeTypes(handler, types);
}

quint32 X11Hotkeys::lastEventTime() const
{
    return m_lastEventTime;
}

std::optional<X11Hotkeys::Chord> X11Hotkeys::chordOf(quint32 keyCode, quint32 modifiers) const
{
    if (keyCode > 0xFFFF)
        return std::nullopt;
    const std::optional<quint8> keycode = x11KeycodeFromCarbon(static_cast<int>(keyCode));
    const std::optional<quint16> mask = m_modifiers.mask(modifiers);
    const xcb_setup_t *setup = xcb_get_setup(m_connection->xcb());
    if (!keycode || !mask || *keycode < setup->min_keycode || *keycode > setup->max_keycode)
        return std::nullopt;
    return Chord{*keycode, *mask};
}

// The server holds one grab for all registrations of a chord.
bool X11Hotkeys::isWanted(const Chord &chord) const
{
    return std::ranges::any_of(m_hotkeys, [this, &chord](const auto &entry) {
        return chordOf(entry.second.keyCode, entry.second.modifiers) == chord;
    });
}

// All variants are asked for before the first answer is awaited: one round trip.
bool X11Hotkeys::grab(const Chord &chord)
{
    struct Attempt
    {
        quint16 mask;
        xcb_void_cookie_t cookie;
        bool isOurs = false;
    };
    std::vector<Attempt> attempts;
    for (const quint16 locks : m_modifiers.lockVariants(chord.mask)) {
        const auto mask = static_cast<quint16>(chord.mask | locks);
        attempts.push_back(
            {mask, xcb_grab_key_checked(m_connection->xcb(), 0, m_connection->root(), mask,
                                        chord.keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)});
    }
    for (Attempt &attempt : attempts)
        attempt.isOurs = m_connection->check(attempt.cookie) == 0;
    // A lost connection answers nothing, which is no success.
    if (availability().isAvailable && std::ranges::all_of(attempts, &Attempt::isOurs))
        return true;
    for (const Attempt &attempt : attempts) {
        if (attempt.isOurs) {
            xcb_ungrab_key(m_connection->xcb(), chord.keycode, m_connection->root(), attempt.mask);
        }
    }
    xcb_flush(m_connection->xcb());
    return false;
}

void X11Hotkeys::ungrab(const Chord &chord)
{
    for (const quint16 locks : m_modifiers.lockVariants(chord.mask)) {
        const auto mask = static_cast<quint16>(chord.mask | locks);
        xcb_ungrab_key(m_connection->xcb(), chord.keycode, m_connection->root(), mask);
    }
    xcb_flush(m_connection->xcb());
}

// The repeats of a key that is held already wake the new grab, but nobody pressed it. Releases are
// watched before the key map is read, so that none is missed in between.
void X11Hotkeys::noteIfDown(xcb_keycode_t keycode)
{
    if (m_down.contains(keycode))
        return;
    m_release->start();
    const auto map =
        m_connection->reply(xcb_query_keymap_reply, xcb_query_keymap(m_connection->xcb()));
    const bool isDown = map && (map->keys[keycode / 8] >> (keycode % 8) & 1) != 0;
    if (isDown) {
        m_down.emplace(keycode, kNoHotkey);
    } else if (m_down.empty()) {
        m_release->stop();
        xcb_flush(m_connection->xcb());
    }
}

// The server keeps grabs by keycode and modifier bit through every change of the map, so they are
// wrong only when a modifier moved to another bit.
void X11Hotkeys::adoptMap()
{
    const X11Modifiers modifiers = X11Modifiers::read(*m_connection);
    if (modifiers == m_modifiers)
        return;
    for (const auto &[ref, hotkey] : m_hotkeys) {
        if (const auto chord = chordOf(hotkey.keyCode, hotkey.modifiers))
            ungrab(*chord);
    }
    m_modifiers = modifiers;
    for (const auto &[ref, hotkey] : m_hotkeys) {
        const auto chord = chordOf(hotkey.keyCode, hotkey.modifiers);
        if (!chord || !grab(*chord)) {
            qCWarning(logHotkeys).noquote()
                << "After a change of the keyboard map this hot key is"
                << "not ours any more:" << chordText(hotkey.keyCode, hotkey.modifiers);
        }
    }
}

void X11Hotkeys::handle(const xcb_generic_event_t &event)
{
    const auto type = static_cast<quint8>(event.response_type & kEventTypeMask);
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return;
    xcb_key_press_event_t key = {}; // releases have the same layout
    std::memcpy(&key, &event, sizeof(key));
    if (type == XCB_KEY_PRESS)
        handlePress(key);
    else
        handleRelease(key.detail, key.time);
}

// The order of the two requests closes the gap between them: a release before the first one still
// finds the grab active and comes as a key event, one after it comes as a raw event. One in between
// comes as both and counts once. The answer is awaited because a handler may take the keyboard on
// another connection, whose requests the server may carry out before ours.
void X11Hotkeys::handlePress(const xcb_key_press_event_t &press)
{
    m_release->start();
    m_connection->check(xcb_ungrab_keyboard_checked(m_connection->xcb(), XCB_CURRENT_TIME));

    const std::optional<HotkeyRef> hotkey = findPressed(press);
    // Auto-repeat wakes the passive grab again and again while the key is down.
    const bool isRepeat = m_down.contains(press.detail);
    if (hotkey && !isRepeat) {
        m_down.emplace(press.detail, *hotkey);
        deliver(*hotkey, HotkeyEventType::kHotkeyPressed, press.time);
    } else if (m_down.empty()) {
        m_release->stop();
    }
}

void X11Hotkeys::handleRelease(quint8 keycode, quint32 time)
{
    const auto down = m_down.find(keycode);
    if (down == m_down.end())
        return;
    const HotkeyRef hotkey = down->second;
    m_down.erase(down);
    if (m_down.empty()) {
        m_release->stop();
        xcb_flush(m_connection->xcb());
    }
    deliver(hotkey, HotkeyEventType::kHotkeyReleased, time);
}

std::optional<HotkeyRef> X11Hotkeys::findPressed(const xcb_key_press_event_t &press) const
{
    const quint16 state = m_modifiers.withoutLocks(press.state);
    for (const auto &[ref, hotkey] : m_hotkeys) {
        const auto chord = chordOf(hotkey.keyCode, hotkey.modifiers);
        if (chord && chord->keycode == press.detail &&
            m_modifiers.withoutLocks(chord->mask) == state) {
            return ref;
        }
    }
    return std::nullopt;
}

void X11Hotkeys::deliver(HotkeyRef hotkey, quint32 kind, quint32 time)
{
    const auto found = m_hotkeys.find(hotkey);
    if (found == m_hotkeys.end())
        return;
    m_lastEventTime = time;
    HotkeyEvent event;
    event.type.kind = kind;
    event.hotkeyId = found->second.id;
    m_handlers.deliver(event);
}

} // namespace platform
