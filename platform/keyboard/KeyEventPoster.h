// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Availability.h"
#include "platform/Result.h"

#include <QObject>

namespace platform {

/// One synthetic key event. Key codes are positions on the keyboard, in the numbering that stored
/// shortcuts use (KeyboardShortcuts::Key).
struct KeyEvent
{
    /// The Command flag of an event's flags.
    static constexpr quint64 kCommandMask = 0x100000;

    quint16 keyCode = 0;
    bool isKeyDown = false;
    quint64 flags = 0;

    friend bool operator==(const KeyEvent &, const KeyEvent &) = default;
};

/// Types for the user, into whatever window has the keyboard.
///
/// Command with key 9 (V) means "paste here" and Command with key 8 (C) means "copy the selection":
/// the back end sends the chord that the receiving program understands (terminals have their own).
/// The chord begins with the key-down event and goes out when its key-up event was posted, as soon
/// as another program's window has the keyboard and no other key is down; if no window takes the
/// keyboard within one second, nothing is typed. Main thread only; post() never waits.
class KeyEventPoster : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual QString backendId() const = 0;
    virtual Availability availability() const = 0;

    /// Errors: Unavailable if this desktop lets nobody type for the user.
    virtual Result<void> post(const KeyEvent &event) = 0;

signals:
    /// A chord went out (`sent`), or was given up because no window took the keyboard.
    void finished(bool sent);
};

} // namespace platform
