// SPDX-License-Identifier: MIT
// main() of the tests that need no display.
#include "tests/support/TestFolder.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    ::testing::InitGoogleTest(&argc, argv);
    const TestFolder folder;
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quillery-tests"));
    return RUN_ALL_TESTS();
}
