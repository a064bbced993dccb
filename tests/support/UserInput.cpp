// SPDX-License-Identifier: MIT
#include "tests/support/UserInput.h"

#include "tests/support/TestSession.h"

#include <cstdlib>

#include <xcb/xtest.h>

namespace {

constexpr int kNudgeInterval = 20; // milliseconds

} // namespace

UserInput::UserInput()
    : m_connection(xcb_connect(TestSession::current().outerDisplay().constData(), nullptr))
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root)
{
    m_innerServer = innerServer();
    QObject::connect(&m_nudging, &QTimer::timeout, &m_nudging, [this] { nudge(); });
    m_nudging.start(kNudgeInterval);
    // The inner display has the outer keyboard while the pointer is over its window.
    moveTo({TestSession::kWidth / 2, TestSession::kHeight / 2});
}

UserInput::~UserInput()
{
    xcb_query_keymap_reply_t *down =
        xcb_query_keymap_reply(m_connection.get(), xcb_query_keymap(m_connection.get()), nullptr);
    if (down == nullptr)
        return;
    for (int key = 8; key < 256; ++key) {
        if ((down->keys[key / 8] >> (key % 8) & 1) != 0)
            release(static_cast<quint8>(key));
    }
    std::free(down);
}

xcb_window_t UserInput::innerServer() const
{
    xcb_query_tree_reply_t *tree = xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), m_root), nullptr);
    if (tree == nullptr)
        return XCB_NONE;
    const xcb_window_t window =
        tree->children_len > 0 ? xcb_query_tree_children(tree)[0] : xcb_window_t(XCB_NONE);
    std::free(tree);
    return window;
}

// The inner server reads input events while it waits for answers about its picture, and then leaves
// them lying until another event comes.
void UserInput::nudge()
{
    xcb_expose_event_t event{};
    event.response_type = XCB_EXPOSE;
    event.window = m_innerServer;
    event.width = 1;
    event.height = 1;
    xcb_send_event(m_connection.get(), 0, m_innerServer, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(m_connection.get());
}

void UserInput::press(quint8 key)
{
    fake(XCB_KEY_PRESS, key);
}

void UserInput::release(quint8 key)
{
    fake(XCB_KEY_RELEASE, key);
}

void UserInput::tap(quint8 key)
{
    press(key);
    release(key);
}

void UserInput::moveTo(QPoint point)
{
    fake(XCB_MOTION_NOTIFY, 0, point);
}

void UserInput::clickAt(QPoint point, quint8 button)
{
    moveTo(point);
    fake(XCB_BUTTON_PRESS, button);
    fake(XCB_BUTTON_RELEASE, button);
}

void UserInput::fake(quint8 type, quint8 detail, QPoint point)
{
    xcb_test_fake_input(m_connection.get(), type, detail, XCB_CURRENT_TIME, m_root,
                        static_cast<qint16>(point.x()), static_cast<qint16>(point.y()), 0);
    xcb_flush(m_connection.get());
}
