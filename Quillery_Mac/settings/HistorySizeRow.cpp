// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/HistorySizeRow.h"

#include "Quillery_Mac/settings/HistorySizeSlider.h"
#include "Quillery_Mac/settings/HistorySizeText.h"
#include "Quillery_Mac/settings/QuietLabel.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

HistorySizeRow::HistorySizeRow(const QString &caption, Ends ends, QProperty<double> &position,
                               std::span<const int> values, QWidget *parent)
    : QWidget(parent)
    , m_slider(new HistorySizeSlider(values, this))
{
    auto *text = new QLabel(caption, this);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(ends == Ends::Plain);
    m_slider->setAccessibleName(caption);
    QLabel *number = makeNumber();

    auto *line = new QHBoxLayout;
    line->setSpacing(tokens::kCardPadding);
    if (ends == Ends::Labelled)
        line->addWidget(makeEnd(values.front()));
    line->addWidget(m_slider, 1);
    if (ends == Ends::Labelled)
        line->addWidget(makeEnd(values.back()));
    line->addWidget(number);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(tokens::kSmallGap);
    column->addWidget(text);
    column->addLayout(line);

    const auto show = [number, &position, values] {
        number->setText(historySize::text(position.value(), values));
    };
    m_observer = position.addNotifier(show);
    show();
    m_slider->bind(position);
}

// As wide as the largest number, so that the slider keeps its length.
QLabel *HistorySizeRow::makeNumber()
{
    auto *number = new QLabel(this);
    QFont bold;
    bold.setWeight(QFont::DemiBold);
    number->setFont(bold);
    number->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    number->setMinimumWidth(QFontMetrics(number->font()).horizontalAdvance(QStringLiteral("0000")));
    return number;
}

QLabel *HistorySizeRow::makeEnd(int value)
{
    return new QuietLabel(QString::number(value), this);
}
