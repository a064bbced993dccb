// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LineField.h"

#include "Quillery_Mac/editor/DroppedText.h"
#include "Quillery_Mac/editor/FieldMenu.h"
#include "Quillery_Mac/ui/PaletteColors.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

// The sign stands in the text of the line edit itself, so that its cursor, its selection and its
// history treat the rest as they treat a character.

namespace {

// Beside what the style keeps free, so that lines and long texts start below each other.
constexpr int kTextMargin = 4;

// A line is laid out as a whole at every key; so much takes a millisecond or two.
constexpr qsizetype kMaxShownUnits = 16384;
constexpr qsizetype kAlwaysShown = 256;

// Unicode keeps these for a program's own use: they are no characters of a text. One that stands in
// a text all the same is not shown, it is the first of a rest.
constexpr char16_t kFirstSign = u'\ufdd0';
constexpr qsizetype kSignCount = 32;

bool isSign(QChar unit)
{
    return unit.unicode() >= kFirstSign && unit.unicode() < kFirstSign + kSignCount;
}

} // namespace

LineField::LineField(QWidget *parent)
    : QLineEdit(parent)
{
    setTextMargins(kTextMargin, 0, kTextMargin, 0);
    setMaxLength(std::numeric_limits<int>::max());
    takeColors();
}

QString LineField::wholeText() const
{
    return unfolded(text());
}

void LineField::setWholeText(const QString &text)
{
    m_rests.clear();
    setText(folded(text, kMaxShownUnits));
}

void LineField::insertUtf8(const QByteArray &utf8)
{
    const QString text = QString::fromUtf8(utf8);
    if (m_rests.size() == kSignCount)
        insertAnew(text);
    else
        insert(folded(text, room()));
}

void LineField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_isTakingColors)
        takeColors();
}

void LineField::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isEditable = !isReadOnly() && isEnabled();
    fieldMenu::open(*this,
                    {isUndoAvailable() && isEditable, isRedoAvailable() && isEditable,
                     hasSelectedText(), isEditable},
                    event->globalPos());
}

// The line edit would copy the sign.
void LineField::keyPressEvent(QKeyEvent *event)
{
    const QString selected = selectedText();
    const bool isCut = event->matches(QKeySequence::Cut) && !isReadOnly();
    if ((!isCut && !event->matches(QKeySequence::Copy)) ||
        std::none_of(selected.begin(), selected.end(), isSign)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    QGuiApplication::clipboard()->setText(unfolded(selected));
    if (isCut)
        del();
}

// The line edit offers what the mouse has selected as the primary selection, with the sign.
void LineField::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
    const QString selected = selectedText();
    QClipboard &clipboard = *QGuiApplication::clipboard();
    if (clipboard.supportsSelection() && std::any_of(selected.begin(), selected.end(), isSign))
        clipboard.setText(unfolded(selected), QClipboard::Selection);
}

void LineField::dropEvent(QDropEvent *event)
{
    if (event->source() == this) {
        QLineEdit::dropEvent(event);
        return;
    }
    if (m_rests.size() == kSignCount)
        setWholeText(wholeText());
    QMimeData shown;
    shown.setText(folded(QString::fromUtf8(droppedText(*event->mimeData())), room()));
    QDropEvent drop(event->position(), event->possibleActions(), &shown, event->buttons(),
                    event->modifiers());
    drop.setDropAction(event->dropAction());
    QLineEdit::dropEvent(&drop);
    event->setDropAction(drop.dropAction());
    event->setAccepted(drop.isAccepted());
}

// How much more can be shown, when the selection has gone: a few words always.
qsizetype LineField::room() const
{
    return std::max(kMaxShownUnits - text().size() + selectedText().size(), kAlwaysShown);
}

// At most `room` units of the text, and the sign of its rest.
QString LineField::folded(const QString &whole, qsizetype room)
{
    const auto end = whole.begin() + std::min(room, whole.size());
    qsizetype shown = std::find_if(whole.begin(), end, isSign) - whole.begin();
    if (shown == whole.size())
        return whole;
    if (shown > 0 && whole.at(shown).isLowSurrogate())
        --shown;
    const auto sign = static_cast<char16_t>(kFirstSign + m_rests.size());
    m_rests.append(whole.mid(shown));
    return whole.left(shown) + QChar(sign);
}

QString LineField::unfolded(const QString &shown) const
{
    if (m_rests.isEmpty())
        return shown;
    QString whole;
    for (const QChar unit : shown) {
        const qsizetype rest = unit.unicode() - kFirstSign;
        if (isSign(unit) && rest < m_rests.size())
            whole += m_rests[rest];
        else
            whole += unit;
    }
    return whole;
}

// After so many long texts there is no sign left that is not in the history, so that has to go.
void LineField::insertAnew(const QString &inserted)
{
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    const int end = hasSelectedText() ? selectionEnd() : start;
    const QString before = unfolded(text().left(start)) + inserted;
    const QString after = unfolded(text().mid(end));
    m_rests.clear();
    const QString shown = folded(before, kMaxShownUnits);
    setText(shown + folded(after, std::max(kMaxShownUnits - shown.size(), kAlwaysShown)));
    setCursorPosition(static_cast<int>(shown.size()));
}

void LineField::takeColors()
{
    const QScopedValueRollback taking(m_isTakingColors, true);
    QPalette own;
    own.setResolveMask(0);
    own.setColor(QPalette::PlaceholderText, paletteColors::placeholder(palette()));
    setPalette(own);
}
