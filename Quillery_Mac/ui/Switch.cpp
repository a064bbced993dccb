// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/Switch.h"

#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/Motion.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QFocusEvent>
#include <QPainter>

namespace {

constexpr int kKnobInset = 2;
constexpr float kDisabled = 0.35F;

bool isByKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

QColor faded(QColor color, float alpha)
{
    color.setAlphaF(alpha);
    return color;
}

} // namespace

Switch::Switch(QWidget *parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&m_motion, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_place = value.toReal();
        update();
    });
    connect(this, &QAbstractButton::toggled, this, &Switch::moveKnob);
}

int Switch::margin()
{
    return tokens::kFocusRing + tokens::kFocusRingClearance;
}

QSize Switch::sizeHint() const
{
    return QSize(tokens::kSwitchWidth, tokens::kSwitchHeight)
        .grownBy(QMargins(margin(), margin(), margin(), margin()));
}

void Switch::moveKnob()
{
    const qreal place = isChecked() ? 1 : 0;
    const int duration = isVisible() ? motion::duration(*this, tokens::kSwitchMotion) : 0;
    m_motion.stop();
    if (duration == 0) {
        m_place = place;
        update();
        return;
    }
    m_motion.setDuration(duration);
    m_motion.setStartValue(m_place);
    m_motion.setEndValue(place);
    m_motion.start();
}

void Switch::focusInEvent(QFocusEvent *event)
{
    m_hasRing = isByKeyboard(event->reason());
    QAbstractButton::focusInEvent(event);
}

void Switch::focusOutEvent(QFocusEvent *event)
{
    m_hasRing = false;
    QAbstractButton::focusOutEvent(event);
}

QColor Switch::trackColor() const
{
    if (!isEnabled())
        return faded(paletteColors::text(palette()), kDisabled / 2);
    if (!isChecked())
        return paletteColors::controlEdge(palette());
    return isDown() ? paletteColors::pressedHighlight(palette())
                    : paletteColors::highlight(palette());
}

QColor Switch::knobColor() const
{
    const QColor off = paletteColors::isDark(palette()) ? paletteColors::text(palette())
                                                        : paletteColors::base(palette());
    if (!isEnabled())
        return faded(off, kDisabled);
    // In high contrast the track is as strong as the text.
    if (!isChecked() && paletteColors::isHighContrast(palette()))
        return paletteColors::window(palette());
    return isChecked() ? paletteColors::highlightedText(palette()) : off;
}

void Switch::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole = rect();
    const QRectF track((whole.width() - tokens::kSwitchWidth) / 2,
                       (whole.height() - tokens::kSwitchHeight) / 2, tokens::kSwitchWidth,
                       tokens::kSwitchHeight);
    constexpr qreal kRadius = tokens::kSwitchHeight / 2.0;
    painter.setPen(Qt::NoPen);
    painter.setBrush(trackColor());
    painter.drawRoundedRect(track, kRadius, kRadius);

    constexpr qreal kKnob = tokens::kSwitchHeight - 2 * kKnobInset;
    const qreal way = track.width() - 2 * kKnobInset - kKnob;
    const QRectF knob(track.left() + kKnobInset + m_place * way, track.top() + kKnobInset, kKnob,
                      kKnob);
    painter.setBrush(knobColor());
    painter.drawEllipse(drawing::mirrored(knob, whole, layoutDirection()));

    if (hasFocus() && m_hasRing) {
        const qreal room = margin();
        drawing::strokeInside(painter, track.adjusted(-room, -room, room, room), kRadius + room,
                              tokens::kFocusRing, paletteColors::highlight(palette()));
    }
}
