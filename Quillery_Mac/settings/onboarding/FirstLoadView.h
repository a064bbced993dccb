// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/app/HistoryLimit.h"
#include "Quillery_Mac/settings/RecorderLinks.h"
#include "Quillery_Mac/settings/onboarding/OnBoardingViews.h"
#include "platform/defaults/DefaultsCell.h"

#include <QWidget>

#include <functional>

class NextButton;
class PageStack;
class WelcomeView;

/// The content of the setup window: five pages and the buttons that lead through them. When it is
/// shown its window is titled "Quillery Setup". Finishing it stores "firstLoad" false and closes
/// the window; closing the window stores nothing.
class FirstLoadView : public QWidget
{
    Q_OBJECT

public:
    /// What this desktop lacks, in one sentence; empty if nothing. Asked whenever the first
    /// page comes up.
    using Missing = std::function<QString()>;

    /// @param defaults must outlive the view
    FirstLoadView(platform::Defaults &defaults, const KeyboardShortcuts::RecorderLinks &recorder,
                  Missing missing, QWidget *parent = nullptr);

    platform::DefaultsCell<bool> firstLoad;
    /// Closes the window.
    std::function<void()> dismiss;
    onBoardingViews flow;
    static constexpr auto values = kHistoryLimits;

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makePages(platform::Defaults &defaults, const KeyboardShortcuts::RecorderLinks &recorder);
    void followFlow();
    void tellMissing();
    void fitSize();

    Missing m_missing;
    WelcomeView *m_welcome = nullptr;
    PageStack *m_pages;
    NextButton *m_buttons = nullptr;
    std::vector<QPropertyNotifier> m_observers;
};
