// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

/// A small prominent button with a fixed tint and white text: "Cancel" and "Confirm?" in a row.
///
/// Around the button itself stands room for its edge and its focus ring; two of them side by side
/// need no further gap.
class TintedButton : public QAbstractButton
{
    Q_OBJECT

public:
    enum class Role { Cancel, Destructive };

    TintedButton(const QString &text, Role role, QWidget *parent);

    QSize sizeHint() const override;

    /// The room around the button, on each side, in points.
    static int margin();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QFont buttonFont() const;
    QColor tint() const;

    Role m_role;
};
