// SPDX-License-Identifier: MIT
#include "platform/pasteboard/SelectionServer.h"

#include "platform/log/Log.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace platform {

namespace {

/// Texts up to this size (bytes) go out whole, longer ones in increments of it. At most a
/// millisecond of writing each; a larger size gained nothing measurable for 50 MB.
constexpr qsizetype kIncrementBytes = qsizetype{256} * 1024;

/// Longest list of pairs in a MULTIPLE request (pairs).
constexpr quint32 kMaxPairs = 512;

bool isEarlier(xcb_timestamp_t time, xcb_timestamp_t other)
{
    return static_cast<qint32>(time - other) < 0;
}

} // namespace

SelectionServer::SelectionServer(SelectionConnection &connection,
                                 std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent)
    , m_connection(connection)
    , m_patience(patience)
{
    m_patienceTimer.setInterval(patience);
    connect(&m_patienceTimer, &QTimer::timeout, this, &SelectionServer::dropPatienceExceeded);
}

void SelectionServer::answer(const xcb_selection_request_event_t &request,
                             const SelectionOffer &offer)
{
    const bool isTooEarly =
        request.time != XCB_CURRENT_TIME && isEarlier(request.time, offer.acquiredAt);
    if (isTooEarly)
        return notify(request, false);
    if (request.target == m_connection.atoms().multiple)
        return answerMultiple(request, offer);
    // Programs from before 1988 leave the choice of the property to the owner.
    const xcb_atom_t property = request.property == XCB_NONE ? request.target : request.property;
    notify(request, convert({request.requestor, property, request.target}, offer));
}

void SelectionServer::notify(const xcb_selection_request_event_t &request, bool isConverted)
{
    // The protocol sends 32 bytes, more than the event's own structure has.
    union {
        xcb_selection_notify_event_t event;
        char bytes[32];
    } message{};
    std::memset(message.bytes, 0, sizeof message.bytes);
    message.event.response_type = XCB_SELECTION_NOTIFY;
    message.event.time = request.time;
    message.event.requestor = request.requestor;
    message.event.selection = request.selection;
    message.event.target = request.target;
    if (isConverted)
        message.event.property = request.property == XCB_NONE ? request.target : request.property;
    xcb_send_event(m_connection.xcb(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   message.bytes);
    m_connection.flush();
}

bool SelectionServer::convert(const Conversion &conversion, const SelectionOffer &offer)
{
    const SelectionAtoms &atoms = m_connection.atoms();
    if (conversion.target == atoms.targets) {
        sendTargets(conversion, offer.text.has_value());
        return true;
    }
    if (conversion.target == atoms.timestamp) {
        writeNumbers(conversion.requestor, conversion.property, XCB_ATOM_INTEGER,
                     {offer.acquiredAt});
        return true;
    }
    if (conversion.target == atoms.saveTargets) {
        if (offer.canSave)
            writeNumbers(conversion.requestor, conversion.property, atoms.null, {});
        return offer.canSave;
    }
    return offer.text && convertToText(conversion, *offer.text);
}

bool SelectionServer::convertToText(const Conversion &conversion, const QByteArray &utf8)
{
    const SelectionAtoms &atoms = m_connection.atoms();
    const xcb_atom_t target = conversion.target;
    const bool isUtf8 = target == atoms.utf8String || target == atoms.plainTextUtf8 ||
                        target == atoms.plainText || target == atoms.text;
    if (!isUtf8 && target != XCB_ATOM_STRING)
        return false;
    const xcb_atom_t type = target == atoms.text ? atoms.utf8String : target;
    OutgoingText text(utf8, isUtf8 ? OutgoingText::Encoding::Utf8 : OutgoingText::Encoding::Latin1);
    if (text.remaining() > incrementBytes())
        startTransfer(conversion, type, std::move(text));
    else
        write(conversion.requestor, conversion.property, type, text.next(incrementBytes()));
    return true;
}

void SelectionServer::answerMultiple(const xcb_selection_request_event_t &request,
                                     const SelectionOffer &offer)
{
    if (request.property == XCB_NONE)
        return notify(request, false);
    const xcb_get_property_cookie_t cookie = xcb_get_property(
        m_connection.xcb(), 0, request.requestor, request.property, XCB_ATOM_ANY, 0, kMaxPairs * 2);
    m_connection.whenReplied(cookie, [=, this](const xcb_get_property_reply_t *reply) {
        convertPairs(request, offer, reply);
    });
    m_connection.flush();
}

void SelectionServer::convertPairs(const xcb_selection_request_event_t &request,
                                   const SelectionOffer &offer,
                                   const xcb_get_property_reply_t *reply)
{
    if (reply == nullptr || reply->format != 32)
        return notify(request, false);
    const auto *first = static_cast<const xcb_atom_t *>(xcb_get_property_value(reply));
    std::vector<xcb_atom_t> pairs(first, first + xcb_get_property_value_length(reply) / 4);
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
        const xcb_atom_t target = pairs[i];
        const bool isPlain = target != m_connection.atoms().multiple && pairs[i + 1] != XCB_NONE;
        if (!isPlain || !convert({request.requestor, pairs[i + 1], target}, offer))
            pairs[i] = XCB_NONE; // says "not converted"
    }
    writeNumbers(request.requestor, request.property, m_connection.atoms().atomPair, pairs);
    notify(request, true);
}

