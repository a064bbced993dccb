// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// Shows which of several pages is on screen: a dot for each, a bar for that one.
class PageDots : public QWidget
{
    Q_OBJECT

public:
    explicit PageDots(QWidget *parent = nullptr);

    void setPage(int page, int count);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_page = 0;
    int m_count = 0;
};
