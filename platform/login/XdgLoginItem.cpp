// SPDX-License-Identifier: MIT
#include "platform/login/XdgLoginItem.h"

#include "platform/login/AutostartEntry.h"
#include "platform/login/LaunchSigns.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <cerrno>
#include <span>
#include <utility>

#include <sys/stat.h>

namespace platform {

namespace {

/// Entries have a few hundred bytes; what is longer is none.
constexpr qint64 kMaxEntryBytes = 64 * 1024;

/// Also a link that leads nowhere stands in the way of the entries that come after.
bool isPresent(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// @return nothing for what cannot be read or is no ordinary file: a pipe would keep us waiting
QByteArray contents(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.size() <= kMaxEntryBytes ? file.readAll() : QByteArray();
}

/// The first of the entries that exists is the one that counts.
bool startsAtLogin(std::span<const QString> entries)
{
    const QStringList desktops =
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    for (const QString &entry : entries) {
        if (isPresent(entry))
            return autostart::startsAtLogin(contents(entry), desktops);
    }
    return false;
}

tl::unexpected<Error> fileFailure(const QString &tried, const QString &path, const QString &answer)
{
    return failure(Error::Kind::Io, QStringLiteral("%1 \"%2\": %3").arg(tried, path, answer));
}

/// Makes a folder as the XDG Base Directory Specification wants it, for the user alone.
Result<void> makeFolder(const QString &folder)
{
    QDir().mkpath(QFileInfo(folder).path());
    const bool isMade = ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU) == 0;
    const int number = errno;
    if (isMade || QFileInfo(folder).isDir())
        return {};
    return fileFailure(QStringLiteral("cannot make the folder"), folder, qt_error_string(number));
}

bool canBeWatched(const QString &path)
{
    return QFileInfo(path).isReadable();
}

QString nearestFolder(QString path)
{
    while (!(QFileInfo(path).isDir() && canBeWatched(path)) && path != QDir::rootPath())
        path = QFileInfo(path).path();
    return path;
}

} // namespace

XdgLoginItem::XdgLoginItem(const QString &program, const QStringList &folders, QObject *parent)
    : LoginItem(parent)
    , m_program(program)
    , m_hasStartedThisProcess(isStartedFromEntry(LaunchSigns::ofThisProcess()))
{
    for (const QString &folder : folders)
        m_entries += folder + u'/' + QLatin1String(autostart::kEntryName);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &XdgLoginItem::lookAgain);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &XdgLoginItem::lookAgain);
    watch();
    m_wasEnabled = isEnabled();
}

XdgLoginItem::~XdgLoginItem() = default;

QStringList XdgLoginItem::standardFolders()
{
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (QString &folder : folders)
        folder += QLatin1String("/autostart");
    return folders;
}

QString XdgLoginItem::backendId() const
{
    return QStringLiteral("xdg-autostart");
}

Availability XdgLoginItem::availability() const
{
    return {true, {}};
}

bool XdgLoginItem::isEnabled() const
{
    return startsAtLogin(m_entries);
}

Result<void> XdgLoginItem::registerItem()
{
    if (!QFileInfo(m_program).isExecutable()) {
        return failure(Error::Kind::NotFound,
                       QStringLiteral("there is no program \"%1\" any more").arg(m_program));
    }
    const Result<QByteArray> text = autostart::entryStarting(m_program);
    return text ? write(*text) : tl::unexpected(text.error());
}

Result<void> XdgLoginItem::unregisterItem()
{
    const std::span<const QString> ofTheSystem = std::span(m_entries).subspan(1);
    return startsAtLogin(ofTheSystem) ? write(autostart::entryHidingOthers()) : remove();
}

bool XdgLoginItem::hasStartedThisProcess() const
{
    return m_hasStartedThisProcess;
}

Result<void> XdgLoginItem::write(const QByteArray &text)
{
    const QString path = m_entries.constFirst();
    if (Result<void> made = makeFolder(QFileInfo(path).path()); !made)
        return made;
    // A link is replaced, not followed: some users switch an entry off by one to /dev/null.
    if (QFileInfo(path).isSymLink())
        QFile::remove(path);
    QSaveFile file(path);
    // Only flush() tells of a text that the disk took a part of: commit() would let that pass.
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(text) == text.size() &&
                           file.flush() && file.commit();
    lookAgain();
    if (!isWritten)
        return fileFailure(QStringLiteral("cannot write"), path, file.errorString());
    return {};
}

Result<void> XdgLoginItem::remove()
{
    QFile file(m_entries.constFirst());
    const bool isGone = !isPresent(file.fileName()) || file.remove();
    lookAgain();
    if (!isGone)
        return fileFailure(QStringLiteral("cannot remove"), file.fileName(), file.errorString());
    return {};
}

// Folders and entries come, go and are replaced, and a watch stays with the old one; so all are set
// up anew after every change. Of the user's folder the one above is watched too, because the folder
// may be moved away or replaced as a whole.
void XdgLoginItem::watch()
{
    const QString ownFolder = QFileInfo(m_entries.constFirst()).path();
    QStringList paths{nearestFolder(QFileInfo(ownFolder).path())};
    for (const QString &entry : std::as_const(m_entries)) {
        paths += nearestFolder(QFileInfo(entry).path());
        if (canBeWatched(entry))
            paths += entry;
    }
    const QStringList before = m_watcher.files() + m_watcher.directories();
    if (!before.isEmpty())
        m_watcher.removePaths(before);
    paths.removeDuplicates();
    m_watcher.addPaths(paths);
}

// What changes after the watch is set up is told; so the watch comes first, then the look.
void XdgLoginItem::lookAgain()
{
    watch();
    const bool isNowEnabled = isEnabled();
    if (std::exchange(m_wasEnabled, isNowEnabled) != isNowEnabled)
        emit changed();
}

} // namespace platform
