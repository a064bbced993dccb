// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/ClearHistoryRow.h"

#include "Quillery_Mac/menu/MenuState.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/TintedButton.h"
#include "Quillery_Mac/ui/Tokens.h"

ClearHistoryRow::ClearHistoryRow(MenuState &state, PointerMotion &motion,
                                 std::function<void()> clear, QWidget *parent)
    : MenuRow(state, motion, tr("Clear History"), optionWords::kClear, Ending::None, parent)
    , m_clear(std::move(clear))
    , m_cancel(new TintedButton(tr("Cancel"), TintedButton::Role::Cancel, this))
    , m_confirm(new TintedButton(
          tr("Confirm?", "deletes the whole history; beside \"Cancel\" in a narrow row"),
          TintedButton::Role::Destructive, this))
    , m_alertObserver(state.clearAlert.addNotifier([this] { alertChanged(); }))
{
    connect(m_cancel, &QAbstractButton::clicked, this,
            [this] { this->state().clearAlert = false; });
    connect(m_confirm, &QAbstractButton::clicked, this, [this] {
        m_clear();
        this->state().clearAlert = false;
    });
    alertChanged();
}

void ClearHistoryRow::activate()
{
    state().clearAlert = true;
}

void ClearHistoryRow::focusCancel()
{
    m_cancel->setFocus(Qt::TabFocusReason);
}

bool ClearHistoryRow::hasButtonFocus() const
{
    return m_cancel->hasFocus() || m_confirm->hasFocus();
}

void ClearHistoryRow::pointerEntered()
{
    state().actionRowHovered(word(), true);
}

void ClearHistoryRow::pointerLeft()
{
    state().actionRowHovered(word(), false);
}

bool ClearHistoryRow::isTarget(QPointF position) const
{
    return MenuRow::isTarget(position) && !state().clearAlert.value();
}

qreal ClearHistoryRow::labelEnd() const
{
    if (!state().clearAlert.value())
        return MenuRow::labelEnd();
    return width() - tokens::kMenuRowPadding - buttonsWidth() - tokens::kTextGap;
}

void ClearHistoryRow::resizeEvent(QResizeEvent *event)
{
    MenuRow::resizeEvent(event);
    placeButtons();
}

void ClearHistoryRow::alertChanged()
{
    const bool isAsking = state().clearAlert.value();
    placeButtons();
    m_cancel->setVisible(isAsking);
    m_confirm->setVisible(isAsking);
    update();
}

int ClearHistoryRow::buttonsWidth() const
{
    return m_cancel->sizeHint().width() + m_confirm->sizeHint().width() -
           2 * TintedButton::margin();
}

void ClearHistoryRow::placeButtons()
{
    const QRectF whole = rect();
    const auto place = [&whole, this](QWidget *button, int right) {
        const QSize size = button->sizeHint();
        const QRectF box(right - size.width(), (height() - size.height()) / 2.0, size.width(),
                         size.height());
        button->setGeometry(drawing::mirrored(box, whole, layoutDirection()).toRect());
    };
    const int end = width() - tokens::kMenuRowPadding + TintedButton::margin();
    place(m_confirm, end);
    place(m_cancel, end - m_confirm->sizeHint().width());
}
