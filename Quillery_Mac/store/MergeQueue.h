// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/store/StoreChanges.h"

#include <array>
#include <functional>
#include <mutex>

/// What background contexts saved and the view context has not merged yet, in the order of the
/// saves.
///
/// A save of the view context must know all that was committed before it, or an older value merged
/// later would replace a newer one. So (1) a background save commits and queues its changes under
/// the commit lock of its store; (2) the view context, once it holds the file's write lock, waits
/// for that lock and merges what is queued. Nobody can be between commit and queueing then. The
/// locks are always taken in the order write lock, commit lock; merging alone, which the event loop
/// does, takes neither. Since the commit itself needs the write lock of its file, what (2) waits
/// for is the queueing alone.
class MergeQueue
{
public:
    /// @param wake called after changes were queued, on the thread that saved
    explicit MergeQueue(std::function<void()> wake);

    /// Runs `commit` and queues `changes` if it does not throw. Any thread.
    void commitAndQueue(const std::function<void()> &commit, StoreChanges changes);
    /// Returns when no commit of a background save of that store is under way.
    void waitForCommit(StoreKind store);
    /// What was queued since the last call. Main thread.
    std::vector<StoreChanges> takeAll();

private:
    std::mutex &commitLock(StoreKind store);

    std::function<void()> m_wake;
    std::array<std::mutex, kStoreKinds.size()> m_commitLocks;
    std::mutex m_listLock;
    std::vector<StoreChanges> m_changes;
};
