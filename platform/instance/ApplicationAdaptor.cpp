// SPDX-License-Identifier: MIT
#include "platform/instance/ApplicationAdaptor.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace platform {

namespace {

/// The time in the id that launchers give to what they start: "..._TIME<milliseconds>" at its end
/// (Startup Notification Protocol). On X11 an activation token is such an id too.
quint32 launchTime(const QVariantMap &platformData)
{
    for (const char *key : {"desktop-startup-id", "activation-token"}) {
        const QString id = platformData.value(QLatin1String(key)).toString();
        const qsizetype mark = id.lastIndexOf(QLatin1String("_TIME"));
        bool isNumber = false;
        const quint32 time = id.mid(mark + 5).toUInt(&isNumber);
        if (mark >= 0 && isNumber)
            return time;
    }
    return 0;
}

} // namespace

ApplicationAdaptor::ApplicationAdaptor(const QStringList &actionNames, QObject *owner)
    : QDBusAbstractAdaptor(owner)
    , m_actionNames(actionNames)
{
}

// Emitting from the event loop answers the caller first: what the action does may take a while.
void ApplicationAdaptor::Activate(const QVariantMap &platform_data)
{
    const quint32 time = launchTime(platform_data);
    QMetaObject::invokeMethod(
        this,
        [this, time] {
            emit userActed(time);
            emit activated();
        },
        Qt::QueuedConnection);
}

void ApplicationAdaptor::Open(const QStringList & /*uris*/, const QVariantMap &platform_data)
{
    Activate(platform_data);
}

void ApplicationAdaptor::ActivateAction(const QString &action_name,
                                        const QVariantList & /*parameter*/,
                                        const QVariantMap &platform_data,
                                        const QDBusMessage &message)
{
    if (!m_actionNames.contains(action_name)) {
        message.setDelayedReply(true);
        QDBusConnection::sessionBus().send(message.createErrorReply(
            QDBusError::InvalidArgs, QStringLiteral("There is no action ") + action_name));
        return;
    }
    const quint32 time = launchTime(platform_data);
    QMetaObject::invokeMethod(
        this,
        [this, action_name, time] {
            emit userActed(time);
            emit actionActivated(action_name);
        },
        Qt::QueuedConnection);
}

} // namespace platform
