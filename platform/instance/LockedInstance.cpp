// SPDX-License-Identifier: MIT
#include "platform/instance/LockedInstance.h"

#include "platform/instance/RuntimeFolder.h"
#include "platform/log/Log.h"

#include <QCryptographicHash>
#include <QFile>
#include <QLocalSocket>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr int kFirstDeadline = 1000; // milliseconds
constexpr qsizetype kNameLength = 16;

/// The session is the display: names of displays hold slashes and colons, hence the digest. ":0"
/// and ":0.0" are one display.
QString sessionName()
{
    QByteArray display = qgetenv("DISPLAY");
    if (const qsizetype dot = display.lastIndexOf('.'); dot > display.lastIndexOf(':'))
        display.truncate(dot);
    const QByteArray session = display + '\n' + qgetenv("WAYLAND_DISPLAY");
    return QString::fromLatin1(
        QCryptographicHash::hash(session, QCryptographicHash::Sha256).toHex().left(kNameLength));
}

} // namespace

std::unique_ptr<LockedInstance> LockedInstance::create()
{
    const std::optional<QString> folder = privateRuntimeFolder();
    if (!folder)
        return nullptr;
    const QString base = *folder + QStringLiteral("/quillery-") + sessionName();
    const QByteArray lockPath = QFile::encodeName(base + QStringLiteral(".lock"));
    const int descriptor =
        open(lockPath.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return nullptr;
    const bool isFirst = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    if (!isFirst && errno != EWOULDBLOCK) { // a file system without locks
        close(descriptor);
        return nullptr;
    }
    return std::unique_ptr<LockedInstance>(
        new LockedInstance(descriptor, isFirst, base + QStringLiteral(".socket")));
}

LockedInstance::LockedInstance(int descriptor, bool isFirst, const QString &socketPath)
    : m_descriptor(descriptor)
    , m_isFirst(isFirst)
    , m_socketPath(socketPath)
{
}

LockedInstance::~LockedInstance()
{
    m_server.close();
    close(m_descriptor);
}

void LockedInstance::listen()
{
    // Whoever holds the lock owns the socket's place: what lies there is of a process that ended.
    QLocalServer::removeServer(m_socketPath);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &LockedInstance::accept);
    if (!m_server.listen(m_socketPath))
        qCWarning(logApp) << "A second start will not be noticed:" << m_server.errorString();
}

void LockedInstance::activateFirst()
{
    QLocalSocket socket;
    socket.connectToServer(m_socketPath);
    if (!socket.waitForConnected(kFirstDeadline) ||
        (socket.state() != QLocalSocket::UnconnectedState &&
         !socket.waitForDisconnected(kFirstDeadline)))
        qCWarning(logApp) << "The running instance does not answer:" << socket.errorString();
}

// The connection is the whole message, closing it the whole answer.
void LockedInstance::accept()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        socket->disconnectFromServer();
        emit activated();
    }
}

} // namespace platform
