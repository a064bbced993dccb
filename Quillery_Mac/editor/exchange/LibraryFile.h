// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/exchange/ParsedLibrary.h"
#include "platform/Result.h"

/// A larger file is not read, in bytes: it would have to be held in memory several times over.
inline constexpr qint64 kMaxLibraryFileBytes = qint64{1} << 30;

/// Reads a library from a file: a table if its name ends in ".csv", in letters of either case, a
/// Quillery library if not.
/// Errors: Io if the file cannot be read or is too large, Refused if it is malformed; the text is a
/// sentence that can be shown.
platform::Result<ParsedLibrary> readLibraryFile(const QString &path);
