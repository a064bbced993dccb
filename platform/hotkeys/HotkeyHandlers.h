// SPDX-License-Identifier: MIT
#pragma once

#include "platform/hotkeys/HotkeyService.h"

#include <vector>

namespace platform {

/// The handlers of a hot-key service and the event types that each of them wants.
class HotkeyHandlers
{
public:
    HotkeyHandlerRef install(HotkeyHandler handler);
    void addTypes(HotkeyHandlerRef handler, std::span<const HotkeyEventType> types);
    void removeTypes(HotkeyHandlerRef handler, std::span<const HotkeyEventType> types);

    /// Asks the handlers that want this type, the latest first, until one takes the event. Handlers
    /// may install, add and remove meanwhile; that counts from the next event on.
    /// @return true if one of them took it
    bool deliver(const HotkeyEvent &event) const;

private:
    struct Installed
    {
        HotkeyHandlerRef ref;
        HotkeyHandler handler;
        std::vector<HotkeyEventType> types;
    };

    Installed *find(HotkeyHandlerRef handler);

    std::vector<Installed> m_installed;
    quint64 m_lastRef = 0;
};

} // namespace platform
