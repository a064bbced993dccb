// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/DroppedText.h"

#include <QMimeData>

namespace {

const QString kUtf8 = QStringLiteral("text/plain;charset=utf-8");
const QString kPlain = QStringLiteral("text/plain");

} // namespace

bool hasDroppedText(const QMimeData &data)
{
    // A file that is dragged has an address, which counts as a text by hasText().
    return data.hasFormat(kPlain) || data.hasFormat(kUtf8);
}

// Under the name with the charset some programs send all line ends as CRLF, for so the standard of
// that format has them, and under the plain name the text as it is. Which may be no UTF-8.
QByteArray droppedText(const QMimeData &data)
{
    if (!data.hasFormat(kUtf8))
        return data.text().toUtf8();
    QByteArray text = data.data(kUtf8);
    if (!text.contains("\r\n"))
        return text;
    const QByteArray plain = data.data(kPlain);
    const auto joined = [](QByteArray lines) { return lines.replace("\r\n", "\n"); };
    return joined(plain) == joined(text) ? plain : text;
}
