// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/settings/onboarding/OnBoardingViews.h"

#include <QWidget>

class PageDots;
class QPushButton;

/// The line under the setup's pages: "Back", where one is, and the forward button. It keeps its
/// place on every page.
class NextButton : public QWidget
{
    Q_OBJECT

public:
    /// @param theFlow must outlive the line
    explicit NextButton(onBoardingViews &theFlow, QWidget *parent = nullptr);

    onBoardingViews &flow;

    QPushButton &forwardButton() const { return *m_forward; }

private:
    QPushButton *makeButton(const QString &text);
    void refresh();

    QPushButton *m_back;
    PageDots *m_dots;
    QPushButton *m_forward;
    QPropertyNotifier m_textObserver;
    QPropertyNotifier m_pointerObserver;
};
