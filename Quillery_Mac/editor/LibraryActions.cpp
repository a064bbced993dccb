// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LibraryActions.h"

#include "Quillery_Mac/app/Funcs.h"
#include "Quillery_Mac/editor/ContentViewMac.h"
#include "Quillery_Mac/editor/LibraryFiles.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/StandardKeys.h"
#include "Quillery_Mac/ui/SystemImage.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>

namespace {

constexpr int kImage = 16;
const QString kSettingsScene = QStringLiteral("settings");

QIcon icon(const QString &name, const QPalette &palette)
{
    QIcon icon;
    for (const qreal ratio : {1.0, 2.0}) {
        icon.addPixmap(systemImage::pixmap(name, kImage, ratio, paletteColors::text(palette)));
        icon.addPixmap(
            systemImage::pixmap(name, kImage, ratio, paletteColors::disabledText(palette)),
            QIcon::Disabled);
    }
    return icon;
}

// The fields know what to do with their keys, pasting included.
void sendKey(QKeySequence::StandardKey key)
{
    if (QWidget *focus = QApplication::focusWidget())
        sendStandardKey(*focus, key);
}

} // namespace

LibraryActions::LibraryActions(ContentViewMac &window, const EditorLinks &links,
                               LibraryState &state)
    : QObject(&window)
    , m_window(window)
    , m_links(links)
    , m_state(state)
    , m_files(new LibraryFiles(window, state))
    , m_addSnippet(make(tr("Add Snippet"), QKeySequence::New, [&state] { state.addSnippet(); }))
    , m_addFolder(make(tr("Add Folder"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N),
                       [&state] { state.addFolder(); }))
    , m_delete(make(tr("Delete"), QKeySequence::Delete, [&state] { state.deleteSelected(); }))
    , m_toggle(make({}, {}, [&window] { window.list().toggleSelected(); }))
    , m_moveUp(make(tr("Move Up"), QKeySequence(Qt::ALT | Qt::Key_Up),
                    [&state] { state.moveSelected(Strip::Above); }))
    , m_moveDown(make(tr("Move Down"), QKeySequence(Qt::ALT | Qt::Key_Down),
                      [&state] { state.moveSelected(Strip::Below); }))
{
    takeColors();
    m_observers.push_back(state.selectedItem.addNotifier([this] { followSelection(); }));
    connect(&state, &LibraryState::rowsChanged, this, &LibraryActions::followFolder);
    followSelection();
}

void LibraryActions::fill(QMenuBar &bar)
{
    fillFile(*bar.addMenu(tr("&File")));
    fillEdit(*bar.addMenu(tr("&Edit")));
    //: The menu of the selected snippet or folder.
    fillItem(*bar.addMenu(tr("&Item")));
    fillView(*bar.addMenu(tr("&View")));
}

void LibraryActions::popUp(const QPoint &globalPosition)
{
    auto *menu = new QMenu(&m_window);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions({m_addSnippet, m_addFolder});
    menu->addSeparator();
    menu->addActions({m_toggle, m_moveUp, m_moveDown});
    menu->addSeparator();
    menu->addAction(m_delete);
    menu->popup(globalPosition);
}

void LibraryActions::takeColors()
{
    const QPalette palette = m_window.palette();
    m_addSnippet->setIcon(icon(QStringLiteral("plus"), palette));
    m_addFolder->setIcon(icon(QStringLiteral("folder.badge.plus"), palette));
    m_delete->setIcon(icon(QStringLiteral("trash"), palette));
}

QAction *LibraryActions::make(const QString &text, const QKeySequence &keys, const Command &command)
{
    auto *action = new QAction(text, this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, command);
    return action;
}

QAction *LibraryActions::makeEdit(const QString &text, QKeySequence::StandardKey key)
{
    return make(text, key, [key] { sendKey(key); });
}

