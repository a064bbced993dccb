// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/StoreConnection.h"

#include <QFile>
#include <QThread>

#include <sqlite3.h>

#include <cstdio>

namespace {

// The longest write of our own is one long text: some 100 ms, on a slow disk a second.
constexpr std::chrono::seconds kPatience{5};

// What every connection to a store sets, once the file is known to be one. The log is emptied by
// the background thread only (PersistentStore), so that no save of the main thread waits for it.
constexpr const char *kPragmas[] = {
    "PRAGMA synchronous = FULL",
    "PRAGMA wal_autocheckpoint = 0",
    // The log shrinks to so many bytes after a long text made it grow.
    "PRAGMA journal_size_limit = 8388608",
    // Deleted clips do not stay readable in the file where that costs no extra write.
    "PRAGMA secure_delete = FAST",
    "PRAGMA cell_size_check = ON",
    "PRAGMA trusted_schema = OFF",
};

// Pages of 16 KB: half the time of 4 KB pages for a 50 MB text, and no slower for 1,000 short ones.
constexpr const char *kPageSize = "PRAGMA page_size = 16384";

int noteLoggedPages(void *health, sqlite3 *, const char *, int pages)
{
    static_cast<StoreHealth *>(health)->loggedPages = pages;
    return SQLITE_OK;
}

} // namespace

StoreConnection::StoreConnection(const QString &file, StoreHealth &health)
    : m_file(file)
    , m_health(health)
    , m_database(QFile::encodeName(file).toStdString(), SQLite::OPEN_READWRITE)
    , m_patience(kPatience)
{
    sqlite3_busy_handler(m_database.getHandle(), waitForWriter, this);
    // A file that is not used in the end is left as it is, its log too.
    sqlite3_db_config(m_database.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

StoreConnection::~StoreConnection()
{
    if (!isUsable())
        sqlite3_db_config(m_database.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

void StoreConnection::useStore()
{
    sqlite3 *handle = m_database.getHandle();
    // In the newer format the numbers 0 and 1 take no byte in a row, all others at least one, so
    // that moving a clip from position 1 to 2 would rewrite its whole text (measured with 50 MB:
    // 490 ms instead of 60).
    sqlite3_db_config(handle, SQLITE_DBCONFIG_LEGACY_FILE_FORMAT, 1, nullptr);
    m_database.exec(kPageSize);
    const std::string mode = m_database.execAndGet("PRAGMA journal_mode = WAL").getString();
    if (mode != "wal")
        throw SQLite::Exception("journal mode is " + mode, SQLITE_CANTOPEN);
    for (const char *pragma : kPragmas)
        m_database.exec(pragma);
    sqlite3_wal_hook(handle, noteLoggedPages, &m_health);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
}

// The library's own way to wait sleeps longer and longer; the main thread should go on at once.
int StoreConnection::waitForWriter(void *connection, int turns)
{
    auto *self = static_cast<StoreConnection *>(connection);
    if (turns == 0)
        self->m_waiting.start();
    if (self->m_waiting.elapsed() >= self->m_patience.count())
        return 0;
    QThread::msleep(1);
    return 1;
}

bool StoreConnection::isBusy(const SQLite::Exception &error)
{
    return error.getErrorCode() == SQLITE_BUSY;
}

bool StoreConnection::isReadOnly() const
{
    return sqlite3_db_readonly(m_database.getHandle(), "main") == 1;
}

SQLite::Statement &StoreConnection::statement(const std::string &sql)
{
    auto known = m_statements.find(sql);
    if (known == m_statements.end())
        known = m_statements.try_emplace(sql, m_database, sql).first;
    known->second.tryReset();
    known->second.clearBindings();
    return known->second;
}

platform::Error StoreConnection::failed(const SQLite::Exception &error, const QString &what)
{
    const QString text = QStringLiteral("%1 %2: %3 (code %4)")
                             .arg(what, m_file, QString::fromUtf8(error.what()))
                             .arg(error.getExtendedErrorCode());
    using Kind = platform::Error::Kind;
    platform::Error result{isBusy(error) ? Kind::TimedOut : Kind::Io, text};
    const int code = error.getErrorCode();
    if ((code == SQLITE_CORRUPT || code == SQLITE_NOTADB) && !m_health.isDamaged.exchange(true))
        printStoreError(result);
    return result;
}

void printStoreError(const platform::Error &error)
{
    std::printf("%s\n", error.text.toUtf8().constData());
    std::fflush(stdout);
}
