// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/HotkeyHandlers.h"
#include "platform/hotkeys/X11KeyRelease.h"
#include "platform/hotkeys/X11Modifiers.h"
#include "platform/keyboard/X11Keyboard.h"

#include <QObject>

#include <map>
#include <memory>
#include <optional>

namespace platform {

/// Hot keys by passive grabs on an X connection of their own.
///
/// A passive grab turns into an active one when its chord is pressed, and would keep the whole
/// keyboard from everybody else until the key is let go. It is ended at once; the release is then
/// found by X11KeyRelease.
class X11Hotkeys : public QObject, public HotkeyService
{
    Q_OBJECT

public:
    /// Null when the toolkit does not run on X11, or the server lacks XKB or XI2.
    static std::unique_ptr<X11Hotkeys> create();
    ~X11Hotkeys() override;

    QString backendId() const override;
    Availability availability() const override;
    Result<HotkeyRef> registerHotkey(quint32 keyCode, quint32 modifiers, HotkeyId id) override;
    void unregisterHotkey(HotkeyRef hotkey) override;
    bool isHeldElsewhere(quint32 keyCode, quint32 modifiers) override;
    Result<HotkeyHandlerRef> installHandler(HotkeyHandler handler) override;
    void addEventTypes(HotkeyHandlerRef handler, std::span<const HotkeyEventType> types) override;
    void removeEventTypes(HotkeyHandlerRef handler,
                          std::span<const HotkeyEventType> types) override;
    quint32 lastEventTime() const override;

private:
    struct Hotkey
    {
        HotkeyId id;
        quint32 keyCode;
        quint32 modifiers; ///< HotkeyModifier bits; the X mask depends on the keyboard map
    };

    /// A key and its modifiers as the server counts them.
    struct Chord
    {
        xcb_keycode_t keycode;
        quint16 mask;

        friend bool operator==(const Chord &, const Chord &) = default;
    };

    static constexpr HotkeyRef kNoHotkey{0};

    X11Hotkeys(std::unique_ptr<X11Connection> connection, std::unique_ptr<X11Keyboard> keyboard,
               std::unique_ptr<X11KeyRelease> release);

    std::optional<Chord> chordOf(quint32 keyCode, quint32 modifiers) const;
    std::optional<HotkeyRef> findPressed(const xcb_key_press_event_t &press) const;
    bool isWanted(const Chord &chord) const;
    bool grab(const Chord &chord);
    void ungrab(const Chord &chord);
    void adoptMap();
    void noteIfDown(xcb_keycode_t keycode);

    void handle(const xcb_generic_event_t &event);
    void handlePress(const xcb_key_press_event_t &press);
    void handleRelease(quint8 keycode, quint32 time);
    void deliver(HotkeyRef hotkey, quint32 kind, quint32 time);

    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<X11Keyboard> m_keyboard;
    std::unique_ptr<X11KeyRelease> m_release;
    X11Modifiers m_modifiers;
    HotkeyHandlers m_handlers;
    std::map<HotkeyRef, Hotkey> m_hotkeys;
    /// The keys that are down, with the hot key that each of them pressed; kNoHotkey for a key that
    /// was down before it became a hot key.
    std::map<xcb_keycode_t, HotkeyRef> m_down;
    quint64 m_lastRef = 0;
    quint32 m_lastEventTime = 0;
};

} // namespace platform
