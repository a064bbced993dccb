// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QVBoxLayout;

/// A group of settings: rows on a ground of their own, with a line between them. A row that is
/// hidden leaves no gap.
class SettingsCard : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsCard(QWidget *parent = nullptr);

    /// Adds a row at the end. `endRoom`: what the row keeps free at its end by itself, in points,
    /// for instance for a focus ring.
    void addRow(QWidget *row, int endRoom = 0);

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QVBoxLayout *m_layout;
};
