// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/PageStack.h"

#include "Quillery_Mac/ui/Motion.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <algorithm>
#include <cmath>
#include <utility>

PageStack::PageStack(QWidget *parent)
    : QWidget(parent)
{
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
    m_leaving = std::exchange(m_current, page);
    m_pages.at(static_cast<std::size_t>(page))->show();
    const int duration = isVisible() ? motion::duration(*this, tokens::kPageMotion) : 0;
    if (duration == 0) {
        endMotion();
        return;
    }
    // What slides out does not answer any more.
    m_pages.at(static_cast<std::size_t>(m_leaving))
        ->setAttribute(Qt::WA_TransparentForMouseEvents, true);
    m_motion.setDuration(duration);
    place(0);
    m_motion.start();
}

void PageStack::place(qreal progress)
{
    if (m_leaving < 0)
        return;
    const bool isForward = m_current > m_leaving;
    const int side = isForward == (layoutDirection() == Qt::LeftToRight) ? 1 : -1;
    const int way = static_cast<int>(std::lround((1 - progress) * width()));
    m_pages.at(static_cast<std::size_t>(m_current))->move(side * way, 0);
    m_pages.at(static_cast<std::size_t>(m_leaving))->move(side * (way - width()), 0);
}

void PageStack::endMotion()
{
    if (m_leaving >= 0) {
        QWidget *left = m_pages.at(static_cast<std::size_t>(std::exchange(m_leaving, -1)));
        left->hide();
        left->setAttribute(Qt::WA_TransparentForMouseEvents, false);
    }
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
