// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/ChordKeys.h"
#include "platform/keyboard/HeldKeys.h"
#include "platform/keyboard/KeyEventPoster.h"
#include "platform/keyboard/TerminalClasses.h"
#include "platform/x11/RawInput.h"

#include <QElapsedTimer>
#include <QTimer>

#include <deque>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

class Pasteboard;
class X11Connection;

/// Types chords by the XTEST extension.
///
/// Keys that the user still holds would mix in, so a chord is a burst: every key that is down is
/// let go, the chord is typed, and the modifiers that are still held on a real keyboard are pressed
/// again. The burst waits until no other key is down, because a key that is released in its middle
/// can reach the program between the chord's own events; the server tells of every release. Locks
/// stay as they are.
///
/// What is pressed again is watched until the user lets it go, and is let go with it, or with the
/// object; without that a release between the look and the press would leave the modifier stuck.
class X11KeyEventPoster : public KeyEventPoster
{
    Q_OBJECT

public:
    /// Null when the toolkit does not run on X11 or the server lacks XTEST.
    /// @param pasteboard must outlive the object
    static std::unique_ptr<X11KeyEventPoster> create(Pasteboard &pasteboard);
    ~X11KeyEventPoster() override;

    QString backendId() const override;
    Availability availability() const override;
    Result<void> post(const KeyEvent &event) override;

private:
    enum class Purpose { Paste, Copy };

    /// The window that the chord is for.
    struct Target
    {
        quint32 window;
        ChordStyle style;
    };

    struct Chord
    {
        std::vector<quint8> modifiers;
        quint8 key = 0;
    };

    X11KeyEventPoster(std::unique_ptr<X11Connection> connection, Pasteboard &pasteboard);

    static std::optional<Purpose> purposeOf(quint16 keyCode);
    Chord chordFor(Purpose purpose, ChordStyle style);
    void startNext();
    void look();
    void aimAt(quint32 window);
    bool areOtherKeysUp(const KeySet &held);
    void waitForWindow();
    void typeIntoTarget(const HeldKeys::Now &held);
    void burst(const Chord &chord, const HeldKeys::Now &held);
    void fake(quint8 type, quint8 key);
    void release(const KeySet &keys);
    void pressAgain(const KeySet &before);
    void keyReleased();
    void releaseWithUser();
    void stopIfDone();
    void finish(bool sent);

    std::unique_ptr<X11Connection> m_connection;
    Pasteboard &m_pasteboard;
    ChordKeys m_keys;
    HeldKeys m_held;
    RawInput m_releases;
    QTimer m_lookTimer;
    QElapsedTimer m_sincePosted;
    QElapsedTimer m_sinceTarget;    ///< runs while there is a target, also when it becomes another
    std::optional<Target> m_target; ///< none while no window for the chord has the keyboard
    std::optional<Purpose> m_begun;
    std::deque<Purpose> m_queue; ///< the first one is being sent
    KeySet m_pressedAgain;       ///< held by the user and pressed again by us
};

} // namespace platform
