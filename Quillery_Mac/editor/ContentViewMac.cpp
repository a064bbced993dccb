// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/ContentViewMac.h"

#include "Quillery_Mac/editor/DroppedText.h"
#include "Quillery_Mac/editor/LibraryActions.h"
#include "Quillery_Mac/editor/LibraryToolbar.h"
#include "Quillery_Mac/editor/OpenDrag.h"
#include "Quillery_Mac/editor/Sidebar.h"
#include "Quillery_Mac/editor/SnippetDetailMac.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QSplitter>
#include <QSplitterHandle>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr QSize kWindowSize(760, 480);
constexpr QSize kSmallestWindow(716, 360);
constexpr int kSidebarWidth = 215;
/// With what a button keeps free beside its image, the images start where the captions below do.
constexpr int kToolbarMargin = 12;

/// The line between the columns.
class ColumnDivider : public QSplitterHandle
{
public:
    using QSplitterHandle::QSplitterHandle;

protected:
    void paintEvent(QPaintEvent *) override
    {
        // The rest of the handle is room to grip it.
        QPainter(this).fillRect(contentsRect(), paletteColors::divider(palette()));
    }
};

/// Two columns that touch, with a line between them.
class Columns : public QSplitter
{
public:
    explicit Columns(QWidget *parent)
        : QSplitter(parent)
    {
        setChildrenCollapsible(false);
        setHandleWidth(qRound(paletteColors::lineWidth(palette())));
    }

protected:
    QSplitterHandle *createHandle() override { return new ColumnDivider(orientation(), this); }
};

} // namespace

ContentViewMac::ContentViewMac(const EditorLinks &links, QWidget *parent)
    : QMainWindow(parent)
    , m_links(links)
    , m_state(links.viewContext, links.matcher)
{
    m_split = new Columns(this);
    m_split->addWidget(buildSidebar());
    m_actions = new LibraryActions(*this, m_links, m_state);
    m_split->addWidget(buildDetailColumn());
    m_split->setStretchFactor(0, 0);
    m_split->setStretchFactor(1, 1);
    m_split->setSizes({kSidebarWidth, kWindowSize.width() - kSidebarWidth});
    setCentralWidget(m_split);
    m_actions->fill(*menuBar());
    setAcceptDrops(true);
    setMinimumSize(kSmallestWindow);
    resize(kWindowSize);
    takeColors();
    observe();
    showDetail();
}

ContentViewMac::~ContentViewMac()
{
    dropDetail();
    // The list lets go of its rows before the state goes.
    delete m_split;
}

QWidget *ContentViewMac::buildSidebar()
{
    auto *sidebar = new Sidebar(m_state, this);
    m_search = &sidebar->searchField();
    m_list = &sidebar->list();
    m_sidebar = sidebar;
    m_sidebar->setMinimumWidth(kSidebarWidth);
    m_search->installEventFilter(this);
    return sidebar;
}

QWidget *ContentViewMac::buildDetailColumn()
{
    auto *column = new QWidget(this);
    m_detailColumn = new QVBoxLayout(column);
    m_detailColumn->setContentsMargins(0, 0, 0, 0);
    m_detailColumn->setSpacing(0);
    m_toolbar = new LibraryToolbar(*m_actions, column);
    m_placeholder = new QLabel(tr("<-- Select a Snippet. Press + to create a new Snippet"), column);
    m_placeholder->setTextFormat(Qt::PlainText);
    m_placeholder->setAlignment(Qt::AlignCenter);
    m_placeholder->setWordWrap(true);
    auto *toolbarRow = new QHBoxLayout;
    toolbarRow->setContentsMargins(kToolbarMargin, 0, kToolbarMargin, 0);
    toolbarRow->addWidget(m_toolbar);
    m_detailColumn->addLayout(toolbarRow);
    m_detailColumn->addWidget(m_placeholder, 1);
    return column;
}

void ContentViewMac::observe()
{
    m_observers.push_back(m_state.selectedItem.addNotifier([this] { showDetail(); }));
    m_observers.push_back(m_state.columnVisibility.addNotifier([this] { showColumns(); }));
    // The selected item may come and go by itself, without a change of the selection.
    connect(&m_state.items, &LiveFetchBase::changed, this, &ContentViewMac::showDetail);
    connect(m_list, &LibraryList::menuRequested, m_actions, &LibraryActions::popUp);
    connect(&m_state, &LibraryState::moved, this, [this](const QString &where) {
        QAccessibleEvent event(m_list, QAccessible::Alert);
        m_list->setAccessibleDescription(where);
        QAccessible::updateAccessibility(&event);
    });
}

// A new selection is a new editor: the old one disappears, which saves, and the new one appears,
// which sets its focus.
void ContentViewMac::showDetail()
{
    Snippet *selected = m_state.selected();
    if (selected == m_shown && (selected == nullptr) == (m_detail == nullptr))
        return;
    dropDetail();
    m_shown = selected;
    m_placeholder->setVisible(selected == nullptr);
    if (selected == nullptr)
        return;
    m_detail = new SnippetDetailMac(m_links.viewContext, *selected, m_placeholder->parentWidget());
    m_detailColumn->addWidget(m_detail, 1);
    m_detail->show();
}

void ContentViewMac::dropDetail()
{
    SnippetDetailMac *detail = std::exchange(m_detail, nullptr);
    m_shown = nullptr;
    if (detail == nullptr)
        return;
    detail->disappear();
    detail->hide();
    deleteAfterDrag(*detail);
}

void ContentViewMac::showColumns()
{
    m_sidebar->setVisible(m_state.columnVisibility.value());
}

bool ContentViewMac::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_search && event->type() == QEvent::FocusIn)
        m_links.searchMayBegin();
    return QMainWindow::eventFilter(watched, event);
}

void ContentViewMac::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous())
        m_state.rebuild();
}

void ContentViewMac::closeEvent(QCloseEvent *event)
{
    dropDetail();
    closeAfterDrag(*this);
    event->accept();
}

void ContentViewMac::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        takeColors();
}

void ContentViewMac::takeColors()
{
    m_actions->takeColors();
    QPalette quiet;
    quiet.setColor(QPalette::WindowText, paletteColors::quietText(palette()));
    m_placeholder->setPalette(quiet);
}

void ContentViewMac::dragEnterEvent(QDragEnterEvent *event)
{
    takeText(*event);
}

void ContentViewMac::dragMoveEvent(QDragMoveEvent *event)
{
    takeText(*event);
}

// A row of the list is dropped on rows only. A text stays where it comes from too.
void ContentViewMac::takeText(QDropEvent &event) const
{
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(hasDroppedText(*event.mimeData()) && !m_state.isDragging());
}

void ContentViewMac::dropEvent(QDropEvent *event)
{
    takeText(*event);
    afterDrag(*event, *this, [this, text = droppedText(*event->mimeData())] {
        m_state.dropText(text, std::nullopt, Strip::Above);
    });
}
