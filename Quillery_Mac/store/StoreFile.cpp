// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/StoreFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

using platform::Error;

namespace {

// The header of a database file, https://www.sqlite.org/fileformat.html#the_database_header
constexpr char kMagic[] = "SQLite format 3";
constexpr qsizetype kHeaderBytes = 100;
constexpr qsizetype kPageSizeAt = 16;
constexpr qsizetype kChangeCounterAt = 24;
constexpr qsizetype kPageCountAt = 28;
constexpr qsizetype kUserVersionAt = 60;
constexpr qsizetype kPageCountValidForAt = 92;

quint32 number(const QByteArray &header, qsizetype at)
{
    return qFromBigEndian<quint32>(header.constData() + at);
}

qint64 expectedSize(const QByteArray &header)
{
    const quint16 stored = qFromBigEndian<quint16>(header.constData() + kPageSizeAt);
    const qint64 pageSize = stored == 1 ? 65536 : stored;
    // A writer that does not keep the count leaves the two counters different.
    const bool isCounted = number(header, kChangeCounterAt) == number(header, kPageCountValidForAt);
    return isCounted ? pageSize * number(header, kPageCountAt) : 0;
}

platform::Result<void> checkHeader(const QString &file, const QByteArray &header, qint64 size,
                                   int newestVersion)
{
    const auto refused = [&file](const QString &why) {
        return platform::failure(Error::Kind::Refused,
                                 QStringLiteral("Load %1: %2").arg(file, why));
    };
    if (header.size() < kHeaderBytes || std::memcmp(header.constData(), kMagic, sizeof kMagic) != 0)
        return refused(QStringLiteral("file is not a database"));
    // With a log beside it the newest pages, the first one too, may stand there.
    if (QFileInfo(file + QStringLiteral("-wal")).size() > 0)
        return {};
    const auto version = static_cast<qint32>(number(header, kUserVersionAt));
    if (version > newestVersion) {
        return refused(
            QStringLiteral("file has version %1, newer than %2").arg(version).arg(newestVersion));
    }
    if (size < expectedSize(header))
        return refused(QStringLiteral("file is cut short"));
    return {};
}

} // namespace

platform::Result<void> prepareDataFolder(const QString &folder)
{
    if (QFileInfo(folder).isDir())
        return {};
    const QDir parent = QFileInfo(folder).dir();
    if (QDir().mkpath(parent.path()) && ::mkdir(QFile::encodeName(folder).constData(), 0700) == 0)
        return {};
    return platform::failure(Error::Kind::Io,
                             QStringLiteral("Make folder %1: %2")
                                 .arg(folder, QString::fromLocal8Bit(std::strerror(errno))));
}

platform::Result<void> prepareStoreFile(const QString &file)
{
    const int made =
        ::open(QFile::encodeName(file).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (made < 0 && errno != EEXIST) {
        return platform::failure(Error::Kind::Io,
                                 QStringLiteral("Make file %1: %2")
                                     .arg(file, QString::fromLocal8Bit(std::strerror(errno))));
    }
    if (made >= 0)
        ::close(made);
    return {};
}

void restrictStoreFile(const QString &file)
{
    for (const char *suffix : {"", "-wal", "-shm"}) {
        const QByteArray path = QFile::encodeName(file) + suffix;
        struct stat status = {};
        if (::stat(path.constData(), &status) == 0 && (status.st_mode & 0077) != 0)
            ::chmod(path.constData(), status.st_mode & 0700);
    }
}

platform::Result<void> checkStoreFile(const QString &file, int newestVersion)
{
    QFile in(file);
    if (!QFileInfo(file).isFile() || !in.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return platform::failure(Error::Kind::Io,
                                 QStringLiteral("Load %1: unable to open the file").arg(file));
    }
    if (in.size() == 0)
        return {};
    return checkHeader(file, in.read(kHeaderBytes), in.size(), newestVersion);
}
