// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// A text that stands back: a hint or a measure. Keeps its colour right when the theme changes.
class QuietLabel : public QLabel
{
    Q_OBJECT

public:
    explicit QuietLabel(const QString &text, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void takeColor();

    bool m_isTakingColor = false;
};
