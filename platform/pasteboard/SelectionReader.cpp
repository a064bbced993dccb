// SPDX-License-Identifier: MIT
#include "platform/pasteboard/SelectionReader.h"

#include "platform/log/Log.h"

#include <algorithm>
#include <cstring>

namespace platform {

namespace {

/// Longest text that is taken (bytes). Only a broken owner sends more; without a limit it could
/// fill the memory.
constexpr qsizetype kMaxTextBytes = qsizetype{512} * 1024 * 1024;
/// Longest list of targets, and longest hint, that is looked at (bytes).
constexpr qsizetype kMaxAnswerBytes = qsizetype{64} * 1024;

std::vector<xcb_atom_t> atomsIn(const QByteArray &bytes)
{
    std::vector<xcb_atom_t> atoms(std::size_t(bytes.size()) / sizeof(xcb_atom_t));
    if (!atoms.empty())
        std::memcpy(atoms.data(), bytes.constData(), atoms.size() * sizeof(xcb_atom_t));
    return atoms;
}

bool contains(const std::vector<xcb_atom_t> &atoms, xcb_atom_t atom)
{
    return std::find(atoms.begin(), atoms.end(), atom) != atoms.end();
}

} // namespace

SelectionReader::SelectionReader(SelectionConnection &connection, xcb_atom_t selection,
                                 ReadDeadlines deadlines, QObject *parent)
    : QObject(parent)
    , m_connection(connection)
    , m_transfer(connection, selection,
                 {[this](const SelectionTransfer::Piece &piece) { return takePiece(piece); },
                  [this] {
                      if (m_stepTimer.isActive())
                          m_stepTimer.start();
                  },
                  [this](SelectionTransfer::Outcome outcome) { stepFinished(outcome); }})
{
    m_stepTimer.setSingleShot(true);
    m_stepTimer.setInterval(deadlines.step);
    m_wholeTimer.setSingleShot(true);
    m_wholeTimer.setInterval(deadlines.whole);
    connect(&m_stepTimer, &QTimer::timeout, this, &SelectionReader::deadlineReached);
    connect(&m_wholeTimer, &QTimer::timeout, this, &SelectionReader::deadlineReached);
}

void SelectionReader::read(xcb_timestamp_t time)
{
    cancel();
    m_time = time;
    m_wholeTimer.start();
    m_stepTimer.start();
    ask(Step::Targets, m_connection.atoms().targets);
}

void SelectionReader::cancel()
{
    stopTimers();
    m_transfer.cancel();
    m_step = Step::None;
    m_text.reset();
    m_answer.clear();
}

void SelectionReader::ownerVanished()
{
    m_transfer.ownerVanished();
}

void SelectionReader::handle(const xcb_selection_notify_event_t &event)
{
    m_transfer.handle(event);
}

void SelectionReader::handle(const xcb_property_notify_event_t &event)
{
    m_transfer.handle(event);
}

void SelectionReader::ask(Step step, xcb_atom_t target)
{
    m_step = step;
    m_answer.clear();
    m_text.reset();
    if (m_stepTimer.isActive())
        m_stepTimer.start();
    m_transfer.start(target, m_time);
}

bool SelectionReader::takePiece(const SelectionTransfer::Piece &piece)
{
    if (m_step == Step::Text)
        return takeTextPiece(piece);
    const SelectionAtoms &atoms = m_connection.atoms();
    // Some owners answer with the type TARGETS.
    const bool isAtomList =
        piece.format == 32 && (piece.type == XCB_ATOM_ATOM || piece.type == atoms.targets);
    if (m_step == Step::Targets && !isAtomList)
        return false;
    if (m_step == Step::Hint && piece.format != 8)
        return false;
    m_answer.append(piece.bytes);
    return m_answer.size() <= kMaxAnswerBytes;
}

bool SelectionReader::takeTextPiece(const SelectionTransfer::Piece &piece)
{
    if (piece.format != 8)
        return false;
    if (!m_text) {
        const std::optional<TextAssembler::Encoding> encoding = encodingOf(piece.type);
        if (!encoding)
            return false;
        m_text.emplace(*encoding);
    }
    m_text->append(piece.bytes);
    return m_text->size() <= kMaxTextBytes;
}

void SelectionReader::stepFinished(SelectionTransfer::Outcome outcome)
{
    const bool isAnswered = outcome == SelectionTransfer::Outcome::Complete;
    switch (m_step) {
    case Step::None:
        break;
    case Step::Targets:
        targetsKnown(isAnswered);
        break;
    case Step::Hint:
        hintKnown(isAnswered);
        break;
    case Step::Text:
        if (isAnswered)
            finish(m_text->finish());
        else
            askNextTarget();
        break;
    }
}

void SelectionReader::targetsKnown(bool isAnswered)
{
    const SelectionAtoms &atoms = m_connection.atoms();
    m_areTargetsKnown = isAnswered;
    const std::vector<xcb_atom_t> offered = atomsIn(m_answer);
    m_textTargets = isAnswered ? atoms.textTargets()
                               : std::vector<xcb_atom_t>{atoms.utf8String, XCB_ATOM_STRING};
    if (isAnswered)
        std::erase_if(m_textTargets, [&](xcb_atom_t target) { return !contains(offered, target); });
    std::reverse(m_textTargets.begin(), m_textTargets.end());
    // An owner that does not say what it offers is asked for the hint itself.
    if (!isAnswered || contains(offered, atoms.passwordManagerHint))
        ask(Step::Hint, atoms.passwordManagerHint);
    else
        askNextTarget();
}

// An owner that offers the hint but does not tell it is taken to have something to hide.
void SelectionReader::hintKnown(bool isAnswered)
{
    const bool isConcealed =
        isAnswered ? m_answer.isEmpty() || m_answer.startsWith("secret") : m_areTargetsKnown;
    if (isConcealed)
        finish(std::nullopt);
    else
        askNextTarget();
}

void SelectionReader::askNextTarget()
{
    if (m_textTargets.empty())
        return finish(std::nullopt);
    const xcb_atom_t target = m_textTargets.back();
    m_textTargets.pop_back();
    ask(Step::Text, target);
}

void SelectionReader::finish(const std::optional<QByteArray> &text)
{
    stopTimers();
    m_step = Step::None;
    m_text.reset();
    m_answer.clear();
    emit finished(text);
}

void SelectionReader::stopTimers()
{
    m_stepTimer.stop();
    m_wholeTimer.stop();
}

void SelectionReader::deadlineReached()
{
    stopTimers();
    qCInfo(logPasteboard, "the owner of a selection did not deliver its text in time");
    emit overdue();
}

std::optional<TextAssembler::Encoding> SelectionReader::encodingOf(xcb_atom_t type) const
{
    const SelectionAtoms &atoms = m_connection.atoms();
    if (type == XCB_ATOM_STRING)
        return TextAssembler::Encoding::Latin1;
    if (type == atoms.compoundText)
        return TextAssembler::Encoding::CompoundText;
    if (type == atoms.utf8String || type == atoms.plainTextUtf8 || type == atoms.plainText ||
        type == atoms.text)
        return TextAssembler::Encoding::Utf8;
    return std::nullopt;
}

} // namespace platform
