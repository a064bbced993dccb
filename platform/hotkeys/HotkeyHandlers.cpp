// SPDX-License-Identifier: MIT
#include "platform/hotkeys/HotkeyHandlers.h"

#include <algorithm>
#include <utility>

namespace platform {

HotkeyHandlerRef HotkeyHandlers::install(HotkeyHandler handler)
{
    const auto ref = HotkeyHandlerRef(++m_lastRef);
    m_installed.push_back({ref, std::move(handler), {}});
    return ref;
}

void HotkeyHandlers::addTypes(HotkeyHandlerRef handler, std::span<const HotkeyEventType> types)
{
    Installed *installed = find(handler);
    if (installed == nullptr)
        return;
    for (const HotkeyEventType &type : types) {
        if (std::ranges::find(installed->types, type) == installed->types.end())
            installed->types.push_back(type);
    }
}

void HotkeyHandlers::removeTypes(HotkeyHandlerRef handler, std::span<const HotkeyEventType> types)
{
    if (Installed *installed = find(handler)) {
        std::erase_if(installed->types, [types](const HotkeyEventType &type) {
            return std::ranges::find(types, type) != types.end();
        });
    }
}

bool HotkeyHandlers::deliver(const HotkeyEvent &event) const
{
    std::vector<HotkeyHandler> wanting;
    for (auto installed = m_installed.rbegin(); installed != m_installed.rend(); ++installed) {
        if (std::ranges::find(installed->types, event.type) != installed->types.end())
            wanting.push_back(installed->handler);
    }
    return std::ranges::any_of(
        wanting, [&event](const HotkeyHandler &handler) { return handler(&event) == noErr; });
}

HotkeyHandlers::Installed *HotkeyHandlers::find(HotkeyHandlerRef handler)
{
    const auto found = std::ranges::find(m_installed, handler, &Installed::ref);
    return found == m_installed.end() ? nullptr : &*found;
}

} // namespace platform
