// SPDX-License-Identifier: MIT
#include "platform/hotkeys/NullHotkeys.h"

namespace platform {

NullHotkeys::NullHotkeys(const QString &reason)
    : m_reason(reason)
{
}

QString NullHotkeys::backendId() const
{
    return QStringLiteral("null");
}

Availability NullHotkeys::availability() const
{
    return {false, m_reason};
}

Result<HotkeyRef> NullHotkeys::registerHotkey(quint32, quint32, HotkeyId)
{
    return failure(Error::Kind::Unavailable, m_reason);
}

void NullHotkeys::unregisterHotkey(HotkeyRef) {}

bool NullHotkeys::isHeldElsewhere(quint32, quint32)
{
    return false;
}

Result<HotkeyHandlerRef> NullHotkeys::installHandler(HotkeyHandler)
{
    return failure(Error::Kind::Unavailable, m_reason);
}

void NullHotkeys::addEventTypes(HotkeyHandlerRef, std::span<const HotkeyEventType>) {}

void NullHotkeys::removeEventTypes(HotkeyHandlerRef, std::span<const HotkeyEventType>) {}

quint32 NullHotkeys::lastEventTime() const
{
    return 0;
}

} // namespace platform
