// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/HistoryLimit.h"

#include <gtest/gtest.h>

#include <limits>

TEST(HistoryLimit, indexZeroSelectsOneAndNineSelectsAThousand)
{
    EXPECT_EQ(historyLimit(0.0), 1);
    EXPECT_EQ(historyLimit(3.0), 20);
    EXPECT_EQ(historyLimit(9.0), 1000);
}

TEST(HistoryLimit, theIndexIsTruncatedTowardZeroBeforeItIsChecked)
{
    EXPECT_EQ(historyLimit(9.5), 1000);
    EXPECT_EQ(historyLimit(3.99), 20);
    EXPECT_EQ(historyLimit(-0.5), 1);
}

class FatalHistoryLimit : public ::testing::TestWithParam<double>
{
};

TEST_P(FatalHistoryLimit, endsTheProgramAndNamesTheKeyAndTheRange)
{
    EXPECT_EXIT(historyLimit(GetParam()), ::testing::KilledBySignal(SIGABRT),
                "Fatal error: historySize .* 0 to 9 .*\"historySize\"");
}

INSTANTIATE_TEST_SUITE_P(OutOfRange, FatalHistoryLimit,
                         ::testing::Values(10.0, -1.0, 1e300,
                                           std::numeric_limits<double>::infinity(),
                                           -std::numeric_limits<double>::infinity(),
                                           std::numeric_limits<double>::quiet_NaN()));
