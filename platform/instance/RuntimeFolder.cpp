// SPDX-License-Identifier: MIT
#include "platform/instance/RuntimeFolder.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr mode_t kOwnerOnly = S_IRWXU;

/// Others may prepare names in the folder for temporary files: a link, a folder that is not ours or
/// one that others may write into is not used.
bool isPrivateFolder(const QByteArray &path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == getuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

} // namespace

std::optional<QString> privateRuntimeFolder()
{
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    if (runtime.startsWith('/') && isPrivateFolder(runtime))
        return QFile::decodeName(runtime);
    const QByteArray own =
        QFile::encodeName(QDir::tempPath()) + "/quillery-" + QByteArray::number(getuid());
    if (mkdir(own.constData(), kOwnerOnly) != 0 && errno != EEXIST)
        return std::nullopt;
    return isPrivateFolder(own) ? std::optional(QFile::decodeName(own)) : std::nullopt;
}

} // namespace platform
