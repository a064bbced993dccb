// SPDX-License-Identifier: MIT
// The entry type on a desktop of fakes: start-up, the floating panel, the paste protocol, scenes.
#include "Quillery_Mac/app/Quillery_MacApp.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "Quillery_Mac/app/FloatingPanel.h"
#include "Quillery_Mac/app/MenuBarWindow.h"
#include "Quillery_Mac/app/Scenes.h"
#include "Quillery_Mac/clipboard/ClipboardMonitor.h"
#include "Quillery_Mac/menu/MenuView.h"
#include "Quillery_Mac/store/Clip.h"
#include "Quillery_Mac/store/Snippet.h"
#include "tests/fakes/FakeDesktopServices.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using platform::KeyEvent;

namespace {

const std::vector<KeyEvent> kPasteChord{{9, true, 0x100000}, {9, false, 0}};

/// Two polls and what a busy machine adds, in milliseconds.
constexpr int kPolls = 2500;

/// The window's frame, whose size is not known before it is shown, on both sides; in points.
constexpr int kFrame = 8;

class EntryTest : public ::testing::Test
{
protected:
    ~EntryTest() override
    {
        app.reset();
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows)
            delete window;
    }

    Quillery_MacApp &start()
    {
        app = std::make_unique<Quillery_MacApp>(fakes.services, defaults,
                                                folder.filePath(QStringLiteral("data")));
        app->start();
        return *app;
    }

    void skipSetup() { defaults.setBoolean(SettingsKeys::kFirstLoad.key(), false); }

    MenuView *menuInPanel() const { return qobject_cast<MenuView *>(app->window->content()); }

    MenuView *menuInBarWindow() const
    {
        auto *window = qobject_cast<MenuBarWindow *>(fakes.menuBarWindows.keyboardWindow);
        return window == nullptr ? nullptr : qobject_cast<MenuView *>(window->content());
    }

    static QWidget *windowTitled(const QString &title)
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (window->isVisible() && window->windowTitle() == title)
                return window;
        }
        return nullptr;
    }

    static int countTitled(const QString &title)
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return static_cast<int>(
            std::count_if(windows.begin(), windows.end(), [&title](const QWidget *window) {
                return window->isVisible() && window->windowTitle() == title;
            }));
    }

    QTemporaryDir folder;
    platform::Defaults defaults{folder.filePath(QStringLiteral("Quillery.conf"))};
    FakeDesktopServices fakes;
    std::unique_ptr<Quillery_MacApp> app;
};

using EntryDeathTest = EntryTest;

} // namespace

TEST_F(EntryTest, aFirstStartAssignsADeviceStartsTheMonitorAndOpensTheSetup)
{
    start();

    const QString device = defaults.string(SettingsKeys::kDevice.key()).value_or(QString());
    EXPECT_FALSE(QUuid::fromString(device).isNull());
    EXPECT_EQ(device, device.toUpper());
    EXPECT_EQ(device.size(), 36);
    EXPECT_NE(app->monitor, nullptr);
    EXPECT_NE(windowTitled(QStringLiteral("Quillery Setup")), nullptr);
}

TEST_F(EntryTest, aDeviceThatIsSetIsNeverOverwritten)
{
    defaults.setString(SettingsKeys::kDevice.key(), QStringLiteral("mine"));

    start();

    EXPECT_EQ(defaults.string(SettingsKeys::kDevice.key()), QStringLiteral("mine"));
}

TEST_F(EntryTest, noSetupAfterTheFirstLoad)
{
    skipSetup();

    start();

    EXPECT_EQ(windowTitled(QStringLiteral("Quillery Setup")), nullptr);
}

TEST_F(EntryTest, bothShortcutsAreStoredAfterTheFirstStart)
{
    start();

    for (const char *name : {"contextHotKey", "addHotKey"}) {
        EXPECT_TRUE(
            defaults.contains(QStringLiteral("KeyboardShortcuts_") + QString::fromLatin1(name)));
    }
}

