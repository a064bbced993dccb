// SPDX-License-Identifier: MIT
// main() of the tests that need a whole desktop: they bring their own.
#include "tests/support/TestSession.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    // Only asked which tests there are.
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    const TestSession session;
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillery-tests"));
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
