// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Availability.h"
#include "platform/Result.h"

#include <QtGlobal>

#include <array>
#include <functional>
#include <optional>
#include <span>

namespace platform {

/// A hot key as its owner knows it: who registered it, and the owner's number for it.
struct HotkeyId
{
    quint32 signature = 0; ///< four characters, for example 'TWKS'
    quint32 id = 0;

    friend bool operator==(const HotkeyId &, const HotkeyId &) = default;
};

/// What a handler wants to hear of.
struct HotkeyEventType
{
    static constexpr quint32 kKeyboardClass = 0x6B657962; ///< 'keyb'

    static constexpr quint32 kRawKeyDown = 1;
    static constexpr quint32 kRawKeyRepeat = 2;
    static constexpr quint32 kRawKeyUp = 3;
    static constexpr quint32 kHotkeyPressed = 5;
    static constexpr quint32 kHotkeyReleased = 6;

    quint32 eventClass = kKeyboardClass;
    quint32 kind = 0;

    friend bool operator==(const HotkeyEventType &, const HotkeyEventType &) = default;
};

/// The two events of a hot key.
inline constexpr auto hotKeyEventTypes = std::to_array<HotkeyEventType>({
    {HotkeyEventType::kKeyboardClass, HotkeyEventType::kHotkeyPressed},
    {HotkeyEventType::kKeyboardClass, HotkeyEventType::kHotkeyReleased},
});

/// One event on its way to the handlers. Hot-key events carry `hotkeyId`, raw key events carry the
/// other two; what an event does not carry is none.
struct HotkeyEvent
{
    HotkeyEventType type;
    std::optional<HotkeyId> hotkeyId;
    std::optional<quint32> keyCode;   ///< virtual key code, see KeyCodes.h
    std::optional<quint32> modifiers; ///< bits of HotkeyModifier
};

/// Modifier bits of a hot key.
struct HotkeyModifier
{
    static constexpr quint32 kCommand = 0x100; ///< Super
    static constexpr quint32 kShift = 0x200;
    static constexpr quint32 kOption = 0x800; ///< Alt
    static constexpr quint32 kControl = 0x1000;
    static constexpr quint32 kAll = kCommand | kShift | kOption | kControl;
};

enum class HotkeyRef : quint64 {};
enum class HotkeyHandlerRef : quint64 {};

/// Answers of a handler.
inline constexpr qint32 noErr = 0;
inline constexpr qint32 eventNotHandledErr = -9874;

/// Answers noErr for an event that it took; any other number passes the event on to the next
/// handler.
using HotkeyHandler = std::function<qint32(const HotkeyEvent *event)>;

/// Keys that reach this program whatever window has the keyboard.
///
/// A hot key is a position on the keyboard with an exact set of modifiers; Caps Lock, Num Lock and
/// Scroll Lock do not matter. Holding it down gives one press, letting go of the key one release.
/// Owned by the entry type, main thread only. Events arrive through the event loop, never from
/// inside a call.
class HotkeyService
{
public:
    HotkeyService() = default;
    virtual ~HotkeyService() = default;
    Q_DISABLE_COPY_MOVE(HotkeyService)

    virtual QString backendId() const = 0;
    virtual Availability availability() const = 0;

    /// Makes the key ours. A chord may be registered several times; as long as the earliest of its
    /// registrations lasts, it is the one that is told.
    ///
    /// @param keyCode   virtual key code
    /// @param modifiers bits of HotkeyModifier
    /// Errors: Taken if somebody else holds the chord, NotFound for a key or modifier that this
    /// keyboard does not have, Unavailable. After an error nothing is held. Errors are logged here.
    virtual Result<HotkeyRef> registerHotkey(quint32 keyCode, quint32 modifiers, HotkeyId id) = 0;
    /// Gives the key back. A key that is down at that moment is not reported as released.
    virtual void unregisterHotkey(HotkeyRef hotkey) = 0;

    /// Whether another program holds the chord at this moment. One that is registered here does
    /// not count. Changes nothing for anybody.
    ///
    /// @param keyCode   virtual key code
    /// @param modifiers bits of HotkeyModifier
    /// @return false also for a chord that this keyboard does not have, and where the desktop
    ///         cannot tell
    virtual bool isHeldElsewhere(quint32 keyCode, quint32 modifiers) = 0;

    /// Adds a handler that hears of nothing until event types are added to it. Later handlers are
    /// asked first. Errors: Unavailable.
    virtual Result<HotkeyHandlerRef> installHandler(HotkeyHandler handler) = 0;
    virtual void addEventTypes(HotkeyHandlerRef handler,
                               std::span<const HotkeyEventType> types) = 0;
    virtual void removeEventTypes(HotkeyHandlerRef handler,
                                  std::span<const HotkeyEventType> types) = 0;

    /// The desktop's time stamp (milliseconds of the X server) of the last hot-key event: what
    /// window managers compare to tell a wanted window from one that steals the focus. 0 before the
    /// first event.
    virtual quint32 lastEventTime() const = 0;
};

} // namespace platform
