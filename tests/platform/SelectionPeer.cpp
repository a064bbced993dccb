// SPDX-License-Identifier: MIT
#include "tests/platform/SelectionPeer.h"

#include <QTest>

#include <algorithm>
#include <cstring>

namespace {

constexpr int kAnswerMilliseconds = 20000;

} // namespace

SelectionPeer::SelectionPeer(const QByteArray &display)
    : m_connection(xcb_connect(display.constData(), nullptr))
    , m_notifier(
          std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(xcb()), QSocketNotifier::Read))
    , m_window(xcb_generate_id(xcb()))
{
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(xcb())).data;
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(xcb(), XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &SelectionPeer::readEvents);
    xcb_flush(xcb());
}

xcb_atom_t SelectionPeer::atom(const QByteArray &name)
{
    if (!m_atoms.contains(name)) {
        const auto cookie = xcb_intern_atom(xcb(), 0, quint16(name.size()), name.constData());
        const platform::XcbPointer<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(xcb(), cookie, nullptr));
        m_atoms.insert(name, reply ? reply->atom : xcb_atom_t(XCB_NONE));
        readEventsSoon();
    }
    return m_atoms.value(name);
}

QByteArray SelectionPeer::nameOf(xcb_atom_t atom)
{
    const platform::XcbPointer<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(xcb(), xcb_get_atom_name(xcb(), atom), nullptr));
    if (!reply)
        return {};
    return {xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get())};
}

xcb_window_t SelectionPeer::ownerOf(const QByteArray &selection)
{
    const auto cookie = xcb_get_selection_owner(xcb(), atom(selection));
    const platform::XcbPointer<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(xcb(), cookie, nullptr));
    readEventsSoon();
    return reply ? reply->owner : xcb_window_t(XCB_NONE);
}

void SelectionPeer::own(const QByteArray &selection, xcb_timestamp_t time)
{
    xcb_set_selection_owner(xcb(), m_window, atom(selection), time);
    xcb_flush(xcb());
}

void SelectionPeer::giveUp(const QByteArray &selection)
{
    xcb_set_selection_owner(xcb(), XCB_NONE, atom(selection), XCB_CURRENT_TIME);
    xcb_flush(xcb());
}

void SelectionPeer::disconnect()
{
    m_notifier.reset();
    m_connection.reset();
}

void SelectionPeer::destroyWindow()
{
    xcb_destroy_window(xcb(), m_window);
    xcb_flush(xcb());
}

void SelectionPeer::offerText(const QByteArray &utf8)
{
    offer({{"UTF8_STRING", {"UTF8_STRING", 8, utf8}}});
}

void SelectionPeer::offer(const QMap<QByteArray, Value> &values)
{
    m_offer = values;
    std::vector<QByteArray> names{"TARGETS"};
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        names.push_back(value.key());
    m_offer.insert("TARGETS", atoms(*this, names));
}

SelectionPeer::Value SelectionPeer::atoms(SelectionPeer &peer, const std::vector<QByteArray> &names)
{
    Value value{"ATOM", 32, {}};
    for (const QByteArray &name : names) {
        const xcb_atom_t atom = peer.atom(name);
        value.bytes.append(reinterpret_cast<const char *>(&atom), sizeof atom);
    }
    return value;
}

void SelectionPeer::put(const xcb_selection_request_event_t &request, const Value &value)
{
    xcb_change_property(xcb(), XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                        atom(value.type), quint8(value.format),
                        quint32(value.bytes.size() / (value.format / 8)), value.bytes.constData());
    xcb_flush(xcb());
}

