// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

/// A snippet or a folder as a file describes it.
struct ParsedItem
{
    std::optional<QUuid> id;
    std::optional<QString> title;
    std::optional<QByteArray> content;
    std::optional<QDateTime> timestamp;
    bool expanded = false;
    bool isFolder = false;
};

/// What a file holds. As in the store a folder owns the snippets that follow it, up to the next
/// folder; the snippets of no folder stand first.
struct ParsedLibrary
{
    std::vector<ParsedItem> items;
};

/// So many snippets and folders a library holds at most: their numbers have 16 bits.
inline constexpr qsizetype kMaxLibraryItems = 32767;
