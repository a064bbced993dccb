// SPDX-License-Identifier: MIT
#include "platform/keyboard/ChordTarget.h"

#include "platform/x11/X11Connection.h"

namespace platform {

namespace {

constexpr int kMaxDepth = 32;
constexpr quint32 kMaxClassLength = 256; // in 4-byte units

std::optional<quint32> windowUnderPointer(X11Connection &connection)
{
    const auto pointer = connection.reply(xcb_query_pointer_reply,
                                          xcb_query_pointer(connection.xcb(), connection.root()));
    if (!pointer || pointer->child == XCB_NONE)
        return std::nullopt;
    return pointer->child;
}

/// WM_CLASS holds two texts, each with a terminating zero: instance and class (ICCCM 4.1.2.5).
QByteArray classOn(X11Connection &connection, quint32 window)
{
    const auto property = connection.reply(
        xcb_get_property_reply, xcb_get_property(connection.xcb(), 0, window, XCB_ATOM_WM_CLASS,
                                                 XCB_ATOM_STRING, 0, kMaxClassLength));
    if (!property || property->format != 8)
        return {};
    const QByteArray texts(static_cast<const char *>(xcb_get_property_value(property.get())),
                           xcb_get_property_value_length(property.get()));
    const QList<QByteArray> parts = texts.split('\0');
    return parts.size() >= 2 ? parts[1] : QByteArray();
}

QByteArray classAbove(X11Connection &connection, quint32 window)
{
    for (int depth = 0; depth < kMaxDepth && window != XCB_NONE && window != connection.root();
         ++depth) {
        QByteArray name = classOn(connection, window);
        if (!name.isEmpty())
            return name;
        const auto tree =
            connection.reply(xcb_query_tree_reply, xcb_query_tree(connection.xcb(), window));
        window = tree ? tree->parent : quint32(XCB_NONE);
    }
    return {};
}

} // namespace

std::optional<quint32> windowForKeys(X11Connection &connection)
{
    const auto cookie = xcb_get_input_focus(connection.xcb());
    const std::vector<quint32> checkWindow =
        connection.numbers(connection.root(), connection.atom("_NET_SUPPORTING_WM_CHECK"));
    const auto answer = connection.reply(xcb_get_input_focus_reply, cookie);
    if (!answer || answer->focus == XCB_INPUT_FOCUS_NONE)
        return std::nullopt;
    std::optional<quint32> window = answer->focus;
    if (answer->focus == XCB_INPUT_FOCUS_POINTER_ROOT || answer->focus == connection.root()) {
        if (connection.windowManager() != XCB_NONE)
            return std::nullopt;
        window = windowUnderPointer(connection);
    }
    if (!window || connection.isOurs(*window))
        return std::nullopt;
    // Asked twice only if it may be: a window manager that died can leave the name of its window.
    const bool mayBeWindowManager = !checkWindow.empty() && checkWindow.front() == *window;
    if (mayBeWindowManager && connection.windowManager() == *window)
        return std::nullopt;
    return window;
}

QByteArray windowClassOf(X11Connection &connection, quint32 window)
{
    QByteArray above = classAbove(connection, window);
    if (!above.isEmpty())
        return above;
    const std::vector<quint32> active =
        connection.numbers(connection.root(), connection.atom("_NET_ACTIVE_WINDOW"));
    return active.empty() ? QByteArray() : classAbove(connection, active.front());
}

} // namespace platform
