// SPDX-License-Identifier: MIT
#include "platform/pasteboard/PasteboardFactory.h"

#include "platform/log/Log.h"
#include "platform/pasteboard/NullPasteboard.h"
#include "platform/pasteboard/X11Pasteboard.h"

#include <QGuiApplication>

namespace platform {

namespace {

std::unique_ptr<Pasteboard> choose()
{
    const QString toolkitPlatform = QGuiApplication::platformName();
    if (toolkitPlatform != QStringLiteral("xcb")) {
        return std::make_unique<NullPasteboard>(
            QStringLiteral("no clipboard back end for the platform \"%1\"").arg(toolkitPlatform));
    }
    if (std::unique_ptr<X11Pasteboard> pasteboard = X11Pasteboard::create())
        return pasteboard;
    return std::make_unique<NullPasteboard>(
        QStringLiteral("the X server refuses us or has no XFixes extension"));
}

} // namespace

std::unique_ptr<Pasteboard> makePasteboard()
{
    std::unique_ptr<Pasteboard> pasteboard = choose();
    const Availability availability = pasteboard->availability();
    qCInfo(logPasteboard, "back end %s%s%s", qPrintable(pasteboard->backendId()),
           availability.isAvailable ? "" : ": ", qPrintable(availability.reason));
    return pasteboard;
}

} // namespace platform
