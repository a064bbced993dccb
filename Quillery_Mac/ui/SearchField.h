// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QProperty>

class ClearButton;

/// A one-line search field with a magnifier in front and, while there is text, a button that
/// clears it.
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    explicit SearchField(QWidget *parent);

    QSize sizeHint() const override;

    /// Whether the ring is drawn; says that what is typed and the arrows go to this list.
    QProperty<bool> showsRing{false};

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void placeText();
    void placeClearButton();
    void takeColors();

    ClearButton *m_clear;
    QPropertyNotifier m_ringObserver;
    bool m_isTakingColors = false;
};
