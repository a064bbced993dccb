// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/Quillery_MacApp.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "Quillery_Mac/app/DesktopServices.h"
#include "Quillery_Mac/app/FloatingPanel.h"
#include "Quillery_Mac/app/HistoryLimit.h"
#include "Quillery_Mac/app/MenuBarWindow.h"
#include "Quillery_Mac/app/MissingHere.h"
#include "Quillery_Mac/app/Scenes.h"
#include "Quillery_Mac/app/TrayIcon.h"
#include "Quillery_Mac/app/WindowPlacement.h"
#include "Quillery_Mac/clipboard/ClipboardMonitor.h"
#include "Quillery_Mac/editor/AddSnippet.h"
#include "Quillery_Mac/editor/ContentViewMac.h"
#include "Quillery_Mac/menu/MenuView.h"
#include "Quillery_Mac/settings/SettingsView.h"
#include "Quillery_Mac/settings/onboarding/FirstLoadView.h"
#include "Quillery_Mac/ui/PanelWindow.h"
#include "Quillery_Mac/ui/StandardKeys.h"
#include "login_item/LaunchAtLogin.h"
#include "platform/hotkeys/HotkeyService.h"
#include "platform/hotkeys/SystemShortcuts.h"
#include "platform/keyboard/KeyboardLayout.h"
#include "platform/log/Fatal.h"
#include "platform/log/Log.h"
#include "platform/pasteboard/Pasteboard.h"
#include "platform/tray/TrayItem.h"
#include "platform/windows/Desktop.h"
#include "platform/windows/MenuWindows.h"
#include "updater/Updater.h"

#include <QApplication>
#include <QMenuBar>

#include <chrono>

namespace {

/// Where the panel waits until it is summoned, and how large it is then.
constexpr QRect kPanelRect(0, 0, 250, 145);

/// How long the copied selection may take to arrive on the pasteboard before the form reads it.
constexpr std::chrono::milliseconds kSelectionDelay{500};

/// A shortcut as the user reads it; empty if the name has none.
QString shortcutText(const KeyboardShortcuts::Name &name)
{
    const auto shortcut = KeyboardShortcuts::getShortcut(name);
    return shortcut ? shortcut->description() : QString();
}

/// How long the prepared texts of the search stay in memory after the last menu: long enough for
/// somebody who pastes again and again, short enough to be small when idle.
constexpr std::chrono::minutes kSearchRest{5};

} // namespace

Quillery_MacApp::Quillery_MacApp(DesktopServices &desktop, platform::Defaults &defaults,
                                 const QString &dataFolder)
    : openWindow([this](const QString &scene) { m_scenes.openWindow(scene); })
    , persistenceController(dataFolder)
    , funcs(
          [&desktop](bool copy, ManagedObjectContext &context) {
              return new AddSnippet(context, *desktop.pasteboard, copy);
          },
          [this](QWidget &ourWindow) { activate(ourWindow); })
    , clipHistory(defaults, SettingsKeys::kClipHistory)
    , historySize(defaults, SettingsKeys::kHistorySize)
    , device(defaults, SettingsKeys::kDevice)
    , firstLoad(defaults, SettingsKeys::kFirstLoad)
    , m_desktop(desktop)
    , m_defaults(defaults)
    , m_fieldPasting(*desktop.pasteboard)
    , m_pasteAction(*desktop.keyEventPoster, pasteNow)
    , m_scenes(makeScenes(sceneBuilders()), [this](QWidget &ourWindow) { activate(ourWindow); })
{
    funcs.openWindow = openWindow;
    m_searchRest.setSingleShot(true);
    connect(&m_searchRest, &QTimer::timeout, this, [this] { m_matcher.release(); });
    KeyboardShortcuts::setUp(defaults, *desktop.hotkeys, *desktop.keyboardLayout);
    LaunchAtLogin::setUp(*desktop.loginItem);
}

Quillery_MacApp::~Quillery_MacApp()
{
    KeyboardShortcuts::tearDown();
    // What shows objects of the store goes before the store.
    monitor.reset();
    m_menuBarWindow.reset();
    window.reset();
    m_unseenLibrary.reset();
    m_scenes.closeWindows();
    funcs.closeWindows();
    LaunchAtLogin::tearDown();
}

void Quillery_MacApp::start()
{
    m_notifications.watchApplication();
    window = std::make_unique<FloatingPanel>([] { return nullptr; }, showMenu, kPanelRect,
                                             *m_desktop.panelWindows, m_notifications);
    m_menuBarWindow = std::make_unique<MenuBarWindow>(
        [this](MenuBarWindow &host) { return buildMenu(false, host); }, *m_desktop.desktop,
        *m_desktop.menuBarWindows, m_notifications);

    assignDevice();
    followClipHistory();
    attachShortcutHandlers();
    openSetupIfFirstLoad();
    showTrayItem();
}

