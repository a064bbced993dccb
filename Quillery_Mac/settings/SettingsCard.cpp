// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/SettingsCard.h"

#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int kRowPadding = 6; ///< above and below, for rows taller than the least height

} // namespace

SettingsCard::SettingsCard(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
}

void SettingsCard::addRow(QWidget *row, int endRoom)
{
    auto *frame = new QWidget(this);
    auto *inside = new QVBoxLayout(frame);
    inside->setContentsMargins(tokens::kCardPadding, kRowPadding, tokens::kCardPadding - endRoom,
                               kRowPadding);
    inside->addWidget(row);
    frame->setMinimumHeight(tokens::kCardRowHeight);
    m_layout->addWidget(frame);
    row->installEventFilter(this);
}

// The frame of a row comes and goes with it.
bool SettingsCard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
        const auto *row = static_cast<QWidget *>(watched);
        row->parentWidget()->setVisible(event->type() == QEvent::ShowToParent);
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void SettingsCard::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paletteColors::card(palette()));
    painter.drawRoundedRect(rect(), tokens::kCardRadius, tokens::kCardRadius);
    const QColor edge = paletteColors::divider(palette());
    const qreal width = paletteColors::lineWidth(palette());
    drawing::strokeInside(painter, rect(), tokens::kCardRadius, width, edge);

    painter.setRenderHint(QPainter::Antialiasing, false);
    bool isFirst = true;
    for (int index = 0; index < m_layout->count(); ++index) {
        const QWidget *frame = m_layout->itemAt(index)->widget();
        if (frame->isHidden())
            continue;
        if (!std::exchange(isFirst, false))
            painter.fillRect(QRectF(width, frame->y(), this->width() - 2 * width,
                                    drawing::hairline(width, devicePixelRatioF())),
                             edge);
    }
}
