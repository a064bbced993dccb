// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// Runs jobs on one private thread, one after the other, in the order they were given. Sleeps
/// without waking while there are none.
class BackgroundQueue
{
public:
    using Job = std::function<void()>;

    BackgroundQueue();
    /// Waits for the jobs given so far.
    ~BackgroundQueue();
    BackgroundQueue(const BackgroundQueue &) = delete;
    BackgroundQueue &operator=(const BackgroundQueue &) = delete;

    void add(Job job);
    /// Returns when the jobs given so far have ended. Not from inside a job.
    void wait();

private:
    void run();

    std::mutex m_lock;
    std::condition_variable m_changed;
    std::deque<Job> m_jobs;
    bool m_isRunningJob = false;
    bool m_isEnding = false;
    std::thread m_thread;
};
