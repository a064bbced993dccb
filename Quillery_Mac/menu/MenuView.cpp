// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/MenuView.h"

#include "Quillery_Mac/app/Funcs.h"
#include "Quillery_Mac/app/SettingsKeys.h"
#include "Quillery_Mac/clipboard/ClipHistoryView.h"
#include "Quillery_Mac/menu/ClearHistoryRow.h"
#include "Quillery_Mac/menu/MenuButton.h"
#include "Quillery_Mac/menu/MenuKeys.h"
#include "Quillery_Mac/menu/PopoverRow.h"
#include "Quillery_Mac/menu/SnippetMenuView.h"
#include "Quillery_Mac/ui/Divider.h"
#include "Quillery_Mac/ui/Popover.h"
#include "Quillery_Mac/ui/Tokens.h"
#include "platform/windows/Desktop.h"
#include "updater/Updater.h"

#include <QVBoxLayout>

MenuView::MenuView(const MenuEnvironment &environment, QProperty<bool> &pasteNow,
                   const Options &menuOptions)
    : funcs(environment.funcs)
    , openWindow(environment.funcs.openWindow)
    , viewContext(environment.viewContext)
    , dismiss(menuOptions.dismiss ? menuOptions.dismiss : [] {})
    , window(menuOptions.window)
    , updaterController(menuOptions.updaterController)
    , m_environment(environment)
    , m_pasteNow(pasteNow)
{
    contextMenu = menuOptions.contextMenu;
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("Quillery"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    createHistoryRows(*layout);
    createSnippetRows(*layout);
    if (!contextMenu.value())
        createProgramRows(*layout);
    observe();
    clipHistory = platform::readDefault(m_environment.defaults, SettingsKeys::kClipHistory);
    showRows();
    m_keys = std::make_unique<MenuKeys>(*this);
}

MenuView::~MenuView() = default;

QSize MenuView::sizeHint() const
{
    return {tokens::kMenuWidth, layout()->sizeHint().height()};
}

void MenuView::escape()
{
    if (openPopover.value())
        left();
    else
        closeMenu();
}

void MenuView::offerConfirmation()
{
    if (clearAlert.value() && currentActive.value() == optionWords::kClear &&
        !controls::isSet(controls.value(), controls::kGive))
        m_clearRow->focusCancel();
}

QLineEdit *MenuView::searchField() const
{
    return openPopover.value() == optionWords::kSnippets && m_snippets != nullptr
               ? &m_snippets->searchField()
               : nullptr;
}

bool MenuView::isWindowOfMenu(const QWidget &candidate) const
{
    const QWidget *own = QWidget::window();
    if (&candidate == own)
        return true;
    PanelWindow *panel = host();
    return panel != nullptr && panel->hasPopover() && &candidate == &panel->popover();
}

MenuRow *MenuView::rowOf(const QString &word) const
{
    for (MenuRow *row : m_rows) {
        if (row->word() == word)
            return row;
    }
    return nullptr;
}

void MenuView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_motion.restAt(m_environment.desktop.pointer());
}

void MenuView::createHistoryRows(QVBoxLayout &layout)
{
    addRow(layout, new PopoverRow(
                       *this, m_motion, tr("History"), optionWords::kHistory,
                       [this] { return viewContext.count<Clip>(); }, this));
    m_clearRow = new ClearHistoryRow(
        *this, m_motion, [this] { clearHistory(); }, this);
    addRow(layout, m_clearRow);
    m_historyDivider = addDivider(layout);
}

void MenuView::createSnippetRows(QVBoxLayout &layout)
{
    addRow(layout, new PopoverRow(
                       *this, m_motion, tr("Snippets"), optionWords::kSnippets,
                       [this] { return viewContext.count<Snippet>(); }, this));
    MenuRow *quickAddRow =
        addAction(layout, optionWords::kQuickAdd, tr("Quick Add..."), [this] { quickAdd(); });
    if (!contextMenu.value())
        quickAddRow->setHint(m_environment.addShortcutHint());
}

