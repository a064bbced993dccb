// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <functional>

/// Meets the next message box as soon as it is shown. Who shows one waits for its answer in an
/// event loop of its own, so that a test has no turn before.
class AlertWatch
{
protected:
    void atAlert(const std::function<void(QMessageBox &)> &act)
    {
        alertTimer.disconnect();
        alertTimer.setInterval(1);
        QObject::connect(&alertTimer, &QTimer::timeout, &alertTimer, [this, act] {
            for (QWidget *shown : QApplication::topLevelWidgets()) {
                auto *alert = qobject_cast<QMessageBox *>(shown);
                if (alert == nullptr || !alert->isVisible())
                    continue;
                alertTimer.stop();
                ++alerts;
                act(*alert);
                return;
            }
        });
        alertTimer.start();
    }

    QTimer alertTimer;
    int alerts = 0; ///< that were met
};
