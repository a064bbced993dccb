// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/PersistentStore.h"

#include "Quillery_Mac/store/Migrations.h"
#include "Quillery_Mac/store/RowFormat.h"
#include "Quillery_Mac/store/StoreFile.h"
#include "platform/log/Log.h"

#include <QFile>
#include <QFileInfo>

#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Transaction.h>
#include <sqlite3.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

using platform::Error;

namespace {

// Pages of 16 KB, together 4 MB: some four recordings into a full history.
constexpr int kLongLog = 256;

// How long the main thread's save waits for the background thread's: a short recording is over by
// then. With both stores busy the user sees nothing move for twice as long.
constexpr std::chrono::milliseconds kMainThreadPatience{40};

// What the main thread commits is in the system's cache, where the end of the program does not harm
// it; the background thread brings it to the disk (PersistentStore::syncLog). The main thread would
// wait for everything else that is on its way there: with a text of 50 MB, 650 ms were measured.
constexpr const char *kCommitWithoutDisk = "PRAGMA synchronous = NORMAL";

// Every page of a file up to so many bytes is checked when it is loaded (a full library: 13 ms).
// The damage of a larger one is found when it is met.
constexpr qint64 kCheckedBytes = 64 << 20;

// Whether the tables are ours: none at all in a new file, those of the newest version in a file
// that says it has that.
bool hasOurTables(SQLite::Database &database, int version, const StoreDescription &description)
{
    if (version == 0)
        return database.execAndGet("SELECT count(*) FROM sqlite_master").getInt() == 0;
    if (version == newestVersion(description.kind)) {
        const Entity &entity = entityOf(description.kind);
        return database.tryExec(selectAllText(entity) + " LIMIT 0") == SQLITE_OK;
    }
    return version > 0;
}

platform::Result<void> checkContents(SQLite::Database &database,
                                     const StoreDescription &description)
{
    const QString &file = description.file;
    const int newest = newestVersion(description.kind);
    const auto refused = [&file](const QString &why) {
        return platform::failure(Error::Kind::Refused,
                                 QStringLiteral("Load %1: %2").arg(file, why));
    };
    const int version = database.execAndGet("PRAGMA user_version").getInt();
    if (version > newest) {
        return refused(
            QStringLiteral("file has version %1, newer than %2").arg(version).arg(newest));
    }
    if (QFileInfo(file).size() <= kCheckedBytes) {
        const std::string verdict = database.execAndGet("PRAGMA quick_check(1)").getString();
        if (verdict != "ok")
            return refused(QString::fromStdString(verdict).simplified());
    }
    if (!hasOurTables(database, version, description))
        return refused(QStringLiteral("file holds other tables"));
    return {};
}

} // namespace

platform::Result<std::unique_ptr<PersistentStore>>
PersistentStore::load(const StoreDescription &description)
{
    const QString &file = description.file;
    const int newest = newestVersion(description.kind);
    const auto usable =
        prepareStoreFile(file).and_then([&] { return checkStoreFile(file, newest); });
    if (!usable)
        return tl::unexpected(usable.error());
    std::unique_ptr<PersistentStore> store(new PersistentStore(description));
    try {
        store->m_view = std::make_unique<StoreConnection>(file, store->m_health);
        SQLite::Database &database = store->m_view->database();
        if (const auto usableContents = checkContents(database, description); !usableContents)
            return tl::unexpected(usableContents.error());
        store->m_isReadOnly = store->m_view->isReadOnly();
        store->m_view->useStore();
        migrate(database, description.kind);
        database.exec(kCommitWithoutDisk);
        store->m_view->setPatience(kMainThreadPatience);
    } catch (const SQLite::Exception &error) {
        return platform::failure(Error::Kind::Io, QStringLiteral("Load %1: %2 (code %3)")
                                                      .arg(file, QString::fromUtf8(error.what()))
                                                      .arg(error.getExtendedErrorCode()));
    }
    restrictStoreFile(file);
    return store;
}

PersistentStore::PersistentStore(const StoreDescription &description)
    : m_description(description)
{
}

StoreConnection *PersistentStore::backgroundConnection()
{
    if (!m_background && isUsable())
        m_background = connect();
    // A file that was written before may be again: the next task opens it anew.
    if (m_background && m_background->isReadOnly() && !m_isReadOnly)
        m_background.reset();
    return m_background.get();
}

StoreConnection *PersistentStore::readingConnection()
{
    if (!m_reading && isUsable()) {
        m_reading = connect();
        if (m_reading)
            m_reading->database().exec("PRAGMA query_only = ON");
    }
    return m_reading.get();
}

std::unique_ptr<StoreConnection> PersistentStore::connect()
{
    try {
        auto connection = std::make_unique<StoreConnection>(m_description.file, m_health);
        connection->useStore();
        return connection;
    } catch (const SQLite::Exception &error) {
        qCWarning(logStore) << "further connection:" << error.what();
        return nullptr;
    }
}

bool PersistentStore::waitForWriter()
{
    StoreConnection *connection = backgroundConnection();
    // What is wrong then, the save will tell.
    if (!connection)
        return true;
    try {
        const SQLite::Transaction turn(connection->database(),
                                       SQLite::TransactionBehavior::IMMEDIATE);
    } catch (const SQLite::Exception &error) {
        return !StoreConnection::isBusy(error);
    }
    return true;
}

bool PersistentStore::needsCheckpoint() const
{
    return isUsable() && m_health.loggedPages >= kLongLog;
}

void PersistentStore::checkpoint()
{
    StoreConnection *connection = backgroundConnection();
    if (!connection || !isUsable())
        return;
    int logged = 0;
    int writtenBack = 0;
    const int code = sqlite3_wal_checkpoint_v2(connection->database().getHandle(), nullptr,
                                               SQLITE_CHECKPOINT_PASSIVE, &logged, &writtenBack);
    if (code != SQLITE_OK)
        qCWarning(logStore) << "write back the log: code" << code;
    m_health.loggedPages = 0;
    if (code == SQLITE_OK && writtenBack == logged)
        beginNewLog();
}

// The first write after a whole log was written back cuts the log short and waits for the disk. So
// that it is not the main thread's, one page is written here that changes nothing.
void PersistentStore::beginNewLog()
{
    SQLite::Database &database = m_background->database();
    try {
        SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
        const int version = database.execAndGet("PRAGMA user_version").getInt();
        database.exec("PRAGMA user_version = " + std::to_string(version));
        transaction.commit();
    } catch (const SQLite::Exception &error) {
        qCWarning(logStore) << "begin a new log:" << error.what();
    }
}

void PersistentStore::syncLog()
{
    const QByteArray log = QFile::encodeName(m_description.file) + "-wal";
    const int file = ::open(log.constData(), O_RDONLY | O_CLOEXEC);
    // Without a log everything is in the file.
    if (file < 0)
        return;
    if (::fdatasync(file) != 0)
        qCWarning(logStore) << "bring the log to the disk:" << std::strerror(errno);
    ::close(file);
}
