// SPDX-License-Identifier: MIT
#include "platform/login/LaunchSigns.h"

#include <gtest/gtest.h>

using platform::isStartedFromEntry;
using platform::LaunchSigns;

namespace {

LaunchSigns startedBySystemd()
{
    LaunchSigns signs;
    signs.controlGroups = "0::/user.slice/user-1000.slice/user@1000.service/app.slice/"
                          "app-com.tarnwick.Quillery@autostart.service\n";
    signs.unitProcess = "1234";
    signs.process = 1234;
    signs.parent = 900;
    return signs;
}

LaunchSigns startedByASessionManager()
{
    LaunchSigns signs;
    signs.controlGroups = "0::/user.slice/user-1000.slice/session-2.scope\n";
    signs.autostartId = "10d8c4f2a3";
    signs.sessionManager = "local/host:@/tmp/.ICE-unix/900,unix/host:/tmp/.ICE-unix/900";
    signs.process = 1234;
    signs.parent = 900;
    return signs;
}

} // namespace

TEST(LaunchSigns, theFirstProcessOfTheEntrysUnitWasStartedFromIt)
{
    EXPECT_TRUE(isStartedFromEntry(startedBySystemd()));

    LaunchSigns withSeveralHierarchies = startedBySystemd();
    withSeveralHierarchies.controlGroups =
        "3:cpu:/\n1:name=systemd" + startedBySystemd().controlGroups.mid(2) + "0::/\n";
    EXPECT_TRUE(isStartedFromEntry(withSeveralHierarchies));
}

TEST(LaunchSigns, aLaterProcessOfTheUnitWasNot)
{
    LaunchSigns signs = startedBySystemd();
    signs.process = 2000;
    EXPECT_FALSE(isStartedFromEntry(signs));

    signs = startedBySystemd();
    signs.unitProcess.clear();
    EXPECT_FALSE(isStartedFromEntry(signs));
}

TEST(LaunchSigns, aProcessOfAnotherUnitWasNot)
{
    LaunchSigns signs = startedBySystemd();
    signs.controlGroups.replace("com.tarnwick.Quillery@", "org.other.Program@");
    EXPECT_FALSE(isStartedFromEntry(signs));

    signs = startedBySystemd();
    signs.controlGroups.replace("@autostart.service", "-1234.scope");
    EXPECT_FALSE(isStartedFromEntry(signs));
}

TEST(LaunchSigns, aChildOfTheSessionManagerWithAnIdWasStartedFromTheEntry)
{
    EXPECT_TRUE(isStartedFromEntry(startedByASessionManager()));
}

TEST(LaunchSigns, aChildOfAnAutostartedProgramInheritsTheIdAndDoesNotCount)
{
    LaunchSigns signs = startedByASessionManager();
    signs.parent = 901;
    EXPECT_FALSE(isStartedFromEntry(signs));
    signs.parent = 90;
    EXPECT_FALSE(isStartedFromEntry(signs));
    signs.parent = 0;
    EXPECT_FALSE(isStartedFromEntry(signs));
}

TEST(LaunchSigns, aChildOfTheSessionManagerWithoutAnIdDoesNotCount)
{
    LaunchSigns signs = startedByASessionManager();
    signs.autostartId.clear();
    EXPECT_FALSE(isStartedFromEntry(signs));
}

TEST(LaunchSigns, aProcessWithoutSignsWasNotStartedAtLogin)
{
    EXPECT_FALSE(isStartedFromEntry({}));
}
