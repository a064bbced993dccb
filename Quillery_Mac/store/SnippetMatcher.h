// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/ManagedObjectContext.h"
#include "Quillery_Mac/store/TextFold.h"

#include <QObject>

#include <memory>

class PersistentContainer;
class SearchIndex;
class Snippet;

/// Tells which snippets match a search text: those whose title contains it, or else whose content
/// contains it, without regard to case, accents and width. A missing title or content is the empty
/// text; everything matches the empty search text.
///
/// Keeps the folded texts of the snippets in memory from the first search on, and brings them up to
/// date with every change, unsaved ones too. Belongs to a view; main thread only.
class SnippetMatcher
{
public:
    explicit SnippetMatcher(const QLocale &locale = QLocale());
    ~SnippetMatcher();
    Q_DISABLE_COPY_MOVE(SnippetMatcher)

    /// Folds all snippets' texts on the container's private thread, so that the first search does
    /// not have to. Called when a search field comes up; a search before the end is slower, not
    /// wrong.
    void prepare(PersistentContainer &container);

    void setSearchText(const QString &text);
    /// Whether the search text is not empty.
    bool isSearching() const;
    /// Whether the snippet as it is now matches the search text. The first call after a change of
    /// the search text works, the others look it up.
    bool matches(const Snippet &snippet);

    /// Frees the folded texts; the next search makes them again.
    void release();

private:
    std::unique_ptr<SearchIndex> m_index;
};
