// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/PanelWindow.h"

#include "Quillery_Mac/ui/Popover.h"
#include "Quillery_Mac/ui/Tokens.h"
#include "Quillery_Mac/ui/VisualEffect.h"

#include <QEvent>

PanelWindow::PanelWindow(platform::MenuWindows &windows, QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint)
    , m_windows(windows)
    , m_ground(new VisualEffect(this))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_windows.prepare(*this);
}

// What the popover holds is connected to the content.
PanelWindow::~PanelWindow()
{
    delete m_popover;
    delete m_content;
}

void PanelWindow::setContent(QWidget *content)
{
    if (m_popover != nullptr)
        m_popover->dismiss();
    if (m_content != nullptr) {
        m_content->hide();
        m_content->deleteLater();
    }
    m_content = content;
    if (m_content == nullptr)
        return;
    m_content->setParent(this);
    m_content->show();
    followContent();
    m_content->setFocus();
}

Popover &PanelWindow::popover()
{
    if (m_popover == nullptr)
        m_popover = new Popover(*this);
    return *m_popover;
}

QSize PanelWindow::sizeHint() const
{
    const QSize content = m_content != nullptr ? m_content->sizeHint() : QSize(0, 0);
    return content + QSize(2 * m_margin, 2 * m_margin);
}

void PanelWindow::setMargin(int margin)
{
    m_margin = margin;
}

void PanelWindow::followContent()
{
    resize(sizeHint());
    layOut();
}

bool PanelWindow::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest && m_content != nullptr)
        followContent();
    return QWidget::event(event);
}

void PanelWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layOut();
    if (isVisible())
        blurBehind();
}

void PanelWindow::showEvent(QShowEvent *event)
{
    m_ground->setComposited(m_windows.isComposited());
    m_isBlurred = m_windows.canBlur();
    m_ground->setBlurred(m_isBlurred);
    blurBehind();
    QWidget::showEvent(event);
}

void PanelWindow::blurBehind()
{
    if (m_isBlurred)
        m_windows.blurBehind(*this, tokens::kWindowRadius);
}

void PanelWindow::layOut()
{
    m_ground->setGeometry(rect());
    m_ground->lower();
    if (m_content != nullptr)
        m_content->setGeometry(rect().adjusted(m_margin, m_margin, -m_margin, -m_margin));
}
