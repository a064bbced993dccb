// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

/// A one-line field of the desktop's style, whose placeholder can be read in every theme and whose
/// context menu waits for no other program.
class LineField : public QLineEdit
{
    Q_OBJECT

public:
    explicit LineField(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void takeColors();

    bool m_isTakingColors = false;
};
