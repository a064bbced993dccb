// SPDX-License-Identifier: MIT
#include "platform/keyboard/X11KeyEventPoster.h"

#include "platform/keyboard/ChordTarget.h"
#include "platform/keyboard/TerminalClasses.h"
#include "platform/log/Log.h"
#include "platform/pasteboard/Pasteboard.h"
#include "platform/x11/X11Connection.h"

#include <chrono>

#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace platform {

namespace {

/// Positions of C and V in the numbering of stored shortcuts.
constexpr quint16 kKeyC = 8;
constexpr quint16 kKeyV = 9;

/// X keycodes of keys that the layout does not tell: the position of <linux/input-event-codes.h>
/// plus 8.
constexpr quint8 kFallbackC = 46 + 8;
constexpr quint8 kFallbackV = 47 + 8;
constexpr quint8 kFallbackControl = 29 + 8;
constexpr quint8 kFallbackShift = 42 + 8;
constexpr quint8 kFallbackInsert = 110 + 8;

/// Between two looks for the window that gets the focus: the server tells nobody where it went.
constexpr std::chrono::milliseconds kPollInterval{4};
/// How long the focus may take to come back to another program's window.
constexpr std::chrono::milliseconds kFocusDeadline{1000};
/// How long the key that picked the row may stay down; then the chord goes out all the same.
constexpr std::chrono::milliseconds kKeysDeadline{300};

bool hasXtest(X11Connection &connection)
{
    const auto *extension = xcb_get_extension_data(connection.xcb(), &xcb_test_id);
    return extension != nullptr && extension->present != 0;
}

} // namespace

std::unique_ptr<X11KeyEventPoster> X11KeyEventPoster::create(Pasteboard &pasteboard)
{
    std::unique_ptr<X11Connection> connection = X11Connection::create();
    if (connection == nullptr || !hasXtest(*connection))
        return nullptr;
    return std::unique_ptr<X11KeyEventPoster>(
        new X11KeyEventPoster(std::move(connection), pasteboard));
}

X11KeyEventPoster::X11KeyEventPoster(std::unique_ptr<X11Connection> connection,
                                     Pasteboard &pasteboard)
    : m_connection(std::move(connection))
    , m_pasteboard(pasteboard)
    , m_keys(*m_connection)
    , m_held(*m_connection)
    , m_releases(*m_connection, RawInput::Kind::KeyRelease)
{
    m_lookTimer.setSingleShot(true);
    m_lookTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_lookTimer, &QTimer::timeout, this, &X11KeyEventPoster::look);
    connect(&m_releases, &RawInput::happened, this, &X11KeyEventPoster::keyReleased);
    // The first paste is not to wait for what keyboards there are, nor the start of the program.
    QTimer::singleShot(0, this, [this] {
        m_keys.prepare();
        m_held.prepare();
    });
}

// The device of XTEST outlives its clients: a key that is not let go here would stay down on it
// after the user lets go, and no program could type that key any more.
X11KeyEventPoster::~X11KeyEventPoster()
{
    release(m_pressedAgain);
    m_connection->reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection->xcb()));
}

QString X11KeyEventPoster::backendId() const
{
    return QStringLiteral("x11");
}

Availability X11KeyEventPoster::availability() const
{
    return {true, {}};
}

Result<void> X11KeyEventPoster::post(const KeyEvent &event)
{
    const std::optional<Purpose> purpose = purposeOf(event.keyCode);
    if (!purpose || (event.isKeyDown && event.flags != KeyEvent::kCommandMask)) {
        return failure(
            Error::Kind::Refused,
            QStringLiteral("only Command with key 8 or 9 is typed, not key %1 with flags %2")
                .arg(event.keyCode)
                .arg(event.flags, 0, 16));
    }
    if (event.isKeyDown) {
        m_begun = purpose;
        return {};
    }
    if (m_begun != purpose)
        return {};
    m_begun.reset();
    m_queue.push_back(*purpose);
    if (m_queue.size() == 1)
        startNext();
    return {};
}

std::optional<X11KeyEventPoster::Purpose> X11KeyEventPoster::purposeOf(quint16 keyCode)
{
    switch (keyCode) {
    case kKeyC:
        return Purpose::Copy;
    case kKeyV:
        return Purpose::Paste;
    default:
        return std::nullopt;
    }
}

X11KeyEventPoster::Chord X11KeyEventPoster::chordFor(Purpose purpose, ChordStyle style)
{
    const quint8 shift = m_keys.find(XKB_KEY_Shift_L, kFallbackShift);
    if (style == ChordStyle::Primary)
        return {{shift}, m_keys.find(XKB_KEY_Insert, kFallbackInsert)};
    const quint8 control = m_keys.find(XKB_KEY_Control_L, kFallbackControl);
    const quint8 letter = purpose == Purpose::Paste ? m_keys.find(XKB_KEY_v, kFallbackV)
                                                    : m_keys.find(XKB_KEY_c, kFallbackC);
    if (style == ChordStyle::ControlShift)
        return {{control, shift}, letter};
    return {{control}, letter};
}

