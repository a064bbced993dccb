// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/HotkeyHandlers.h"
#include "platform/hotkeys/HotkeyService.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

/// Hot keys without a keyboard: press() and release() are the user's fingers.
class FakeHotkeyService : public platform::HotkeyService
{
public:
    struct Registered
    {
        quint32 keyCode;
        quint32 modifiers;
        platform::HotkeyId id;
    };
    using Chord = std::pair<quint32, quint32>;

    QString backendId() const override { return QStringLiteral("fake"); }
    platform::Availability availability() const override { return {true, {}}; }

    platform::Result<platform::HotkeyRef> registerHotkey(quint32 keyCode, quint32 modifiers,
                                                         platform::HotkeyId id) override
    {
        ++registrations;
        if (taken.contains({keyCode, modifiers}))
            return platform::failure(platform::Error::Kind::Taken, QStringLiteral("taken"));
        const auto ref = platform::HotkeyRef(++lastRef);
        held.emplace(ref, Registered{keyCode, modifiers, id});
        return ref;
    }

    void unregisterHotkey(platform::HotkeyRef hotkey) override
    {
        ++unregistrations;
        held.erase(hotkey);
    }

    bool isHeldElsewhere(quint32 keyCode, quint32 modifiers) override
    {
        return taken.contains({keyCode, modifiers});
    }

    platform::Result<platform::HotkeyHandlerRef>
    installHandler(platform::HotkeyHandler handler) override
    {
        ++handlerInstallations;
        if (isRefusingHandlers)
            return platform::failure(platform::Error::Kind::Refused, QStringLiteral("refused"));
        return handlers.install(std::move(handler));
    }

    void addEventTypes(platform::HotkeyHandlerRef handler,
                       std::span<const platform::HotkeyEventType> types) override
    {
        handlers.addTypes(handler, types);
    }

    void removeEventTypes(platform::HotkeyHandlerRef handler,
                          std::span<const platform::HotkeyEventType> types) override
    {
        handlers.removeTypes(handler, types);
    }

    quint32 lastEventTime() const override { return eventTime; }

    /// @return whether the chord is held and a handler took the event
    bool press(quint32 keyCode, quint32 modifiers)
    {
        return send(platform::HotkeyEventType::kHotkeyPressed, keyCode, modifiers);
    }

    bool release(quint32 keyCode, quint32 modifiers)
    {
        return send(platform::HotkeyEventType::kHotkeyReleased, keyCode, modifiers);
    }

    bool holds(quint32 keyCode, quint32 modifiers) const
    {
        return std::ranges::any_of(held, [keyCode, modifiers](const auto &entry) {
            return entry.second.keyCode == keyCode && entry.second.modifiers == modifiers;
        });
    }

    std::set<Chord> taken;           ///< chords that somebody else holds
    bool isRefusingHandlers = false; ///< installHandler() fails from now on
    std::map<platform::HotkeyRef, Registered> held;
    platform::HotkeyHandlers handlers;
    int registrations = 0;
    int unregistrations = 0;
    int handlerInstallations = 0;
    quint64 lastRef = 0;
    quint32 eventTime = 0;

private:
    bool send(quint32 kind, quint32 keyCode, quint32 modifiers)
    {
        for (const auto &[ref, hotkey] : held) {
            if (hotkey.keyCode != keyCode || hotkey.modifiers != modifiers)
                continue;
            platform::HotkeyEvent event;
            event.type.kind = kind;
            event.hotkeyId = hotkey.id;
            return handlers.deliver(event);
        }
        return false;
    }
};
