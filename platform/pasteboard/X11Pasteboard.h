// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/ClipboardKeeper.h"
#include "platform/pasteboard/OwnedSelection.h"
#include "platform/pasteboard/Pasteboard.h"
#include "platform/pasteboard/SelectionReader.h"
#include "platform/pasteboard/SelectionServer.h"

#include <memory>

namespace platform {

/// The pasteboard on X11: the CLIPBOARD selection, and PRIMARY when asked to offer or to adopt it.
///
/// Counts a new owner's copy once it is read, or known to be unreadable; one that is superseded
/// before that is not counted, and an owner that ends is no change. What was copied stays on offer
/// when its owner ends, unless another program keeps the clipboard.
class X11Pasteboard : public Pasteboard
{
    Q_OBJECT

public:
    /// Deadlines for other programs; tests shorten them.
    struct Patience
    {
        ReadDeadlines reading;
        /// For a requestor, from one increment of a long text to the next.
        std::chrono::milliseconds requestor{10000};
    };

    /// @param display as in $DISPLAY; empty: $DISPLAY itself
    /// @return null when there is no X server or it cannot tell changes of the clipboard
    static std::unique_ptr<X11Pasteboard> create(const QByteArray &display = {});
    static std::unique_ptr<X11Pasteboard> create(const QByteArray &display, Patience patience);
    ~X11Pasteboard() override;

    QString backendId() const override;
    Availability availability() const override;
    qint64 changeCount() const override { return m_changeCount; }
    std::optional<QByteArray> string() const override { return m_string; }
    void clearContents() override;
    bool setString(const QByteArray &utf8) override;
    void offerAsPrimary() override;
    void adoptPrimary() override;
    void handOver() override;

private:
    /// What the reading under way is for.
    enum class Reading {
        Settled,     ///< nothing is to be published, except the late text of the copy that counted
        AtStart,     ///< what was there before us: published, not counted
        Copy,        ///< a new copy
        ManagerCopy, ///< a copy by the session's clipboard manager: counted unless it is the same
                     ///< text
    };

    X11Pasteboard(std::unique_ptr<SelectionConnection> connection, Patience patience);

    void receive(const xcb_generic_event_t &event);
    void propertyChanged(const xcb_property_notify_event_t &event);
    void selectionNotified(const xcb_selection_notify_event_t &event);
    void selectionRequested(const xcb_selection_request_event_t &event);
    void selectionOwnerChanged(const xcb_xfixes_selection_notify_event_t &event);
    void requestFailed(const xcb_generic_error_t &error);

    void askTime();
    void timeKnown(xcb_timestamp_t now);
    void start(xcb_timestamp_t now);
    void clipboardOwnerChanged(const xcb_xfixes_selection_notify_event_t &event);
    void clipboardTakenBy(xcb_window_t owner, xcb_timestamp_t time);
    void clipboardLost(const xcb_xfixes_selection_notify_event_t &event);
    void primaryOwnerChanged(const xcb_xfixes_selection_notify_event_t &event);
    void readPrimary(xcb_timestamp_t now);
    void primarySettled(const std::optional<QByteArray> &text);
    void cancelAdoption();
    void keepForVanishedOwner();
    void takeOverFromToolkit();
    void askManagerToSave();

    void replaceContents(const std::optional<QByteArray> &text);
    void settle(const std::optional<QByteArray> &text);
    void publish(qint64 count, const std::optional<QByteArray> &text);
    ClipboardKeeper::Copy copyState() const;

    std::unique_ptr<SelectionConnection> m_connection;
    SelectionServer m_server;
    SelectionReader m_reader;
    SelectionReader m_primaryReader;
    OwnedSelection m_clipboard;
    OwnedSelection m_primary;
    ClipboardKeeper m_keeper;

    qint64 m_changeCount = 0;
    std::optional<QByteArray> m_string;
    Reading m_reading = Reading::Settled;
    bool m_isStarted = false;
    bool m_isAdopting = false;      ///< PRIMARY is to be read once the time is known
    bool m_isSaveRequested = false; ///< the owner has asked to keep its copy
    bool m_isHandedOver = false;    ///< the manager has answered handOver()
    std::optional<xcb_timestamp_t> m_vanishedOwnerSince; ///< when an owner that ended had copied
};

} // namespace platform
