// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/QuietLabel.h"

#include "Quillery_Mac/ui/PaletteColors.h"

#include <QEvent>

QuietLabel::QuietLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    takeColor();
}

void QuietLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange)
        takeColor();
}

void QuietLabel::takeColor()
{
    if (m_isTakingColor)
        return;
    m_isTakingColor = true;
    const QPalette around = parentWidget() != nullptr ? parentWidget()->palette() : QPalette();
    QPalette own;
    own.setResolveMask(0);
    own.setColor(QPalette::WindowText, paletteColors::quietText(around));
    setPalette(own);
    m_isTakingColor = false;
}
