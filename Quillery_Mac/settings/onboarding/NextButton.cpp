// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/NextButton.h"

#include "Quillery_Mac/settings/onboarding/PageDots.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QHBoxLayout>
#include <QPushButton>

NextButton::NextButton(onBoardingViews &theFlow, QWidget *parent)
    : QWidget(parent)
    , flow(theFlow)
    , m_back(makeButton(tr("Back")))
    , m_dots(new PageDots(this))
    , m_forward(makeButton(theFlow.buttonText.value()))
    , m_textObserver(flow.buttonText.addNotifier([this] { refresh(); }))
    , m_pointerObserver(flow.pointer.addNotifier([this] { refresh(); }))
{
    m_forward->setDefault(true);
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_back);
    line->addStretch(1);
    line->addWidget(m_dots);
    line->addStretch(1);
    line->addWidget(m_forward);
    connect(m_back, &QPushButton::clicked, this, [this] { flow.back(); });
    connect(m_forward, &QPushButton::clicked, this, [this] { flow.forward(); });
    refresh();
}

QPushButton *NextButton::makeButton(const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setMinimumWidth(tokens::kSetupButtonWidth);
    button->setAutoDefault(true);
    return button;
}

void NextButton::refresh()
{
    const int last = static_cast<int>(flow.views.size()) - 1;
    // Greyed, "Back" would take the keyboard with it.
    if (flow.pointer.value() == 0 && m_back->hasFocus())
        m_forward->setFocus();
    m_back->setEnabled(flow.pointer.value() > 0);
    m_forward->setText(flow.buttonText.value());
    m_dots->setPage(std::min(flow.pointer.value(), last), last + 1);
}
