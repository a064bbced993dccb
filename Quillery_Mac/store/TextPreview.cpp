// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/TextPreview.h"

#include <algorithm>

namespace {

// Drops the bytes of a last character that the cut took apart: at most three.
QByteArrayView withoutCutCharacter(QByteArrayView bytes)
{
    qsizetype start = bytes.size();
    for (int step = 0; step < 4 && start > 0; ++step) {
        --start;
        const auto byte = static_cast<unsigned char>(bytes[start]);
        if (byte < 0x80)
            return bytes;
        if (byte < 0xC0)
            continue;
        const int length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
        return bytes.size() - start < length ? bytes.first(start) : bytes;
    }
    return bytes;
}

} // namespace

TextPreview makeTextPreview(QByteArrayView prefix, qint64 totalBytes)
{
    const bool isWhole = prefix.size() >= totalBytes && prefix.size() <= kPreviewBytes;
    const QByteArrayView piece =
        isWhole ? prefix
                : withoutCutCharacter(prefix.first(std::min(prefix.size(), kPreviewBytes)));
    TextPreview preview;
    preview.start = QString::fromUtf8(piece);
    preview.isLineCountExact = isWhole;
    if (!piece.isEmpty())
        preview.lineCount = static_cast<int>(std::count(piece.begin(), piece.end(), '\n')) + 1;
    return preview;
}
