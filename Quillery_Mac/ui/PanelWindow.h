// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/MenuWindows.h"

#include <QPointer>
#include <QWidget>

class Popover;
class VisualEffect;

/// A frameless window that draws the menu ground and is as large as what it holds: the paste menu,
/// the menu-bar window, a popover. It is kept hidden while it is not needed, so that showing it
/// costs no new window. Main thread only.
class PanelWindow : public QWidget
{
    Q_OBJECT

public:
    /// @param windows the group that this window is shown in; outlives it
    explicit PanelWindow(platform::MenuWindows &windows, QWidget *parent = nullptr);
    ~PanelWindow() override;

    /// Makes `content` (null: nothing) fill the window and takes it over. What was there before
    /// disappears at once, its popover with it, and is destroyed when the event loop runs: it may
    /// be the caller.
    void setContent(QWidget *content);
    QWidget *content() const { return m_content; }

    /// The one popover that stands beside this window; made when first asked for.
    Popover &popover();
    bool hasPopover() const { return m_popover != nullptr; }

    platform::MenuWindows &menuWindows() const { return m_windows; }

    QSize sizeHint() const override;

protected:
    /// Between the window's edge and its content, on each side, in points.
    void setMargin(int margin);
    /// Takes the size that the content wants now.
    virtual void followContent();

    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void layOut();
    void blurBehind();

    platform::MenuWindows &m_windows;
    VisualEffect *m_ground;
    QPointer<QWidget> m_content;
    Popover *m_popover = nullptr;
    int m_margin = 0;
    bool m_isBlurred = false; ///< what is behind; known once the window is shown
};
