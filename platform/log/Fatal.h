// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

/// Ends the program for a value that must never occur: one line "Fatal error: <message>" on
/// standard error, then abort(). Callers name the value, the allowed range and the key. Any thread.
///
/// @param sourceFile where the error is reported against: the line starts with it; may be null
[[noreturn]] void fatalError(const QString &message, const char *sourceFile = nullptr);

} // namespace platform
