// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/Sidebar.h"

#include "Quillery_Mac/editor/LibraryList.h"
#include "Quillery_Mac/editor/LibraryState.h"
#include "Quillery_Mac/ui/PaletteColors.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace {

constexpr int kMargin = 8;
/// How much the list reaches out beyond its rows, for its ring.
constexpr int kRingRoom = LibraryList::kRingRoom;

} // namespace

Sidebar::Sidebar(LibraryState &state, QWidget *parent)
    : QWidget(parent)
    , m_state(state)
    , m_search(new SearchField(this))
    , m_list(new LibraryList(state, this))
    , m_searchObserver(state.searchText.addNotifier([this] {
        if (m_search->text() != m_state.searchText.value())
            m_search->setText(m_state.searchText.value());
    }))
{
    auto *fieldRow = new QHBoxLayout;
    fieldRow->setContentsMargins(kRingRoom, 0, kRingRoom, 0);
    fieldRow->addWidget(m_search);
    auto *column = new QVBoxLayout(this);
    const int margin = kMargin - kRingRoom;
    column->setContentsMargins(margin, kMargin, margin, margin);
    column->setSpacing(kMargin - kRingRoom);
    column->addLayout(fieldRow);
    column->addWidget(m_list, 1);
    m_search->setContextMenuPolicy(Qt::DefaultContextMenu);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this,
            [this](const QString &text) { m_state.searchText = text; });
}

bool Sidebar::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        m_search->showsRing = true;
        break;
    case QEvent::FocusOut:
        m_search->showsRing = false;
        break;
    case QEvent::KeyPress:
        if (searchKey(static_cast<QKeyEvent *>(event)->key()))
            return true;
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// Escape gives the search up; down and Return go on to what was found.
bool Sidebar::searchKey(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        if (m_search->text().isEmpty())
            return false;
        m_search->clear();
        return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_list->setFocus(Qt::ShortcutFocusReason);
        if (!m_state.selectedRow())
            m_list->chooseNext(1);
        return true;
    default:
        return false;
    }
}

void Sidebar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), paletteColors::sidebar(palette()));
}