TEST_F(EntryTest, withTheHistoryOffNoMonitorExistsUntilItIsSwitchedOn)
{
    skipSetup();
    defaults.setBoolean(SettingsKeys::kClipHistory.key(), false);
    start();
    EXPECT_EQ(app->monitor, nullptr);

    defaults.setBoolean(SettingsKeys::kClipHistory.key(), true);

    EXPECT_NE(app->monitor, nullptr);
}

TEST_F(EntryTest, switchingTheHistoryOffCancelsTheMonitor)
{
    skipSetup();
    start();

    app->clipHistory.setValue(false);

    EXPECT_EQ(app->monitor, nullptr);
}

TEST_F(EntryTest, whatIsCopiedWhileTheHistoryIsOffIsNotRecordedAfterwards)
{
    skipSetup();
    start();
    ManagedObjectContext &context = app->persistenceController.container->viewContext();
    const auto isNewest = [&context](const char *text) {
        return QTest::qWaitFor(
            [&] {
                const auto clips = context.fetch<Clip>();
                return !clips.empty() && clips.front()->content() == QByteArray(text);
            },
            kPolls);
    };
    fakes.pasteboard.copyElsewhere(QByteArray("before"));
    ASSERT_TRUE(isNewest("before"));

    app->clipHistory.setValue(false);
    fakes.pasteboard.copyElsewhere(QByteArray("meanwhile"));
    app->clipHistory.setValue(true);

    EXPECT_FALSE(QTest::qWaitFor([&context] { return context.count<Clip>() > 1; }, kPolls));
    fakes.pasteboard.copyElsewhere(QByteArray("after"));
    EXPECT_TRUE(isNewest("after"));
    EXPECT_EQ(context.count<Clip>(), 2);
}

TEST_F(EntryTest, thePasteShortcutShowsThePanelAtThePointerWithTheReducedMenu)
{
    skipSetup();
    start();

    fakes.hotkeys.press(9, 768);

    ASSERT_NE(menuInPanel(), nullptr);
    EXPECT_TRUE(app->window->isVisible());
    EXPECT_TRUE(app->showMenu.value());
    EXPECT_EQ(app->window->pos(), QPoint(405, 300));
    EXPECT_EQ(app->window->width(), 250);
    EXPECT_EQ(menuInPanel()->options.value().last(), QStringLiteral("Quick Add..."));
    EXPECT_TRUE(menuInPanel()->contextMenu.value());
}

TEST_F(EntryTest, thePanelIsPinnedAtTheRightEdgeAndNotClampedAtTheLowerOne)
{
    skipSetup();
    start();
    fakes.desktop.pointerPosition = QPoint(1100, 790);

    app->openPastePanel();

    EXPECT_EQ(app->window->pos(), QPoint(1030, 790));
}

TEST_F(EntryDeathTest, aDesktopWithoutAScreenIsFatal)
{
    skipSetup();
    start();
    fakes.desktop.frames.clear();

    EXPECT_EXIT(app->openPastePanel(), ::testing::KilledBySignal(SIGABRT),
                "Fatal error: there is no screen");
}

TEST_F(EntryTest, eachSummonsStartsWithAFreshMenu)
{
    skipSetup();
    start();
    app->openPastePanel();
    const QPointer<MenuView> first = menuInPanel();
    first->down();

    app->openPastePanel();

    EXPECT_NE(menuInPanel(), first);
    EXPECT_EQ(menuInPanel()->currentActive.value(), std::nullopt);
}

TEST_F(EntryTest, summoningWhileShownAddsAnObserverAndEachRemovesItself)
{
    skipSetup();
    start();
    app->openPastePanel();
    app->openPastePanel();
    app->pasteNow = true;

    fakes.panelWindows.loseKeyboard();

    EXPECT_EQ(fakes.keyEventPoster.events, kPasteChord);
    app->pasteNow = true;
    fakes.keyEventPoster.events.clear();
    emit fakes.panelWindows.resigned();
    EXPECT_TRUE(fakes.keyEventPoster.events.empty());
}

