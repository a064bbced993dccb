// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/ExactTextEdit.h"

#include "Quillery_Mac/editor/DroppedText.h"
#include "Quillery_Mac/editor/FieldMenu.h"
#include "Quillery_Mac/editor/ShownText.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace {

// Columns between two tab stops.
constexpr int kTabColumns = 4;
const QString kUtf8Format = QStringLiteral("text/plain;charset=utf-8");

bool isOneOf(const QKeyEvent &event, std::initializer_list<QKeySequence::StandardKey> keys)
{
    return std::ranges::any_of(keys, [&](auto key) { return event.matches(key); });
}

bool isReturn(const QKeyEvent &event)
{
    const auto others = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && !others;
}

} // namespace

ExactTextEdit::ExactTextEdit(QWidget *parent)
    : QPlainTextEdit(parent)
{
    document()->setUndoRedoEnabled(false);
    setTabStopDistance(kTabColumns * fontMetrics().horizontalAdvance(u' '));
    setAccessibleDescription(
        tr("The Tab key writes a tab. Control and Tab, or Shift and Tab, leave the field."));
    connect(document(), &QTextDocument::contentsChange, this, &ExactTextEdit::documentChanged);
    connect(document(), &QTextDocument::contentsChanged, this, &ExactTextEdit::documentSettled);
}

void ExactTextEdit::setUtf8(const QByteArray &utf8)
{
    m_text.setUtf8(utf8);
    const QScopedValueRollback showing(m_isShowing, true);
    setPlainText(m_text.shown());
    // Setting a text has switched it on again.
    document()->setUndoRedoEnabled(false);
    alignText();
}

void ExactTextEdit::become(const QByteArray &utf8)
{
    if (const auto change = m_text.become(utf8)) {
        show(*change);
        breakLongLine(change->at);
        alignText();
    }
}

void ExactTextEdit::insertUtf8(const QByteArray &utf8)
{
    const QTextCursor cursor = textCursor();
    const int removed = cursor.selectionEnd() - cursor.selectionStart();
    finish({m_text.replace(cursor.selectionStart(), removed, utf8)});
}

void ExactTextEdit::undo()
{
    finish(m_text.undo());
}

void ExactTextEdit::redo()
{
    finish(m_text.redo());
}

void ExactTextEdit::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        alignText();
}

// The document has one alignment for all lines: that of its first one.
void ExactTextEdit::alignText()
{
    const QString first = document()->firstBlock().text();
    const bool isRightToLeft =
        first.isEmpty() ? layoutDirection() == Qt::RightToLeft : first.isRightToLeft();
    const Qt::Alignment alignment = isRightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    QTextOption option = document()->defaultTextOption();
    // Setting it lays all lines out anew.
    if (option.alignment() == alignment)
        return;
    const QScopedValueRollback showing(m_isShowing, true);
    option.setAlignment(alignment);
    document()->setDefaultTextOption(option);
}

void ExactTextEdit::keyPressEvent(QKeyEvent *event)
{
    if (leaveByTab(*event) || (!isReadOnly() && handleKey(*event))) {
        event->accept();
        return;
    }
    stepOverBreak(*event);
    QPlainTextEdit::keyPressEvent(event);
}

bool ExactTextEdit::handleKey(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Undo))
        undo();
    else if (event.matches(QKeySequence::Redo))
        redo();
    else if (isReturn(event))
        insertUtf8("\n"); // With Shift the base class would write U+2028.
    else
        return false;
    return true;
}

// The base class either gives all of these away or keeps them all.
bool ExactTextEdit::leaveByTab(const QKeyEvent &event)
{
    const bool isBack = event.key() == Qt::Key_Backtab ||
                        (event.key() == Qt::Key_Tab && (event.modifiers() & Qt::ShiftModifier));
    const bool isForward = event.key() == Qt::Key_Tab && (event.modifiers() & Qt::ControlModifier);
    if (!isBack && !isForward)
        return false;
    setTabChangesFocus(true);
    focusNextPrevChild(!isBack);
    setTabChangesFocus(false);
    return true;
}

// A break is no character, so a key that would delete it deletes what is behind it.
void ExactTextEdit::stepOverBreak(const QKeyEvent &event)
{
    QTextCursor cursor = textCursor();
    if (cursor.hasSelection())
        return;
    const int at = cursor.position();
    const bool isBackward =
        event.key() == Qt::Key_Backspace || event.matches(QKeySequence::DeleteStartOfWord);
    const bool isForward = isOneOf(event, {QKeySequence::Delete, QKeySequence::DeleteEndOfWord,
                                           QKeySequence::DeleteEndOfLine});
    if (isBackward && at > 0 && m_text.isBreak(at - 1))
        cursor.setPosition(at - 1);
    else if (isForward && m_text.isBreak(at))
        cursor.setPosition(at + 1);
    else
        return;
    setTextCursor(cursor);
}

void ExactTextEdit::inputMethodEvent(QInputMethodEvent *event)
{
    m_incoming = event->commitString().toUtf8();
    QPlainTextEdit::inputMethodEvent(event);
    m_incoming.clear();
}

void ExactTextEdit::contextMenuEvent(QContextMenuEvent *event)
{
    const bool canUndo = !isReadOnly() && m_text.history().canUndo();
    const bool canRedo = !isReadOnly() && m_text.history().canRedo();
    fieldMenu::open(*this, {canUndo, canRedo, textCursor().hasSelection(), !isReadOnly()},
                    event->globalPos());
}

