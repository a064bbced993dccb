// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/Entity.h"

#include <string>
#include <vector>

namespace SQLite {
class Database;
}

/// The number of the newest version of a store's tables, kept in the file as `user_version`.
int newestVersion(StoreKind kind);

/// Brings the tables of a store to the newest version, one transaction for each version. Throws
/// SQLite::Exception; the versions before the failed one stay.
void migrate(SQLite::Database &database, StoreKind kind);

/// The SQL texts that lead from one version to the next; the first entry leads to version 1.
using MigrationSteps = std::vector<std::vector<std::string>>;

/// Takes the steps that a file has not taken yet; otherwise as migrate().
void takeSteps(SQLite::Database &database, const MigrationSteps &steps);
