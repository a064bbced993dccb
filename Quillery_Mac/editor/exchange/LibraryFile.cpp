// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/LibraryFile.h"

#include "Quillery_Mac/editor/exchange/CsvLibrary.h"
#include "Quillery_Mac/editor/exchange/LibraryFault.h"
#include "Quillery_Mac/editor/exchange/LibraryReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using platform::Error;

namespace {

tl::unexpected<Error> cannotRead(const QString &path, const QString &reason)
{
    return platform::failure(
        Error::Kind::Io,
        LibraryFault::tr("%1 could not be read: %2").arg(QDir::toNativeSeparators(path), reason));
}

platform::Result<QByteArray> readBytes(const QString &path)
{
    // A pipe would keep us waiting.
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return cannotRead(path, LibraryFault::tr("It is not a file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return cannotRead(path, file.errorString());
    if (file.size() > kMaxLibraryFileBytes)
        return cannotRead(path, LibraryFault::tr("It is larger than 1 GiB"));
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return cannotRead(path, file.errorString());
    return bytes;
}

} // namespace

platform::Result<ParsedLibrary> readLibraryFile(const QString &path)
{
    const auto bytes = readBytes(path);
    if (!bytes)
        return tl::unexpected(bytes.error());
    if (path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
        return readCsvLibrary(*bytes, QDateTime::currentDateTimeUtc());
    return readLibrary(*bytes);
}
