// SPDX-License-Identifier: MIT
#include "platform/windows/X11Desktop.h"

#include "platform/windows/ReservedEdges.h"
#include "platform/x11/X11Connection.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>

namespace platform {

namespace {

/// Sources of a _NET_ACTIVE_WINDOW request. A window manager that guards the focus doubts an
/// application; it obeys a pager, because that acts for the user, as we do here: activate() only
/// ever follows a hot key, a click or a bus action. Extended Window Manager Hints 1.5.
constexpr quint32 kSourcePager = 2;

std::vector<quint32> childrenOf(X11Connection &connection, const std::vector<quint32> &windows)
{
    std::vector<xcb_query_tree_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const quint32 window : windows)
        cookies.push_back(xcb_query_tree(connection.xcb(), window));
    std::vector<quint32> all;
    for (const xcb_query_tree_cookie_t cookie : cookies) {
        const auto tree = connection.reply(xcb_query_tree_reply, cookie);
        if (!tree)
            continue;
        const xcb_window_t *children = xcb_query_tree_children(tree.get());
        all.insert(all.end(), children, children + tree->children_len);
    }
    return all;
}

/// Those of the windows that are shown. Hidden bars keep their struts on themselves.
std::vector<quint32> shownOf(X11Connection &connection, const std::vector<quint32> &windows)
{
    std::vector<xcb_get_window_attributes_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const quint32 window : windows)
        cookies.push_back(xcb_get_window_attributes(connection.xcb(), window));
    std::vector<quint32> shown;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto answer = connection.reply(xcb_get_window_attributes_reply, cookies[i]);
        if (answer && answer->map_state == XCB_MAP_STATE_VIEWABLE)
            shown.push_back(windows[i]);
    }
    return shown;
}

/// Windows that may be bars: those that the window manager lists, and, because i3 leaves docks out
/// of its list, those that stand on the desktop with or without a frame around them.
std::vector<quint32> candidates(X11Connection &connection)
{
    std::vector<quint32> all =
        connection.numbers(connection.root(), connection.atom("_NET_CLIENT_LIST"));
    const std::vector<quint32> outer =
        shownOf(connection, childrenOf(connection, {connection.root()}));
    const std::vector<quint32> inner = shownOf(connection, childrenOf(connection, outer));
    all.insert(all.end(), outer.begin(), outer.end());
    all.insert(all.end(), inner.begin(), inner.end());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

std::vector<Strut> strutsOf(X11Connection &connection)
{
    const std::vector<quint32> windows = candidates(connection);
    const auto partial = connection.numbersOfAll(windows, connection.atom("_NET_WM_STRUT_PARTIAL"));
    const auto whole = connection.numbersOfAll(windows, connection.atom("_NET_WM_STRUT"));
    std::vector<Strut> struts;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (const auto strut = Strut::fromProperty(partial[i].empty() ? whole[i] : partial[i]))
            struts.push_back(*strut);
    }
    return struts;
}

QSize sizeOfDisplay(X11Connection &connection)
{
    const auto answer = connection.reply(xcb_get_geometry_reply,
                                         xcb_get_geometry(connection.xcb(), connection.root()));
    return answer ? QSize(answer->width, answer->height) : QSize();
}

/// A screen's place in the whole display in pixels. The toolkit leaves a screen's origin as it is
/// and scales its size only.
QRect inPixels(const QScreen &screen)
{
    const QRect points = screen.geometry();
    const qreal ratio = screen.devicePixelRatio();
    return {points.topLeft(),
            QSize(qRound(points.width() * ratio), qRound(points.height() * ratio))};
}

/// The part `free` of the screen `whole`, both in pixels, in points; rounded inwards.
QRect inPoints(const QScreen &screen, const QRect &whole, const QRect &free)
{
    const qreal ratio = screen.devicePixelRatio();
    const auto points = [ratio](int pixels) { return static_cast<int>(std::ceil(pixels / ratio)); };
    return screen.geometry().adjusted(
        points(free.left() - whole.left()), points(free.top() - whole.top()),
        -points(whole.right() - free.right()), -points(whole.bottom() - free.bottom()));
}

} // namespace

std::unique_ptr<X11Desktop> X11Desktop::create()
{
    std::unique_ptr<X11Connection> connection = X11Connection::create();
    if (connection == nullptr)
        return nullptr;
    return std::unique_ptr<X11Desktop>(new X11Desktop(std::move(connection)));
}

X11Desktop::X11Desktop(std::unique_ptr<X11Connection> connection)
    : m_connection(std::move(connection))
    , m_userTime(*m_connection)
{
}

X11Desktop::~X11Desktop() = default;

QString X11Desktop::backendId() const
{
    return QStringLiteral("x11");
}

QPoint X11Desktop::pointer() const
{
    return QCursor::pos();
}

// _NET_WORKAREA is one rectangle for the whole display, so it only says something about a single
// screen. There it also knows what docks without struts of their own take away.
QRect X11Desktop::visibleFrame(QPoint point) const
{
    const QScreen *screen = screenHolding(point);
    if (screen == nullptr)
        return {};
    const QRect whole = inPixels(*screen);
    const QRect free = freePart(whole, sizeOfDisplay(*m_connection), strutsOf(*m_connection));
    const QRect frame = inPoints(*screen, whole, free);
    if (QGuiApplication::screens().size() > 1)
        return frame;
    const QRect common = frame & screen->availableGeometry();
    return common.isEmpty() ? frame : common;
}

void X11Desktop::activate(QWidget &window)
{
    const auto id = static_cast<quint32>(window.winId());
    setUserTime(id);
    // Some window managers (xfwm4 4.18) give a new window the focus with the time of the last event
    // that they saw. If a menu of ours had the focus since, the server refuses that as too old, and
    // our request below is passed over because the window counts as the one with the focus.
    m_connection->announceTime();
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    // The window manager reads requests in the order in which the server got them: first the
    // toolkit's request to map, then ours.
    X11Connection::syncToolkit();
    setUserTime(id);
    if (m_connection->windowManager() == XCB_NONE) {
        m_connection->check(xcb_set_input_focus_checked(m_connection->xcb(), XCB_INPUT_FOCUS_PARENT,
                                                        id, XCB_CURRENT_TIME));
        return;
    }
    askWindowManager(id);
}

void X11Desktop::noteUserTime(quint32 serverTime)
{
    m_userTime.note(serverTime);
}

void X11Desktop::setUserTime(quint32 window) const
{
    // Zero would mean: do not give this window the focus when it appears.
    const quint32 time = m_userTime.latest();
    if (time == 0)
        return;
    X11Connection::syncToolkit();
    m_connection->check(xcb_change_property_checked(m_connection->xcb(), XCB_PROP_MODE_REPLACE,
                                                    window, m_connection->atom("_NET_WM_USER_TIME"),
                                                    XCB_ATOM_CARDINAL, 32, 1, &time));
}

void X11Desktop::askWindowManager(quint32 window) const
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_connection->atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = kSourcePager;
    message.data.data32[1] = m_userTime.latest();
    m_connection->check(xcb_send_event_checked(m_connection->xcb(), 0, m_connection->root(),
                                               XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT |
                                                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                                               reinterpret_cast<const char *>(&message)));
}

} // namespace platform
