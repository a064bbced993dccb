// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/LazyColumn.h"

#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/RowAccessible.h"
#include "Quillery_Mac/ui/ThinScrollBar.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kRowsPerWheelNotch = 3;
constexpr qreal kWheelNotch = 120; // eighths of a degree, as QWheelEvent counts

} // namespace

LazyColumn::LazyColumn(LazyColumnRows &rows, QWidget *parent)
    : QWidget(parent)
    , m_rows(rows)
    , m_viewport(new QWidget(this))
    , m_bar(new ThinScrollBar(this))
{
    installRowAccessibility();
    setFocusPolicy(Qt::NoFocus);
    connect(m_bar, &QScrollBar::valueChanged, this, [this] { layOut(Bind::NewOnly); });
}

void LazyColumn::setRowHeight(int height)
{
    m_rowHeight = std::max(1, height);
    m_bar->setSingleStep(m_rowHeight);
    layOut(Bind::NewOnly);
}

void LazyColumn::setEmptyText(const QString &text)
{
    if (m_emptyText == text)
        return;
    m_emptyText = text;
    update();
}

void LazyColumn::reload()
{
    layOut(Bind::All);
    update();
}

void LazyColumn::release()
{
    recycleOutside(0, 0);
}

void LazyColumn::ensureVisible(int row)
{
    const int top = row * m_rowHeight;
    const int bottom = top + m_rowHeight;
    if (top < m_bar->value())
        m_bar->setValue(top);
    else if (bottom > m_bar->value() + height())
        m_bar->setValue(bottom - height());
}

QWidget *LazyColumn::rowWidget(int row) const
{
    const auto found = m_shown.find(row);
    return found != m_shown.end() ? found->second : nullptr;
}

int LazyColumn::contentHeight() const
{
    return m_rows.rowCount() * m_rowHeight;
}

void LazyColumn::paintEvent(QPaintEvent *)
{
    if (m_rows.rowCount() > 0 || m_emptyText.isEmpty())
        return;
    QPainter painter(this);
    painter.setPen(paletteColors::quietText(palette()));
    const QRect room = rect().adjusted(tokens::kListRowPadding, 0, -tokens::kListRowPadding, 0);
    painter.drawText(room, Qt::AlignCenter,
                     fontMetrics().elidedText(m_emptyText, Qt::ElideRight, room.width()));
}

void LazyColumn::resizeEvent(QResizeEvent *)
{
    layOut(Bind::NewOnly);
}

void LazyColumn::wheelEvent(QWheelEvent *event)
{
    const qreal points = event->pixelDelta().isNull() ? event->angleDelta().y() / kWheelNotch *
                                                            kRowsPerWheelNotch * m_rowHeight
                                                      : event->pixelDelta().y();
    m_wheelRest += points;
    const int whole = static_cast<int>(std::trunc(m_wheelRest));
    m_wheelRest -= whole;
    m_bar->setValue(m_bar->value() - whole);
    event->accept();
}

void LazyColumn::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        update();
}

void LazyColumn::layOutBar()
{
    const bool isNeeded = contentHeight() > height();
    const int gutter = isNeeded ? tokens::kScrollGutter : 0;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    m_viewport->setGeometry(isMirrored ? gutter : 0, 0, width() - gutter, height());
    m_bar->setGeometry(isMirrored ? 0 : width() - gutter, 0, tokens::kScrollGutter, height());
    m_bar->setVisible(isNeeded);
    const QSignalBlocker quiet(m_bar);
    m_bar->setPageStep(height());
    m_bar->setRange(0, std::max(0, contentHeight() - height()));
}

void LazyColumn::layOut(Bind bind)
{
    layOutBar();
    const int offset = m_bar->value();
    const int first = offset / m_rowHeight;
    const int last =
        std::min(m_rows.rowCount(), (offset + height() + m_rowHeight - 1) / m_rowHeight);
    recycleOutside(first, last);
    for (int row = first; row < last; ++row) {
        const int kind = m_rows.kindOfRow(row);
        QWidget *&widget = m_shown[row];
        const bool isOfKind = widget != nullptr && m_kinds.at(widget) == kind;
        const bool isNew = !isOfKind;
        if (isNew && widget != nullptr) {
            m_rows.unbindRow(*widget);
            widget->hide();
            m_unused[m_kinds.at(widget)].push_back(widget);
        }
        if (isNew)
            widget = takeWidget(kind);
        if (isNew || bind == Bind::All)
            m_rows.bindRow(*widget, row);
        widget->setGeometry(0, row * m_rowHeight - offset, m_viewport->width(), m_rowHeight);
        widget->show();
    }
}

void LazyColumn::recycleOutside(int first, int last)
{
    for (auto it = m_shown.begin(); it != m_shown.end();) {
        if (it->first >= first && it->first < last) {
            ++it;
            continue;
        }
        m_rows.unbindRow(*it->second);
        it->second->hide();
        m_unused[m_kinds.at(it->second)].push_back(it->second);
        it = m_shown.erase(it);
    }
}

QWidget *LazyColumn::takeWidget(int kind)
{
    std::vector<QWidget *> &unused = m_unused[kind];
    if (unused.empty()) {
        QWidget *made = m_rows.makeRow(kind, m_viewport);
        m_kinds[made] = kind;
        return made;
    }
    QWidget *widget = unused.back();
    unused.pop_back();
    return widget;
}
