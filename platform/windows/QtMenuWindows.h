// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/MenuWindows.h"

#include <QList>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace platform {

/// Menu windows by the toolkit alone, for displays without a back end of their own.
///
/// Showing a menu makes the program the active application here, and the desktop decides which
/// window is active afterwards.
class QtMenuWindows : public MenuWindows
{
    Q_OBJECT

public:
    QtMenuWindows();

    QString backendId() const override;
    Availability availability() const override;
    void prepare(QWidget &window) override;
    void present(QWidget &menu) override;
    void showPopover(QWidget &popover) override;
    void hidePopover(QWidget &popover) override;
    void giveKeyboardTo(QWidget &window) override;
    void dismiss() override;
    bool isKey() const override;

private:
    bool isInGroup(const QWindow *window) const;
    void focusMoved();
    void resign();

    QPointer<QWidget> m_menu;
    QList<QPointer<QWidget>> m_popovers; ///< those shown now
    bool m_isPresented = false;          ///< from present() to dismiss()
    bool m_isKey = false;
    bool m_hadFocus = false; ///< since present(): before that there is none to lose
};

} // namespace platform
