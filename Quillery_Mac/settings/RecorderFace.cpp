// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/RecorderFace.h"

#include "Quillery_Mac/ui/ClearButton.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace KeyboardShortcuts {

namespace {

constexpr int kHeight = 28;
constexpr int kClearInset = 7; ///< image of the clear button to the capsule's end
constexpr int kTextPadding = 12;
constexpr QChar kLeftToRightMark{u'\u200E'};

qreal widthOf(const QString &text, const QFontMetricsF &metrics)
{
    return std::ceil(metrics.horizontalAdvance(text));
}

} // namespace

RecorderFace::RecorderFace(QWidget *parent)
    : QWidget(parent)
    , m_cancelButton(new ClearButton(tr("Clear Shortcut"), this))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setContextMenuPolicy(Qt::PreventContextMenu);
    m_cancelButton->hide();
}

int RecorderFace::margin()
{
    return tokens::kFocusRing + tokens::kFocusRingClearance;
}

QRectF RecorderFace::bounds() const
{
    const qreal room = margin();
    return QRectF(rect()).adjusted(room, room, -room, -room);
}

// The text is in the middle of the whole capsule, so what the button takes at one end is left free
// at the other too.
QSize RecorderFace::intrinsicContentSize() const
{
    const QFontMetricsF metrics(font());
    const qreal besideValue = kClearInset + ClearButton::kImage + tokens::kSmallGap;
    qreal width = std::max(minimumWidth, widthOf(isolatedValue(), metrics) + 2 * besideValue);
    for (const QString &placeholder : m_placeholders)
        width = std::max(width, widthOf(placeholder, metrics) + 2 * kTextPadding);
    const int line = static_cast<int>(std::ceil(metrics.height())) + 2 * tokens::kSmallGap;
    return {static_cast<int>(width), std::max(kHeight, line)};
}

QSize RecorderFace::sizeHint() const
{
    return intrinsicContentSize().grownBy({margin(), margin(), margin(), margin()});
}

void RecorderFace::reserveRoomFor(const QStringList &placeholders)
{
    m_placeholders = placeholders;
    updateGeometry();
}

void RecorderFace::setStringValue(const QString &text)
{
    m_stringValue = text;
    m_cancelButton->setVisible(!text.isEmpty());
    updateGeometry();
    update();
}

void RecorderFace::setPlaceholder(const QString &text)
{
    m_placeholder = text;
    update();
}

void RecorderFace::setShowsRing(bool showsRing)
{
    m_showsRing = showsRing;
    update();
}

bool RecorderFace::event(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
    else if (event->type() == QEvent::LayoutDirectionChange)
        placeCancelButton();
    return QWidget::event(event);
}

void RecorderFace::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRectF capsule = drawing::snapped(bounds(), devicePixelRatioF());
    const qreal radius = capsule.height() / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paletteColors::base(palette()));
    painter.drawRoundedRect(capsule, radius, radius);
    drawing::strokeInside(painter, capsule, radius, paletteColors::lineWidth(palette()),
                          paletteColors::controlEdge(palette()));
    if (m_showsRing) {
        const qreal room = margin();
        drawing::strokeInside(painter, capsule.adjusted(-room, -room, room, room), radius + room,
                              tokens::kFocusRing, paletteColors::highlight(palette()));
    }
    drawText(painter);
}

void RecorderFace::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeCancelButton();
}

// The target is as high as the capsule and as wide as high.
void RecorderFace::placeCancelButton()
{
    const QRectF whole = bounds();
    const qreal width = ClearButton::kImage + 2 * kClearInset;
    const QRectF place(whole.right() - width, whole.top(), width, whole.height());
    m_cancelButton->setGeometry(drawing::mirrored(place, whole, layoutDirection()).toRect());
}

void RecorderFace::drawText(QPainter &painter) const
{
    const bool hasValue = !m_stringValue.isEmpty();
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    drawing::Line line;
    line.text = hasValue ? isolatedValue() : m_placeholder;
    line.font = font();
    line.color = hasValue || !isEnabled() ? palette().color(group, QPalette::Text)
                                          : paletteColors::placeholder(palette());
    QRectF place = bounds();
    const qreal width = std::min(widthOf(line.text, QFontMetricsF(line.font)), place.width());
    place.adjust((place.width() - width) / 2, 0, (width - place.width()) / 2, 0);
    drawing::drawLine(painter, place, line);
}

QString RecorderFace::isolatedValue() const
{
    return m_stringValue.isEmpty() ? QString() : QString(kLeftToRightMark + m_stringValue);
}

} // namespace KeyboardShortcuts
