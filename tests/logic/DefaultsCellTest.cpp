// SPDX-License-Identifier: MIT
#include "platform/defaults/DefaultsCell.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using platform::Defaults;
using platform::DefaultsCell;
using platform::DefaultsKey;

namespace {

constexpr DefaultsKey<double> kSize{"size", 3.0};
constexpr DefaultsKey<const char *> kName{"name", ""};

class DefaultsCellTest : public ::testing::Test
{
protected:
    QTemporaryDir folder;
    Defaults defaults{folder.filePath(QStringLiteral("a.conf"))};
    DefaultsCell<double> size{defaults, kSize};
    DefaultsCell<QString, const char *> name{defaults, kName};
};

} // namespace

TEST_F(DefaultsCellTest, startsWithTheDefaultAndStoresNothing)
{
    EXPECT_EQ(size.value(), 3.0);
    EXPECT_EQ(name.value(), QString());
    EXPECT_FALSE(defaults.contains(kSize.key()));
}

TEST_F(DefaultsCellTest, whatIsPutInIsStored)
{
    size.setValue(9.0);
    name.setValue(QStringLiteral("x"));

    EXPECT_EQ(defaults.number(kSize.key(), 0), 9.0);
    EXPECT_EQ(defaults.string(kName.key()), QStringLiteral("x"));
}

TEST_F(DefaultsCellTest, aChangeElsewhereShows)
{
    int announced = 0;
    const QPropertyNotifier observer = size.cell().addNotifier([&announced] { ++announced; });

    defaults.setNumber(kSize.key(), 5.0);

    EXPECT_EQ(size.value(), 5.0);
    EXPECT_EQ(announced, 1);
}
