// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/OwnedSelection.h"

#include <QObject>

#include <vector>

namespace platform {

/// The role of the session's clipboard manager: taken while nobody else has it, given up to whoever
/// takes it.
///
/// A program that ends with the clipboard in its hands asks the manager to save it first. We have
/// read its text by then, and only confirm; the selection itself is taken over when the program is
/// gone, so that as long as it lives its richer formats stay on offer. Source: the clipboard
/// manager specification of freedesktop.org.
class ClipboardKeeper : public QObject
{
    Q_OBJECT

public:
    /// What is known about the present copy.
    enum class Copy { BeingRead, HasText, HasNoText };

    ClipboardKeeper(SelectionConnection &connection, SelectionServer &server,
                    QObject *parent = nullptr);

    /// Takes the role if nobody has it.
    /// @param now server time (milliseconds)
    void start(xcb_timestamp_t now);

    bool isManager() const { return m_role.isOurs(); }
    /// The window of the session's manager, of whatever program; none when there is no manager.
    xcb_window_t manager() const { return m_manager; }

    void ownerChanged(const xcb_xfixes_selection_notify_event_t &event);
    void answer(const xcb_selection_request_event_t &request, Copy copy);
    /// The present copy was read.
    void settle(bool hasText);

signals:
    void becameManager();

private:
    void take(xcb_timestamp_t since);
    void announce(xcb_timestamp_t time);

    SelectionConnection &m_connection;
    SelectionServer &m_server;
    OwnedSelection m_role;
    xcb_window_t m_manager = XCB_NONE;
    std::vector<xcb_selection_request_event_t> m_waiting;
};

} // namespace platform
