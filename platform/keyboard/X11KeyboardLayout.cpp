// SPDX-License-Identifier: MIT
#include "platform/keyboard/X11KeyboardLayout.h"

#include "platform/keyboard/X11Keymap.h"

#include <utility>

namespace platform {

namespace {

KeyTexts serverTexts(xkb_context *context, X11Connection &connection, X11Keyboard &keyboard)
{
    const XkbKeymap keymap = readX11Keymap(context, connection, keyboard);
    return keymap ? KeyTexts(keymap.get()) : KeyTexts();
}

KeyTexts latinTexts(xkb_context *context)
{
    xkb_rule_names names = {};
    names.rules = "evdev";
    names.model = "pc105";
    names.layout = "us";
    const XkbKeymap keymap(xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    return keymap ? KeyTexts(keymap.get()) : KeyTexts();
}

int firstAsciiCapable(const KeyTexts &texts)
{
    for (int group = 0; group < texts.groupCount(); ++group) {
        if (texts.isAsciiCapable(group))
            return group;
    }
    return -1;
}

} // namespace

std::unique_ptr<X11KeyboardLayout> X11KeyboardLayout::create()
{
    std::unique_ptr<X11Connection> connection = X11Connection::create();
    if (!connection)
        return nullptr;
    std::unique_ptr<X11Keyboard> keyboard = X11Keyboard::create(*connection);
    if (!keyboard)
        return nullptr;
    return std::unique_ptr<X11KeyboardLayout>(
        new X11KeyboardLayout(std::move(connection), std::move(keyboard)));
}

X11KeyboardLayout::X11KeyboardLayout(std::unique_ptr<X11Connection> connection,
                                     std::unique_ptr<X11Keyboard> keyboard)
    : m_connection(std::move(connection))
    , m_keyboard(std::move(keyboard))
{
    m_keyboard->watchGroup();
    connect(m_keyboard.get(), &X11Keyboard::mapChanged, this, &X11KeyboardLayout::forgetMap);
    connect(m_keyboard.get(), &X11Keyboard::groupChanged, this, &X11KeyboardLayout::useGroup);
}

QString X11KeyboardLayout::backendId() const
{
    return QStringLiteral("x11");
}

Availability X11KeyboardLayout::availability() const
{
    return {true, {}};
}

std::optional<QString> X11KeyboardLayout::keyText(int carbonKeyCode)
{
    if (!m_texts)
        readMap();
    return m_texts->text(m_group, carbonKeyCode);
}

void X11KeyboardLayout::readMap()
{
    const XkbContext context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    m_texts = serverTexts(context.get(), *m_connection, *m_keyboard);
    const int group = m_keyboard->group();
    m_group = m_texts->isAsciiCapable(group) ? group : firstAsciiCapable(*m_texts);
    if (m_group < 0) {
        m_texts = latinTexts(context.get());
        m_group = 0;
    }
}

// Listeners ask again if they show a text; nobody asked means that nobody shows one.
void X11KeyboardLayout::forgetMap()
{
    if (!m_texts)
        return;
    m_texts.reset();
    emit changed();
}

void X11KeyboardLayout::useGroup(int group)
{
    if (!m_texts || group == m_group || !m_texts->isAsciiCapable(group))
        return;
    m_group = group;
    emit changed();
}

} // namespace platform
