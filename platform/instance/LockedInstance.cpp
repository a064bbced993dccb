// SPDX-License-Identifier: MIT
#include "platform/instance/LockedInstance.h"

#include "platform/instance/LocalSocket.h"
#include "platform/instance/RuntimeFolder.h"
#include "platform/log/Log.h"

#include <QCryptographicHash>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::chrono::milliseconds kFirstDeadline{1000};
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
    // Before the lock, with which the place of the socket goes to another.
    m_listener.reset();
    close(m_descriptor);
}

void LockedInstance::listen()
{
    // Whoever holds the lock owns the socket's place: what lies there is of a process that ended.
    auto listener = localSocket::Listener::create(m_socketPath);
    if (!listener) {
        qCWarning(logApp) << "A second start will not be noticed:" << listener.error().text;
        return;
    }
    m_listener = std::move(*listener);
    connect(m_listener.get(), &localSocket::Listener::called, this, &LockedInstance::activated);
}

void LockedInstance::activateFirst()
{
    if (const auto answered = localSocket::call(m_socketPath, {}, kFirstDeadline); !answered)
        qCWarning(logApp) << "The running instance does not answer:" << answered.error().text;
}

} // namespace platform
