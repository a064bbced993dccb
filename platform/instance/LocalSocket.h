// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <chrono>
#include <memory>

/// Sockets in the file system (unix(7)). The toolkit's own would bring its whole network library
/// into every resting program.
namespace platform::localSocket {

/// A place where others call, until it is destroyed. The call is the whole message, closing the
/// connection the whole answer.
class Listener : public QObject
{
    Q_OBJECT

public:
    /// Listens at `path`, for this user only; what lies there is taken away.
    /// Errors: Refused for a path that is too long for a socket; Io.
    static Result<std::unique_ptr<Listener>> create(const QString &path);
    ~Listener() override;

signals:
    /// Somebody called, and has been answered.
    void called();

private:
    Listener(int descriptor, const QString &path);

    void answer();

    int m_descriptor;
    QString m_path;
    QSocketNotifier m_notifier;
};

/// Calls whoever listens at `path`, says `question` and waits for the first bytes of an answer, or
/// for the end of the connection.
/// @param deadline for connecting, and again for the answer
/// @return those bytes; empty if the connection was closed without any
/// Errors: Refused for a path that is too long; TimedOut if nobody answers before the deadline; Io
/// if nobody listens there.
Result<QByteArray> call(const QString &path, const QByteArray &question,
                        std::chrono::milliseconds deadline);

} // namespace platform::localSocket
