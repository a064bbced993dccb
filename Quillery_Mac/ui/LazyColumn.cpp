// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/LazyColumn.h"

#include "Quillery_Mac/ui/Motion.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/RowAccessible.h"
#include "Quillery_Mac/ui/RowOutline.h"
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
    m_slide.setEasingCurve(QEasingCurve::OutQuad);
    connect(&m_slide, &QVariantAnimation::valueChanged, this, [this](const QVariant &shift) {
        m_slideShift = shift.toInt();
        layOut(Bind::NewOnly);
    });
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
    m_slide.stop();
    m_slideShift = 0;
    rebind();
}

void LazyColumn::rebind()
{
    layOut(Bind::All);
    update();
}

void LazyColumn::slide(int first, int count)
{
    reload();
    const int duration = motion::duration(*this, tokens::kFolderMotion);
    if (duration == 0 || !isVisible())
        return;
    m_slideFirst = first;
    m_slideEnd = first + std::max(0, count);
    const int way = std::min(std::abs(count) * m_rowHeight, height());
    m_slide.setDuration(duration);
    m_slide.setStartValue(count > 0 ? -way : way);
    m_slide.setEndValue(0);
    m_slide.start();
}

void LazyColumn::release()
{
    m_slide.stop();
    m_slideShift = 0;
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

int LazyColumn::rowAt(int y) const
{
    const int row = (y + m_bar->value()) / m_rowHeight;
    return y >= 0 && row < m_rows.rowCount() ? row : -1;
}

int LazyColumn::topOf(int row) const
{
    return row * m_rowHeight - m_bar->value();
}

void LazyColumn::scrollBy(int points)
{
    m_bar->setValue(m_bar->value() + points);
}

QWidget *LazyColumn::rowWidget(int row) const
{
    const auto found = m_shown.find(row);
    return found != m_shown.end() ? found->second : nullptr;
}

int LazyColumn::rowOf(const QWidget &widget) const
{
    const auto found = std::find_if(m_shown.begin(), m_shown.end(), [&widget](const auto &shown) {
        return shown.second == &widget;
    });
    return found != m_shown.end() ? found->first : RowOutline::kNone;
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
        std::min(m_rows.rowCount(),
                 (offset + height() + std::max(0, -m_slideShift) + m_rowHeight - 1) / m_rowHeight);
    recycleOutside(first, last);
    bool isOrderOther = false;
    for (int row = first; row < last; ++row) {
        const int kind = m_rows.kindOfRow(row);
        QWidget *&widget = m_shown[row];
        const bool isOfKind = widget != nullptr && m_kinds.at(widget) == kind;
        const bool isNew = !isOfKind;
        if (isNew && widget != nullptr)
            recycle(*widget);
        if (isNew) {
            widget = takeWidget(kind);
            isOrderOther = true;
        }
        if (isNew || bind == Bind::All)
            m_rows.bindRow(*widget, row);
        widget->setGeometry(0, row * m_rowHeight - offset + slideOffset(row), m_viewport->width(),
                            m_rowHeight);
        mask(*widget, row);
        widget->show();
    }
    // Screen readers go through the widgets in their stacking order.
    for (const auto &[row, widget] : m_shown) {
        if (isOrderOther)
            widget->raise();
    }
}

void LazyColumn::recycleOutside(int first, int last)
{
    for (auto it = m_shown.begin(); it != m_shown.end();) {
        if (it->first >= first && it->first < last) {
            ++it;
            continue;
        }
        recycle(*it->second);
        it = m_shown.erase(it);
    }
}

void LazyColumn::recycle(QWidget &widget)
{
    m_rows.unbindRow(widget);
    widget.hide();
    m_unused[m_kinds.at(&widget)].push_back(&widget);
}

int LazyColumn::slideOffset(int row) const
{
    return row >= m_slideEnd ? m_slideShift : 0;
}

// A row that comes in is seen as far as the rows behind it have made room. The mask begins above
// the row: an empty one would be none.
void LazyColumn::mask(QWidget &widget, int row) const
{
    const int front = m_slideEnd * m_rowHeight + m_slideShift;
    const int seen = front - row * m_rowHeight;
    const bool isComingIn = row >= m_slideFirst && row < m_slideEnd && seen < m_rowHeight;
    if (m_slideShift < 0 && isComingIn)
        widget.setMask(QRegion(0, -1, widget.width(), 1 + std::max(0, seen)));
    else if (!widget.mask().isEmpty())
        widget.clearMask();
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
