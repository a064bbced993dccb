// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

#include <gtest/gtest.h>

#include <unistd.h>

/// Acts as a user who may not do everything, where the tests run as root.
class OrdinaryUser
{
public:
    OrdinaryUser()
        : m_isRoot(::geteuid() == 0)
    {
        // The saved id is the way back.
        if (m_isRoot) {
            EXPECT_EQ(::setresuid(kNobody, kNobody, 0), 0);
        }
    }
    ~OrdinaryUser()
    {
        if (m_isRoot) {
            EXPECT_EQ(::setresuid(0, 0, 0), 0);
        }
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

    static void give(const QString &path)
    {
        if (::geteuid() == 0) {
            EXPECT_EQ(::chown(QFile::encodeName(path).constData(), kNobody, kNobody), 0);
        }
    }

private:
    static constexpr uid_t kNobody = 65534;

    const bool m_isRoot;
};
