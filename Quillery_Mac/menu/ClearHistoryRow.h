// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/menu/MenuRow.h"

#include <functional>

class TintedButton;

/// The "Clear History" row: asks for a confirmation beside its label and never closes the menu.
class ClearHistoryRow : public MenuRow
{
    Q_OBJECT

public:
    /// @param clear deletes the history; called when the user confirmed
    ClearHistoryRow(MenuState &state, PointerMotion &motion, std::function<void()> clear,
                    QWidget *parent);

    void activate() override;
    /// Gives the keyboard to "Cancel", so that Return deletes nothing.
    void focusCancel();
    bool hasButtonFocus() const;

protected:
    void pointerEntered() override;
    void pointerLeft() override;
    bool isTarget(QPointF position) const override;
    qreal labelEnd() const override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void alertChanged();
    void placeButtons();
    int buttonsWidth() const;

    std::function<void()> m_clear;
    TintedButton *m_cancel;
    TintedButton *m_confirm;
    QPropertyNotifier m_alertObserver;
};
