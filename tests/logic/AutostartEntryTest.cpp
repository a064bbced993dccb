// SPDX-License-Identifier: MIT
#include "platform/login/AutostartEntry.h"

#include "platform/login/DesktopEntry.h"

#include <gtest/gtest.h>

using platform::DesktopEntry;
using platform::autostart::entryHidingOthers;
using platform::autostart::entryStarting;
using platform::autostart::startsAtLogin;

namespace {

const QString kProgram = QStringLiteral("/bin/sh");

/// A good entry, with lines added to its group.
QByteArray entryWith(const QByteArray &lines)
{
    return "[Desktop Entry]\nType=Application\nName=Quillery\nExec=/bin/sh\n" + lines;
}

bool starts(const QByteArray &text, const QStringList &desktops = {})
{
    return startsAtLogin(text, desktops);
}

} // namespace

TEST(AutostartEntry, whatIsWrittenStartsTheProgram)
{
    EXPECT_EQ(*entryStarting(kProgram), "[Desktop Entry]\n"
                                        "Type=Application\n"
                                        "Name=Quillery\n"
                                        "TryExec=/bin/sh\n"
                                        "Exec=/bin/sh\n"
                                        "Terminal=false\n");
    EXPECT_TRUE(starts(*entryStarting(kProgram)));
}

TEST(AutostartEntry, aPathIsEscapedAfterItIsQuoted)
{
    const QString path = QStringLiteral("/a\\b $c\nd\te\rf");

    const QByteArray text = *entryStarting(path);

    EXPECT_TRUE(text.contains("\nTryExec=/a\\\\b $c\\nd\\te\\rf\n")) << text.constData();
    EXPECT_TRUE(text.contains("\nExec=\"/a\\\\\\\\b \\\\$c\\nd\\te\\rf\"\n")) << text.constData();
    EXPECT_EQ(DesktopEntry::parse(text)->string("TryExec"), path);
}

TEST(AutostartEntry, aPathThatNoEntryCanNameIsAnError)
{
    const auto entry = entryStarting(QStringLiteral("/a=b/100%"));

    ASSERT_FALSE(entry.has_value());
    EXPECT_EQ(entry.error().kind, platform::Error::Kind::Refused);
    EXPECT_TRUE(entry.error().text.contains(QStringLiteral("/a=b/100%")));
}

TEST(AutostartEntry, anEntryThatHidesOthersStartsNothing)
{
    EXPECT_FALSE(starts(entryHidingOthers()));
}

TEST(AutostartEntry, hiddenSwitchesItOff)
{
    EXPECT_FALSE(starts(entryWith("Hidden=true\n")));
    EXPECT_FALSE(starts(entryWith("Hidden=true")));
    EXPECT_FALSE(starts(entryWith("Hidden=true\r\n")));
    EXPECT_FALSE(starts(entryWith("  Hidden \t = \ttrue  \n")));
    EXPECT_FALSE(starts(entryWith("Hidden=1\n")));
    EXPECT_FALSE(starts(entryWith("Hidden=True\n")));
    EXPECT_FALSE(starts(entryWith("Hidden=YES\n")));
    EXPECT_FALSE(starts(entryWith("Hidden=on\n")));
}

TEST(AutostartEntry, hiddenThatIsNotTrueLeavesItOn)
{
    EXPECT_TRUE(starts(entryWith("Hidden=false\n")));
    EXPECT_TRUE(starts(entryWith("Hidden=\n")));
    EXPECT_TRUE(starts(entryWith("# Hidden=true\n")));
    EXPECT_TRUE(starts(entryWith("hidden=true\n")));
    EXPECT_TRUE(starts(entryWith("Hidden[de]=true\n")));
    EXPECT_TRUE(starts(entryWith("XHidden=true\n")));
}

TEST(AutostartEntry, theSessionsOwnSwitchTurnsItOff)
{
    EXPECT_FALSE(starts(entryWith("X-GNOME-Autostart-enabled=false\n")));
    EXPECT_FALSE(starts(entryWith("\tX-GNOME-Autostart-enabled  =  false \n")));
    EXPECT_FALSE(starts(entryWith("X-GNOME-Autostart-enabled=False\n")));
    EXPECT_FALSE(starts(entryWith("X-GNOME-Autostart-enabled=0\n")));
    // The session takes for false whatever is not true.
    EXPECT_FALSE(starts(entryWith("X-GNOME-Autostart-enabled=\n")));
    EXPECT_FALSE(starts(entryWith("X-GNOME-Autostart-enabled=True\n")));
}

