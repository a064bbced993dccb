// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/TextFold.h"

#include <atomic>
#include <deque>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <vector>

class ManagedObjectContext;
class Snippet;

/// The folded form of a snippet's title and content. Between the two stands a byte that no text
/// has, so that nothing is found across them.
QByteArray foldedTexts(TextFold &fold, const Snippet &snippet);

/// Folds the texts of the snippets on the reading thread and hands them, batch by batch, to the
/// main thread, which never waits for it.
class PreparedTexts
{
public:
    struct Item
    {
        qint64 objectId;
        quint64 revision;
        QByteArray folded;
    };

    /// @param revisions which snippets, by objectId, with the revision of their texts now; none
    /// with
    ///        unsaved texts, for the file is what is folded
    PreparedTexts(const QLocale &locale, std::unordered_map<qint64, quint64> revisions);

    /// Folds this text too, which is not in the file as it is now. Before fold(). Main thread.
    void addUnsaved(const Snippet &snippet);

    /// The work. Reading thread.
    void fold(ManagedObjectContext &context);

    /// Ends fold() early. Main thread.
    void cancel() { m_isCancelled = true; }
    /// Whether all batches are made. Ask before taking the last one. Main thread.
    bool isFinished() const { return m_isFinished; }
    /// The oldest batch made and not yet taken; none if there is none now. Main thread.
    std::optional<std::vector<Item>> takeBatch();
    /// Whether there is no such batch now. Main thread.
    bool isEmpty();

private:
    struct Unsaved
    {
        qint64 objectId;
        quint64 revision;
        QString title;
        QByteArray content;
    };

    void publish(std::vector<Item> batch);
    void finish(std::vector<Item> lastBatch);

    QLocale m_locale;
    std::unordered_map<qint64, quint64> m_revisions;
    std::vector<Unsaved> m_unsaved;
    std::atomic<bool> m_isCancelled = false;
    std::atomic<bool> m_isFinished = false;
    std::mutex m_lock;
    std::deque<std::vector<Item>> m_batches;
};
