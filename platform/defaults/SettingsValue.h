// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Values of a settings file in the notation of the desktop's INI files: quotes around what has
/// special characters, backslash escapes (\", \\, \n, \x3b), commas between the members of a list,
/// ";" before a comment, "@" before types that have no notation of their own.
namespace platform {

/// The text that a value stands for; none for a list and for the other types. A JSON object that
/// was written by hand as it is, without quotes around it, is text too.
///
/// @param value without blanks around it; bytes that are no UTF-8 read as U+FFFD
std::optional<QString> textOfSettingsValue(const QByteArray &value);

/// The value that stands for a text; one line, whatever the text.
QByteArray settingsValueOf(const QString &text);

} // namespace platform
