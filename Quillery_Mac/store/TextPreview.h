// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QString>

/// What a row shows of a text, made from a bounded piece of its beginning.
struct TextPreview
{
    /// The text's beginning, at most kPreviewBytes bytes of UTF-8 and cut between characters; bytes
    /// that are no valid UTF-8 show as U+FFFD. Line ends are kept.
    QString start;
    /// The lines in the piece that was read; 0 for a missing or empty text, else at least 1.
    int lineCount = 0;
    /// Whether the piece was the whole text, so that lineCount counts all of it.
    bool isLineCountExact = true;

    friend bool operator==(const TextPreview &, const TextPreview &) = default;
};

/// How much of a text a preview reads, in bytes: more than the widest row of several lines shows.
inline constexpr qsizetype kPreviewBytes = 4096;

/// The preview of a text of `totalBytes` bytes whose first bytes are `prefix`. Any thread.
TextPreview makeTextPreview(QByteArrayView prefix, qint64 totalBytes);
