// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

namespace platform {

/// Sends every message of Qt's logging to the journal, with the fields SUBSYSTEM and CATEGORY, or
/// to standard error where no journal runs. A category named "subsystem/category" gives both
/// fields; any other name is a category of the subsystem "com.tarnwick.Quillery". Called once,
/// first thing in main(). Content of the clipboard or of snippets never goes into a log.
void installLog();

} // namespace platform

Q_DECLARE_LOGGING_CATEGORY(logHotkeys)
Q_DECLARE_LOGGING_CATEGORY(logPasteboard)
Q_DECLARE_LOGGING_CATEGORY(logWindows)
Q_DECLARE_LOGGING_CATEGORY(logKeyboard)
Q_DECLARE_LOGGING_CATEGORY(logStore)
Q_DECLARE_LOGGING_CATEGORY(logApp)
Q_DECLARE_LOGGING_CATEGORY(logLogin)
Q_DECLARE_LOGGING_CATEGORY(logLaunchAtLogin)
