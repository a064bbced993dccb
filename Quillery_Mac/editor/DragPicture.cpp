// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/DragPicture.h"

#include "Quillery_Mac/editor/LibraryRowView.h"
#include "Quillery_Mac/ui/Drawing.h"
#include "Quillery_Mac/ui/PaletteColors.h"
#include "Quillery_Mac/ui/SystemImage.h"
#include "Quillery_Mac/ui/Tokens.h"

#include <QPainter>

namespace {

constexpr int kMaximumWidth = 240;
constexpr int kBadgePadding = 6;

} // namespace

QPixmap dragPicture(const LibraryRowView &row, int count)
{
    const QPalette &palette = row.palette();
    const qreal ratio = row.devicePixelRatioF();
    const QFont badgeFont = drawing::scaled(row.font(), tokens::kTallyFont);
    const QString badge = row.isExpandable() ? QString::number(count) : QString();
    const int line = row.fontMetrics().height();
    const int height = line + tokens::kLibraryRowPadding;
    const int badgeHeight = line;
    const int badgeWidth =
        badge.isEmpty() ? 0
                        : std::max(badgeHeight, QFontMetrics(badgeFont).horizontalAdvance(badge) +
                                                    2 * kBadgePadding);
    const int chevron = row.isExpandable() ? tokens::kMenuChevron + tokens::kSmallGap : 0;
    const int beside = 2 * tokens::kListRowPadding + chevron +
                       (badgeWidth > 0 ? badgeWidth + tokens::kSmallGap : 0);
    const int text =
        std::min(row.fontMetrics().horizontalAdvance(row.name()) + 1, kMaximumWidth - beside);

    QPixmap picture((QSizeF(beside + text, height) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF whole(0, 0, beside + text, height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paletteColors::window(palette));
    painter.drawRoundedRect(whole, tokens::kHighlightRadius, tokens::kHighlightRadius);
    drawing::strokeInside(painter, whole, tokens::kHighlightRadius,
                          drawing::hairline(paletteColors::lineWidth(palette), ratio),
                          paletteColors::windowEdge(palette));

    const Qt::LayoutDirection reading = row.layoutDirection();
    qreal x = tokens::kListRowPadding;
    if (chevron > 0) {
        const QRectF box(x, (height - tokens::kMenuChevron) / 2.0, tokens::kMenuChevron,
                         tokens::kMenuChevron);
        systemImage::draw(
            painter,
            row.isExpanded() ? QStringLiteral("chevron.down") : QStringLiteral("chevron.right"),
            drawing::mirrored(box, whole, reading).topLeft(), tokens::kMenuChevron,
            paletteColors::text(palette), reading == Qt::RightToLeft && !row.isExpanded());
        x += chevron;
    }
    drawing::drawLine(painter, drawing::mirrored(QRectF(x, 0, text, height), whole, reading),
                      {row.name(), row.font(), paletteColors::text(palette), {}, reading});
    if (badge.isEmpty())
        return picture;
    x += text + tokens::kSmallGap;
    const QRectF disc = drawing::mirrored(
        QRectF(x, (height - badgeHeight) / 2.0, badgeWidth, badgeHeight), whole, reading);
    painter.setPen(Qt::NoPen);
    painter.setBrush(paletteColors::highlight(palette));
    painter.drawRoundedRect(disc, badgeHeight / 2.0, badgeHeight / 2.0);
    painter.setPen(paletteColors::highlightedText(palette));
    painter.setFont(badgeFont);
    painter.drawText(disc, Qt::AlignCenter, badge);
    return picture;
}

QPoint dragHotSpot()
{
    return {-12, -8};
}
