// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/onboarding/PageDots.h"

#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"

#include <QPainter>

namespace {

constexpr int kDot = 7;
constexpr int kBar = 18;
constexpr int kGap = 8;

} // namespace

PageDots::PageDots(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PageDots::setPage(int page, int count)
{
    m_page = page;
    m_count = count;
    // Said by the page's heading already; the dots are for the eye, but not without a name.
    setAccessibleName(tr("Page %1 of %2").arg(page + 1).arg(count));
    updateGeometry();
    update();
}

QSize PageDots::sizeHint() const
{
    return {m_count == 0 ? 0 : (m_count - 1) * (kDot + kGap) + kBar, kDot};
}

void PageDots::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor rest = paletteColors::text(palette());
    constexpr float kRest = 0.3F;
    if (!paletteColors::isHighContrast(palette()))
        rest.setAlphaF(kRest);
    qreal place = 0;
    for (int page = 0; page < m_count; ++page) {
        const QRectF dot(place, (height() - kDot) / 2.0, page == m_page ? kBar : kDot, kDot);
        painter.setBrush(page == m_page ? paletteColors::highlight(palette()) : rest);
        painter.drawRoundedRect(drawing::mirrored(dot, rect(), layoutDirection()), kDot / 2.0,
                                kDot / 2.0);
        place += dot.width() + kGap;
    }
}
