// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LineField.h"

#include "Quillery_Mac/editor/FieldMenu.h"
#include "Quillery_Mac/ui/PaletteColors.h"

#include <QContextMenuEvent>
#include <QScopedValueRollback>

namespace {

// Beside what the style keeps free, so that lines and long texts start below each other.
constexpr int kTextMargin = 4;

} // namespace

LineField::LineField(QWidget *parent)
    : QLineEdit(parent)
{
    setTextMargins(kTextMargin, 0, kTextMargin, 0);
    takeColors();
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

void LineField::takeColors()
{
    const QScopedValueRollback taking(m_isTakingColors, true);
    QPalette own;
    own.setResolveMask(0);
    own.setColor(QPalette::PlaceholderText, paletteColors::placeholder(palette()));
    setPalette(own);
}
