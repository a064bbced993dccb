// SPDX-License-Identifier: MIT
#include "platform/windows/GapCover.h"

#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <array>

namespace platform {

QRect gapBetween(const QRect &one, const QRect &other)
{
    const QRect &left = one.left() <= other.left() ? one : other;
    const QRect &right = one.left() <= other.left() ? other : one;
    const QRect gap(QPoint(left.right() + 1, std::max(left.top(), right.top())),
                    QPoint(right.left() - 1, std::min(left.bottom(), right.bottom())));
    return gap.isValid() ? gap : QRect();
}

// The press must not propagate to the root window either, where window managers listen.
GapCover::GapCover(X11Connection &connection)
    : m_connection(connection)
    , m_window(xcb_generate_id(connection.xcb()))
{
    constexpr quint32 kButtons = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
    const std::array<quint32, 2> values{1, kButtons};
    connection.check(xcb_create_window_checked(
        connection.xcb(), XCB_COPY_FROM_PARENT, m_window, connection.root(), 0, 0, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
        XCB_CW_OVERRIDE_REDIRECT | XCB_CW_DONT_PROPAGATE, values.data()));
}

GapCover::~GapCover()
{
    xcb_destroy_window(m_connection.xcb(), m_window);
    xcb_flush(m_connection.xcb());
}

void GapCover::coverBetween(quint32 menu, quint32 popover)
{
    const QRect gap = gapBetween(frameOf(menu), frameOf(popover));
    if (gap.isNull()) {
        hide();
        return;
    }
    const std::array<quint32, 5> place{static_cast<quint32>(gap.x()), static_cast<quint32>(gap.y()),
                                       static_cast<quint32>(gap.width()),
                                       static_cast<quint32>(gap.height()), XCB_STACK_MODE_ABOVE};
    xcb_configure_window(m_connection.xcb(), m_window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_STACK_MODE,
                         place.data());
    m_connection.check(xcb_map_window_checked(m_connection.xcb(), m_window));
}

void GapCover::hide()
{
    m_connection.check(xcb_unmap_window_checked(m_connection.xcb(), m_window));
}

QRect GapCover::frameOf(quint32 window) const
{
    const auto place =
        m_connection.reply(xcb_get_geometry_reply, xcb_get_geometry(m_connection.xcb(), window));
    return place ? QRect(place->x, place->y, place->width, place->height) : QRect();
}

} // namespace platform
