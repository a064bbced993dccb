// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/SwitchRow.h"

#include "Quillery_Mac/ui/Switch.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>

SwitchRow::SwitchRow(const QString &label, Text kind, QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel(label, this))
    , m_switch(new Switch(this))
{
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(kind == Text::Wrapped);
    m_switch->setAccessibleName(label);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(tokens::kCardGap);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_switch);
    setFocusProxy(m_switch);
}

void SwitchRow::bind(QProperty<bool> &cell)
{
    const auto show = [this, &cell] { m_switch->setChecked(cell.value()); };
    m_observer = cell.addNotifier(show);
    show();
    connect(m_switch, &QAbstractButton::toggled, this,
            [&cell](bool isChecked) { cell = isChecked; });
}

// A press that is taken here is not passed on to what lies behind, so that the release comes too.
void SwitchRow::mousePressEvent(QMouseEvent *event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
}

void SwitchRow::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_label->geometry().contains(event->pos()))
        m_switch->click();
}
