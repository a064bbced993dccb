// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace platform {

/// Ends the program for a value that must never occur: one line "Fatal error: <message>" on
/// standard error, then abort(). Callers name the value, the allowed range and the key. Any thread.
[[noreturn]] void fatalError(const QString &message);

} // namespace platform
