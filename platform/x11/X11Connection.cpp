// SPDX-License-Identifier: MIT
#include "platform/x11/X11Connection.h"

#include <QGuiApplication>

#include <utility>

namespace platform {

namespace {

constexpr quint32 kMaxNumbers = 4096;

xcb_screen_t *screenOf(xcb_connection_t *connection, int number)
{
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number)
        xcb_screen_next(&screens);
    return screens.data;
}

std::vector<quint32> numbersIn(const xcb_get_property_reply_t *reply)
{
    if (reply == nullptr || reply->format != 32)
        return {};
    const auto *first = static_cast<const quint32 *>(xcb_get_property_value(reply));
    const int count = xcb_get_property_value_length(reply) / 4;
    return {first, first + count};
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::create()
{
    if (toolkit() == nullptr)
        return nullptr;
    int screenNumber = 0;
    xcb_connection_t *connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screenNumber));
}

X11Connection::X11Connection(xcb_connection_t *connection, int screenNumber)
    : m_connection(connection)
    , m_screen(screenOf(connection, screenNumber))
    , m_notifier(xcb_get_file_descriptor(connection), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &X11Connection::readEvents);
}

X11Connection::~X11Connection() = default;

xcb_atom_t X11Connection::atom(const QByteArray &name)
{
    if (const auto known = m_atoms.constFind(name); known != m_atoms.cend())
        return *known;
    const auto answer =
        reply(xcb_intern_atom_reply,
              xcb_intern_atom(xcb(), 0, static_cast<quint16>(name.size()), name.constData()));
    const xcb_atom_t atom = answer ? answer->atom : xcb_atom_t(XCB_ATOM_NONE);
    m_atoms.insert(name, atom);
    return atom;
}

int X11Connection::check(xcb_void_cookie_t cookie)
{
    const XcbPointer<xcb_generic_error_t> error(xcb_request_check(xcb(), cookie));
    gatherEvents();
    return error ? error->error_code : 0;
}

std::vector<quint32> X11Connection::numbers(xcb_window_t window, xcb_atom_t property)
{
    return numbersOfAll({window}, property).front();
}

std::vector<std::vector<quint32>> X11Connection::numbersOfAll(const std::vector<quint32> &windows,
                                                              xcb_atom_t property)
{
    std::vector<xcb_get_property_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        cookies.push_back(
            xcb_get_property(xcb(), 0, window, property, XCB_ATOM_ANY, 0, kMaxNumbers));
    }
    std::vector<std::vector<quint32>> all;
    all.reserve(windows.size());
    for (const xcb_get_property_cookie_t cookie : cookies)
        all.push_back(numbersIn(reply(xcb_get_property_reply, cookie).get()));
    return all;
}

// The server gives every connection its own range of identifiers (X11 protocol, section 8).
bool X11Connection::isOurs(xcb_window_t window) const
{
    xcb_connection_t *connection = toolkit();
    if (connection == nullptr)
        return false;
    const xcb_setup_t *setup = xcb_get_setup(connection);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

// The check window names itself; one left behind by a window manager that died does not (Extended
// Window Manager Hints 1.5, _NET_SUPPORTING_WM_CHECK).
xcb_window_t X11Connection::windowManager()
{
    const xcb_atom_t property = atom("_NET_SUPPORTING_WM_CHECK");
    const std::vector<quint32> onRoot = numbers(root(), property);
    if (onRoot.empty() || numbers(onRoot.front(), property) != onRoot)
        return XCB_NONE;
    return onRoot.front();
}

// Every change of a property comes with the time, also one that adds nothing.
quint32 X11Connection::serverTime()
{
    const xcb_window_t window = xcb_generate_id(xcb());
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(xcb(), XCB_COPY_FROM_PARENT, window, root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    xcb_change_property(xcb(), XCB_PROP_MODE_APPEND, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        0, nullptr);
    xcb_destroy_window(xcb(), window);
    xcb_flush(xcb());
    quint32 time = 0;
    while (time == 0) {
        XcbPointer<xcb_generic_event_t> event(xcb_wait_for_event(xcb()));
        if (!event)
            break;
        const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(*event);
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && change.window == window)
            time = change.time;
        else
            m_events.push_back(std::move(event));
    }
    gatherEvents();
    return time;
}

void X11Connection::announceTime()
{
    check(xcb_change_property_checked(xcb(), XCB_PROP_MODE_APPEND, root(), atom("_QUILLERY_TIME"),
                                      XCB_ATOM_STRING, 8, 0, nullptr));
}

void X11Connection::syncToolkit()
{
    xcb_connection_t *connection = toolkit();
    if (connection == nullptr)
        return;
    const XcbPointer<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

xcb_connection_t *X11Connection::toolkit()
{
    const auto *application = qGuiApp == nullptr
                                  ? nullptr
                                  : qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application == nullptr ? nullptr : application->connection();
}

// Waiting for an answer reads events too, without waking the notifier: they are kept and handed
// out from the event loop, never from inside a request.
void X11Connection::gatherEvents()
{
    while (xcb_generic_event_t *event = xcb_poll_for_queued_event(xcb()))
        m_events.emplace_back(event);
    if (m_events.empty() || m_isDeliveryDue)
        return;
    m_isDeliveryDue = true;
    QMetaObject::invokeMethod(this, &X11Connection::deliver, Qt::QueuedConnection);
}

void X11Connection::readEvents()
{
    while (xcb_generic_event_t *event = xcb_poll_for_event(xcb()))
        m_events.emplace_back(event);
    if (xcb_connection_has_error(xcb()) != 0)
        m_notifier.setEnabled(false);
    deliver();
}

void X11Connection::deliver()
{
    m_isDeliveryDue = false;
    while (!m_events.empty()) {
        const XcbPointer<xcb_generic_event_t> event = std::move(m_events.front());
        m_events.pop_front();
        // Errors of unchecked requests have type 0.
        if (event->response_type != 0)
            emit received(*event);
    }
}

} // namespace platform
