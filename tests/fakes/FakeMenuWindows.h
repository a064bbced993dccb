// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/MenuWindows.h"

#include <QWidget>

#include <map>
#include <vector>

/// Menu windows without a desktop: they show and hide, and a test says when the keyboard leaves.
class FakeMenuWindows : public platform::MenuWindows
{
public:
    QString backendId() const override { return QStringLiteral("fake"); }
    platform::Availability availability() const override { return {true, {}}; }

    void prepare(QWidget &window) override { prepared.push_back(&window); }

    void present(QWidget &menu) override
    {
        ++presentCount;
        m_menu = &menu;
        m_isKey = true;
        menu.show();
        giveKeyboardTo(menu);
    }

    void showPopover(QWidget &popover) override
    {
        if (!popovers.contains(&popover))
            popovers.append(&popover);
        popover.show();
    }

    void hidePopover(QWidget &popover) override
    {
        popovers.removeAll(&popover);
        popover.hide();
        if (keyboardWindow == &popover && m_menu != nullptr)
            giveKeyboardTo(*m_menu);
    }

    void giveKeyboardTo(QWidget &window) override
    {
        keyboardWindow = &window;
        window.activateWindow();
    }

    void dismiss() override
    {
        if (m_menu == nullptr)
            return;
        ++dismissCount;
        const QList<QWidget *> shown = std::exchange(popovers, {});
        for (QWidget *popover : shown)
            popover->hide();
        std::exchange(m_menu, nullptr)->hide();
        loseKeyboard();
    }

    bool isComposited() const override { return composited; }
    bool canBlur() const override { return blurs; }
    void blurBehind(QWidget &window, qreal) override { blurredSizes[&window] = window.size(); }
    bool isKey() const override { return m_isKey; }

    /// What a click elsewhere does: the windows stay shown, the keyboard is gone.
    void loseKeyboard()
    {
        keyboardWindow = nullptr;
        if (std::exchange(m_isKey, false))
            emit resigned();
    }

    std::vector<QWidget *> prepared;
    QList<QWidget *> popovers;         ///< those shown now
    QWidget *keyboardWindow = nullptr; ///< the one that has the keyboard now
    bool composited = false;
    bool blurs = false;
    std::map<QWidget *, QSize> blurredSizes; ///< of each window when it last asked for it
    int presentCount = 0;
    int dismissCount = 0;

private:
    QWidget *m_menu = nullptr;
    bool m_isKey = false;
};