void LibraryActions::fillFile(QMenu &menu)
{
    menu.addAction(make(tr("&Import…"), {}, [this] { m_files->chooseImport(); }));
    menu.addAction(make(tr("&Export Library…"), {}, [this] { m_files->chooseExport(); }));
    menu.addSeparator();
    menu.addAction(make(tr("&Settings..."), QKeySequence(Qt::CTRL | Qt::Key_Comma),
                        [this] { m_links.funcs.openWindow(kSettingsScene); }));
    menu.addSeparator();
    menu.addAction(make(tr("&Close"), QKeySequence::Close, [this] { m_window.close(); }));
    menu.addAction(make(tr("&Quit"), QKeySequence::Quit, [] { QApplication::quit(); }));
}

void LibraryActions::fillEdit(QMenu &menu)
{
    menu.addAction(makeEdit(tr("&Undo"), QKeySequence::Undo));
    menu.addAction(makeEdit(tr("&Redo"), QKeySequence::Redo));
    QAction *undoImport = make(tr("Undo I&mport"), {}, [this] { m_files->undoImport(); });
    menu.addAction(undoImport);
    connect(&menu, &QMenu::aboutToShow, this,
            [this, undoImport] { undoImport->setEnabled(m_files->canUndoImport()); });
    menu.addSeparator();
    menu.addAction(makeEdit(tr("Cu&t"), QKeySequence::Cut));
    menu.addAction(makeEdit(tr("&Copy"), QKeySequence::Copy));
    menu.addAction(makeEdit(tr("&Paste"), QKeySequence::Paste));
    menu.addAction(makeEdit(tr("Select &All"), QKeySequence::SelectAll));
    menu.addSeparator();
    menu.addAction(make(tr("&Find"), QKeySequence::Find, [this] {
        m_state.columnVisibility = true;
        m_window.searchField().setFocus(Qt::ShortcutFocusReason);
        m_window.searchField().selectAll();
    }));
}

void LibraryActions::fillItem(QMenu &menu)
{
    menu.addActions({m_addSnippet, m_addFolder});
    menu.addSeparator();
    //: The snippet or folder above the selected one.
    menu.addAction(make(tr("&Previous"), QKeySequence(Qt::CTRL | Qt::Key_PageUp),
                        [this] { m_window.list().chooseNext(-1); }));
    //: The snippet or folder below the selected one.
    menu.addAction(make(tr("&Next"), QKeySequence(Qt::CTRL | Qt::Key_PageDown),
                        [this] { m_window.list().chooseNext(1); }));
    menu.addSeparator();
    menu.addActions({m_toggle, m_moveUp, m_moveDown});
    menu.addSeparator();
    menu.addAction(m_delete);
}

void LibraryActions::fillView(QMenu &menu)
{
    QAction *sidebar = new QAction(tr("Show &Sidebar"), this);
    sidebar->setShortcut(Qt::Key_F9);
    sidebar->setCheckable(true);
    const auto follow = [this, sidebar] { sidebar->setChecked(m_state.columnVisibility.value()); };
    m_observers.push_back(m_state.columnVisibility.addNotifier(follow));
    follow();
    connect(sidebar, &QAction::toggled, this,
            [this](bool isShown) { m_state.columnVisibility = isShown; });
    menu.addAction(sidebar);
    //: Gives the keyboard to the list of snippets.
    menu.addAction(make(tr("Go to &List"), QKeySequence(Qt::Key_F6), [this] {
        m_state.columnVisibility = true;
        m_window.list().setFocus(Qt::ShortcutFocusReason);
    }));
}

void LibraryActions::followSelection()
{
    const bool isSelected = m_state.selectedItem.value().has_value();
    m_delete->setVisible(isSelected);
    m_moveUp->setEnabled(isSelected);
    m_moveDown->setEnabled(isSelected);
    followFolder();
}

void LibraryActions::followFolder()
{
    const std::optional<int> row = m_state.selectedRow();
    const LibraryRow *selected = row ? m_state.rows()[static_cast<std::size_t>(*row)].row : nullptr;
    const bool isFolder = selected != nullptr && selected->isFolder;
    m_toggle->setEnabled(isFolder);
    m_toggle->setText(isFolder && selected->expanded ? tr("Close Folder") : tr("Open Folder"));
}
