// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollBar>

/// The narrow scroll bar of the lists in popovers; stands in a gutter of its own.
class ThinScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit ThinScrollBar(QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QRectF handle() const;

    qreal m_grip = -1; ///< where inside the handle the pointer holds it; negative: nowhere
};
