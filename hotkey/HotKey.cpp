// SPDX-License-Identifier: MIT
#include "hotkey/HotKey.h"

#include "hotkey/HotKeysController.h"

#include <utility>

namespace hotkey {

HotKey::HotKey(const KeyCombo &keyCombo, Handler onKeyDown, Handler onKeyUp)
    : keyDownHandler(std::move(onKeyDown))
    , keyUpHandler(std::move(onKeyUp))
    , m_keyCombo(keyCombo)
{
    HotKeysController::registerHotKey(*this);
}

HotKey::~HotKey()
{
    HotKeysController::unregister(*this);
}

void HotKey::setPaused(bool isPaused)
{
    if (std::exchange(m_isPaused, isPaused) == isPaused)
        return;
    if (isPaused)
        HotKeysController::unregister(*this);
    else
        HotKeysController::registerHotKey(*this);
}

} // namespace hotkey
