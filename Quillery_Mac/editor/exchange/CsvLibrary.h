// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/exchange/ParsedLibrary.h"
#include "platform/Result.h"

#include <QByteArrayView>

/// Reads a table of snippets: title, content, folder; see docs/library-file.md. Every item gets
/// `created` as its timestamp, and no id.
/// Errors: Refused, with the line and the reason.
platform::Result<ParsedLibrary> readCsvLibrary(QByteArrayView bytes, const QDateTime &created);
