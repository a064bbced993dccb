// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class StoreConnection;

/// The number of the last transaction saved to the file; 0 before the first. Throws
/// SQLite::Exception.
qint64 lastTransaction(StoreConnection &connection);

/// Counts a transaction that is being saved, inside of it, and answers with its number. Throws
/// SQLite::Exception.
qint64 countTransaction(StoreConnection &connection);
