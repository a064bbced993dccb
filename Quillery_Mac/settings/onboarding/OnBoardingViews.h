// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QProperty>
#include <QString>

#include <vector>

class QWidget;

/// The sequence of the setup's pages, without their windows: which page is on screen, and what the
/// two buttons do. Main thread only.
class onBoardingViews
{
public:
    onBoardingViews();
    Q_DISABLE_COPY_MOVE(onBoardingViews)

    /// The pages pushed on top of the first one, by index.
    QProperty<QList<int>> currentView;
    /// The setup is finished.
    QProperty<bool> dismiss{false};
    /// Index of the page on screen; one past the last page after the end.
    QProperty<int> pointer{0};
    /// The title of the forward button.
    QProperty<QString> buttonText;
    /// The pages in order. What they are is not looked at here; set once, before the first step.
    std::vector<QWidget *> views;

    /// "Next" or "Finish".
    void forward();
    /// "Back"; on the first page it changes nothing.
    void back();
};
