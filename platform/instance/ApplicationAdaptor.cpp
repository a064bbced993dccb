// SPDX-License-Identifier: MIT
#include "platform/instance/ApplicationAdaptor.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace platform {

ApplicationAdaptor::ApplicationAdaptor(const QStringList &actionNames, QObject *owner)
    : QDBusAbstractAdaptor(owner)
    , m_actionNames(actionNames)
{
}

// Emitting from the event loop answers the caller first: what the action does may take a while.
void ApplicationAdaptor::Activate(const QVariantMap & /*platform_data*/)
{
    QMetaObject::invokeMethod(this, &ApplicationAdaptor::activated, Qt::QueuedConnection);
}

void ApplicationAdaptor::Open(const QStringList & /*uris*/, const QVariantMap &platform_data)
{
    Activate(platform_data);
}

void ApplicationAdaptor::ActivateAction(const QString &action_name,
                                        const QVariantList & /*parameter*/,
                                        const QVariantMap & /*platform_data*/,
                                        const QDBusMessage &message)
{
    if (!m_actionNames.contains(action_name)) {
        message.setDelayedReply(true);
        QDBusConnection::sessionBus().send(message.createErrorReply(
            QDBusError::InvalidArgs, QStringLiteral("There is no action ") + action_name));
        return;
    }
    QMetaObject::invokeMethod(
        this, [this, action_name] { emit actionActivated(action_name); }, Qt::QueuedConnection);
}

} // namespace platform