// The first look is taken from the event loop, so that what closes is painted before. Releases are
// watched before it, so that none is missed in between.
void X11KeyEventPoster::startNext()
{
    m_releases.start();
    m_target.reset();
    m_sincePosted.start();
    m_lookTimer.start(0);
}

// The keys are asked for before the focus: whoever has it must still be the target when the chord
// goes out.
void X11KeyEventPoster::look()
{
    const HeldKeys::Now held = m_held.now();
    const std::optional<quint32> window = windowForKeys(*m_connection);
    if (!window) {
        waitForWindow();
        return;
    }
    aimAt(*window);
    const qint64 left = kKeysDeadline.count() - m_sinceTarget.elapsed();
    if (areOtherKeysUp(held.physically) || left <= 0)
        typeIntoTarget(held);
    else
        m_lookTimer.start(static_cast<int>(left));
}

void X11KeyEventPoster::aimAt(quint32 window)
{
    if (!m_target)
        m_sinceTarget.start();
    else if (m_target->window == window)
        return;
    m_target = Target{window, chordStyleOf(windowClassOf(*m_connection, window))};
}

bool X11KeyEventPoster::areOtherKeysUp(const KeySet &held)
{
    return (held & ~m_keys.modifiers()).none();
}

void X11KeyEventPoster::waitForWindow()
{
    m_target.reset();
    if (!m_sincePosted.hasExpired(kFocusDeadline.count())) {
        m_lookTimer.start(kPollInterval);
        return;
    }
    qCInfo(logKeyboard) << "No window took the keyboard: nothing is typed";
    finish(false);
}

// In a terminal of the xterm kind what is selected is the primary selection already, and no key
// copies it: there the pasteboard takes it over.
void X11KeyEventPoster::typeIntoTarget(const HeldKeys::Now &held)
{
    const Purpose purpose = m_queue.front();
    const ChordStyle style = m_target->style;
    if (style == ChordStyle::Primary && purpose == Purpose::Copy) {
        m_pasteboard.adoptPrimary();
        finish(true);
        return;
    }
    if (style == ChordStyle::Primary)
        m_pasteboard.offerAsPrimary();
    burst(chordFor(purpose, style), held);
    finish(true);
}

void X11KeyEventPoster::burst(const Chord &chord, const HeldKeys::Now &held)
{
    const KeySet before = held.anywhere & ~m_keys.locks();
    m_pressedAgain.reset();
    release(before);
    for (const quint8 modifier : chord.modifiers)
        fake(XCB_KEY_PRESS, modifier);
    fake(XCB_KEY_PRESS, chord.key);
    fake(XCB_KEY_RELEASE, chord.key);
    for (auto modifier = chord.modifiers.rbegin(); modifier != chord.modifiers.rend(); ++modifier)
        fake(XCB_KEY_RELEASE, *modifier);
    xcb_flush(m_connection->xcb());
    pressAgain(before & m_keys.modifiers());
}

void X11KeyEventPoster::fake(quint8 type, quint8 key)
{
    xcb_test_fake_input(m_connection->xcb(), type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

void X11KeyEventPoster::release(const KeySet &keys)
{
    for (std::size_t key = 0; key < keys.size(); ++key) {
        if (keys[key])
            fake(XCB_KEY_RELEASE, static_cast<quint8>(key));
    }
}

void X11KeyEventPoster::pressAgain(const KeySet &before)
{
    if (before.none())
        return;
    m_pressedAgain = before & m_held.now().physically;
    for (std::size_t key = 0; key < m_pressedAgain.size(); ++key) {
        if (m_pressedAgain[key])
            fake(XCB_KEY_PRESS, static_cast<quint8>(key));
    }
    releaseWithUser();
}

void X11KeyEventPoster::keyReleased()
{
    if (m_pressedAgain.any())
        releaseWithUser();
    if (!m_queue.empty())
        look();
}

// Also looks at once after pressing: the user may have let go in between.
void X11KeyEventPoster::releaseWithUser()
{
    const KeySet over = m_pressedAgain & ~m_held.now().physically;
    release(over);
    xcb_flush(m_connection->xcb());
    m_pressedAgain &= ~over;
    stopIfDone();
}

void X11KeyEventPoster::stopIfDone()
{
    if (m_queue.empty() && m_pressedAgain.none())
        m_releases.stop();
}

void X11KeyEventPoster::finish(bool sent)
{
    m_lookTimer.stop();
    m_queue.pop_front();
    if (!m_queue.empty())
        startNext();
    stopIfDone();
    emit finished(sent);
}

} // namespace platform
