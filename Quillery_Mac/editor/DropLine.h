// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The dashed line that shows where a dragged row would land. Lies over the list and lets every
/// mouse event through.
class DropLine : public QWidget
{
    Q_OBJECT

public:
    explicit DropLine(QWidget *parent);

    /// Shows the line on the edge `y` of the parent, from `left` to `right`, in points.
    void showAt(int y, int left, int right);

protected:
    void paintEvent(QPaintEvent *event) override;
};
