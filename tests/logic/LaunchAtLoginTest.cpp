// SPDX-License-Identifier: MIT
#include "login_item/LaunchAtLogin.h"

#include "tests/fakes/FakeLoginItem.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using platform::Error;

namespace {

class LaunchAtLoginTest : public ::testing::Test
{
protected:
    LaunchAtLoginTest()
    {
        s_lines = &lines;
        m_oldHandler = qInstallMessageHandler(keep);
        LaunchAtLogin::setUp(item);
    }

    ~LaunchAtLoginTest() override
    {
        LaunchAtLogin::tearDown();
        qInstallMessageHandler(m_oldHandler);
    }

    static Error failureOf(const char *text) { return {Error::Kind::Io, QString::fromUtf8(text)}; }

    FakeLoginItem item;
    LaunchAtLogin::Observable &observable = LaunchAtLogin::observable();
    QStringList lines; ///< of the log: level, category, text

private:
    static void keep(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        const QString level = QString::number(type);
        *s_lines += level + u' ' + QString::fromLatin1(context.category) + u' ' + text;
    }

    static inline QStringList *s_lines = nullptr;
    QtMessageHandler m_oldHandler;
};

/// A line of the log at error level.
QString errorLine(const char *text)
{
    return QString::number(QtCriticalMsg) + QStringLiteral(" com.tarnwick.LaunchAtLogin/main ") +
           QString::fromUtf8(text);
}

} // namespace

TEST_F(LaunchAtLoginTest, theListIsTheOnlyTruth)
{
    EXPECT_FALSE(LaunchAtLogin::isEnabled());
    item.isOnTheList = true;
    EXPECT_TRUE(LaunchAtLogin::isEnabled());
    EXPECT_TRUE(observable.isEnabled());
}

