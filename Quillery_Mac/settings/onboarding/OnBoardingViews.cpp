// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/OnBoardingViews.h"

#include <QCoreApplication>

namespace {

QString next()
{
    return QCoreApplication::translate("NextButton", "Next");
}

} // namespace

onBoardingViews::onBoardingViews()
    : buttonText(next())
{
}

void onBoardingViews::forward()
{
    const int count = static_cast<int>(views.size());
    pointer = pointer.value() + 1;
    if (pointer.value() == count - 1)
        buttonText = QCoreApplication::translate("NextButton", "Finish");
    if (pointer.value() >= count) {
        dismiss = true;
        return;
    }
    QList<int> path = currentView.value();
    path.append(pointer.value());
    currentView = path;
}

void onBoardingViews::back()
{
    buttonText = next();
    if (pointer.value() < 1)
        return;
    pointer = pointer.value() - 1;
    QList<int> path = currentView.value();
    path.removeLast();
    currentView = path;
}
