// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/MergeQueue.h"

#include <gtest/gtest.h>

#include <future>
#include <semaphore>
#include <utility>

namespace {

/// A commit of a background save that takes until it is let go on.
class LongCommit
{
public:
    LongCommit(MergeQueue &queue, StoreKind store)
        : m_save(std::async(std::launch::async, [this, &queue, store] {
            StoreChanges changes;
            changes.store = store;
            queue.commitAndQueue(
                [this] {
                    m_hasBegun.release();
                    m_mayEnd.acquire();
                },
                std::move(changes));
        }))
    {
        m_hasBegun.acquire();
    }

    void end() { m_mayEnd.release(); }

private:
    std::binary_semaphore m_hasBegun{0};
    std::binary_semaphore m_mayEnd{0};
    std::future<void> m_save; // last: its thread uses the others
};

bool isOver(const std::future<void> &what)
{
    return what.wait_for(std::chrono::milliseconds(50)) == std::future_status::ready;
}

} // namespace

TEST(MergeQueue, aSaveWaitsForACommitOfItsOwnStoreOnly)
{
    MergeQueue queue([] {});
    LongCommit commit(queue, StoreKind::Clips);

    queue.waitForCommit(StoreKind::Snippets);
    EXPECT_TRUE(queue.takeAll().empty());

    const auto waiting =
        std::async(std::launch::async, [&queue] { queue.waitForCommit(StoreKind::Clips); });
    EXPECT_FALSE(isOver(waiting));
    commit.end();
    waiting.wait();
    EXPECT_EQ(queue.takeAll().size(), 1U);
}
