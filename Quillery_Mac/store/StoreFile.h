// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Result.h"

#include <QString>

/// Makes the folder of the stores with mode 0700 if it is missing.
/// Errors: Io if it cannot be made or is no folder.
platform::Result<void> prepareDataFolder(const QString &folder);

/// Makes the file with mode 0600 if it is missing; an existing one is left as it is.
/// Errors: Io if it cannot be made.
platform::Result<void> prepareStoreFile(const QString &file);

/// Takes group's and others' rights off an existing file of ours and its side files.
void restrictStoreFile(const QString &file);

/// Looks at the file's first bytes without opening it as a store: whether it can be one of a
/// version up to `newestVersion`, and whole. An empty file is a new store; a file with a log beside
/// it is judged by the size of nothing, because the log holds its newest pages. Errors: Refused if
/// it is no store, cut short, or newer; Io if it cannot be read.
platform::Result<void> checkStoreFile(const QString &file, int newestVersion);