void SelectionServer::sendTargets(const Conversion &conversion, bool hasText)
{
    const SelectionAtoms &atoms = m_connection.atoms();
    std::vector<quint32> targets{atoms.targets, atoms.multiple, atoms.timestamp, atoms.saveTargets};
    if (hasText) {
        targets.insert(targets.end(), {atoms.utf8String, atoms.plainTextUtf8, atoms.plainText,
                                       xcb_atom_t(XCB_ATOM_STRING), atoms.text});
    }
    writeNumbers(conversion.requestor, conversion.property, XCB_ATOM_ATOM, targets);
}

void SelectionServer::startTransfer(const Conversion &conversion, xcb_atom_t type,
                                    OutgoingText text)
{
    std::erase_if(m_transfers, [&](const Transfer &old) {
        return old.requestor == conversion.requestor && old.property == conversion.property;
    });
    // Must be selected before the property is set, or its deletion could be missed.
    const quint32 mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.xcb(), conversion.requestor, XCB_CW_EVENT_MASK,
                                 &mask);
    const auto atLeast = static_cast<quint32>(text.remaining());
    m_transfers.push_back({conversion.requestor, conversion.property, type, std::move(text),
                           std::chrono::steady_clock::now()});
    writeNumbers(conversion.requestor, conversion.property, m_connection.atoms().incr, {atLeast});
    if (!m_patienceTimer.isActive())
        m_patienceTimer.start();
}

void SelectionServer::handle(const xcb_property_notify_event_t &event)
{
    if (event.state != XCB_PROPERTY_DELETE)
        return;
    const auto transfer = std::find_if(m_transfers.begin(), m_transfers.end(), [&](const auto &t) {
        return t.requestor == event.window && t.property == event.atom;
    });
    if (transfer == m_transfers.end() || sendIncrement(*transfer))
        return;
    m_transfers.erase(transfer);
    unwatchIfIdle(event.window);
}

/// @return false when it was the last one, which is empty
bool SelectionServer::sendIncrement(Transfer &transfer)
{
    const bool isLast = transfer.text.remaining() == 0;
    transfer.lastSign = std::chrono::steady_clock::now();
    write(transfer.requestor, transfer.property, transfer.type,
          transfer.text.next(incrementBytes()));
    m_connection.flush();
    return !isLast;
}

void SelectionServer::windowVanished(xcb_window_t window)
{
    std::erase_if(m_transfers, [&](const Transfer &t) { return t.requestor == window; });
    if (m_transfers.empty())
        m_patienceTimer.stop();
}

void SelectionServer::dropPatienceExceeded()
{
    const auto limit = std::chrono::steady_clock::now() - m_patience;
    std::vector<xcb_window_t> dropped;
    std::erase_if(m_transfers, [&](const Transfer &transfer) {
        if (transfer.lastSign > limit)
            return false;
        dropped.push_back(transfer.requestor);
        return true;
    });
    for (const xcb_window_t requestor : dropped) {
        qCInfo(logPasteboard, "a program stopped reading the text that it had asked for");
        unwatchIfIdle(requestor);
    }
    if (m_transfers.empty())
        m_patienceTimer.stop();
}

void SelectionServer::unwatchIfIdle(xcb_window_t requestor)
{
    if (m_transfers.empty())
        m_patienceTimer.stop();
    const bool isBusy = std::any_of(m_transfers.begin(), m_transfers.end(),
                                    [&](const Transfer &t) { return t.requestor == requestor; });
    if (isBusy)
        return;
    const quint32 mask = XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(m_connection.xcb(), requestor, XCB_CW_EVENT_MASK, &mask);
    m_connection.flush();
}

void SelectionServer::write(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                            const QByteArray &bytes)
{
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, window, property, type, 8,
                        static_cast<quint32>(bytes.size()), bytes.constData());
}

void SelectionServer::writeNumbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                                   const std::vector<quint32> &numbers)
{
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<quint32>(numbers.size()), numbers.data());
}

qsizetype SelectionServer::incrementBytes() const
{
    return std::min(kIncrementBytes, m_connection.maxPropertyBytes());
}

} // namespace platform
