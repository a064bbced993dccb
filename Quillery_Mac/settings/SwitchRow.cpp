// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/SwitchRow.h"

#include "Quillery_Mac/ui/Switch.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>

namespace {

QWidget &makeLabel(const QString &text, SwitchRow::Text kind)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(kind == SwitchRow::Text::Wrapped);
    label->setAccessibleName(text);
    return *label;
}

} // namespace

SwitchRow::SwitchRow(const QString &label, Text kind, QWidget *parent)
    : SwitchRow(makeLabel(label, kind), parent)
{
}

SwitchRow::SwitchRow(QWidget &label, QWidget *parent)
    : QWidget(parent)
    , m_label(&label)
    , m_switch(new Switch(this))
{
    m_switch->setAccessibleName(label.accessibleName());
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
