// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/PageHeading.h"

#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>

PageHeading::PageHeading(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    takeFont();
}

void PageHeading::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ParentChange)
        takeFont();
}

void PageHeading::takeFont()
{
    if (m_isTakingFont)
        return;
    m_isTakingFont = true;
    QFont heading = drawing::scaled(parentWidget() != nullptr ? parentWidget()->font() : QFont(),
                                    tokens::kPageHeadingFont);
    heading.setWeight(QFont::DemiBold);
    setFont(heading);
    m_isTakingFont = false;
}
