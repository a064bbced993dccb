// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/MergeQueue.h"

#include <utility>

MergeQueue::MergeQueue(std::function<void()> wake)
    : m_wake(std::move(wake))
{
}

void MergeQueue::commitAndQueue(const std::function<void()> &commit, StoreChanges changes)
{
    {
        const std::lock_guard committing(commitLock(changes.store));
        commit();
        const std::lock_guard listing(m_listLock);
        m_changes.push_back(std::move(changes));
    }
    m_wake();
}

void MergeQueue::waitForCommit(StoreKind store)
{
    const std::lock_guard committed(commitLock(store));
}

std::mutex &MergeQueue::commitLock(StoreKind store)
{
    return m_commitLocks.at(static_cast<std::size_t>(store));
}

std::vector<StoreChanges> MergeQueue::takeAll()
{
    const std::lock_guard listing(m_listLock);
    return std::exchange(m_changes, {});
}
