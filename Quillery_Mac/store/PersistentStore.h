// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/StoreConnection.h"
#include "Quillery_Mac/store/StoreDescription.h"

#include <memory>

/// One loaded store file: the connections of the main, the background and the reading thread, and
/// the upkeep of its log.
class PersistentStore
{
public:
    /// Opens the file, makes it if it is missing, and brings its tables up to date.
    /// Errors: Refused or Io if it is no store, damaged, newer than the program or not to be
    /// opened; then its bytes are as they were.
    static platform::Result<std::unique_ptr<PersistentStore>>
    load(const StoreDescription &description);

    StoreKind kind() const { return m_description.kind; }
    bool isUsable() const { return !m_health.isDamaged; }

    /// The main thread's connection.
    StoreConnection &viewConnection() { return *m_view; }
    /// The background thread's connection, opened at the first call; null if that fails, or while a
    /// file that was written before can only be read. Only there.
    StoreConnection *backgroundConnection();
    /// The same for the reading thread; this connection cannot write.
    StoreConnection *readingConnection();

    /// Returns as soon as nobody else writes to the file; false if somebody still does after the
    /// connection's patience. Background thread.
    bool waitForWriter();

    /// Whether the log has grown so long that it should be written back. Any thread.
    bool needsCheckpoint() const;
    /// Writes the log back into the file. Background thread.
    void checkpoint();
    /// Brings what the main thread committed from the system's cache to the disk. Background
    /// thread.
    void syncLog();

private:
    std::unique_ptr<StoreConnection> connect();
    void beginNewLog();

    explicit PersistentStore(const StoreDescription &description);

    StoreDescription m_description;
    StoreHealth m_health;
    bool m_isReadOnly = false; ///< the file, when it was loaded
    std::unique_ptr<StoreConnection> m_view;
    std::unique_ptr<StoreConnection> m_background;
    std::unique_ptr<StoreConnection> m_reading;
};
