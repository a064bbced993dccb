// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/OutgoingText.h"
#include "platform/pasteboard/SelectionConnection.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>
#include <vector>

namespace platform {

/// What one of our selections has to give.
struct SelectionOffer
{
    std::optional<QByteArray> text; ///< UTF-8; none: only the protocol's own targets
    xcb_timestamp_t acquiredAt = 0; ///< server time (milliseconds)
    bool canSave = true;            ///< SAVE_TARGETS is granted
};

/// Answers the programs that ask for one of our selections; any number of them at once, long texts
/// in increments. A requestor that vanishes or stops reading is forgotten. ICCCM section 2.2, 2.6.
class SelectionServer : public QObject
{
    Q_OBJECT

public:
    /// @param patience how long a requestor may take from one increment to the next
    SelectionServer(SelectionConnection &connection, std::chrono::milliseconds patience,
                    QObject *parent = nullptr);

    void answer(const xcb_selection_request_event_t &request, const SelectionOffer &offer);
    /// Tells the requestor the outcome of a request that was kept back.
    void notify(const xcb_selection_request_event_t &request, bool isConverted);

    void handle(const xcb_property_notify_event_t &event);
    /// The window of a requestor is gone.
    void windowVanished(xcb_window_t window);

    /// Transfers that are under way.
    std::size_t transferCount() const { return m_transfers.size(); }

private:
    struct Conversion
    {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t target;
    };
    struct Transfer
    {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        OutgoingText text;
        std::chrono::steady_clock::time_point lastSign;
    };

    bool convert(const Conversion &conversion, const SelectionOffer &offer);
    bool convertToText(const Conversion &conversion, const QByteArray &utf8);
    void answerMultiple(const xcb_selection_request_event_t &request, const SelectionOffer &offer);
    void convertPairs(const xcb_selection_request_event_t &request, const SelectionOffer &offer,
                      const xcb_get_property_reply_t *reply);
    void sendTargets(const Conversion &conversion, bool hasText);
    void startTransfer(const Conversion &conversion, xcb_atom_t type, OutgoingText text);
    bool sendIncrement(Transfer &transfer);
    void write(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const QByteArray &bytes);
    void writeNumbers(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                      const std::vector<quint32> &numbers);
    void dropPatienceExceeded();
    void unwatchIfIdle(xcb_window_t requestor);
    qsizetype incrementBytes() const;

    SelectionConnection &m_connection;
    std::chrono::milliseconds m_patience;
    std::vector<Transfer> m_transfers;
    QTimer m_patienceTimer;
};

} // namespace platform
