// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/StoreChanges.h"

class StoreConnection;

/// Writes what a transaction changed to the persistent history, inside that transaction. Where
/// nobody is registered to read it nothing is written. Throws SQLite::Exception.
void writeHistory(StoreConnection &connection, const StoreChanges &changes, const QString &author);
