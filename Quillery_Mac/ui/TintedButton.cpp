// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/TintedButton.h"

#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>

#include <cmath>

namespace {

constexpr QRgb kCancel = 0xff000000;
constexpr QRgb kDestructive = 0xffd6246c; // 4.85:1 with white
constexpr QRgb kCancelPressed = 0xff2a2a2a;
constexpr float kEdge = 0.90F; // of white, on the accent

} // namespace

TintedButton::TintedButton(const QString &text, Role role, QWidget *parent)
    : QAbstractButton(parent)
    , m_role(role)
{
    setText(text);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

int TintedButton::margin()
{
    return tokens::kFocusRing + tokens::kFocusRingClearance;
}

QSize TintedButton::sizeHint() const
{
    const int width = QFontMetrics(buttonFont()).horizontalAdvance(text());
    return {width + 2 * tokens::kTintedButtonPadding + 2 * margin(),
            tokens::kTintedButtonHeight + 2 * margin()};
}

bool TintedButton::event(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        updateGeometry();
    return QAbstractButton::event(event);
}

void TintedButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal room = margin();
    const QRectF button = QRectF(rect()).adjusted(room, room, -room, -room);
    const QColor onAccent = paletteColors::highlightedText(palette());
    painter.setPen(Qt::NoPen);
    painter.setBrush(tint());
    painter.drawRoundedRect(button, tokens::kTintedButtonRadius, tokens::kTintedButtonRadius);
    if (hasFocus()) {
        drawing::strokeInside(painter, rect(), tokens::kTintedButtonRadius + room,
                              tokens::kFocusRing, onAccent);
    } else {
        QColor edge = Qt::white;
        edge.setAlphaF(kEdge);
        if (paletteColors::isHighContrast(palette()))
            edge = paletteColors::text(palette());
        drawing::strokeInside(painter, button.adjusted(-1, -1, 1, 1),
                              tokens::kTintedButtonRadius + 1, 1, edge);
    }
    painter.setPen(Qt::white);
    // A sign at the end stays at the end of the words, whatever the reading direction around them.
    painter.setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.setFont(buttonFont());
    painter.drawText(button, Qt::AlignCenter | Qt::TextSingleLine, text());
}

QFont TintedButton::buttonFont() const
{
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

QColor TintedButton::tint() const
{
    if (m_role == Role::Cancel)
        return QColor::fromRgb(isDown() ? kCancelPressed : kCancel);
    const QColor pink = QColor::fromRgb(kDestructive);
    constexpr int kPressedDarkening = 116; // percent
    return isDown() ? pink.darker(kPressedDarkening) : pink;
}
