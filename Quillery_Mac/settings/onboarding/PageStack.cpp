// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/PageStack.h"

#include "Quillery_Mac/ui/Motion.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QLabel>

#include <algorithm>
#include <cmath>
#include <utility>

PageStack::PageStack(QWidget *parent)
    : QWidget(parent)
    , m_leaving(new QLabel(this))
{
    m_leaving->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_leaving->hide();
    m_motion.setStartValue(0.0);
    m_motion.setEndValue(1.0);
    m_motion.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_motion, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { place(value.toReal()); });
    connect(&m_motion, &QVariantAnimation::finished, this, &PageStack::endMotion);
}

void PageStack::addPage(QWidget *page)
{
    page->setParent(this);
    page->setGeometry(rect());
    page->setVisible(m_pages.empty());
    m_pages.push_back(page);
}

void PageStack::show(int page)
{
    if (page == m_current || page < 0 || page >= static_cast<int>(m_pages.size()))
        return;
    m_motion.stop();
    endMotion();
    m_former = std::exchange(m_current, page);
    QWidget &former = *m_pages.at(static_cast<std::size_t>(m_former));
    const int duration = isVisible() ? motion::duration(*this, tokens::kPageMotion) : 0;
    if (duration > 0) {
        m_leaving->setPixmap(former.grab());
        m_leaving->resize(size());
        m_leaving->show();
    }
    m_pages.at(static_cast<std::size_t>(page))->show();
    former.hide();
    if (duration == 0) {
        endMotion();
        return;
    }
    m_motion.setDuration(duration);
    place(0);
    m_motion.start();
}

void PageStack::place(qreal progress)
{
    if (m_leaving->isHidden())
        return;
    const bool isForward = m_current > m_former;
    const int side = isForward == (layoutDirection() == Qt::LeftToRight) ? 1 : -1;
    const int way = static_cast<int>(std::lround((1 - progress) * width()));
    m_pages.at(static_cast<std::size_t>(m_current))->move(side * way, 0);
    m_leaving->move(side * (way - width()), 0);
}

void PageStack::endMotion()
{
    m_leaving->hide();
    m_leaving->clear();
    if (!m_pages.empty())
        m_pages.at(static_cast<std::size_t>(m_current))->setGeometry(rect());
}

QSize PageStack::sizeFor(int width) const
{
    for (const QWidget *page : m_pages)
        width = std::max(width, page->minimumSizeHint().width());
    int height = 0;
    for (const QWidget *page : m_pages) {
        const int wanted =
            page->hasHeightForWidth() ? page->heightForWidth(width) : page->sizeHint().height();
        height = std::max(height, wanted);
    }
    return {width, height};
}

void PageStack::resizeEvent(QResizeEvent *)
{
    for (QWidget *page : m_pages)
        page->resize(size());
}
