// SPDX-License-Identifier: MIT
#include "platform/login/NullLoginItem.h"

namespace platform {

NullLoginItem::NullLoginItem(const QString &reason, QObject *parent)
    : LoginItem(parent)
    , m_reason(reason)
{
}

QString NullLoginItem::backendId() const
{
    return QStringLiteral("null");
}

Availability NullLoginItem::availability() const
{
    return {false, m_reason};
}

bool NullLoginItem::isEnabled() const
{
    return false;
}

Result<void> NullLoginItem::registerItem()
{
    return failure(Error::Kind::Unavailable, m_reason);
}

Result<void> NullLoginItem::unregisterItem()
{
    return failure(Error::Kind::Unavailable, m_reason);
}

bool NullLoginItem::hasStartedThisProcess() const
{
    return false;
}

} // namespace platform
