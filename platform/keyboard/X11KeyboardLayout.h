// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/KeyTexts.h"
#include "platform/keyboard/KeyboardLayout.h"
#include "platform/keyboard/X11Keyboard.h"

#include <memory>

namespace platform {

/// Key texts from the X server's keyboard map. The map is read when a text is first asked for, and
/// again after it changed; without Latin letters in any group the texts are those of the US layout,
/// which every keyboard carries beside its own script.
class X11KeyboardLayout : public KeyboardLayout
{
public:
    /// Null when the toolkit does not run on X11 or the server has no XKB.
    static std::unique_ptr<X11KeyboardLayout> create();

    QString backendId() const override;
    Availability availability() const override;
    std::optional<QString> keyText(int carbonKeyCode) override;

private:
    X11KeyboardLayout(std::unique_ptr<X11Connection> connection,
                      std::unique_ptr<X11Keyboard> keyboard);

    void readMap();
    void forgetMap();
    void useGroup(int group);

    std::unique_ptr<X11Connection> m_connection;
    std::unique_ptr<X11Keyboard> m_keyboard;
    std::optional<KeyTexts> m_texts;
    int m_group = -1; ///< the group of m_texts that is shown
};

} // namespace platform
