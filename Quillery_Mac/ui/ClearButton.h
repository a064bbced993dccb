// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

/// The button with a cross that empties a field. Its image is in its middle; what is around that is
/// part of the target.
class ClearButton : public QAbstractButton
{
    Q_OBJECT

public:
    /// Edge length of the image, in points.
    static constexpr int kImage = 14;

    /// @param name what screen readers and the tooltip call it
    ClearButton(const QString &name, QWidget *parent);

    QSize sizeHint() const override { return {kImage, kImage}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};
