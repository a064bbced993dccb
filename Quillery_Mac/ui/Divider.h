// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The thin line between groups of menu rows.
class Divider : public QWidget
{
    Q_OBJECT

public:
    explicit Divider(QWidget *parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
};
