// SPDX-License-Identifier: MIT
#include "platform/login/LoginItemFactory.h"

#include "platform/log/Log.h"
#include "platform/login/NullLoginItem.h"
#include "platform/login/XdgLoginItem.h"

#include <QFileInfo>

namespace platform {

namespace {

/// Stands at the root of every Flatpak sandbox, which has a folder of entries that nobody reads.
constexpr auto kSandboxFile = "/.flatpak-info";

} // namespace

std::unique_ptr<LoginItem> makeLoginItem(const QString &program)
{
    if (QFileInfo::exists(QLatin1String(kSandboxFile))) {
        const QString reason =
            QStringLiteral("A sandbox keeps the program from the desktop's list of login items.");
        qCWarning(logLogin).noquote() << "No launch at login:" << reason;
        return std::make_unique<NullLoginItem>(reason);
    }
    auto item = std::make_unique<XdgLoginItem>(program, XdgLoginItem::standardFolders());
    qCInfo(logLogin) << "Launch at login is done by" << item->backendId();
    return item;
}

} // namespace platform
