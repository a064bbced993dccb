// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/SystemImage.h"

#include "resources/Resources.h"

#include <QCache>
#include <QFile>
#include <QPaintDevice>
#include <QPainter>
#include <QSvgRenderer>
#include <QTransform>

#include <cmath>
#include <utility>

namespace systemImage {

namespace {

using Key = std::pair<std::pair<QString, int>, QRgb>; // name, edge in device pixels; colour

// Every image in use at once, in a few sizes and colours, is far less than this.
constexpr int kKeptImages = 200;
// Below this many device pixels the full drawing of the application icon is a blur.
constexpr int kFullIcon = 48;

QImage render(const QString &file, int pixels)
{
    initializeResources();
    if (!QFile::exists(file))
        return {};
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(file).render(&painter, QRectF(0, 0, pixels, pixels));
    return image;
}

QPixmap recolored(QImage image, const QColor &color)
{
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    return QPixmap::fromImage(std::move(image));
}

} // namespace

QPixmap pixmap(const QString &name, int points, qreal ratio, const QColor &color)
{
    static QCache<Key, QPixmap> kept(kKeptImages);
    const int pixels = qRound(points * ratio);
    const Key key({name, pixels}, color.rgba());
    if (const QPixmap *found = kept.object(key)) {
        QPixmap image = *found;
        image.setDevicePixelRatio(ratio);
        return image;
    }
    const QImage drawing = render(QStringLiteral(":/quillery/images/%1.svg").arg(name), pixels);
    if (drawing.isNull())
        return {};
    QPixmap image = recolored(drawing, color);
    image.setDevicePixelRatio(ratio);
    kept.insert(key, new QPixmap(image));
    return image;
}

void draw(QPainter &painter, const QString &name, QPointF topLeft, int points, const QColor &color,
          bool mirrored)
{
    const qreal ratio = painter.device()->devicePixelRatio();
    QPixmap image = pixmap(name, points, ratio, color);
    if (mirrored) {
        image = image.transformed(QTransform::fromScale(-1, 1));
        image.setDevicePixelRatio(ratio);
    }
    const QPointF snapped(std::round(topLeft.x() * ratio) / ratio,
                          std::round(topLeft.y() * ratio) / ratio);
    painter.drawPixmap(snapped, image);
}

QIcon applicationIcon()
{
    QIcon icon;
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const QString file = pixels < kFullIcon
                                 ? QStringLiteral(":/quillery/icon/quillery-small.svg")
                                 : QStringLiteral(":/quillery/icon/quillery.svg");
        icon.addPixmap(QPixmap::fromImage(render(file, pixels)));
    }
    return icon;
}

} // namespace systemImage
