// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QVariantAnimation>

/// A switch: a track with a knob that stands at the reading end while it is on. Checkable, pressed
/// by a click or Space.
///
/// Around the switch itself stands room for its focus ring, margin() on each side.
class Switch : public QAbstractButton
{
    Q_OBJECT

public:
    explicit Switch(QWidget *parent = nullptr);

    QSize sizeHint() const override;

    /// The room around the track, on each side, in points.
    static int margin();

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void moveKnob();
    QColor trackColor() const;
    QColor knobColor() const;

    QVariantAnimation m_motion;
    qreal m_place = 0; ///< of the knob, 0 off to 1 on
    bool m_hasRing = false;
};