void MenuView::createProgramRows(QVBoxLayout &layout)
{
    addAction(layout, optionWords::kSnippetEditor, tr("Snippet Editor..."),
              [this] { openWindow(QStringLiteral("quillery")); });
    addDivider(layout);
    addAction(layout, optionWords::kSettings, tr("Settings..."), [this] { showSettings = true; });
    if (updaterController != nullptr) {
        MenuRow *row = addAction(layout, optionWords::kCheckForUpdates, tr("Check for Updates..."),
                                 [this] { checkForUpdates(); });
        row->setEnabled(updaterController->updater().canCheckForUpdates());
    }
    addDivider(layout);
    addAction(layout, optionWords::kQuit, tr("Quit", "ends the program"),
              [this] { m_environment.terminate(); });
}

void MenuView::addRow(QVBoxLayout &layout, MenuRow *row)
{
    layout.addWidget(row);
    m_rows.push_back(row);
}

MenuRow *MenuView::addAction(QVBoxLayout &layout, const QString &word, const QString &label,
                             std::function<void()> function)
{
    auto *row = new MenuButton(
        *this, m_motion, word, label, std::move(function), [this] { dismiss(); }, this);
    addRow(layout, row);
    return row;
}

Divider *MenuView::addDivider(QVBoxLayout &layout)
{
    auto *divider = new Divider(this);
    layout.addWidget(divider);
    return divider;
}

void MenuView::observe()
{
    const auto on = [this](auto &cell, auto function) {
        m_observers.push_back(cell.addNotifier([this, function] { (this->*function)(); }));
    };
    on(clipHistory, &MenuView::showRows);
    on(doPaste, &MenuView::pasteRequested);
    on(hoverOver, &MenuView::refreshHighlights);
    on(currentActive, &MenuView::refreshHighlights);
    on(openPopover, &MenuView::popoverChanged);
    on(clearAlert, &MenuView::confirmationChanged);
    connect(&m_environment.defaults, &platform::Defaults::changed, this,
            [this](const QString &key) {
                if (key == SettingsKeys::kClipHistory.key())
                    clipHistory =
                        platform::readDefault(m_environment.defaults, SettingsKeys::kClipHistory);
            });
}

void MenuView::quickAdd()
{
    if (contextMenu.value())
        funcs.openAddSnippetWindow(false, viewContext);
    else
        showAdd = true;
}

void MenuView::checkForUpdates()
{
    Updater &updater = updaterController->updater();
    if (updater.canCheckForUpdates())
        updater.checkForUpdates();
}

void MenuView::clearHistory()
{
    for (Clip *clip : viewContext.fetch<Clip>())
        viewContext.deleteObject(*clip);
    static_cast<void>(viewContext.save());
}

void MenuView::pasteRequested()
{
    if (!doPaste.value())
        return;
    doPaste = false;
    m_pasteNow = true;
    controls::set(controls, controls::kGive, false);
    closeMenu();
}

void MenuView::closeMenu()
{
    if (window != nullptr)
        window->close();
    else
        dismiss();
}

// The keyboard goes back to the rows when the question is answered, or left by an arrow key.
void MenuView::confirmationChanged()
{
    if (!clearAlert.value() || currentActive.value() != optionWords::kClear)
        setFocus();
}

void MenuView::showRows()
{
    const bool hasHistory = clipHistory.value();
    rowOf(optionWords::kHistory)->setVisible(hasHistory);
    m_clearRow->setVisible(hasHistory);
    m_historyDivider->setVisible(hasHistory);
    QStringList words;
    for (const MenuRow *row : m_rows) {
        if (!row->isHidden())
            words.append(row->word());
    }
    setOptions(words);
    updateGeometry();
}

void MenuView::refreshHighlights()
{
    for (MenuRow *row : m_rows)
        row->refreshHighlight();
    if (m_clearRow->hasButtonFocus() && currentActive.value() != optionWords::kClear)
        setFocus();
}

PanelWindow *MenuView::host() const
{
    return qobject_cast<PanelWindow *>(QWidget::window());
}
