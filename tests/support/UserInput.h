// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QTimer>

#include <memory>

#include <xcb/xcb.h>

/// The user's hands: a real keyboard and a real mouse of the test session's display.
///
/// Everything still held is let go with the object. What is pressed arrives a little later; wait
/// for its effect.
class UserInput
{
public:
    /// X keycodes of a US keyboard.
    enum Key : quint8 {
        kA = 38,
        kC = 54,
        kV = 55,
        kReturn = 36,
        kShift = 50,
        kControl = 37,
        kSuper = 133,
        kCapsLock = 66,
        kNumLock = 77,
        kInsert = 118,
    };

    UserInput();
    ~UserInput();
    Q_DISABLE_COPY_MOVE(UserInput)

    void press(quint8 key);
    void release(quint8 key);
    void tap(quint8 key);

    /// @param point pixels of the display
    void moveTo(QPoint point);
    /// @param button 1 left, 3 right, 4 and 5 the wheel
    void clickAt(QPoint point, quint8 button = 1);

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    xcb_window_t innerServer() const;
    void nudge();
    void fake(quint8 type, quint8 detail, QPoint point = {});

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_NONE;
    xcb_window_t m_innerServer = XCB_NONE;
    QTimer m_nudging;
};
