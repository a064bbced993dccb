// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/Recorder.h"

#include "Quillery_Mac/ui/Tokens.h"

#include <QHBoxLayout>
#include <QLabel>

#include <utility>

namespace KeyboardShortcuts {

namespace {

/// Room for a second line where the row is narrow; the text is not looked through for markup.
QLabel *makeLabel(const QString &text)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAccessibleName(text);
    return label;
}

} // namespace

Recorder::Recorder(const Name &name, const RecorderLinks &links, OnChange onChange, QWidget *parent)
    : QWidget(parent)
    , m_control(new RecorderCocoa(name, links, std::move(onChange), this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(tokens::kTextGap);
    row->addWidget(m_control);
}

Recorder::Recorder(const Name &name, const RecorderLinks &links, const QString &label,
                   OnChange onChange, QWidget *parent)
    : Recorder(name, links, *makeLabel(label), std::move(onChange), parent)
{
}

Recorder::Recorder(const Name &name, const RecorderLinks &links, QWidget &label, OnChange onChange,
                   QWidget *parent)
    : Recorder(name, links, std::move(onChange), parent)
{
    m_label = &label;
    m_control->setAccessibleName(label.accessibleName());
    static_cast<QHBoxLayout *>(layout())->insertWidget(0, m_label, 1);
}

} // namespace KeyboardShortcuts