TEST_F(EntryTest, thePanelIsObservedOncePerSummonsUntilItResigns)
{
    skipSetup();
    start();
    const WindowNotification &didResignKey = app->notifications().didResignKey;
    const std::size_t before = didResignKey.observerCount();

    app->openPastePanel();
    EXPECT_EQ(didResignKey.observerCount(), before + 1);
    app->openPastePanel();
    EXPECT_EQ(didResignKey.observerCount(), before + 2);
    fakes.panelWindows.loseKeyboard();

    EXPECT_EQ(didResignKey.observerCount(), before);
}

TEST_F(EntryTest, aPanelThatLosesTheKeyboardGoesAndKeepsNothing)
{
    skipSetup();
    start();
    app->openPastePanel();

    fakes.panelWindows.loseKeyboard();

    EXPECT_FALSE(app->window->isVisible());
    EXPECT_EQ(app->window->content(), nullptr);
    EXPECT_FALSE(app->showMenu.value());
    EXPECT_TRUE(fakes.keyEventPoster.events.empty());
}

TEST_F(EntryTest, escapeClosesThePanelAndPastesNothing)
{
    skipSetup();
    start();
    app->openPastePanel();

    QTest::keyClick(menuInPanel(), Qt::Key_Escape);

    EXPECT_FALSE(app->window->isVisible());
    EXPECT_TRUE(fakes.keyEventPoster.events.empty());
}

TEST_F(EntryTest, aSnippetPickedInThePanelIsPastedOnce)
{
    skipSetup();
    start();
    ManagedObjectContext &context = app->persistenceController.container->viewContext();
    auto *snippet = context.insert<Snippet>();
    snippet->setId(QUuid::createUuid());
    snippet->setTitle(QStringLiteral("Signature"));
    snippet->setContent(QByteArray("Kind regards"));
    ASSERT_TRUE(context.save());
    app->openMenuBarWindow(QRect());
    fakes.menuBarWindows.loseKeyboard();
    app->openPastePanel();

    QTest::keyClick(menuInPanel(), Qt::Key_S);
    QTest::keyClick(menuInPanel(), Qt::Key_Return);

    EXPECT_EQ(fakes.pasteboard.text, QByteArray("Kind regards"));
    EXPECT_EQ(fakes.keyEventPoster.events, kPasteChord);
    EXPECT_FALSE(app->pasteNow.value());
    EXPECT_FALSE(app->window->isVisible());
}

TEST_F(EntryTest, aSnippetWithoutContentPastesTheEmptyText)
{
    skipSetup();
    start();
    ManagedObjectContext &context = app->persistenceController.container->viewContext();
    context.insert<Snippet>()->setTitle(QStringLiteral("Empty"));
    ASSERT_TRUE(context.save());
    fakes.pasteboard.copyElsewhere(QByteArray("before"));
    app->openPastePanel();

    QTest::keyClick(menuInPanel(), Qt::Key_E);
    QTest::keyClick(menuInPanel(), Qt::Key_Return);

    EXPECT_EQ(fakes.pasteboard.text, QByteArray(""));
    const std::vector writes{FakePasteboard::Write::Cleared, FakePasteboard::Write::StringSet};
    EXPECT_EQ(fakes.pasteboard.writes, writes);
    EXPECT_EQ(fakes.keyEventPoster.events, kPasteChord);
}

TEST_F(EntryTest, aPickInTheMenuBarWindowIsPastedByTheApplicationWideObserver)
{
    skipSetup();
    start();
    ManagedObjectContext &context = app->persistenceController.container->viewContext();
    auto *clip = context.insert<Clip>();
    clip->setContent(QByteArray("copied"));
    clip->setPosition(1);
    ASSERT_TRUE(context.save());
    fakes.tray.click(QRect(1000, 0, 24, 24));
    MenuView *menu = menuInBarWindow();
    ASSERT_NE(menu, nullptr);

    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Return})
        QTest::keyClick(menu, key);

    EXPECT_EQ(fakes.pasteboard.text, QByteArray("copied"));
    EXPECT_EQ(fakes.keyEventPoster.events, kPasteChord);
    EXPECT_EQ(context.count<Clip>(), 0);
}

