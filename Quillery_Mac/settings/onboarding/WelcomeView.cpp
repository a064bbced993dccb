// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/WelcomeView.h"

#include "Quillery_Mac/settings/onboarding/PageHeading.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kIcon = 80;

} // namespace

WelcomeView::WelcomeView(QWidget *parent)
    : QWidget(parent)
{
    auto *icon = new QLabel(this);
    icon->setAlignment(Qt::AlignCenter);
    icon->setPixmap(
        systemImage::applicationIcon().pixmap(QSize(kIcon, kIcon), devicePixelRatioF()));
    auto *heading = new PageHeading(tr("Welcome to Quillery"), this);
    auto *text = new QLabel(tr("Let's quickly set up some key features."), this);
    text->setTextFormat(Qt::PlainText);
    text->setAlignment(Qt::AlignCenter);
    m_missing = new QLabel(this);
    m_missing->setTextFormat(Qt::PlainText);
    m_missing->setAlignment(Qt::AlignCenter);
    m_missing->setWordWrap(true);
    m_missing->hide();
    setAccessibleName(heading->text());

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(tokens::kSetupMargin, 0, tokens::kSetupMargin, 0);
    column->setSpacing(tokens::kCardPadding);
    column->addStretch(1);
    column->addWidget(icon);
    column->addWidget(heading);
    column->addWidget(text);
    column->addWidget(m_missing);
    column->addStretch(1);
}

void WelcomeView::setMissing(const QString &sentence)
{
    m_missing->setText(sentence);
    m_missing->setVisible(!sentence.isEmpty());
}
