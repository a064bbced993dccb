// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Entity.h"

namespace SQLite {
class Database;
}

/// The number of the newest version of a store's tables, kept in the file as `user_version`.
int newestVersion(StoreKind kind);

/// Brings the tables of a store to the newest version, one transaction for each version. Throws
/// SQLite::Exception; the versions before the failed one stay.
void migrate(SQLite::Database &database, StoreKind kind);