TEST_F(LaunchAtLoginTest, switchingOnRegisters)
{
    LaunchAtLogin::setEnabled(true);

    EXPECT_EQ(item.calls, QStringList{QStringLiteral("register")});
    EXPECT_TRUE(LaunchAtLogin::isEnabled());
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(LaunchAtLoginTest, switchingOnWhileItIsOnUnregistersFirstAndStaysOn)
{
    item.isOnTheList = true;

    LaunchAtLogin::setEnabled(true);

    EXPECT_EQ(item.calls, (QStringList{QStringLiteral("unregister"), QStringLiteral("register")}));
    EXPECT_TRUE(LaunchAtLogin::isEnabled());
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(LaunchAtLoginTest, anErrorOfUnregisteringFirstIsIgnored)
{
    item.isOnTheList = true;
    item.unregisterError = failureOf("busy");

    LaunchAtLogin::setEnabled(true);

    EXPECT_EQ(item.calls, (QStringList{QStringLiteral("unregister"), QStringLiteral("register")}));
    EXPECT_TRUE(LaunchAtLogin::isEnabled());
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(LaunchAtLoginTest, switchingOffUnregistersAlsoWhatIsOff)
{
    item.isOnTheList = true;

    LaunchAtLogin::setEnabled(false);
    LaunchAtLogin::setEnabled(false);

    EXPECT_EQ(item.calls,
              (QStringList{QStringLiteral("unregister"), QStringLiteral("unregister")}));
    EXPECT_FALSE(LaunchAtLogin::isEnabled());
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(LaunchAtLoginTest, aRegistrationErrorLeavesItOffAndIsOneLineOfTheLog)
{
    item.registerError = failureOf("cannot write \"/a %s b\": Permission denied");

    LaunchAtLogin::setEnabled(true);

    EXPECT_FALSE(LaunchAtLogin::isEnabled());
    EXPECT_EQ(lines, QStringList{errorLine("Failed to enable launch at login: "
                                           "cannot write \"/a %s b\": Permission denied")});
}

TEST_F(LaunchAtLoginTest, aRegistrationErrorAfterUnregisteringLeavesItOff)
{
    item.isOnTheList = true;
    item.registerError = failureOf("disk full");

    LaunchAtLogin::setEnabled(true);

    EXPECT_FALSE(LaunchAtLogin::isEnabled());
    EXPECT_EQ(lines, QStringList{errorLine("Failed to enable launch at login: disk full")});
}

TEST_F(LaunchAtLoginTest, anErrorOfSwitchingOffLeavesItOnAndIsOneLineOfTheLog)
{
    item.isOnTheList = true;
    item.unregisterError = failureOf("Rätsel");

    LaunchAtLogin::setEnabled(false);

    EXPECT_TRUE(LaunchAtLogin::isEnabled());
    EXPECT_EQ(lines, QStringList{errorLine("Failed to disable launch at login: Rätsel")});
}

TEST_F(LaunchAtLoginTest, aViewAnnouncesTheChangeBeforeItAndOnceAfterIt)
{
    item.isOnTheList = true; // so that it goes off and on again on the way
    QStringList seen;
    const auto note = [&](const char *what) {
        seen += QString::fromLatin1(what) + u' ' + QString::number(item.calls.size());
    };
    const auto before = QObject::connect(&observable, &LaunchAtLogin::Observable::objectWillChange,
                                         &item, [&] { note("will change"); });
    const auto after = QObject::connect(&observable, &LaunchAtLogin::Observable::changed, &item,
                                        [&] { note("changed"); });

    observable.setEnabled(true);

    EXPECT_EQ(seen, (QStringList{QStringLiteral("will change 0"), QStringLiteral("changed 2")}));
    EXPECT_TRUE(observable.isEnabled());
    QObject::disconnect(before);
    QObject::disconnect(after);
}

TEST_F(LaunchAtLoginTest, aFailedChangeIsAnnouncedSoThatViewsShowTheRealState)
{
    item.registerError = failureOf("disk full");
    const QSignalSpy spy(&observable, &LaunchAtLogin::Observable::changed);

    observable.setEnabled(true);

    EXPECT_EQ(spy.count(), 1);
    EXPECT_FALSE(observable.isEnabled());
}

TEST_F(LaunchAtLoginTest, aChangeMadeElsewhereIsAnnounced)
{
    const QSignalSpy will(&observable, &LaunchAtLogin::Observable::objectWillChange);
    const QSignalSpy changed(&observable, &LaunchAtLogin::Observable::changed);

    item.put(true);
    item.put(false);

    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(will.count(), 0);
}

TEST_F(LaunchAtLoginTest, aSettingByTheNamespaceIsAnnouncedAfterwards)
{
    const QSignalSpy will(&observable, &LaunchAtLogin::Observable::objectWillChange);
    const QSignalSpy changed(&observable, &LaunchAtLogin::Observable::changed);

    LaunchAtLogin::setEnabled(true);

    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(will.count(), 0);
}

TEST_F(LaunchAtLoginTest, thereIsOneObservable)
{
    EXPECT_EQ(&LaunchAtLogin::observable(), &observable);
}

TEST_F(LaunchAtLoginTest, theDesktopKnowsWhetherItStartedThisProcess)
{
    EXPECT_FALSE(LaunchAtLogin::wasLaunchedAtLogin());
    item.isStartedFromTheList = true;
    EXPECT_TRUE(LaunchAtLogin::wasLaunchedAtLogin());
}

TEST_F(LaunchAtLoginTest, withoutAListItIsOffAndAChangeFails)
{
    LaunchAtLogin::tearDown();
    const QSignalSpy changed(&observable, &LaunchAtLogin::Observable::changed);
    item.put(true);

    EXPECT_FALSE(LaunchAtLogin::isEnabled());
    EXPECT_FALSE(LaunchAtLogin::wasLaunchedAtLogin());
    EXPECT_EQ(changed.count(), 0);
    LaunchAtLogin::setEnabled(true);
    EXPECT_EQ(lines, QStringList{errorLine(
                         "Failed to enable launch at login: launch at login was not set up")});
}
