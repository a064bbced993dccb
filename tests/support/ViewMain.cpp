// SPDX-License-Identifier: MIT
// main() of the tests that need widgets. Which display they use is the caller's choice
// (QT_QPA_PLATFORM=offscreen for the views, a real X server for the platform).
#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillery-tests"));
    QApplication::setQuitOnLastWindowClosed(false);
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
