// SPDX-License-Identifier: MIT
#include "platform/keyboard/HeldKeys.h"

#include "platform/x11/X11Connection.h"

#include <xcb/xinput.h>

namespace platform {

namespace {

/// The bits of a key map: one for each keycode, the first keycode in the lowest bit of the first
/// byte (X11 protocol, QueryKeymap).
KeySet keysIn(const quint8 *bytes)
{
    KeySet keys;
    for (std::size_t key = 0; key < keys.size(); ++key)
        keys[key] = (bytes[key / 8] >> (key % 8) & 1) != 0;
    return keys;
}

/// The key map in the answer of QueryDeviceState: a row of classes, each beginning with its kind
/// and its length in bytes (X Input protocol, QueryDeviceState).
KeySet keysIn(const xcb_input_query_device_state_reply_t &answer)
{
    constexpr qsizetype kKeysOffset = 4;
    constexpr qsizetype kKeysBytes = 32;
    const auto *at = reinterpret_cast<const quint8 *>(&answer + 1);
    const quint8 *const end = at + qsizetype(answer.length) * 4;
    for (int i = 0; i < answer.num_classes && end - at >= 2 && at[1] >= 2; ++i) {
        if (at[0] == XCB_INPUT_INPUT_CLASS_KEY && end - at >= kKeysOffset + kKeysBytes)
            return keysIn(at + kKeysOffset);
        at += at[1];
    }
    return {};
}

KeySet keysOn(X11Connection &connection, const std::vector<quint8> &devices)
{
    std::vector<xcb_input_query_device_state_cookie_t> cookies;
    cookies.reserve(devices.size());
    for (const quint8 device : devices)
        cookies.push_back(xcb_input_query_device_state(connection.xcb(), device));
    KeySet keys;
    for (const xcb_input_query_device_state_cookie_t cookie : cookies) {
        // A keyboard that was unplugged meanwhile holds no keys.
        if (const auto answer = connection.reply(xcb_input_query_device_state_reply, cookie))
            keys |= keysIn(*answer);
    }
    return keys;
}

bool isTestDevice(X11Connection &connection, quint16 device)
{
    const auto property = connection.reply(
        xcb_input_xi_get_property_reply,
        xcb_input_xi_get_property(connection.xcb(), device, 0, connection.atom("XTEST Device"),
                                  XCB_ATOM_ANY, 0, 1));
    return property && property->num_items > 0;
}

} // namespace

HeldKeys::HeldKeys(X11Connection &connection)
    : m_connection(connection)
{
}

void HeldKeys::findKeyboards()
{
    m_keyboards.clear();
    m_testKeyboards.clear();
    const auto devices =
        m_connection.reply(xcb_input_xi_query_device_reply,
                           xcb_input_xi_query_device(m_connection.xcb(), XCB_INPUT_DEVICE_ALL));
    if (!devices)
        return;
    auto device = xcb_input_xi_query_device_infos_iterator(devices.get());
    for (; device.rem > 0; xcb_input_xi_device_info_next(&device)) {
        const quint16 id = device.data->deviceid;
        if (device.data->type != XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD || id > 0xff)
            continue;
        auto &group = isTestDevice(m_connection, id) ? m_testKeyboards : m_keyboards;
        group.push_back(static_cast<quint8>(id));
    }
}

KeySet HeldKeys::anywhere() const
{
    const auto cookie = xcb_query_keymap(m_connection.xcb());
    const KeySet onDevices = keysOn(m_connection, m_testKeyboards) | physically();
    const auto answer = m_connection.reply(xcb_query_keymap_reply, cookie);
    return answer ? onDevices | keysIn(answer->keys) : onDevices;
}

KeySet HeldKeys::physically() const
{
    return keysOn(m_connection, m_keyboards);
}

} // namespace platform
