// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// The large text at the top of a page of the setup; takes as many lines as it needs.
class PageHeading : public QLabel
{
    Q_OBJECT

public:
    explicit PageHeading(const QString &text, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void takeFont();

    bool m_isTakingFont = false;
};
