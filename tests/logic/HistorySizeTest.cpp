// SPDX-License-Identifier: MIT
// The stored setting "historySize", from the file to the limit that it selects.
#include "Quillery_Mac/app/HistoryLimit.h"
#include "Quillery_Mac/app/SettingsKeys.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>

namespace {

constexpr int kDefaultLimit = 20;

struct Row
{
    const char *value;
    int limit;

    friend void PrintTo(const Row &row, std::ostream *out) { *out << row.value; }
};

int limitOfStored(const char *value)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("Quillery.conf"));
    QFile out(file);
    EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(QByteArray("[General]\nhistorySize=") + value + '\n');
    out.close();
    const platform::Defaults defaults(file);
    return historyLimit(platform::readDefault(defaults, SettingsKeys::kHistorySize));
}

class HistorySizeTest : public ::testing::TestWithParam<Row>
{
};

class FatalHistorySizeTest : public ::testing::TestWithParam<const char *>
{
};

} // namespace

TEST_P(HistorySizeTest, selectsItsLimit)
{
    EXPECT_EQ(limitOfStored(GetParam().value), GetParam().limit);
}

INSTANTIATE_TEST_SUITE_P(Numbers, HistorySizeTest,
                         ::testing::Values(Row{"0", 1}, Row{"9", 1000}, Row{"9.5", 1000},
                                           Row{"9.999", 1000}, Row{"-0.5", 1}, Row{"\"4\"", 30},
                                           Row{" 2 ", 10}, Row{"1e0", 5}, Row{"-0", 1}));

INSTANTIATE_TEST_SUITE_P(WhatIsNoNumberReadsAsTheDefault, HistorySizeTest,
                         ::testing::Values(Row{"text", kDefaultLimit}, Row{"", kDefaultLimit},
                                           Row{"\"\"", kDefaultLimit}, Row{"true", kDefaultLimit},
                                           Row{"5,5", kDefaultLimit}, Row{"0x5", kDefaultLimit},
                                           Row{"5 clips", kDefaultLimit},
                                           Row{"@Invalid()", kDefaultLimit},
                                           Row{"5\xFF", kDefaultLimit},
                                           Row{"\xD9\xA5", kDefaultLimit}));

TEST_P(FatalHistorySizeTest, endsTheProgramWhereTheLimitIsRead)
{
    EXPECT_EXIT(limitOfStored(GetParam()), ::testing::KilledBySignal(SIGABRT),
                "Fatal error: historySize .* 0 to 9 .*\"historySize\"");
}

INSTANTIATE_TEST_SUITE_P(OutOfRange, FatalHistorySizeTest,
                         ::testing::Values("10", "-1", "nan", "inf", "-inf", "1e300", "1e999",
                                           "-1e999", "99999999999999999999"));
