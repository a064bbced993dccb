// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/BackgroundQueue.h"

#include <utility>

BackgroundQueue::BackgroundQueue()
    : m_thread([this] { run(); })
{
}

BackgroundQueue::~BackgroundQueue()
{
    {
        const std::lock_guard locked(m_lock);
        m_isEnding = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void BackgroundQueue::add(Job job)
{
    {
        const std::lock_guard locked(m_lock);
        m_jobs.push_back(std::move(job));
    }
    m_changed.notify_all();
}

void BackgroundQueue::wait()
{
    std::unique_lock locked(m_lock);
    m_changed.wait(locked, [this] { return m_jobs.empty() && !m_isRunningJob; });
}

void BackgroundQueue::run()
{
    std::unique_lock locked(m_lock);
    while (true) {
        m_changed.wait(locked, [this] { return m_isEnding || !m_jobs.empty(); });
        if (m_jobs.empty())
            return;
        {
            const Job job = std::move(m_jobs.front());
            m_jobs.pop_front();
            m_isRunningJob = true;
            locked.unlock();
            job();
        }
        locked.lock();
        m_isRunningJob = false;
        m_changed.notify_all();
    }
}
