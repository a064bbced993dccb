// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>

/// For as long as it lives no file of this program grows: what a full disk does.
class FullDisk
{
public:
    FullDisk()
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit nothing{1, m_before.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &nothing), 0);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int);
};
