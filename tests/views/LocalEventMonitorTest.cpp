// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/LocalEventMonitor.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

#include <memory>

using KeyboardShortcuts::LocalEventMonitor;

namespace {

constexpr quint32 kAll = 1044;

/// Counts the presses and releases of the mouse that reach it.
class MouseCounter : public QWidget
{
public:
    int presses = 0;
    int releases = 0;
    int moves = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent *) override { ++releases; }
    void mouseMoveEvent(QMouseEvent *) override { ++moves; }
};

class LocalEventMonitorTest : public ::testing::Test
{
protected:
    LocalEventMonitorTest()
    {
        m_widget.setGeometry(0, 0, 100, 100);
        m_field.setParent(&m_widget);
        m_field.setGeometry(0, 60, 100, 30);
        m_widget.show();
        m_widget.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_widget));
        m_field.setFocus();
    }

    void watch(quint32 events, bool isSwallowing)
    {
        m_monitor = std::make_unique<LocalEventMonitor>(events, [=, this](QEvent *event) {
            m_seen += event->type();
            return isSwallowing ? nullptr : event;
        });
        m_monitor->start();
    }

    void type(Qt::Key key) { QTest::keyClick(m_widget.windowHandle(), key); }
    void click(Qt::MouseButton button)
    {
        QTest::mouseClick(m_widget.windowHandle(), button, {}, QPoint(50, 20));
    }

    MouseCounter m_widget;
    QLineEdit m_field;
    QList<QEvent::Type> m_seen;
    std::unique_ptr<LocalEventMonitor> m_monitor;
};

} // namespace

TEST_F(LocalEventMonitorTest, seesEachEventOfItsMaskOnce)
{
    watch(kAll, false);

    type(Qt::Key_A);
    click(Qt::LeftButton);
    click(Qt::RightButton);
    click(Qt::MiddleButton);

    EXPECT_EQ(m_seen,
              (QList{QEvent::KeyPress, QEvent::MouseButtonRelease, QEvent::MouseButtonRelease}));
    EXPECT_EQ(m_field.text(), QStringLiteral("a"));
    EXPECT_EQ(m_widget.releases, 3);
}

TEST_F(LocalEventMonitorTest, whatItSwallowsReachesNobody)
{
    watch(kAll, true);

    type(Qt::Key_A);
    click(Qt::LeftButton);

    EXPECT_TRUE(m_field.text().isEmpty());
    EXPECT_EQ(m_widget.presses, 1);
    EXPECT_EQ(m_widget.releases, 0);
}

TEST_F(LocalEventMonitorTest, othersPassUnseen)
{
    watch(LocalEventMonitor::RightMouseUpMask, true);

    type(Qt::Key_A);
    click(Qt::LeftButton);
    EXPECT_TRUE(m_seen.isEmpty());
    EXPECT_EQ(m_field.text(), QStringLiteral("a"));
    EXPECT_EQ(m_widget.releases, 1);

    click(Qt::RightButton);
    EXPECT_EQ(m_seen.size(), 1);
}

TEST_F(LocalEventMonitorTest, stoppingEndsIt)
{
    watch(kAll, true);
    m_monitor->stop();
    type(Qt::Key_A);
    m_monitor->start();
    m_monitor.reset();
    type(Qt::Key_B);

    EXPECT_TRUE(m_seen.isEmpty());
    EXPECT_EQ(m_field.text(), QStringLiteral("ab"));
}

TEST_F(LocalEventMonitorTest, itsCallbackMayDestroyIt)
{
    m_monitor = std::make_unique<LocalEventMonitor>(kAll, [this](QEvent *) -> QEvent * {
        m_monitor.reset();
        return nullptr;
    });
    m_monitor->start();

    type(Qt::Key_A);
    type(Qt::Key_B);

    EXPECT_EQ(m_field.text(), QStringLiteral("b"));
}

TEST_F(LocalEventMonitorTest, afterASwallowedReleaseTheWindowKnowsThatNoButtonIsDown)
{
    MouseCounter other;
    other.setParent(&m_widget);
    other.setMouseTracking(true);
    other.setGeometry(0, 40, 100, 20);
    other.show();
    watch(kAll, true);
    click(Qt::LeftButton);

    QTest::mouseMove(m_widget.windowHandle(), QPoint(50, 50));

    EXPECT_EQ(other.moves, 1);
    EXPECT_EQ(m_widget.moves, 0);
}
