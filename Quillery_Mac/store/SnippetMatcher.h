// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/TextFold.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>
#include <unordered_map>

class PersistentContainer;
class PreparedTexts;
class SearchIndex;
class Snippet;

/// Tells which snippets match a search text: those whose title contains it, or else whose content
/// contains it, without regard to case, accents and width. A missing title or content is the empty
/// text; everything matches the empty search text.
///
/// Keeps the folded texts of the snippets in memory from the first search on, and brings them up to
/// date with every change, unsaved ones too. Belongs to a view or lives longer, but not longer than
/// the container it was prepared with; main thread only.
///
/// Folding a whole library takes longer than a key press may. So, while somebody listens to
/// moreAnswers(), a search folds for kFoldingTime only; what is not folded by then does not match
/// yet, and moreAnswers() asks for the search to be run again. A single long text would take longer
/// than that: once prepare() told the container, it is folded on the container's reading thread.
/// Without a listener every answer is the final one, however long it takes.
class SnippetMatcher : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds kFoldingTime{6};

    explicit SnippetMatcher(const QLocale &locale = QLocale());
    ~SnippetMatcher() override;
    Q_DISABLE_COPY_MOVE(SnippetMatcher)

    /// Folds all snippets' texts on the container's reading thread, so that the first search does
    /// not have to: call it when a search field comes up. A search that comes before the end uses
    /// what is finished.
    void prepare(PersistentContainer &container);

    void setSearchText(const QString &text);
    /// Whether the search text is not empty.
    bool isSearching() const { return m_isSearching; }
    /// Whether the snippet as it is now matches the search text. The first call after a change of
    /// the search text works, the others look it up.
    bool matches(const Snippet &snippet);
    /// Whether every answer since setSearchText() is the final one; if not, moreAnswers() follows.
    bool isComplete() const { return m_isComplete; }

    /// Frees the folded texts; the next search makes them again.
    void release();

    /// How long one search folds; at least one text is folded even so.
    void setFoldingTime(std::chrono::milliseconds time) { m_foldingTime = time; }

signals:
    /// Some snippets could not be looked at in time: set the search text and ask again.
    void moreAnswers();

private:
    bool isListenedTo() const;
    bool mayFold();
    bool isTooLongToFoldHere(const Snippet &snippet) const;
    void foldElsewhere(const Snippet &snippet);
    void adoptPrepared();
    void adopt(PreparedTexts &texts, int maxBatches);

    QLocale m_locale;
    TextFold m_fold;
    std::unique_ptr<SearchIndex> m_index;
    PersistentContainer *m_container = nullptr; ///< null before prepare()
    std::shared_ptr<PreparedTexts> m_prepared;
    std::unordered_map<qint64, quint64> m_foldingElsewhere; ///< objectId, revision of the texts
    std::chrono::milliseconds m_foldingTime = kFoldingTime;
    QElapsedTimer m_foldingSince; ///< invalid until the search has folded a text
    QTimer m_again;
    bool m_isSearching = false;
    bool m_isComplete = true;
};
