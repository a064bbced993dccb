// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/app/Funcs.h"
#include "Quillery_Mac/app/HistoryLimit.h"
#include "Quillery_Mac/app/PasteAction.h"
#include "Quillery_Mac/app/SceneTable.h"
#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/settings/RecorderLinks.h"
#include "Quillery_Mac/store/PersistenceController.h"
#include "Quillery_Mac/store/SnippetMatcher.h"
#include "Quillery_Mac/ui/FieldPasting.h"
#include "Quillery_Mac/ui/WindowNotifications.h"
#include "platform/defaults/DefaultsCell.h"

#include <QObject>
#include <QProperty>
#include <QTimer>

#include <memory>

class ClipboardMonitor;
class FloatingPanel;
class MenuBarWindow;
class MenuView;
class PanelWindow;
class QWidget;
class UpdaterController;
struct DesktopServices;
struct SceneBuilders;

/// The application object: owns the stores, the shared helper, the updater and the floating panel,
/// declares the scenes, and starts everything in its order. One per process, main thread only.
class Quillery_MacApp : public QObject
{
    Q_OBJECT

public:
    /// Loads both stores and connects nothing to the desktop yet.
    ///
    /// @param desktop, defaults must outlive the object
    /// @param dataFolder absolute path of the folder of the stores; created if missing
    Quillery_MacApp(DesktopServices &desktop, platform::Defaults &defaults,
                    const QString &dataFolder);
    ~Quillery_MacApp() override;

    /// The start-up: panel, device identifier, clipboard monitor, shortcut handlers, setup window.
    void start();

    /// Places the floating panel at the pointer and fills it with a fresh menu. A desktop without a
    /// screen is fatal.
    void openPastePanel();

    /// Copies the selection of the frontmost application and, half a second later, opens the
    /// add-snippet form filled from the pasteboard.
    void addFromSelection();

    /// Opens the menu-bar window at the tray icon, or at the pointer if `icon` is null.
    void openMenuBarWindow(const QRect &icon);

    /// Runs an action that another process asked for: "paste-menu", "add-from-selection", the
    /// identifier of a scene, "check-for-updates" or "quit". Others are ignored.
    void performAction(const QString &name);

    /// Who is told of the program's windows.
    const WindowNotifications &notifications() const { return m_notifications; }

    // The state of the program, in the order of what depends on what.
    Funcs::OpenWindow openWindow;
    PersistenceController persistenceController;
    Funcs funcs;
    QProperty<bool> dragging{false};
    platform::DefaultsCell<bool> clipHistory;
    platform::DefaultsCell<double> historySize;
    platform::DefaultsCell<QString, const char *> device;
    platform::DefaultsCell<bool> firstLoad;
    /// The paste flag: the next window that resigns key sends the paste keystroke.
    QProperty<bool> pasteNow{false};
    /// The running clipboard monitor; none while the history is off.
    std::unique_ptr<ClipboardMonitor> monitor;
    static constexpr auto values = kHistoryLimits;
    /// None: this build has no updater.
    UpdaterController *updaterController = nullptr;
    std::unique_ptr<FloatingPanel> window;
    QProperty<bool> adding{false};
    QProperty<bool> showHistory{false};
    QProperty<bool> hoverOver{false};
    QProperty<bool> showMenu{false};

private:
    void assignDevice();
    void followClipHistory();
    void attachShortcutHandlers();
    void openSetupIfFirstLoad();
    void showTrayItem();
    void updateToolTip();
    void checkForUpdates();

    SceneBuilders sceneBuilders();
    QWidget *buildLibrary();
    KeyboardShortcuts::RecorderLinks recorderLinks();
    /// The program's menus; to be read at once.
    QList<QAction *> mainMenu();
    ManagedObjectContext &viewContext();
    void prepareSearch();
    void copySelection();
    void restSearchAfter(QWidget &view);

    void observePanelOnce();
    QWidget *buildMenu(bool contextMenu, PanelWindow &host);
    void followRequests(MenuView &menu);
    void connectRequest(MenuView &menu, QProperty<bool> &request, QLatin1String scene);
    void observeEveryWindow();
    void activate(QWidget &ourWindow);

    DesktopServices &m_desktop;
    platform::Defaults &m_defaults;
    WindowNotifications m_notifications;
    FieldPasting m_fieldPasting;
    PasteAction m_pasteAction;
    SceneTable m_scenes;
    std::unique_ptr<QWidget> m_unseenLibrary; ///< for its menu only
    SnippetMatcher m_matcher;
    QTimer m_searchRest;
    int m_searchingViews = 0; ///< that are open
    std::unique_ptr<MenuBarWindow> m_menuBarWindow;
    std::vector<QPropertyNotifier> m_observers;
};
