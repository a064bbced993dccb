// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The ground of the menus and their popovers: the desktop's window colour with a thin edge. Round
/// corners need a compositor; without one they are square. Everything is opaque unless the
/// compositor blurs what is behind.
class VisualEffect : public QWidget
{
    Q_OBJECT

public:
    explicit VisualEffect(QWidget *parent);

    /// Whether a compositor runs, so that corners may be see-through.
    void setComposited(bool composited);
    /// Whether what is behind is blurred, so that some of it may shine through.
    void setBlurred(bool blurred);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QColor ground() const;

    bool m_isComposited = false;
    bool m_isBlurred = false;
};
