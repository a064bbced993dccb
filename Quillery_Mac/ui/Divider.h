// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/ui/Tokens.h"

#include <QWidget>

/// The thin line between groups of rows.
class Divider : public QWidget
{
    Q_OBJECT

public:
    /// @param inset what is left free at both ends, in points; the default is that of a menu
    explicit Divider(QWidget *parent, int inset = tokens::kMenuRowPadding);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    int m_inset;
};
