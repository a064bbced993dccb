// SPDX-License-Identifier: MIT
#pragma once

#include "bench/HotkeyGrab.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>

#include <functional>

namespace floors {

/// The hot key of the bare Qt programs, on the toolkit's own connection.
class QtHotkey : public QAbstractNativeEventFilter
{
public:
    explicit QtHotkey(std::function<void()> pressed)
        : m_pressed(std::move(pressed))
        , m_connection(qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection())
        , m_key(grabShiftSuper(m_connection, kKeyV))
    {
        qGuiApp->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray & /*eventType*/, void *message,
                           qintptr * /*result*/) override
    {
        const auto *event = static_cast<const xcb_generic_event_t *>(message);
        if ((event->response_type & ~0x80) != XCB_KEY_PRESS ||
            reinterpret_cast<const xcb_key_press_event_t *>(event)->detail != m_key ||
            reinterpret_cast<const xcb_key_press_event_t *>(event)->event != rootOf(m_connection))
            return false;
        xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
        m_pressed();
        return true;
    }

private:
    std::function<void()> m_pressed;
    xcb_connection_t *m_connection;
    xcb_keycode_t m_key;
};

} // namespace floors
