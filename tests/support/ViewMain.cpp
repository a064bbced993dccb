// SPDX-License-Identifier: MIT
// main() of the tests that need widgets. Which display they use is the caller's choice
// (QT_QPA_PLATFORM=offscreen for the views, a real X server for the platform).
#include "tests/support/TestFolder.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    ::testing::InitGoogleTest(&argc, argv);
    // Only asked which tests there are: that needs no display.
    if (::testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    const TestFolder folder;
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillery-tests"));
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
