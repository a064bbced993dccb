// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LineField.h"

#include "Quillery_Mac/editor/FieldMenu.h"
#include "Quillery_Mac/ui/PaletteColors.h"

#include <QContextMenuEvent>
#include <QScopedValueRollback>

LineField::LineField(QWidget *parent)
    : QLineEdit(parent)
{
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
