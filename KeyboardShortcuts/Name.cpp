// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/Name.h"

#include "KeyboardShortcuts/KeyboardShortcuts.h"

namespace KeyboardShortcuts {

namespace {

struct Names
{
    std::optional<Name> contextHotKey;
    std::optional<Name> addHotKey;
};

Names &names()
{
    static Names instance;
    return instance;
}

/// Creating a name announces its default; a listener may ask for the name at that moment.
const Name &createdOnce(std::optional<Name> &slot, const QString &rawValue, Key key)
{
    if (!slot) {
        const Name name(rawValue, Shortcut(key, Modifier::Shift | Modifier::Command));
        slot = name;
    }
    return *slot;
}

} // namespace

Name::Name(const QString &rawValue, std::optional<Shortcut> defaultShortcut)
    : m_rawValue(rawValue)
    , m_defaultShortcut(defaultShortcut)
{
    startUp();
    if (m_defaultShortcut && !hasStoredObject(*this))
        setShortcut(m_defaultShortcut, *this);
}

const Name &Name::contextHotKey()
{
    return createdOnce(names().contextHotKey, QStringLiteral("contextHotKey"), Key::v);
}

const Name &Name::addHotKey()
{
    return createdOnce(names().addHotKey, QStringLiteral("addHotKey"), Key::c);
}

void Name::forgetAll()
{
    names() = Names();
}

QString Name::defaultsKey() const
{
    return QStringLiteral("KeyboardShortcuts_") + m_rawValue;
}

} // namespace KeyboardShortcuts
