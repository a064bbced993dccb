// SPDX-License-Identifier: MIT
#include "platform/pasteboard/X11Pasteboard.h"

#include <utility>

namespace platform {

namespace {

template <typename Event>
const Event &as(const xcb_generic_event_t &event)
{
    return reinterpret_cast<const Event &>(event);
}

} // namespace

std::unique_ptr<X11Pasteboard> X11Pasteboard::create(const QByteArray &display)
{
    return create(display, Patience());
}

std::unique_ptr<X11Pasteboard> X11Pasteboard::create(const QByteArray &display, Patience patience)
{
    std::unique_ptr<SelectionConnection> connection = SelectionConnection::create(display);
    if (!connection)
        return nullptr;
    return std::unique_ptr<X11Pasteboard>(new X11Pasteboard(std::move(connection), patience));
}

X11Pasteboard::X11Pasteboard(std::unique_ptr<SelectionConnection> connection, Patience patience)
    : m_connection(std::move(connection))
    , m_server(*m_connection, patience.requestor)
    , m_reader(*m_connection, m_connection->atoms().clipboard, patience.reading)
    , m_primaryReader(*m_connection, XCB_ATOM_PRIMARY, patience.reading)
    , m_clipboard(*m_connection, m_server, m_connection->atoms().clipboard)
    , m_primary(*m_connection, m_server, XCB_ATOM_PRIMARY)
    , m_keeper(*m_connection, m_server)
{
    connect(m_connection.get(), &SelectionConnection::received, this, &X11Pasteboard::receive);
    connect(&m_reader, &SelectionReader::finished, this, &X11Pasteboard::settle);
    connect(&m_reader, &SelectionReader::overdue, this, [this] { settle(std::nullopt); });
    connect(&m_primaryReader, &SelectionReader::finished, this, &X11Pasteboard::primarySettled);
    connect(&m_primaryReader, &SelectionReader::overdue, this, &X11Pasteboard::cancelAdoption);
    connect(&m_keeper, &ClipboardKeeper::becameManager, this, &X11Pasteboard::keepForVanishedOwner);
    m_clipboard.watch();
    askTime();
}

X11Pasteboard::~X11Pasteboard() = default;

QString X11Pasteboard::backendId() const
{
    return QStringLiteral("x11");
}

Availability X11Pasteboard::availability() const
{
    if (m_connection->isBroken())
        return {false, QStringLiteral("the connection to the X server is lost")};
    return {true, {}};
}

void X11Pasteboard::clearContents()
{
    replaceContents(std::nullopt);
}

bool X11Pasteboard::setString(const QByteArray &utf8)
{
    if (m_connection->isBroken())
        return false;
    if (!m_clipboard.isOurs())
        clearContents();
    m_clipboard.setText(utf8);
    publish(m_changeCount, utf8);
    return true;
}

void X11Pasteboard::receive(const xcb_generic_event_t &event)
{
    const int type = event.response_type & 0x7F; // the top bit says "sent by a program"
    if (type == 0)
        requestFailed(as<xcb_generic_error_t>(event));
    else if (type == XCB_PROPERTY_NOTIFY)
        propertyChanged(as<xcb_property_notify_event_t>(event));
    else if (type == XCB_SELECTION_NOTIFY)
        selectionNotified(as<xcb_selection_notify_event_t>(event));
    else if (type == XCB_SELECTION_REQUEST)
        selectionRequested(as<xcb_selection_request_event_t>(event));
    else if (type == XCB_DESTROY_NOTIFY)
        m_server.windowVanished(as<xcb_destroy_notify_event_t>(event).window);
    else if (type == m_connection->selectionNotifyType())
        selectionOwnerChanged(as<xcb_xfixes_selection_notify_event_t>(event));
}

void X11Pasteboard::propertyChanged(const xcb_property_notify_event_t &event)
{
    const bool isClock = event.atom == m_connection->atoms().clock;
    if (isClock && event.window == m_connection->window())
        timeKnown(event.time);
    m_reader.handle(event);
    m_primaryReader.handle(event);
    m_server.handle(event);
}

void X11Pasteboard::selectionNotified(const xcb_selection_notify_event_t &event)
{
    if (event.selection == m_connection->atoms().clipboardManager)
        m_isHandedOver = true;
    else if (event.selection == m_primary.atom())
        m_primaryReader.handle(event);
    else
        m_reader.handle(event);
}

void X11Pasteboard::selectionRequested(const xcb_selection_request_event_t &event)
{
    const SelectionAtoms &atoms = m_connection->atoms();
    if (event.selection == atoms.clipboard) {
        m_clipboard.answer(event);
    } else if (event.selection == m_primary.atom()) {
        m_primary.answer(event);
    } else if (event.selection == atoms.clipboardManager) {
        m_isSaveRequested = m_isSaveRequested || event.target == atoms.saveTargets;
        m_keeper.answer(event, copyState());
    }
}

void X11Pasteboard::selectionOwnerChanged(const xcb_xfixes_selection_notify_event_t &event)
{
    if (event.selection == m_clipboard.atom())
        clipboardOwnerChanged(event);
    else if (event.selection == m_primary.atom())
        primaryOwnerChanged(event);
    else
        m_keeper.ownerChanged(event);
}

// Other programs' windows vanish while we write to them: that is all that an error here tells.
void X11Pasteboard::requestFailed(const xcb_generic_error_t &error)
{
    if (error.error_code == XCB_WINDOW)
        m_server.windowVanished(error.resource_id);
}

// A change of a property brings it.
void X11Pasteboard::askTime()
{
    xcb_change_property(m_connection->xcb(), XCB_PROP_MODE_APPEND, m_connection->window(),
                        m_connection->atoms().clock, XCB_ATOM_INTEGER, 32, 0, nullptr);
    m_connection->flush();
}

void X11Pasteboard::timeKnown(xcb_timestamp_t now)
{
    if (!std::exchange(m_isStarted, true))
        start(now);
    if (std::exchange(m_isAdopting, false))
        readPrimary(now);
}

void X11Pasteboard::start(xcb_timestamp_t now)
{
    m_keeper.start(now);
    m_connection->whenReplied(
        xcb_get_selection_owner(m_connection->xcb(), m_clipboard.atom()),
        [this, now](xcb_window_t owner) {
            const bool isNews = m_reading == Reading::Settled && m_changeCount == 0;
            if (owner == XCB_NONE || owner == m_connection->window() || !isNews)
                return;
            m_reading = Reading::AtStart;
            m_reader.read(now);
        });
    m_connection->flush();
}

void X11Pasteboard::clipboardOwnerChanged(const xcb_xfixes_selection_notify_event_t &event)
{
    switch (m_clipboard.ownerChanged(event)) {
    case OwnedSelection::Change::Stale:
        break;
    case OwnedSelection::Change::Ours:
        m_vanishedOwnerSince.reset();
        break;
    case OwnedSelection::Change::Foreign:
        clipboardTakenBy(event.owner, event.timestamp);
        break;
    case OwnedSelection::Change::Nobodys:
        clipboardLost(event);
        break;
    }
}

void X11Pasteboard::clipboardTakenBy(xcb_window_t owner, xcb_timestamp_t time)
{
    const bool isManager =
        m_keeper.manager() != XCB_NONE && m_connection->isSameClient(owner, m_keeper.manager());
    m_primaryReader.cancel(); // its text would be older than this copy
    m_vanishedOwnerSince.reset();
    m_isSaveRequested = false;
    m_reading = isManager ? Reading::ManagerCopy : Reading::Copy;
    m_reader.read(time);
}

// An owner that ends leaves its copy behind; one that gives the clipboard up empties it, unless it
// has just asked to keep the copy.
void X11Pasteboard::clipboardLost(const xcb_xfixes_selection_notify_event_t &event)
{
    const bool isGivenUp =
        event.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER && !m_isSaveRequested;
    if (isGivenUp) {
        m_reader.cancel();
        settle(std::nullopt);
        publish(m_changeCount, std::nullopt);
        return;
    }
    m_vanishedOwnerSince = event.selection_timestamp;
    m_reader.ownerVanished();
    keepForVanishedOwner();
}

void X11Pasteboard::keepForVanishedOwner()
{
    const bool isReadable = !m_reader.isReading() && m_string;
    if (m_vanishedOwnerSince && isReadable && m_keeper.isManager())
        m_clipboard.takeIfFreeSince(*m_vanishedOwnerSince, m_string);
}

void X11Pasteboard::replaceContents(const std::optional<QByteArray> &text)
{
    cancelAdoption();
    m_reader.cancel();
    m_reading = Reading::Settled;
    m_vanishedOwnerSince.reset();
    m_clipboard.take(text);
    publish(m_changeCount + 1, text);
}

void X11Pasteboard::settle(const std::optional<QByteArray> &text)
{
    switch (std::exchange(m_reading, Reading::Settled)) {
    case Reading::Settled:
        if (text) // later than its deadline, but the present copy all the same
            publish(m_changeCount, text);
        break;
    case Reading::AtStart:
        publish(m_changeCount, text);
        break;
    case Reading::ManagerCopy:
        publish(text && text == m_string ? m_changeCount : m_changeCount + 1, text);
        break;
    case Reading::Copy:
        publish(m_changeCount + 1, text);
        break;
    }
    m_keeper.settle(m_string.has_value());
    keepForVanishedOwner();
}

void X11Pasteboard::publish(qint64 count, const std::optional<QByteArray> &text)
{
    m_changeCount = count;
    m_string = text;
    emit changed();
}

ClipboardKeeper::Copy X11Pasteboard::copyState() const
{
    if (m_reading != Reading::Settled)
        return ClipboardKeeper::Copy::BeingRead;
    return m_string ? ClipboardKeeper::Copy::HasText : ClipboardKeeper::Copy::HasNoText;
}

} // namespace platform