TEST_F(EntryTest, openingTheMenuBarWindowAgainAndAgainStillSendsOneKeystroke)
{
    skipSetup();
    start();
    for (int time = 0; time < 3; ++time) {
        app->openMenuBarWindow(QRect());
        fakes.menuBarWindows.loseKeyboard();
    }
    app->openMenuBarWindow(QRect());
    app->pasteNow = true;

    fakes.menuBarWindows.loseKeyboard();

    EXPECT_EQ(fakes.keyEventPoster.events, kPasteChord);
}

TEST_F(EntryTest, thePanelAndTheMenuBarWindowAreNeverOpenAtOnce)
{
    skipSetup();
    start();

    app->openMenuBarWindow(QRect());
    app->openPastePanel();
    EXPECT_EQ(menuInBarWindow(), nullptr);
    EXPECT_TRUE(app->window->isVisible());

    app->openMenuBarWindow(QRect());
    EXPECT_FALSE(app->window->isVisible());
    EXPECT_NE(menuInBarWindow(), nullptr);
}

TEST_F(EntryTest, theMenuBarWindowShowsEveryRowAndEndsWithQuit)
{
    skipSetup();
    start();

    fakes.tray.click(QRect(1000, 0, 24, 24));

    const QStringList expected{QStringLiteral("history"),
                               QStringLiteral("clear"),
                               QStringLiteral("snippets"),
                               QStringLiteral("Quick Add..."),
                               QStringLiteral("Snippet Editor..."),
                               QStringLiteral("Settings..."),
                               QStringLiteral("Quit")};
    const MenuView *menu = menuInBarWindow();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->options.value(), expected);
}

TEST_F(EntryTest, aClickOnTheTrayIconIsSomethingTheUserDidNow)
{
    skipSetup();
    start();
    ASSERT_TRUE(fakes.desktop.userTimes.empty());

    fakes.tray.click(QRect(1000, 0, 24, 24));

    EXPECT_EQ(fakes.desktop.userTimes, std::vector<quint32>{0});
}

TEST_F(EntryTest, aSecondClickOnTheTrayIconClosesTheMenuBarWindow)
{
    skipSetup();
    start();
    fakes.tray.click(QRect(1000, 0, 24, 24));

    fakes.menuBarWindows.loseKeyboard();
    fakes.tray.click(QRect(1000, 0, 24, 24));

    EXPECT_EQ(fakes.menuBarWindows.keyboardWindow, nullptr);
}

TEST_F(EntryTest, everySceneIdentifierOpensItsTitledWindow)
{
    skipSetup();
    start();
    const std::vector<std::pair<const char *, const char *>> scenes{
        {"welcome-view", "Quillery Setup"},  {"add-snippet", "Add Snippet"},
        {"add-snippet-copy", "Add Snippet"}, {"quillery", "Quillery"},
        {"settings", "Quillery Settings"},
    };

    for (const auto &[id, title] : scenes) {
        app->openWindow(QString::fromLatin1(id));
        QWidget *opened = windowTitled(QString::fromLatin1(title));
        ASSERT_NE(opened, nullptr) << id;
        delete opened;
    }
}

TEST_F(EntryTest, aSingleSceneOpensOnceAndAGroupAgainAndAgain)
{
    skipSetup();
    start();

    for (int time = 0; time < 2; ++time) {
        app->openWindow(SceneId::kSettings);
        app->openWindow(SceneId::kAddSnippet);
    }

    EXPECT_EQ(countTitled(QStringLiteral("Quillery Settings")), 1);
    EXPECT_EQ(countTitled(QStringLiteral("Add Snippet")), 2);
}

