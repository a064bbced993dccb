// SPDX-License-Identifier: MIT
#include "platform/windows/BlurBehind.h"

#include "platform/x11/X11Connection.h"

#include <QPainterPath>
#include <QRegion>

#include <algorithm>
#include <span>
#include <vector>

namespace platform {

namespace {

constexpr const char *kProperty = "_KDE_NET_WM_BLUR_BEHIND_REGION";

QRegion roundedRegion(QSizeF size, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(QRectF(QPointF(), size), radius, radius);
    return {path.toFillPolygon().toPolygon()};
}

} // namespace

bool canBlurBehind(X11Connection &connection)
{
    const auto properties = connection.reply(
        xcb_list_properties_reply, xcb_list_properties(connection.xcb(), connection.root()));
    if (properties == nullptr)
        return false;
    const std::span<const xcb_atom_t> names(
        xcb_list_properties_atoms(properties.get()),
        static_cast<std::size_t>(xcb_list_properties_atoms_length(properties.get())));
    return std::ranges::find(names, connection.atom(kProperty)) != names.end();
}

// The region is a list of rectangles: x, y, width and height of each.
void blurBehind(X11Connection &connection, quint32 window, QSizeF size, qreal radius)
{
    std::vector<quint32> numbers;
    for (const QRect &rect : roundedRegion(size, radius)) {
        for (const int number : {rect.x(), rect.y(), rect.width(), rect.height()})
            numbers.push_back(static_cast<quint32>(number));
    }
    connection.check(xcb_change_property_checked(
        connection.xcb(), XCB_PROP_MODE_REPLACE, window, connection.atom(kProperty),
        XCB_ATOM_CARDINAL, 32, static_cast<quint32>(numbers.size()), numbers.data()));
}

} // namespace platform
