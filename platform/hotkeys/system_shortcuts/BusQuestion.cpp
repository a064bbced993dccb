// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/BusQuestion.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QObject>

namespace platform {

namespace {

constexpr int kDeadline = 2000; // milliseconds

/// The library's name for the connection that QDBusConnection::sessionBus() makes. Asking for it by
/// the name never connects.
QDBusConnection existingSessionBus()
{
    return QDBusConnection(QStringLiteral("qt_default_session_bus"));
}

QDBusPendingCall call(const BusQuestion &question)
{
    const QDBusConnection bus = existingSessionBus();
    if (!bus.isConnected())
        return QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, QString()));
    QDBusMessage message = QDBusMessage::createMethodCall(question.service, question.path,
                                                          question.interface, question.method);
    message.setArguments(question.arguments);
    message.setAutoStartService(false);
    return bus.asyncCall(message, kDeadline);
}

QVariant firstArgument(const QDBusMessage &answer, const QString &signature)
{
    const bool isAsExpected =
        answer.type() == QDBusMessage::ReplyMessage && answer.signature() == signature;
    return isAsExpected ? answer.arguments().constFirst() : QVariant();
}

} // namespace

void askBus(const BusQuestion &question, const QString &signature, QObject &asker,
            const std::function<void(const QVariant &)> &handler)
{
    auto *watcher = new QDBusPendingCallWatcher(call(question), &asker);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &asker,
                     [watcher, signature, handler] {
                         watcher->deleteLater();
                         handler(firstArgument(watcher->reply(), signature));
                     });
}

} // namespace platform
