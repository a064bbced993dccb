// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

struct TextPreview;

/// What a row writes: one line, however long and ragged the text is.
struct RowText
{
    QString text;
    /// In the quiet colour as a whole: words of ours, or a text standing in for a title.
    bool isQuiet = false;
    /// "3 lines"; empty for a single line.
    QString tally;

    friend bool operator==(const RowText &, const RowText &) = default;
};

/// At most this many characters of a text are ever laid out in a row.
inline constexpr qsizetype kRowCharacters = 300;

/// `text` as one line: every line break is " ↵ ", runs of blanks and tabs are one blank, leading
/// blank lines and blanks go, at most kRowCharacters.
QString oneLine(const QString &text);

/// A clip's row.
RowText historyRowText(const TextPreview &preview);

/// A snippet's or folder's row: its title, else the first line of its text, else "Untitled".
RowText titleRowText(const QString &title, const TextPreview &preview);
