// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringView>

/// A JSON text in its quotation marks, as UTF-8. What can be read stays as it is; what cannot be
/// seen (control characters, line ends, the mark of a file's beginning) and what UTF-8 cannot say
/// (half a surrogate pair) is escaped.
QByteArray jsonText(QStringView text);
/// The same for a text that is UTF-8 already, which it must be.
QByteArray jsonText(QByteArrayView utf8);
