// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/TextFold.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <vector>

class ManagedObjectContext;
class Snippet;

/// The folded form of a snippet's title and content. Between the two stands a byte that no text
/// has, so that nothing is found across them.
QByteArray foldedTexts(TextFold &fold, const Snippet &snippet);

/// Folds the texts of the snippets on the background thread and hands them to the main thread.
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

    /// The work. Background thread.
    void fold(ManagedObjectContext &context);

    /// Ends fold() early. Main thread.
    void cancel() { m_isCancelled = true; }
    /// What fold() made: waits for its end if it has begun, cancels it if not. Main thread.
    std::vector<Item> take();

private:
    enum class State { Waiting, Folding, Finished };

    bool begin();

    QLocale m_locale;
    std::unordered_map<qint64, quint64> m_revisions;
    std::atomic<bool> m_isCancelled = false;
    std::mutex m_lock;
    std::condition_variable m_finished;
    State m_state = State::Waiting;
    std::vector<Item> m_items;
};