// The base class removes and inserts at once, and reports it as one change of everything between
// the two places. So it only finds the place.
void ExactTextEdit::dropEvent(QDropEvent *event)
{
    const QTextCursor before = textCursor();
    const bool isOwn = event->source() == this || event->source() == viewport();
    const bool isMove = isOwn && event->dropAction() == Qt::MoveAction;
    if (isMove)
        event->setDropAction(Qt::CopyAction);
    m_dropped.emplace();
    QPlainTextEdit::dropEvent(event);
    const QByteArray dropped = *std::exchange(m_dropped, std::nullopt);
    if (dropped.isEmpty())
        return;
    if (isMove)
        moveSelection(before, textCursor().position(), dropped);
    else
        insertUtf8(dropped);
}

void ExactTextEdit::moveSelection(const QTextCursor &selection, int destination,
                                  const QByteArray &utf8)
{
    const int start = selection.selectionStart();
    const int count = selection.selectionEnd() - start;
    if (destination >= start && destination <= start + count)
        return;
    m_text.history().beginGroup();
    const ExactText::Change removal = m_text.replace(start, count, {});
    show(removal);
    const int place = destination > start ? destination - removal.removed : destination;
    finish({m_text.replace(place, 0, utf8)});
    m_text.history().endGroup();
}

QMimeData *ExactTextEdit::createMimeDataFromSelection() const
{
    const QTextCursor cursor = textCursor();
    const int count = cursor.selectionEnd() - cursor.selectionStart();
    const QByteArray bytes = m_text.utf8(cursor.selectionStart(), count);
    auto *copied = new QMimeData;
    copied->setText(QString::fromUtf8(bytes));
    copied->setData(kUtf8Format, bytes);
    return copied;
}

bool ExactTextEdit::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText() || source->hasFormat(kUtf8Format);
}

void ExactTextEdit::insertFromMimeData(const QMimeData *source)
{
    if (isReadOnly() || !canInsertFromMimeData(source))
        return;
    if (m_dropped)
        m_dropped = droppedText(*source);
    else
        insertUtf8(droppedText(*source));
}

void ExactTextEdit::documentChanged(int at, int removed, int added)
{
    if (m_isShowing)
        return;
    // Reports may count the end of the last block, which is no character.
    const int excess = std::max(0, at + removed - m_text.length());
    const QString before = m_text.shown(at, removed - excess);
    const QString after = shownInDocument(at, added - excess);
    // Reports may span more than has changed: while a word is composed, nothing at all.
    const qsizetype shorter = std::min(before.size(), after.size());
    const auto start =
        std::mismatch(before.begin(), before.begin() + shorter, after.begin()).first -
        before.begin();
    const auto end =
        std::mismatch(before.rbegin(), before.rbegin() + (shorter - start), after.rbegin()).first -
        before.rbegin();
    const QString inserted = after.mid(start, after.size() - start - end);
    const int count = static_cast<int>(before.size() - start - end);
    if (inserted.isEmpty() && count == 0)
        return;
    const bool isKnown = shownText::units(m_incoming) == inserted.size();
    m_text.follow(at + static_cast<int>(start), count,
                  isKnown ? m_incoming : shownText::toUtf8(inserted));
    m_isEdited = true;
}

// While the document reports what changed it must not be changed.
void ExactTextEdit::documentSettled()
{
    if (m_isShowing || !std::exchange(m_isEdited, false))
        return;
    breakLongLine(textCursor().position());
    alignText();
    emit edited();
}

QString ExactTextEdit::shownInDocument(int at, int count) const
{
    QTextCursor cursor(document());
    cursor.setPosition(at);
    cursor.setPosition(at + count, QTextCursor::KeepAnchor);
    return cursor.selectedText().replace(QChar::ParagraphSeparator, u'\n');
}

void ExactTextEdit::show(const ExactText::Change &change)
{
    const QScopedValueRollback showing(m_isShowing, true);
    QTextCursor cursor(document());
    cursor.setPosition(change.at);
    cursor.setPosition(change.at + change.removed, QTextCursor::KeepAnchor);
    cursor.insertText(change.inserted);
}

void ExactTextEdit::breakLongLine(int at)
{
    const QTextBlock block = document()->findBlock(at);
    const int length = block.length() - 1;
    if (length <= 2 * ShownMap::kLongLine)
        return;
    QTextCursor cursor = textCursor();
    const qsizetype anchor = m_text.byteAt(cursor.anchor());
    const qsizetype position = m_text.byteAt(cursor.position());
    show(m_text.breakLines(block.position(), length));
    cursor.setPosition(m_text.atByte(anchor));
    cursor.setPosition(m_text.atByte(position), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void ExactTextEdit::finish(const std::vector<ExactText::Change> &changes)
{
    if (changes.empty())
        return;
    for (const ExactText::Change &change : changes)
        show(change);
    QTextCursor cursor = textCursor();
    cursor.setPosition(changes.back().at + static_cast<int>(changes.back().inserted.size()));
    setTextCursor(cursor);
    breakLongLine(cursor.position());
    alignText();
    ensureCursorVisible();
    emit edited();
}
