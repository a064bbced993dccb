// SPDX-License-Identifier: MIT
#include "platform/session/TerminationSignals.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <csignal>
#include <unistd.h>

TEST(TerminationSignals, aSignalArrivesAsAQtSignalAndEndsNothing)
{
    platform::TerminationSignals signalSource;
    QSignalSpy spy(&signalSource, &platform::TerminationSignals::received);

    kill(getpid(), SIGTERM);

    EXPECT_TRUE(spy.count() == 1 || spy.wait(5000));
}
