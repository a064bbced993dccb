// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/SettingsListing.h"

#include <QProcess>

namespace platform {

namespace {

/// A program that never started does not finish either.
template <typename Function>
void whenEnded(QProcess *process, QObject *context, Function function)
{
    QObject::connect(process, &QProcess::finished, context, function);
    QObject::connect(
        process, &QProcess::errorOccurred, context,
        [function](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                function();
        },
        Qt::QueuedConnection);
}

} // namespace

// The process object goes when the program has ended, never before: it would wait for that.
void listSettings(const QString &schema, QObject &asker,
                  const std::function<void(const QString &)> &handler)
{
    auto *process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    whenEnded(process, &asker,
              [process, handler] { handler(QString::fromUtf8(process->readAllStandardOutput())); });
    whenEnded(process, process, [process] { process->deleteLater(); });
    QObject::connect(&asker, &QObject::destroyed, process, &QProcess::kill);
    process->start(QStringLiteral("gsettings"), {QStringLiteral("list-recursively"), schema});
}

} // namespace platform
