// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/SelectionTransfer.h"
#include "platform/pasteboard/TextAssembler.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>
#include <vector>

namespace platform {

/// How long another program may take to answer before its copy counts as one without text.
struct ReadDeadlines
{
    /// From one sign of life of the owner to the next.
    std::chrono::milliseconds step{2000};
    /// From the copy to its last byte.
    std::chrono::milliseconds whole{20000};
};

/// Reads the text of a selection's present owner: first what it offers, then whether it is
/// concealed, and only then the text, in the best target that it really answers.
///
/// A concealed copy is never asked for its text. Main thread only; nothing waits.
class SelectionReader : public QObject
{
    Q_OBJECT

public:
    SelectionReader(SelectionConnection &connection, xcb_atom_t selection, ReadDeadlines deadlines,
                    QObject *parent = nullptr);

    /// Starts to read; a reading that is under way is forgotten and reports nothing any more.
    /// @param time server time of the change of ownership or later (milliseconds)
    void read(xcb_timestamp_t time);
    void cancel();
    bool isReading() const { return m_step != Step::None; }

    void ownerVanished();
    void handle(const xcb_selection_notify_event_t &event);
    void handle(const xcb_property_notify_event_t &event);

signals:
    /// The end of a reading. None: no text, not readable, or concealed.
    void finished(const std::optional<QByteArray> &text);
    /// A deadline is over. Sent once; finished() may still follow when the owner answers after all.
    void overdue();

private:
    enum class Step { None, Targets, Hint, Text };

    void ask(Step step, xcb_atom_t target);
    void askNextTarget();
    bool takePiece(const SelectionTransfer::Piece &piece);
    bool takeTextPiece(const SelectionTransfer::Piece &piece);
    void stepFinished(SelectionTransfer::Outcome outcome);
    void targetsKnown(bool isAnswered);
    void hintKnown(bool isAnswered);
    void finish(const std::optional<QByteArray> &text);
    void stopTimers();
    void deadlineReached();
    std::optional<TextAssembler::Encoding> encodingOf(xcb_atom_t type) const;

    SelectionConnection &m_connection;
    SelectionTransfer m_transfer;
    Step m_step = Step::None;
    xcb_timestamp_t m_time = 0;
    bool m_areTargetsKnown = false;
    QByteArray m_answer;                   ///< of the first two steps
    std::vector<xcb_atom_t> m_textTargets; ///< still to be tried, the best last
    std::optional<TextAssembler> m_text;
    QTimer m_stepTimer;
    QTimer m_wholeTimer;
};

} // namespace platform
