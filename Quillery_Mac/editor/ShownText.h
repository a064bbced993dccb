// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// How a text field shows UTF-8 bytes: as UTF-16 units, in which every kind of line end, two bytes
/// of CR and LF too, is one '\n', and every byte that is no valid UTF-8 is one U+FFFD. Any thread.
namespace shownText {

/// The first character of some bytes.
struct Character
{
    char32_t code; ///< '\n' for every line end
    int bytes;     ///< how many bytes it takes
    int units() const { return code > 0xffff ? 2 : 1; }
};

/// @param utf8 must not be empty
Character first(QByteArrayView utf8);

/// How many units the bytes are shown as.
int units(QByteArrayView utf8);

void append(QString &shown, char32_t code);

/// The bytes of a text that was made in a field: its line ends, also U+2029, become LF, and half a
/// surrogate pair becomes U+FFFD.
QByteArray toUtf8(QStringView shown);

} // namespace shownText
