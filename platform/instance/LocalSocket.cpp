// SPDX-License-Identifier: MIT
#include "platform/instance/LocalSocket.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace platform::localSocket {

namespace {

constexpr int kWaiting = 16; ///< callers that are not answered yet
constexpr qsizetype kAnswerBytes = 64;

tl::unexpected<Error> failed(const char *what, const QString &path)
{
    const auto kind =
        errno == ETIMEDOUT || errno == EAGAIN ? Error::Kind::TimedOut : Error::Kind::Io;
    return failure(
        kind, QStringLiteral("%1 %2: %3")
                  .arg(QLatin1String(what), path, QString::fromLocal8Bit(std::strerror(errno))));
}

/// An open socket of the kind that both sides use.
class Socket
{
public:
    explicit Socket(int flags = 0)
        : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0))
    {
    }
    ~Socket()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Q_DISABLE_COPY_MOVE(Socket)

    int descriptor() const { return m_descriptor; }
    int release() { return std::exchange(m_descriptor, -1); }

private:
    int m_descriptor;
};

Result<sockaddr_un> addressOf(const QString &path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray bytes = QFile::encodeName(path);
    if (static_cast<std::size_t>(bytes.size()) >= sizeof address.sun_path)
        return failure(Error::Kind::Refused, QStringLiteral("%1: path is too long").arg(path));
    std::memcpy(address.sun_path, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return address;
}

timeval timeOf(std::chrono::milliseconds duration)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(duration);
    const auto rest = std::chrono::duration_cast<std::chrono::microseconds>(duration - seconds);
    return {seconds.count(), rest.count()};
}

const sockaddr *general(const sockaddr_un &address)
{
    return reinterpret_cast<const sockaddr *>(&address);
}

} // namespace

Result<std::unique_ptr<Listener>> Listener::create(const QString &path)
{
    const auto address = addressOf(path);
    if (!address)
        return tl::unexpected(address.error());
    const QByteArray file = QFile::encodeName(path);
    if (::unlink(file.constData()) != 0 && errno != ENOENT)
        return failed("clear", path);
    Socket socket(SOCK_NONBLOCK);
    // Nobody can call before listen().
    if (socket.descriptor() < 0 ||
        ::bind(socket.descriptor(), general(*address), sizeof *address) != 0 ||
        ::chmod(file.constData(), S_IRUSR | S_IWUSR) != 0 ||
        ::listen(socket.descriptor(), kWaiting) != 0)
        return failed("listen at", path);
    return std::unique_ptr<Listener>(new Listener(socket.release(), path));
}

Listener::Listener(int descriptor, const QString &path)
    : m_descriptor(descriptor)
    , m_path(path)
    , m_notifier(descriptor, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &Listener::answer);
}

Listener::~Listener()
{
    m_notifier.setEnabled(false);
    ::close(m_descriptor);
    ::unlink(QFile::encodeName(m_path).constData());
}

void Listener::answer()
{
    while (true) {
        const int caller = ::accept4(m_descriptor, nullptr, nullptr, SOCK_CLOEXEC);
        if (caller < 0)
            return;
        ::close(caller);
        emit called();
    }
}

Result<QByteArray> call(const QString &path, const QByteArray &question,
                        std::chrono::milliseconds deadline)
{
    const auto address = addressOf(path);
    if (!address)
        return tl::unexpected(address.error());
    const Socket socket;
    const int descriptor = socket.descriptor();
    // While too many others wait, connecting waits too.
    const timeval patience = timeOf(deadline);
    if (descriptor < 0 ||
        ::setsockopt(descriptor, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience) != 0 ||
        ::setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience) != 0 ||
        ::connect(descriptor, general(*address), sizeof *address) != 0)
        return failed("call", path);
    if (!question.isEmpty() &&
        ::send(descriptor, question.constData(), static_cast<std::size_t>(question.size()),
               MSG_NOSIGNAL) != question.size())
        return failed("ask", path);
    QByteArray answer(kAnswerBytes, Qt::Uninitialized);
    const ssize_t received = ::recv(descriptor, answer.data(), kAnswerBytes, 0);
    // One that ends while we wait has closed the connection.
    if (received < 0 && errno != ECONNRESET)
        return failed("wait for", path);
    answer.truncate(std::max<qsizetype>(received, 0));
    return answer;
}

} // namespace platform::localSocket
