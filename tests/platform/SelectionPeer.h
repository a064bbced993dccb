// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

/// Another program as far as selections go: it owns them, well-behaved or not, and asks for them.
class SelectionPeer : public QObject
{
public:
    struct Value
    {
        QByteArray type;
        int format = 8;
        QByteArray bytes;

        bool operator==(const Value &) const = default;
    };

    /// What became of a request to an owner.
    struct Request
    {
        QByteArray type;
        QByteArray bytes;
        xcb_atom_t property = XCB_NONE;
        int increments = 0;
        bool isIncremental = false;
        bool isFinished = false;
        bool isRefused = false;
        bool isStalled = false; ///< set by a test: increments are not taken any more
    };

    explicit SelectionPeer(const QByteArray &display);

    xcb_connection_t *xcb() const { return m_connection.get(); }
    xcb_window_t window() const { return m_window; }
    xcb_atom_t atom(const QByteArray &name);
    QByteArray nameOf(xcb_atom_t atom);

    /// Waits for the server.
    xcb_window_t ownerOf(const QByteArray &selection);
    void own(const QByteArray &selection, xcb_timestamp_t time = XCB_CURRENT_TIME);
    void giveUp(const QByteArray &selection);
    /// What the end of the process would do.
    void disconnect();
    void destroyWindow();

    /// Offers a text as UTF8_STRING, as a well-behaved program does.
    void offerText(const QByteArray &utf8);
    /// Offers these targets, and lists them in TARGETS.
    void offer(const QMap<QByteArray, Value> &values);
    static Value atoms(SelectionPeer &peer, const std::vector<QByteArray> &names);

    /// Asked first about every request; true if it has dealt with it.
    std::function<bool(const xcb_selection_request_event_t &, const QByteArray &target)> intercept;
    /// Told about every deletion of a property by the requestor of an incremental answer.
    std::function<void(xcb_atom_t property)> incrementTaken;
    /// Told about every answer that is complete.
    std::function<void(const Request &)> received;
    /// Every target that we were asked for, in order.
    std::vector<QByteArray> asked;

    void put(const xcb_selection_request_event_t &request, const Value &value);
    void notify(const xcb_selection_request_event_t &request, bool isConverted);
    void answer(const xcb_selection_request_event_t &request, const Value &value);
    /// Begins an incremental answer: increments are then written by put().
    void announceIncrements(const xcb_selection_request_event_t &request, quint32 atLeast);

    /// Asks the owner; the answer comes through the event loop.
    std::shared_ptr<Request> ask(const QByteArray &selection, const QByteArray &target,
                                 xcb_timestamp_t time = XCB_CURRENT_TIME);
    /// Asks the owner and waits for the whole answer. None when refused or not answered.
    std::optional<Value> fetch(const QByteArray &selection, const QByteArray &target);
    std::optional<QByteArray> fetchText(const QByteArray &target = "UTF8_STRING");
    void setProperty(xcb_atom_t property, const Value &value);
    std::optional<Value> property(xcb_atom_t property, bool isDeleted);

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    void readEvents();
    /// Waiting for a reply reads events too, without waking the notifier.
    void readEventsSoon();
    void finish(Request &request);
    void receive(const xcb_generic_event_t &event);
    void requested(const xcb_selection_request_event_t &event);
    void notified(const xcb_selection_notify_event_t &event);
    void propertyChanged(const xcb_property_notify_event_t &event);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    xcb_window_t m_window = XCB_NONE;
    QMap<QByteArray, Value> m_offer;
    std::vector<std::shared_ptr<Request>> m_requests;
    QMap<QByteArray, xcb_atom_t> m_atoms;
    int m_requestCount = 0;
};
