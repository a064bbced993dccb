// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/HotkeyService.h"

namespace platform {

/// The service of a desktop that lets no program have global keys. Every registration fails.
class NullHotkeys : public HotkeyService
{
public:
    /// @param reason one plain sentence for the log
    explicit NullHotkeys(const QString &reason);

    QString backendId() const override;
    Availability availability() const override;
    Result<HotkeyRef> registerHotkey(quint32 keyCode, quint32 modifiers, HotkeyId id) override;
    void unregisterHotkey(HotkeyRef hotkey) override;
    bool isHeldElsewhere(quint32 keyCode, quint32 modifiers) override;
    Result<HotkeyHandlerRef> installHandler(HotkeyHandler handler) override;
    void addEventTypes(HotkeyHandlerRef handler, std::span<const HotkeyEventType> types) override;
    void removeEventTypes(HotkeyHandlerRef handler,
                          std::span<const HotkeyEventType> types) override;
    quint32 lastEventTime() const override;

private:
    QString m_reason;
};

} // namespace platform
