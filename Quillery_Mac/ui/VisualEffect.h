// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The ground of the menus and their popovers: the desktop's window colour with a thin edge. Round
/// corners need a compositor; without one they are square and everything is opaque.
class VisualEffect : public QWidget
{
    Q_OBJECT

public:
    explicit VisualEffect(QWidget *parent);

    /// Whether a compositor runs, so that corners may be see-through.
    void setComposited(bool composited);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    bool m_isComposited = false;
};
