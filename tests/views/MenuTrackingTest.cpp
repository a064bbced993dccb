// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/MenuTracking.h"

#include "tests/logic/KeyboardShortcutsTest.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QMenu>
#include <QTest>
#include <QWidget>
#include <QWindow>

using namespace KeyboardShortcuts;

namespace {

constexpr quint32 kScanCodeV = 55; // X11 keycode of the key V
const Qt::KeyboardModifiers kShiftSuper = Qt::ShiftModifier | Qt::MetaModifier;

/// A widget that keeps the key events that reach it.
class KeyCounter : public QWidget
{
public:
    int count = 0;

protected:
    void keyPressEvent(QKeyEvent *) override { ++count; }
    void keyReleaseEvent(QKeyEvent *) override { ++count; }
};

class MenuTrackingTest : public KeyboardShortcutsTest
{
protected:
    MenuTrackingTest()
    {
        onKeyDown(Name::contextHotKey(), [this] { calls += QStringLiteral("down"); });
        onKeyUp(Name::contextHotKey(), [this] { calls += QStringLiteral("up"); });
    }

    /// A key event as the window system hands it to a window. @return whether somebody took it
    static void send(QWindow *window, QEvent::Type type,
                     Qt::KeyboardModifiers modifiers = kShiftSuper, bool isRepeat = false)
    {
        QKeyEvent event(type, Qt::Key_V, modifiers, kScanCodeV, 0, 0, QStringLiteral("V"),
                        isRepeat);
        QCoreApplication::sendEvent(window, &event);
    }

    void open(QMenu &menu)
    {
        menu.addAction(QStringLiteral("Item"));
        menu.popup(QPoint(10, 10));
    }

    QStringList calls;
};

} // namespace

TEST_F(MenuTrackingTest, aMenuBeginsAndEndsTracking)
{
    QMenu menu;
    open(menu);
    EXPECT_TRUE(isMenuOpen());
    EXPECT_FALSE(service->holds(9, 768));

    menu.close();
    EXPECT_FALSE(isMenuOpen());
    EXPECT_TRUE(service->holds(9, 768));
}

TEST_F(MenuTrackingTest, aSubmenuBelongsToTheTrackingOfItsMenu)
{
    MenuTracking tracking;
    int begins = 0;
    int ends = 0;
    QObject::connect(&tracking, &MenuTracking::menuDidBeginTracking, [&begins] { ++begins; });
    QObject::connect(&tracking, &MenuTracking::menuDidEndTracking, [&ends] { ++ends; });
    QMenu menu;
    QMenu submenu;
    open(menu);
    open(submenu);

    submenu.close();
    EXPECT_EQ(ends, 0);
    menu.close();

    EXPECT_EQ(begins, 1);
    EXPECT_EQ(ends, 1);
}

TEST_F(MenuTrackingTest, aMenuThatIsDestroyedWhileOpenEndsTracking)
{
    {
        QMenu menu;
        open(menu);
        ASSERT_TRUE(isMenuOpen());
    }

    EXPECT_FALSE(isMenuOpen());
}

TEST_F(MenuTrackingTest, theListOfAComboBoxIsAMenu)
{
    QWidget window;
    QComboBox box(&window);
    box.addItem(QStringLiteral("Item"));
    window.show();

    box.showPopup();
    EXPECT_TRUE(isMenuOpen());
    box.hidePopup();

    QTRY_VERIFY(!isMenuOpen());
}

TEST_F(MenuTrackingTest, anOrdinaryWindowAndATooltipAreNoMenus)
{
    QWidget window;
    window.show();
    QWidget tooltip(nullptr, Qt::ToolTip);
    tooltip.show();

    EXPECT_FALSE(isMenuOpen());
}

TEST_F(MenuTrackingTest, whileAMenuIsOpenAStoredShortcutStillCallsItsHandlers)
{
    QMenu menu;
    open(menu);

    send(menu.windowHandle(), QEvent::KeyPress);
    EXPECT_EQ(calls, QStringList{QStringLiteral("down")});
    send(menu.windowHandle(), QEvent::KeyRelease);

    EXPECT_EQ(calls, (QStringList{QStringLiteral("down"), QStringLiteral("up")}));
}

TEST_F(MenuTrackingTest, repeatsOfAHeldKeyCallNoHandler)
{
    QMenu menu;
    open(menu);

    send(menu.windowHandle(), QEvent::KeyPress);
    send(menu.windowHandle(), QEvent::KeyRelease, kShiftSuper, true);
    send(menu.windowHandle(), QEvent::KeyPress, kShiftSuper, true);

    EXPECT_EQ(calls, QStringList{QStringLiteral("down")});
}

TEST_F(MenuTrackingTest, aTakenKeyIsSwallowedAndEveryOtherReachesTheMenu)
{
    KeyCounter popup;
    popup.setWindowFlag(Qt::Popup);
    popup.show();

    send(popup.windowHandle(), QEvent::KeyPress);
    EXPECT_EQ(popup.count, 0);
    send(popup.windowHandle(), QEvent::KeyPress, Qt::MetaModifier);
    EXPECT_EQ(popup.count, 1);

    EXPECT_EQ(calls, QStringList{QStringLiteral("down")});
}

TEST_F(MenuTrackingTest, withoutAMenuKeyEventsAreNotLookedAt)
{
    KeyCounter window;
    window.show();

    send(window.windowHandle(), QEvent::KeyPress);

    EXPECT_EQ(window.count, 1);
    EXPECT_TRUE(calls.isEmpty());
}

TEST_F(MenuTrackingTest, whilePausedTheMenuKeyIsConsumedWithoutHandlers)
{
    KeyCounter popup;
    popup.setWindowFlag(Qt::Popup);
    popup.show();
    setPaused(true);

    send(popup.windowHandle(), QEvent::KeyPress);

    EXPECT_EQ(popup.count, 0);
    EXPECT_TRUE(calls.isEmpty());
}
