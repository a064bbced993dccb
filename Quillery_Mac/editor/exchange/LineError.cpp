// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/exchange/LineError.h"

#include <QUtf8StringView>

// No character of UTF-8 has the byte of a line end in it, so each line can be looked at by itself.
std::optional<qsizetype> firstInvalidLine(QByteArrayView bytes)
{
    qsizetype start = 0;
    while (start < bytes.size()) {
        const qsizetype lineEnd = bytes.indexOf('\n', start);
        const qsizetype end = lineEnd < 0 ? bytes.size() : lineEnd + 1;
        if (!QUtf8StringView(bytes.data() + start, end - start).isValidUtf8())
            return start;
        start = end;
    }
    return std::nullopt;
}
