// SPDX-License-Identifier: MIT
#include "platform/pasteboard/SelectionConnection.h"

#include "platform/log/Log.h"

#include <QElapsedTimer>

#include <chrono>
#include <utility>

#include <cstdlib>
#include <poll.h>
#include <xcb/xcbext.h>
#include <xcb/xfixes.h>

namespace platform {

namespace {

/// How long events are handed out before the rest of the program gets its turn: half a frame at 60
/// Hz.
constexpr std::chrono::milliseconds kSlice{8};

/// A property change has a header of 24 bytes, 28 with a long length (X11 protocol, section 8).
constexpr qsizetype kPropertyHeaderBytes = 28;

xcb_screen_t *screenOf(xcb_connection_t *connection, int number)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.data;
}

} // namespace

std::unique_ptr<SelectionConnection> SelectionConnection::create(const QByteArray &display)
{
    int screenNumber = 0;
    xcb_connection_t *connection =
        xcb_connect(display.isEmpty() ? nullptr : display.constData(), &screenNumber);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return nullptr;
    }
    std::unique_ptr<SelectionConnection> made(new SelectionConnection(connection, screenNumber));
    if (!made->startXfixes())
        return nullptr;
    return made;
}

SelectionConnection::SelectionConnection(xcb_connection_t *connection, int screenNumber)
    : m_connection(connection)
    , m_atoms(SelectionAtoms::intern(connection))
    , m_root(screenOf(connection, screenNumber)->root)
    , m_maxPropertyBytes(qsizetype(xcb_get_maximum_request_length(connection)) * 4 -
                         kPropertyHeaderBytes)
    , m_notifier(xcb_get_file_descriptor(connection), QSocketNotifier::Read)
{
    m_window = makeWindow();
    connect(&m_notifier, &QSocketNotifier::activated, this, &SelectionConnection::drain);
}

bool SelectionConnection::startXfixes()
{
    const xcb_query_extension_reply_t *extension = xcb_get_extension_data(xcb(), &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0)
        return false;
    m_selectionNotifyType = extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    const XcbPointer<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(xcb(), xcb_xfixes_query_version(xcb(), 2, 0), nullptr));
    return version != nullptr;
}

xcb_window_t SelectionConnection::makeWindow()
{
    const xcb_window_t window = xcb_generate_id(xcb());
    const quint32 values[] = {1, XCB_EVENT_MASK_PROPERTY_CHANGE};
    xcb_create_window(xcb(), XCB_COPY_FROM_PARENT, window, m_root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    return window;
}

bool SelectionConnection::isSameClient(xcb_window_t one, xcb_window_t other) const
{
    const quint32 mask = xcb_get_setup(xcb())->resource_id_mask;
    return (one & ~mask) == (other & ~mask);
}

bool SelectionConnection::isBefore(const xcb_generic_event_t &event, unsigned sequence)
{
    return static_cast<qint32>(event.full_sequence - sequence) < 0;
}

void SelectionConnection::whenReplied(xcb_get_property_cookie_t cookie, PropertyHandler handler)
{
    m_awaited.push_back({cookie.sequence, [handler = std::move(handler)](const void *reply) {
                             handler(static_cast<const xcb_get_property_reply_t *>(reply));
                         }});
}

void SelectionConnection::whenReplied(xcb_get_selection_owner_cookie_t cookie, OwnerHandler handler)
{
    m_awaited.push_back({cookie.sequence, [handler = std::move(handler)](const void *answer) {
                             const auto *reply =
                                 static_cast<const xcb_get_selection_owner_reply_t *>(answer);
                             handler(reply == nullptr ? xcb_window_t(XCB_NONE) : reply->owner);
                         }});
}

// Writing may read into xcb's own queue, which does not wake the notifier: look there too.
void SelectionConnection::flush()
{
    xcb_flush(xcb());
    queueDrain();
}

void SelectionConnection::sync()
{
    std::free(xcb_get_input_focus_reply(xcb(), xcb_get_input_focus(xcb()), nullptr));
    queueDrain();
}

bool SelectionConnection::pumpUntil(const std::function<bool()> &isDone,
                                    const QDeadlineTimer &deadline)
{
    while (!isDone()) {
        if (deadline.hasExpired() || isBroken())
            return false;
        if (deliverNext())
            continue;
        xcb_flush(xcb());
        if (deliverNext()) // sending may have read something
            continue;
        pollfd readable{xcb_get_file_descriptor(xcb()), POLLIN, 0};
        poll(&readable, 1, int(deadline.remainingTime()));
    }
    return true;
}

void SelectionConnection::drain()
{
    m_isDrainQueued = false;
    QElapsedTimer running;
    running.start();
    bool isSent = false;
    while (true) {
        if (deliverNext()) {
            isSent = false;
        } else if (!std::exchange(isSent, true)) {
            xcb_flush(xcb());
        } else {
            break;
        }
        if (running.elapsed() >= kSlice.count()) {
            flush();
            break;
        }
    }
    if (isBroken() && m_notifier.isEnabled()) {
        qCWarning(logPasteboard, "the connection to the X server is lost");
        m_notifier.setEnabled(false);
    }
}

void SelectionConnection::queueDrain()
{
    if (std::exchange(m_isDrainQueued, true))
        return;
    QMetaObject::invokeMethod(this, &SelectionConnection::drain, Qt::QueuedConnection);
}

bool SelectionConnection::deliverEvent(xcb_generic_event_t *event)
{
    if (event == nullptr)
        return false;
    const XcbPointer<xcb_generic_event_t> owned(event);
    emit received(*owned);
    return true;
}

bool SelectionConnection::deliverReply()
{
    if (m_awaited.empty())
        return false;
    void *answer = nullptr;
    xcb_generic_error_t *error = nullptr;
    if (xcb_poll_for_reply(xcb(), m_awaited.front().sequence, &answer, &error) == 0)
        return false;
    const XcbPointer<xcb_generic_error_t> ownedError(error);
    const XcbPointer<void> reply(answer);
    const Awaited awaited = std::move(m_awaited.front());
    m_awaited.pop_front();
    awaited.handler(reply.get());
    return true;
}

// The last look is at the queue alone: asking for the reply may have read an event into it.
bool SelectionConnection::deliverNext()
{
    return deliverEvent(xcb_poll_for_event(xcb())) || deliverReply() ||
           deliverEvent(xcb_poll_for_queued_event(xcb()));
}

} // namespace platform