TEST_F(EntryTest, aSceneThatWasJustClosedOpensANewWindow)
{
    skipSetup();
    start();
    app->openWindow(SceneId::kSettings);
    const QPointer<QWidget> closed = windowTitled(QStringLiteral("Quillery Settings"));
    closed->close();

    app->openWindow(SceneId::kSettings);

    EXPECT_TRUE(QTest::qWaitFor([&closed] { return closed.isNull(); }));
    QWidget *opened = windowTitled(QStringLiteral("Quillery Settings"));
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(opened->isVisible());
}

TEST_F(EntryTest, theFormIsAsLargeAsItsContentAndTheLibraryAsTheUserLikes)
{
    skipSetup();
    start();

    for (const QLatin1String scene : {SceneId::kAddSnippet, SceneId::kAddSnippetCopy}) {
        app->openWindow(scene);
        QWidget *form = windowTitled(QStringLiteral("Add Snippet"));
        ASSERT_NE(form, nullptr);
        EXPECT_EQ(form->size(), form->sizeHint());
        EXPECT_EQ(form->minimumSize(), form->maximumSize());
        delete form;
    }
    app->openWindow(SceneId::kLibrary);
    QWidget *library = windowTitled(QStringLiteral("Quillery"));
    ASSERT_NE(library, nullptr);
    EXPECT_NE(library->minimumSize(), library->maximumSize());
}

TEST_F(EntryTest, theSetupAndTheFormComeUpInTheMiddleOfTheScreen)
{
    start();
    app->addFromSelection();
    ASSERT_TRUE(QTest::qWaitFor(
        [] { return windowTitled(QStringLiteral("Add Snippet")) != nullptr; }, 5000));

    for (const char *title : {"Quillery Setup", "Add Snippet"}) {
        const QWidget *window = windowTitled(QString::fromLatin1(title));
        ASSERT_NE(window, nullptr) << title;
        const QPoint middle = window->screen()->availableGeometry().center();
        const QPoint off = window->geometry().center() - middle;
        EXPECT_LE(off.manhattanLength(), kFrame) << title;
    }
}

TEST_F(EntryTest, anUnknownSceneOpensNothing)
{
    skipSetup();
    start();
    const qsizetype before = QApplication::topLevelWidgets().size();

    app->openWindow(QStringLiteral("nothing"));

    EXPECT_EQ(QApplication::topLevelWidgets().size(), before);
}

TEST_F(EntryTest, lettingTheAddShortcutGoCopiesTheSelectionAndOpensTheFormLater)
{
    skipSetup();
    start();

    fakes.hotkeys.press(8, 768);
    EXPECT_TRUE(fakes.keyEventPoster.events.empty());
    QElapsedTimer sinceRelease;
    sinceRelease.start();
    fakes.hotkeys.release(8, 768);

    const std::vector<KeyEvent> copyChord{{8, true, 0x100000}, {8, false, 0}};
    EXPECT_EQ(fakes.keyEventPoster.events, copyChord);
    EXPECT_EQ(windowTitled(QStringLiteral("Add Snippet")), nullptr);
    EXPECT_TRUE(QTest::qWaitFor(
        [] { return windowTitled(QStringLiteral("Add Snippet")) != nullptr; }, 5000));
    EXPECT_GE(sinceRelease.elapsed(), 500);
}

TEST_F(EntryTest, aSelectionInAWindowOfOursIsCopiedWithoutAKeystroke)
{
    skipSetup();
    start();
    QLineEdit field(QStringLiteral("chosen words"));
    field.show();
    field.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    field.setFocus();
    field.selectAll();

    app->addFromSelection();

    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("chosen words"));
    EXPECT_TRUE(fakes.keyEventPoster.events.empty());
}

TEST_F(EntryTest, theActionsOfTheBusDoWhatTheirNamesSay)
{
    skipSetup();
    start();

    app->performAction(QStringLiteral("paste-menu"));
    EXPECT_TRUE(app->window->isVisible());
    app->performAction(QStringLiteral("settings"));
    EXPECT_NE(windowTitled(QStringLiteral("Quillery Settings")), nullptr);
    app->performAction(QStringLiteral("add-from-selection"));
    EXPECT_EQ(fakes.keyEventPoster.events.size(), 2U);
}
