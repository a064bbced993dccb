// SPDX-License-Identifier: MIT
#include "platform/instance/SessionBus.h"

#include "platform/instance/LocalSocket.h"
#include "platform/log/Log.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QUrl>
#include <QVariantMap>

#include <unistd.h>

namespace platform {

namespace {

constexpr int kBusDeadline = 1000;   // milliseconds
constexpr int kOwnerDeadline = 2000; // milliseconds; the owner may just be starting

constexpr auto kName = "com.tarnwick.Quillery";
constexpr auto kPath = "/com/tarnwick/Quillery";

/// RequestName of the D-Bus specification, "Message Bus Messages".
constexpr quint32 kDoNotQueue = 4;
constexpr quint32 kIsOwner = 1;
constexpr quint32 kWasOwner = 4;

/// The address of a bus that exists. With none set the library would start one of its own, unless
/// the user's bus is at its usual place.
QByteArray addressOfBus()
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return address.startsWith("autolaunch:") || address == "disabled:" ? QByteArray() : address;
    const QByteArray socket = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    return QFileInfo::exists(QString::fromLocal8Bit(socket)) ? "unix:path=" + socket : QByteArray();
}

/// The socket of an address of the form "unix:path=...,guid=..."; empty for other transports.
QString socketOf(const QByteArray &address)
{
    constexpr QByteArrayView kPathTransport = "unix:path=";
    if (!address.startsWith(kPathTransport))
        return {};
    QByteArray path = address.mid(kPathTransport.size());
    path.truncate(path.indexOf(';') < 0 ? path.size() : path.indexOf(';'));
    path.truncate(path.indexOf(',') < 0 ? path.size() : path.indexOf(','));
    return QUrl::fromPercentEncoding(path);
}

/// Begins to log in, as the library will: it would wait for half a minute for a bus that hangs.
bool doesAnswer(const QString &socketPath)
{
    const QByteArray user = QByteArray::number(getuid()).toHex();
    const auto answer =
        localSocket::call(socketPath, QByteArray(1, '\0') + "AUTH EXTERNAL " + user + "\r\n",
                          std::chrono::milliseconds(kBusDeadline));
    return answer && !answer->isEmpty();
}

QDBusMessage call(const QDBusMessage &message, int deadline)
{
    return QDBusConnection::sessionBus().call(message, QDBus::Block, deadline);
}

} // namespace

std::unique_ptr<SessionBus> SessionBus::create()
{
    const QByteArray address = addressOfBus();
    if (address.isEmpty()) {
        qCInfo(logApp) << "No session bus: no bus actions";
        return nullptr;
    }
    const QString socket = socketOf(address);
    if ((!socket.isEmpty() && !doesAnswer(socket)) ||
        !QDBusConnection::sessionBus().isConnected()) {
        qCWarning(logApp) << "The session bus does not answer: no bus actions";
        return nullptr;
    }
    return std::unique_ptr<SessionBus>(new SessionBus);
}

bool SessionBus::publish(QObject &object)
{
    return QDBusConnection::sessionBus().registerObject(QString::fromLatin1(kPath), &object,
                                                        QDBusConnection::ExportAdaptors);
}

SessionBus::Answer SessionBus::requestName()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    message << QString::fromLatin1(kName) << kDoNotQueue;
    const QDBusMessage answer = call(message, kBusDeadline);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return Answer::None;
    const quint32 result = answer.arguments().constFirst().toUInt();
    return result == kIsOwner || result == kWasOwner ? Answer::Yes : Answer::No;
}

SessionBus::Answer SessionBus::activateOwner()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QString::fromLatin1(kName), QString::fromLatin1(kPath),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"));
    message << QVariantMap();
    message.setAutoStartService(false);
    const QDBusMessage answer = call(message, kOwnerDeadline);
    if (answer.type() == QDBusMessage::ReplyMessage)
        return Answer::Yes;
    const bool isGone =
        answer.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner") ||
        answer.errorName() == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown");
    qCWarning(logApp) << "The running instance does not answer:" << answer.errorMessage();
    return isGone ? Answer::No : Answer::None;
}

} // namespace platform