void Quillery_MacApp::assignDevice()
{
    if (device.value().isEmpty())
        device.setValue(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
}

void Quillery_MacApp::followClipHistory()
{
    const auto follow = [this] {
        if (!clipHistory.value()) {
            monitor.reset();
        } else if (monitor == nullptr) {
            monitor = ClipboardMonitor::start(*m_desktop.pasteboard, m_defaults,
                                              *persistenceController.container);
        }
    };
    m_observers.push_back(clipHistory.cell().addNotifier(follow));
    follow();
}

void Quillery_MacApp::attachShortcutHandlers()
{
    using KeyboardShortcuts::Name;
    // The window managers let a window come to the front that answers to something the user did.
    const auto noteTime = [this] {
        m_desktop.desktop->noteUserTime(m_desktop.hotkeys->lastEventTime());
    };
    KeyboardShortcuts::onKeyDown(Name::contextHotKey(), [this, noteTime] {
        noteTime();
        openPastePanel();
    });
    KeyboardShortcuts::onKeyUp(Name::addHotKey(), [this, noteTime] {
        noteTime();
        addFromSelection();
    });
}

void Quillery_MacApp::openSetupIfFirstLoad()
{
    if (firstLoad.value())
        openWindow(SceneId::kWelcome);
}

void Quillery_MacApp::showTrayItem()
{
    connect(m_desktop.tray.get(), &platform::TrayItem::activated, this, [this](const QRect &icon) {
        m_desktop.desktop->noteUserTime(0);
        window->close();
        m_menuBarWindow->toggle(icon);
    });
    connect(&KeyboardShortcuts::notifications(),
            &KeyboardShortcuts::Notifications::shortcutByNameDidChange, this,
            &Quillery_MacApp::updateToolTip);
    connect(m_desktop.keyboardLayout.get(), &platform::KeyboardLayout::changed, this,
            &Quillery_MacApp::updateToolTip);
    m_desktop.tray->show(makeTrayIcon(QApplication::palette().windowText().color()),
                         tr("Quillery"));
    updateToolTip();
}

void Quillery_MacApp::updateToolTip()
{
    const QString shortcut = shortcutText(KeyboardShortcuts::Name::contextHotKey());
    m_desktop.tray->setToolTip(
        shortcut.isEmpty() ? tr("Quillery")
                           : tr("Quillery %1", "%1 is the shortcut of the menu").arg(shortcut));
}

void Quillery_MacApp::openPastePanel()
{
    const QPoint pointer = m_desktop.desktop->pointer();
    const QRect visibleFrame = m_desktop.desktop->visibleFrame(pointer);
    if (visibleFrame.isNull())
        platform::fatalError(QStringLiteral("there is no screen to show the paste menu on: the "
                                            "number of screens must be at least 1, it is 0"));
    // The window that had the keyboard before it is the one to paste into.
    m_menuBarWindow->close();
    window->move(panelOrigin(pointer, visibleFrame));
    window->setContent(buildMenu(true, *window));
    showMenu = true;
    window->makeKeyAndOrderFront();
    observePanelOnce();
}

// Every summons adds one; all of them are gone after the panel has resigned key.
void Quillery_MacApp::observePanelOnce()
{
    auto token = std::make_shared<WindowNotification::Token>();
    *token = m_notifications.didResignKey.addObserver(window.get(), [this, token](QWidget &) {
        window->setContent(nullptr);
        window->close();
        m_pasteAction.windowDidResignKey();
        m_notifications.didResignKey.removeObserver(*token);
    });
}

void Quillery_MacApp::addFromSelection()
{
    copySelection();
    QTimer::singleShot(kSelectionDelay, Qt::PreciseTimer, this,
                       [this] { funcs.openAddSnippetWindow(true, viewContext()); });
}

// No chord is ever typed into a window of ours; but the selection may be in one.
void Quillery_MacApp::copySelection()
{
    QWidget *focus =
        QApplication::activeWindow() != nullptr ? QApplication::focusWidget() : nullptr;
    if (focus != nullptr && qobject_cast<PanelWindow *>(focus->window()) == nullptr)
        sendStandardKey(*focus, QKeySequence::Copy);
    else
        m_pasteAction.copySelection();
}

void Quillery_MacApp::openMenuBarWindow(const QRect &icon)
{
    window->close();
    m_menuBarWindow->open(icon);
}

void Quillery_MacApp::performAction(const QString &name)
{
    if (name == QLatin1String("paste-menu"))
        openPastePanel();
    else if (name == QLatin1String("add-from-selection"))
        addFromSelection();
    else if (name == QLatin1String("check-for-updates"))
        checkForUpdates();
    else if (name == QLatin1String("quit"))
        QApplication::quit();
    else
        openWindow(name);
}

void Quillery_MacApp::checkForUpdates()
{
    if (updaterController != nullptr && updaterController->updater().canCheckForUpdates())
        updaterController->updater().checkForUpdates();
}

SceneBuilders Quillery_MacApp::sceneBuilders()
{
    return {
        .welcome = [this]() -> QWidget * {
            return new FirstLoadView(m_defaults, recorderLinks(),
                                     [this] { return missingHere(abilitiesOf(m_desktop)); });
        },
        .addSnippet = [this](bool copy) -> QWidget * {
            return new AddSnippet(viewContext(), *m_desktop.pasteboard, copy);
        },
        .snippetLibrary = [this] { return buildLibrary(); },
        .settings = [this]() -> QWidget * {
            return new SettingsView(m_defaults, recorderLinks(), kHistoryLimits, updaterController);
        },
    };
}

QWidget *Quillery_MacApp::buildLibrary()
{
    auto *library = new ContentViewMac(
        {viewContext(), funcs, m_matcher, *m_desktop.pasteboard, [this] { prepareSearch(); }});
    restSearchAfter(*library);
    return library;
}

KeyboardShortcuts::RecorderLinks Quillery_MacApp::recorderLinks()
{
    return {*m_desktop.systemShortcuts, [this] { return mainMenu(); }};
}

// The library window bears the program's main menu; while it is closed one that nobody sees tells
// what stands in it.
QList<QAction *> Quillery_MacApp::mainMenu()
{
    if (const auto *library =
            qobject_cast<const ContentViewMac *>(m_scenes.openWindowOf(SceneId::kLibrary)))
        return library->menuBar()->actions();
    if (m_unseenLibrary == nullptr) {
        m_unseenLibrary.reset(buildLibrary());
        QMetaObject::invokeMethod(
            this, [this] { m_unseenLibrary.reset(); }, Qt::QueuedConnection);
    }
    return static_cast<const QMainWindow &>(*m_unseenLibrary).menuBar()->actions();
}

ManagedObjectContext &Quillery_MacApp::viewContext()
{
    return persistenceController.container->viewContext();
}

void Quillery_MacApp::prepareSearch()
{
    m_matcher.prepare(*persistenceController.container);
}

// While a view that may search is open the prepared texts stay.
void Quillery_MacApp::restSearchAfter(QWidget &view)
{
    ++m_searchingViews;
    m_searchRest.stop();
    connect(&view, &QObject::destroyed, &m_searchRest, [this] {
        if (--m_searchingViews == 0)
            m_searchRest.start(kSearchRest);
    });
}

QWidget *Quillery_MacApp::buildMenu(bool contextMenu, PanelWindow &host)
{
    const MenuEnvironment environment{
        .funcs = funcs,
        .viewContext = viewContext(),
        .defaults = m_defaults,
        .pasteboard = *m_desktop.pasteboard,
        .windows = host.menuWindows(),
        .desktop = *m_desktop.desktop,
        .matcher = m_matcher,
        .addShortcutHint = [] { return shortcutText(KeyboardShortcuts::Name::addHotKey()); },
        .searchMayBegin = [this] { prepareSearch(); },
    };
    auto *menu = new MenuView(environment, pasteNow,
                              {.contextMenu = contextMenu,
                               .window = contextMenu ? &host : nullptr,
                               .updaterController = updaterController,
                               .dismiss = [&host] { host.close(); }});
    restSearchAfter(*menu);
    followRequests(*menu);
    if (!contextMenu)
        observeEveryWindow();
    return menu;
}

void Quillery_MacApp::followRequests(MenuView &menu)
{
    const auto on = [this, &menu](QProperty<bool> &request, QLatin1String scene) {
        connectRequest(menu, request, scene);
    };
    on(menu.showSettings, SceneId::kSettings);
    on(menu.showAdd, SceneId::kAddSnippet);
}

// The observer belongs to the menu: the cell that it watches goes with it.
void Quillery_MacApp::connectRequest(MenuView &menu, QProperty<bool> &request, QLatin1String scene)
{
    auto observer = std::make_shared<QPropertyNotifier>();
    *observer = request.addNotifier([this, &request, scene] {
        if (!request.value())
            return;
        request = false;
        openWindow(scene);
    });
    connect(&menu, &QObject::destroyed, this, [observer] {});
}

// One more for each time that the menu-bar window's content appears; none is ever removed. The
// first one that is called clears the paste flag, so the others do nothing.
void Quillery_MacApp::observeEveryWindow()
{
    m_notifications.didResignKey.addObserver(
        nullptr, [this](QWidget &) { m_pasteAction.windowDidResignKey(); });
}

void Quillery_MacApp::activate(QWidget &ourWindow)
{
    // A menu that closes gives the keyboard back to the program in use; were it still open when the
    // window asks for it, either might have it in the end.
    if (window)
        window->close();
    if (m_menuBarWindow)
        m_menuBarWindow->close();
    m_desktop.desktop->activate(ourWindow);
}
