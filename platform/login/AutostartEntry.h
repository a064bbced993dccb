// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace platform::autostart {

/// The name of our entry in every folder of the Desktop Application Autostart Specification.
inline constexpr auto kEntryName = "com.tarnwick.Quillery.desktop";

/// The text of an entry that starts a program at login.
///
/// @param program absolute path
/// Errors: Refused if no entry can name that path.
Result<QByteArray> entryStarting(const QString &program);

/// The text of an entry that takes away the one of the same name in the folders that come after.
QByteArray entryHidingOthers();

/// Whether every desktop of these names starts a program from an entry at login.
///
/// Desktops disagree on odd entries: upper-case truths, lines that are none, a program that is not
/// there. In doubt the answer is no: switched on anew, the entry becomes one that all of them
/// understand.
///
/// @param text     the whole file
/// @param desktops the items of XDG_CURRENT_DESKTOP; may be empty
bool startsAtLogin(const QByteArray &text, const QStringList &desktops);

} // namespace platform::autostart
