// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Result.h"

#include <QElapsedTimer>
#include <QString>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <atomic>
#include <chrono>
#include <string>
#include <unordered_map>

/// What all connections to one store file share. Any thread.
struct StoreHealth
{
    /// Set when the file turned out to be corrupt; from then on it is neither read nor written.
    std::atomic<bool> isDamaged = false;
    /// Pages in the write-ahead log after the last commit.
    std::atomic<int> loggedPages = 0;
};

/// One thread's connection to a store file, with its prepared statements. Used on the thread that
/// made it; its functions throw SQLite::Exception.
class StoreConnection
{
public:
    /// Opens an existing file, empty or a store. Nothing is written to it before useStore().
    StoreConnection(const QString &file, StoreHealth &health);
    ~StoreConnection();
    Q_DISABLE_COPY_MOVE(StoreConnection)

    /// Sets what every connection to a store has set. Before it the file is only read.
    void useStore();

    /// How long a write waits for another connection's; one that waited in vain fails with an
    /// error that isBusy().
    void setPatience(std::chrono::milliseconds patience) { m_patience = patience; }
    static bool isBusy(const SQLite::Exception &error);

    SQLite::Database &database() { return m_database; }
    /// The prepared statement for this text, reset and without values; stays good as long as the
    /// connection.
    SQLite::Statement &statement(const std::string &sql);

    /// Whether the file could only be read when it was opened; the connection stays so.
    bool isReadOnly() const;
    bool isUsable() const { return !m_health.isDamaged; }
    /// Words an error for the caller: TimedOut if it isBusy(), else Io. When it says that the file
    /// is corrupt, prints it and takes the store out of use.
    platform::Error failed(const SQLite::Exception &error, const QString &what);

private:
    static int waitForWriter(void *connection, int turns);

    QString m_file;
    StoreHealth &m_health;
    SQLite::Database m_database;
    std::chrono::milliseconds m_patience;
    QElapsedTimer m_waiting; ///< since the write began to wait
    std::unordered_map<std::string, SQLite::Statement> m_statements;
};

/// Prints what keeps a store from being used to standard output.
void printStoreError(const platform::Error &error);