void SelectionPeer::notify(const xcb_selection_request_event_t &request, bool isConverted)
{
    xcb_selection_notify_event_t event{};
    event.response_type = XCB_SELECTION_NOTIFY;
    event.time = request.time;
    event.requestor = request.requestor;
    event.selection = request.selection;
    event.target = request.target;
    event.property = isConverted ? request.property : xcb_atom_t(XCB_NONE);
    char message[32] = {};
    std::memcpy(message, &event, sizeof event);
    xcb_send_event(xcb(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, message);
    xcb_flush(xcb());
}

void SelectionPeer::answer(const xcb_selection_request_event_t &request, const Value &value)
{
    put(request, value);
    notify(request, true);
}

void SelectionPeer::announceIncrements(const xcb_selection_request_event_t &request,
                                       quint32 atLeast)
{
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(xcb(), request.requestor, XCB_CW_EVENT_MASK, &mask);
    const QByteArray size(reinterpret_cast<const char *>(&atLeast), sizeof atLeast);
    answer(request, {"INCR", 32, size});
}

std::shared_ptr<SelectionPeer::Request>
SelectionPeer::ask(const QByteArray &selection, const QByteArray &target, xcb_timestamp_t time)
{
    auto request = std::make_shared<Request>();
    request->property = atom("PEER_PROPERTY_" + QByteArray::number(m_requestCount++));
    m_requests.push_back(request);
    xcb_convert_selection(xcb(), m_window, atom(selection), atom(target), request->property, time);
    xcb_flush(xcb());
    return request;
}

std::optional<SelectionPeer::Value> SelectionPeer::fetch(const QByteArray &selection,
                                                         const QByteArray &target)
{
    const std::shared_ptr<Request> request = ask(selection, target);
    const auto isOver = [&] { return request->isFinished || request->isRefused; };
    if (!QTest::qWaitFor(isOver, kAnswerMilliseconds) || request->isRefused)
        return std::nullopt;
    return Value{request->type, 8, request->bytes};
}

std::optional<QByteArray> SelectionPeer::fetchText(const QByteArray &target)
{
    const std::optional<Value> value = fetch("CLIPBOARD", target);
    return value ? std::optional<QByteArray>(value->bytes) : std::nullopt;
}

void SelectionPeer::setProperty(xcb_atom_t property, const Value &value)
{
    xcb_selection_request_event_t own{};
    own.requestor = m_window;
    own.property = property;
    put(own, value);
}

std::optional<SelectionPeer::Value> SelectionPeer::property(xcb_atom_t property, bool isDeleted)
{
    constexpr quint32 kEverything = 0x1FFFFFFF;
    const auto cookie = xcb_get_property(xcb(), isDeleted ? 1 : 0, m_window, property, XCB_ATOM_ANY,
                                         0, kEverything);
    const platform::XcbPointer<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(xcb(), cookie, nullptr));
    if (!reply || reply->type == XCB_NONE)
        return std::nullopt;
    return Value{nameOf(reply->type), reply->format,
                 QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                            xcb_get_property_value_length(reply.get()))};
}

void SelectionPeer::readEvents()
{
    while (m_connection) {
        const platform::XcbPointer<xcb_generic_event_t> event(xcb_poll_for_event(xcb()));
        if (!event)
            return;
        receive(*event);
    }
}

void SelectionPeer::readEventsSoon()
{
    QMetaObject::invokeMethod(
        this, [this] { readEvents(); }, Qt::QueuedConnection);
}

void SelectionPeer::receive(const xcb_generic_event_t &event)
{
    switch (event.response_type & 0x7F) {
    case XCB_SELECTION_REQUEST:
        requested(reinterpret_cast<const xcb_selection_request_event_t &>(event));
        break;
    case XCB_SELECTION_NOTIFY:
        notified(reinterpret_cast<const xcb_selection_notify_event_t &>(event));
        break;
    case XCB_PROPERTY_NOTIFY:
        propertyChanged(reinterpret_cast<const xcb_property_notify_event_t &>(event));
        break;
    default:
        break;
    }
}

void SelectionPeer::requested(const xcb_selection_request_event_t &event)
{
    const QByteArray target = nameOf(event.target);
    asked.push_back(target);
    if (intercept && intercept(event, target))
        return;
    if (m_offer.contains(target))
        answer(event, m_offer.value(target));
    else
        notify(event, false);
}

void SelectionPeer::notified(const xcb_selection_notify_event_t &event)
{
    for (const std::shared_ptr<Request> &request : m_requests) {
        if (event.property == XCB_NONE && !request->isFinished && request == m_requests.back())
            request->isRefused = true;
        if (request->property != event.property || request->isFinished)
            continue;
        const std::optional<Value> value = property(event.property, true);
        request->isIncremental = value && value->type == "INCR";
        request->type = value ? value->type : QByteArray();
        if (request->isIncremental)
            continue;
        request->bytes = value ? value->bytes : QByteArray();
        finish(*request);
    }
}

void SelectionPeer::propertyChanged(const xcb_property_notify_event_t &event)
{
    if (event.window != m_window) {
        if (event.state == XCB_PROPERTY_DELETE && incrementTaken)
            incrementTaken(event.atom);
        return;
    }
    for (const std::shared_ptr<Request> &request : m_requests) {
        const bool isExpected = request->property == event.atom && request->isIncremental &&
                                !request->isFinished && !request->isStalled;
        if (!isExpected || event.state != XCB_PROPERTY_NEW_VALUE)
            continue;
        const std::optional<Value> value = property(event.atom, true);
        if (!value)
            continue;
        ++request->increments;
        request->type = value->type;
        request->bytes += value->bytes;
        if (value->bytes.isEmpty())
            finish(*request);
    }
}

void SelectionPeer::finish(Request &request)
{
    request.isFinished = true;
    if (received)
        received(request);
}
