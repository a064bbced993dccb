// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QString>
#include <QtEndian>

#include <gtest/gtest.h>

#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// The fields of one entry of the journal.
using JournalEntry = QHash<QByteArray, QByteArray>;

/// A socket that takes entries as the journal does: one datagram each, in the "Native Journal
/// Protocol" of systemd. The file stays when the object goes, as it does when the journal ends.
class JournalSocket
{
public:
    explicit JournalSocket(const QString &path)
        : m_socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0))
    {
        const QByteArray name = QFile::encodeName(path);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        EXPECT_LT(static_cast<std::size_t>(name.size()), sizeof address.sun_path);
        std::strncpy(address.sun_path, name.constData(), sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address),
                  0);
    }
    ~JournalSocket() { ::close(m_socket); }
    Q_DISABLE_COPY_MOVE(JournalSocket)

    /// The next entry that has come already; empty if there is none.
    JournalEntry takeEntry() const
    {
        QByteArray datagram(kMostBytes, '\0');
        const ssize_t size =
            ::recv(m_socket, datagram.data(), static_cast<std::size_t>(datagram.size()), 0);
        return size > 0 ? entryOf(datagram.left(size)) : JournalEntry();
    }

private:
    /// A field is "NAME=text" in a line of its own, or, where the text has several lines, its name,
    /// a line end, the text's size in 64 bits, the lowest byte first, the text and a line end.
    static JournalEntry entryOf(const QByteArray &datagram)
    {
        JournalEntry entry;
        for (qsizetype begin = 0; begin < datagram.size();) {
            const qsizetype end = datagram.indexOf('\n', begin);
            const QByteArray line = datagram.mid(begin, end - begin);
            const qsizetype sign = line.indexOf('=');
            begin = end + 1;
            if (sign >= 0) {
                entry.insert(line.left(sign), line.mid(sign + 1));
                continue;
            }
            const auto size = qFromLittleEndian<qint64>(datagram.constData() + begin);
            begin += static_cast<qsizetype>(sizeof size);
            entry.insert(line, datagram.mid(begin, size));
            begin += size + 1;
        }
        return entry;
    }

    static constexpr qsizetype kMostBytes = 4096;

    const int m_socket;
};
