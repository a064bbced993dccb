// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;

/// The setup's first page.
class WelcomeView : public QWidget
{
    Q_OBJECT

public:
    explicit WelcomeView(QWidget *parent = nullptr);

    /// One sentence on what this desktop lacks; nothing is shown for an empty one.
    void setMissing(const QString &sentence);

private:
    QLabel *m_missing;
};
