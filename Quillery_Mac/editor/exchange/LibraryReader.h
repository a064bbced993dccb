// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/editor/exchange/ParsedLibrary.h"
#include "platform/Result.h"

#include <QByteArrayView>

/// Reads what exportLibrary() writes, and the same written by hand; see docs/library-file.md.
/// Errors: Refused, with the line and the reason.
platform::Result<ParsedLibrary> readLibrary(QByteArrayView bytes);
