// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/TrayIcon.h"

#include "Quillery_Mac/ui/SystemImage.h"

QIcon makeTrayIcon(const QColor &color)
{
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64})
        icon.addPixmap(systemImage::pixmap(QStringLiteral("cloud.fog.fill"), size, 1.0, color));
    return icon;
}
