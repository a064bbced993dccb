// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace platform {

/// The value of the key Exec that starts `program` without arguments, by the quoting rules of the
/// Desktop Entry Specification, "The Exec key". The escapes of every string value (a doubled
/// backslash for one) are not in it yet.
///
/// A percent sign is doubled, as those rules want it. GLib and systemd look for the program before
/// they undo that and so never find it: such a program is started by env.
///
/// @param program absolute path
/// @return none for a path that env would take for a variable: one with both "%" and "="
std::optional<QString> execLine(const QString &program);

/// The program that an Exec value names: its first argument, unquoted, field codes as they stand,
/// as GLib and systemd look for it.
/// @return none if there is no argument or a quotation has no end
std::optional<QString> programOfExecLine(const QString &line);

} // namespace platform
