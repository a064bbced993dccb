// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

/// The picture in the desktop's bar, "cloud.fog.fill" in `color`, in the sizes that bars use.
QIcon makeTrayIcon(const QColor &color);
