// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace platform {

/// Converts X11 compound text (type COMPOUND_TEXT) to UTF-8. What cannot be read becomes U+FFFD.
/// Source: "Compound Text Encoding" 1.1 of the X Consortium, with X.Org's UTF-8 segments.
QByteArray utf8FromCompoundText(QByteArrayView compound);

} // namespace platform
