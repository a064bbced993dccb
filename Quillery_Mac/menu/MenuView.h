// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/menu/MenuEnvironment.h"
#include "Quillery_Mac/menu/MenuState.h"
#include "Quillery_Mac/ui/PointerMotion.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class ClearHistoryRow;
class ClipHistoryView;
class Divider;
class MenuKeys;
class MenuRow;
class PanelWindow;
class QLineEdit;
class QVBoxLayout;
class SnippetMenuView;
class UpdaterController;

/// The paste menu: the content of the menu-bar window and, in a reduced form, of the floating
/// panel.
///
/// Hosted by a PanelWindow, whose popover it uses; every opening builds a fresh one. It takes every
/// key of its windows while it is visible. Main thread only.
class MenuView : public QWidget, public MenuState
{
    Q_OBJECT

public:
    struct Options
    {
        /// True for the reduced form at the pointer.
        bool contextMenu = false;
        /// The floating panel that shows the menu; null in the menu-bar window.
        PanelWindow *window = nullptr;
        /// Null where the program does not update itself.
        UpdaterController *updaterController = nullptr;
        /// Closes the window that shows the menu.
        std::function<void()> dismiss;
    };

    /// @param pasteNow the application-wide paste flag; outlives the menu
    MenuView(const MenuEnvironment &environment, QProperty<bool> &pasteNow, const Options &options);
    ~MenuView() override;

    Funcs &funcs;
    std::function<void(const QString &)> openWindow;
    ManagedObjectContext &viewContext;
    std::function<void()> dismiss;
    PanelWindow *window;
    UpdaterController *updaterController;

    QSize sizeHint() const override;

    /// Closes the open popover; without one, closes the menu.
    void escape();
    /// After a key: the confirmation that it brought up takes the keyboard, at "Cancel".
    void offerConfirmation();

    PointerMotion &motion() { return m_motion; }
    /// The field of the open snippets popover; null while that is closed.
    QLineEdit *searchField() const;
    /// Whether a window is the menu's own or its popover.
    bool isWindowOfMenu(const QWidget &candidate) const;
    MenuRow *rowOf(const QString &word) const;
    /// What the open popover holds; null while that popover is closed.
    SnippetMenuView *snippetMenu() const;
    ClipHistoryView *clipHistoryView() const;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void createHistoryRows(QVBoxLayout &layout);
    void createSnippetRows(QVBoxLayout &layout);
    void createProgramRows(QVBoxLayout &layout);
    void addRow(QVBoxLayout &layout, MenuRow *row);
    MenuRow *addAction(QVBoxLayout &layout, const QString &word, const QString &label,
                       std::function<void()> function);
    Divider *addDivider(QVBoxLayout &layout);
    void observe();

    void quickAdd();
    void checkForUpdates();
    void clearHistory();
    void pasteRequested();
    void closeMenu();

    void showRows();
    void refreshHighlights();
    void confirmationChanged();
    void popoverChanged();
    void closePopover();
    void openHistory();
    void openSnippets();
    void openBeside(const QString &word, QWidget *content);
    PanelWindow *host() const;

    MenuEnvironment m_environment;
    QProperty<bool> &m_pasteNow;
    PointerMotion m_motion;
    QProperty<bool> m_showHistory{false};
    std::vector<MenuRow *> m_rows; ///< all that this form of the menu may show, in order
    Divider *m_historyDivider = nullptr;
    ClearHistoryRow *m_clearRow = nullptr;
    QPointer<ClipHistoryView> m_history;
    QPointer<SnippetMenuView> m_snippets;
    std::vector<QPropertyNotifier> m_observers;
    std::unique_ptr<MenuKeys> m_keys;
};
