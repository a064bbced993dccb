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

using StateCookies = std::vector<xcb_input_query_device_state_cookie_t>;

StateCookies askFor(X11Connection &connection, const std::vector<quint8> &devices)
{
    StateCookies cookies;
    cookies.reserve(devices.size());
    for (const quint8 device : devices)
        cookies.push_back(xcb_input_query_device_state(connection.xcb(), device));
    return cookies;
}

KeySet keysIn(X11Connection &connection, const StateCookies &cookies)
{
    KeySet keys;
    for (const xcb_input_query_device_state_cookie_t cookie : cookies) {
        // A keyboard that was unplugged meanwhile holds no keys.
        if (const auto answer = connection.reply(xcb_input_query_device_state_reply, cookie))
            keys |= keysIn(*answer);
    }
    return keys;
}

std::vector<quint8> slaveKeyboards(X11Connection &connection)
{
    const auto devices =
        connection.reply(xcb_input_xi_query_device_reply,
                         xcb_input_xi_query_device(connection.xcb(), XCB_INPUT_DEVICE_ALL));
    if (!devices)
        return {};
    std::vector<quint8> keyboards;
    auto device = xcb_input_xi_query_device_infos_iterator(devices.get());
    for (; device.rem > 0; xcb_input_xi_device_info_next(&device)) {
        const quint16 id = device.data->deviceid;
        if (device.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD && id <= 0xff)
            keyboards.push_back(static_cast<quint8>(id));
    }
    return keyboards;
}

} // namespace

HeldKeys::HeldKeys(X11Connection &connection)
    : m_connection(connection)
{
    connect(&connection, &X11Connection::received, this, &HeldKeys::handle);
    watchDevices();
}

void HeldKeys::watchDevices()
{
    struct Selection
    {
        xcb_input_event_mask_t head;
        quint32 mask;
    } selection{{XCB_INPUT_DEVICE_ALL, 1}, XCB_INPUT_XI_EVENT_MASK_HIERARCHY};
    xcb_input_xi_select_events(m_connection.xcb(), m_connection.root(), 1, &selection.head);
    xcb_flush(m_connection.xcb());
}

void HeldKeys::handle(const xcb_generic_event_t &event)
{
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC)
        return;
    const auto *extension = xcb_get_extension_data(m_connection.xcb(), &xcb_input_id);
    const auto &generic = reinterpret_cast<const xcb_ge_generic_event_t &>(event);
    if (extension != nullptr && generic.extension == extension->major_opcode &&
        generic.event_type == XCB_INPUT_HIERARCHY) {
        m_areKnown = false;
    }
}

void HeldKeys::prepare()
{
    if (!m_areKnown)
        findKeyboards();
    m_areKnown = true;
}

// All are asked before the first answer is awaited: one round trip for the list, one for the marks.
void HeldKeys::findKeyboards()
{
    m_keyboards.clear();
    m_testKeyboards.clear();
    const xcb_atom_t mark = m_connection.atom("XTEST Device");
    const std::vector<quint8> keyboards = slaveKeyboards(m_connection);
    std::vector<xcb_input_xi_get_property_cookie_t> cookies;
    cookies.reserve(keyboards.size());
    for (const quint8 id : keyboards) {
        cookies.push_back(
            xcb_input_xi_get_property(m_connection.xcb(), id, 0, mark, XCB_ATOM_ANY, 0, 1));
    }
    for (std::size_t i = 0; i < keyboards.size(); ++i) {
        const auto property = m_connection.reply(xcb_input_xi_get_property_reply, cookies[i]);
        const bool isTest = property && property->num_items > 0;
        (isTest ? m_testKeyboards : m_keyboards).push_back(keyboards[i]);
    }
}

HeldKeys::Now HeldKeys::now()
{
    prepare();
    const auto map = xcb_query_keymap(m_connection.xcb());
    const StateCookies ofKeyboards = askFor(m_connection, m_keyboards);
    const StateCookies ofTests = askFor(m_connection, m_testKeyboards);
    Now now;
    if (const auto answer = m_connection.reply(xcb_query_keymap_reply, map))
        now.anywhere = keysIn(answer->keys);
    now.physically = keysIn(m_connection, ofKeyboards);
    now.anywhere |= now.physically | keysIn(m_connection, ofTests);
    return now;
}

} // namespace platform
