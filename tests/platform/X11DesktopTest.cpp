// SPDX-License-Identifier: MIT
#include "platform/windows/DesktopFactory.h"
#include "tests/platform/MenuWindowsFixture.h"
#include "tests/support/TestSession.h"

#include <QGuiApplication>
#include <QProcess>
#include <QScreen>

namespace {

class X11Desktop : public MenuWindowsFixture
{
protected:
    /// A window that announces itself as a bar of 40 pixels along the top of the display, from
    /// `first` to `last`.
    std::unique_ptr<ForeignWindow> showBar(quint32 first, quint32 last)
    {
        auto bar = std::make_unique<ForeignWindow>("Bar", QRect(0, 0, 400, 40));
        bar->setNumbers("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                        {bar->atom("_NET_WM_WINDOW_TYPE_DOCK")});
        bar->setNumbers("_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                        {0, 0, 40, 0, 0, 0, 0, 0, first, last, 0, 0});
        bar->map();
        return bar;
    }

    /// Points of the display's pixels.
    static QRect points(const QRect &pixels)
    {
        const qreal ratio = qGuiApp->devicePixelRatio();
        return {QPoint(qRound(pixels.x() / ratio), qRound(pixels.y() / ratio)),
                QSize(qRound(pixels.width() / ratio), qRound(pixels.height() / ratio))};
    }

    static void xrandr(const QStringList &arguments)
    {
        QProcess process;
        process.start(QStringLiteral("xrandr"), arguments);
        ASSERT_TRUE(process.waitForFinished(kPatience));
    }

    /// Where it does not cover the other program's window.
    static void placeBeside(QWidget &window)
    {
        const QRect place = points(QRect(700, 200, 300, 200));
        window.setGeometry(place);
    }

    bool isFocused(const QWidget &window)
    {
        return waitFor([&] { return target.focusedWindow() == idOf(window); });
    }

    std::unique_ptr<platform::Desktop> desktop = platform::makeDesktop();
};

class DesktopUnderManager : public X11Desktop
{
};
INSTANTIATE_TEST_SUITE_P(On, X11Desktop, kAllWindowManagers, ::testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(On, DesktopUnderManager,
                         ::testing::Values(WindowManager::Kind::Openbox, WindowManager::Kind::Xfwm4,
                                           WindowManager::Kind::I3),
                         ::testing::PrintToStringParamName());

TEST_P(X11Desktop, tellsWhereThePointerIs)
{
    user.moveTo({640, 260});

    EXPECT_TRUE(waitFor([&] {
        return desktop->pointer() == (QPointF(640, 260) / qGuiApp->devicePixelRatio()).toPoint();
    }));
}

TEST_P(X11Desktop, withoutBarsTheWholeScreenIsVisible)
{
    EXPECT_EQ(desktop->visibleFrame({10, 10}),
              points(QRect(0, 0, TestSession::kWidth, TestSession::kHeight)));
}

TEST_P(X11Desktop, pointsBesideAllScreensBelongToTheNearest)
{
    EXPECT_EQ(desktop->visibleFrame({-500, 9000}), desktop->visibleFrame({10, 10}));
}

TEST_P(DesktopUnderManager, aBarIsNotPartOfTheVisibleFrame)
{
    const auto bar = showBar(0, TestSession::kWidth - 1);

    EXPECT_TRUE(waitFor([&] {
        return desktop->visibleFrame({10, 10}) ==
               points(QRect(0, 40, TestSession::kWidth, TestSession::kHeight - 40));
    }));
}

TEST_P(DesktopUnderManager, everyScreenHasItsOwnVisibleFrame)
{
    const QString output = QGuiApplication::primaryScreen()->name();
    xrandr({QStringLiteral("--setmonitor"), QStringLiteral("left"),
            QStringLiteral("640/160x800/200+0+0"), output});
    xrandr({QStringLiteral("--setmonitor"), QStringLiteral("right"),
            QStringLiteral("640/160x800/200+640+0"), QStringLiteral("none")});
    ASSERT_TRUE(waitFor([] { return QGuiApplication::screens().size() == 2; }));
    const QRect left = QGuiApplication::screens().at(0)->geometry();
    const QRect right = QGuiApplication::screens().at(1)->geometry();
    const int depth = points(QRect(0, 0, 40, 40)).height();
    const auto bar = showBar(640, TestSession::kWidth - 1);

    EXPECT_TRUE(waitFor(
        [&] { return desktop->visibleFrame(right.center()) == right.adjusted(0, depth, 0, 0); }));
    EXPECT_EQ(desktop->visibleFrame(left.center()), left);

    xrandr({QStringLiteral("--delmonitor"), QStringLiteral("right")});
    xrandr({QStringLiteral("--delmonitor"), QStringLiteral("left")});
    EXPECT_TRUE(waitFor([] { return QGuiApplication::screens().size() == 1; }));
}

TEST_P(X11Desktop, activateGivesTheKeyboardToAWindowOfOurs)
{
    ASSERT_TRUE(target.showFocused());
    QWidget window;
    placeBeside(window);

    desktop->activate(window);

    EXPECT_TRUE(isFocused(window));
}

/// The user has just typed into the other program: a guarded focus stays there.
TEST_P(X11Desktop, activateComesBeforeAProgramInUse)
{
    ASSERT_TRUE(target.showFocused());
    QWidget window;
    placeBeside(window);
    desktop->activate(window);
    ASSERT_TRUE(isFocused(window));
    ASSERT_TRUE(target.showFocused());
    user.clickAt(target.centre());
    user.tap(UserInput::kA);
    ASSERT_TRUE(waitFor([this] { return !target.typed().empty(); }));

    desktop->noteUserTime(target.lastTime());
    desktop->activate(window);

    EXPECT_TRUE(isFocused(window));
}

TEST_P(X11Desktop, activateShowsAFreshWindowOverAProgramInUse)
{
    ASSERT_TRUE(target.showFocused());
    user.clickAt(target.centre());
    user.tap(UserInput::kA);
    ASSERT_TRUE(waitFor([this] { return !target.typed().empty(); }));
    target.setNumbers("_NET_WM_USER_TIME", XCB_ATOM_CARDINAL, {target.lastTime() + 100});
    QWidget window;
    placeBeside(window);

    desktop->noteUserTime(target.lastTime());
    desktop->activate(window);

    EXPECT_TRUE(isFocused(window));
    const auto time = connection->numbers(idOf(window), connection->atom("_NET_WM_USER_TIME"));
    EXPECT_EQ(time, std::vector<quint32>{target.lastTime()});
}

/// What activate() says of a window's wishes to the window manager.
class UserTime : public X11Desktop
{
protected:
    quint32 timeOfFreshWindow()
    {
        QWidget window;
        placeBeside(window);
        desktop->activate(window);
        const auto time = connection->numbers(idOf(window), connection->atom("_NET_WM_USER_TIME"));
        return time.size() == 1 ? time.front() : 0;
    }
};
INSTANTIATE_TEST_SUITE_P(On, UserTime, ::testing::Values(WindowManager::Kind::Openbox),
                         ::testing::PrintToStringParamName());

TEST_P(UserTime, aClickInAWindowOfOursCounts)
{
    desktop->noteUserTime(1);
    RecordingWidget window;
    placeBeside(window);
    desktop->activate(window);
    ASSERT_TRUE(isFocused(window));

    user.clickAt(centreOf(window));
    ASSERT_TRUE(waitFor([&] { return window.clicks == 1; }));

    EXPECT_EQ(timeOfFreshWindow(), window.lastTime);
}

TEST_P(UserTime, aKeyInAWindowOfOursCounts)
{
    desktop->noteUserTime(1);
    RecordingWidget window;
    placeBeside(window);
    desktop->activate(window);
    ASSERT_TRUE(isFocused(window));

    user.tap(UserInput::kA);
    ASSERT_TRUE(waitFor([&] { return window.presses == 1; }));

    EXPECT_EQ(timeOfFreshWindow(), window.lastTime);
}

TEST_P(UserTime, withoutATimeItIsNow)
{
    ASSERT_TRUE(target.showFocused());
    user.tap(UserInput::kA);
    ASSERT_TRUE(waitFor([this] { return !target.typed().empty(); }));

    desktop->noteUserTime(0);

    EXPECT_GE(timeOfFreshWindow(), target.lastTime());
}

TEST_P(UserTime, anEarlierTimeIsNoNews)
{
    desktop->noteUserTime(5000);
    desktop->noteUserTime(4000);

    EXPECT_EQ(timeOfFreshWindow(), 5000U);
}

TEST_P(DesktopUnderManager, activateBringsAMinimizedWindowBack)
{
    QWidget window;
    placeBeside(window);
    desktop->activate(window);
    ASSERT_TRUE(isFocused(window));
    window.showMinimized();
    ASSERT_TRUE(target.showFocused());

    desktop->activate(window);

    EXPECT_TRUE(isFocused(window));
    EXPECT_FALSE(window.isMinimized());
}

} // namespace
