// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>

class QDBusMessage;

namespace platform {

/// The interface org.freedesktop.Application of an object on the session bus.
class ApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    ApplicationAdaptor(const QStringList &actionNames, QObject *owner);

public slots:
    void Activate(const QVariantMap &platform_data);
    /// The program opens no files: the same as Activate.
    void Open(const QStringList &uris, const QVariantMap &platform_data);
    /// Answers with the error InvalidArgs for a name that is no action.
    void ActivateAction(const QString &action_name, const QVariantList &parameter,
                        const QVariantMap &platform_data, const QDBusMessage &message);

signals:
    /// Sent before each of the others. `serverTime` is when the user did what the call follows
    /// from, in the display server's milliseconds; 0 if the caller does not tell.
    void userActed(quint32 serverTime);
    void activated();
    void actionActivated(const QString &name);

private:
    QStringList m_actionNames;
};

} // namespace platform