TEST(AutostartEntry, theSessionsOwnSwitchLeavesItOn)
{
    EXPECT_TRUE(starts(entryWith("X-GNOME-Autostart-enabled=true\n")));
    EXPECT_TRUE(starts(entryWith("X-GNOME-Autostart-enabled = true \r\n")));
    EXPECT_TRUE(starts(entryWith("x-gnome-autostart-enabled=false\n")));
}

TEST(AutostartEntry, ofSeveralLinesTheLastCounts)
{
    EXPECT_TRUE(starts(entryWith("Hidden=true\nHidden=false\n")));
    EXPECT_FALSE(starts(entryWith("Hidden=false\nHidden=true\n")));
    EXPECT_FALSE(
        starts(entryWith("X-GNOME-Autostart-enabled=true\nX-GNOME-Autostart-enabled=false\n")));
}

TEST(AutostartEntry, linesOfOtherGroupsDoNotCount)
{
    EXPECT_TRUE(starts(entryWith("\n[Desktop Action quit]\nHidden=true\n"
                                 "X-GNOME-Autostart-enabled=false\nExec=/nowhere\n")));
    EXPECT_FALSE(starts(entryWith("[Other]\nA=b\n[Desktop Entry]\nHidden=true\n")));
}

TEST(AutostartEntry, anEntryThatWasCutOffStartsNothing)
{
    const QByteArray whole = "[Desktop Entry]\nType=Application\nName=Quillery\nExec=\"/bin/sh\"";
    ASSERT_TRUE(starts(whole));

    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(starts(whole.left(length))) << length;
}

TEST(AutostartEntry, aFileThatIsNoneOfTheFormatStartsNothing)
{
    EXPECT_FALSE(starts(entryWith("no line of the format\n")));
    EXPECT_FALSE(starts("Type=Application\nExec=/bin/sh\n"));
    EXPECT_FALSE(starts("[Other]\nA=b\n" + entryWith("")));
    EXPECT_FALSE(starts("[desktop entry]\nType=Application\nExec=/bin/sh\n"));
    EXPECT_FALSE(starts(QByteArray(1000, '\0')));
}

TEST(AutostartEntry, onlyAnApplicationIsStarted)
{
    EXPECT_FALSE(starts("[Desktop Entry]\nType=Link\nExec=/bin/sh\n"));
    EXPECT_FALSE(starts("[Desktop Entry]\nExec=/bin/sh\n"));
    EXPECT_FALSE(starts("[Desktop Entry]\nType=Application\n"));
}

TEST(AutostartEntry, aProgramThatIsNotThereIsNotStarted)
{
    EXPECT_FALSE(starts("[Desktop Entry]\nType=Application\nExec=/nowhere/quillery\n"));
    EXPECT_FALSE(starts("[Desktop Entry]\nType=Application\nExec=/etc/passwd\n"));
    EXPECT_TRUE(starts("[Desktop Entry]\nType=Application\nExec=sh -c true\n"));
    EXPECT_FALSE(starts(entryWith("TryExec=/nowhere/quillery\n")));
    EXPECT_TRUE(starts(entryWith("TryExec=sh\n")));
}

TEST(AutostartEntry, anEntryForOtherDesktopsDoesNotCount)
{
    const QStringList desktops{QStringLiteral("Budgie"), QStringLiteral("GNOME")};

    EXPECT_TRUE(starts(entryWith("OnlyShowIn=KDE;GNOME;\n"), desktops));
    EXPECT_FALSE(starts(entryWith("OnlyShowIn=KDE;XFCE\n"), desktops));
    EXPECT_FALSE(starts(entryWith("OnlyShowIn=\n"), desktops));
    EXPECT_FALSE(starts(entryWith("OnlyShowIn=GNOME;\n")));
    EXPECT_FALSE(starts(entryWith("NotShowIn=GNOME\n"), desktops));
    EXPECT_TRUE(starts(entryWith("NotShowIn=KDE;\n"), desktops));
    EXPECT_TRUE(starts(entryWith("NotShowIn=GNOME;\n")));
    EXPECT_TRUE(starts(entryWith("OnlyShowIn=Budgie;\nNotShowIn=GNOME;\n"), desktops));
    EXPECT_FALSE(starts(entryWith("OnlyShowIn=GNOME;\nNotShowIn=Budgie;\n"), desktops));
}

TEST(DesktopEntry, escapesAreUndone)
{
    const auto entry =
        DesktopEntry::parse("[Desktop Entry]\nA=\\sa\\nb\\tc\\rd\\\\e\\\nB=x\\;y;\\\\;\n");

    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->string("A"), QStringLiteral(" a\nb\tc\rd\\e\\"));
    EXPECT_EQ(entry->list("B"), (QStringList{QStringLiteral("x;y"), QStringLiteral("\\")}));
    EXPECT_EQ(entry->string("C"), QString());
    EXPECT_TRUE(entry->list("C").isEmpty());
}
