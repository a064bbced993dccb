// SPDX-License-Identifier: MIT
#pragma once

#include "platform/defaults/Defaults.h"

namespace platform {

/// A key of the defaults with its type and its default. The table of the program's own keys stands
/// in Quillery_Mac/app/SettingsKeys.h.
template <typename T>
struct DefaultsKey
{
    const char *name;
    T fallback;

    QString key() const { return QString::fromLatin1(name); }
};

inline bool readDefault(const Defaults &defaults, const DefaultsKey<bool> &key)
{
    return defaults.boolean(key.key(), key.fallback);
}

inline double readDefault(const Defaults &defaults, const DefaultsKey<double> &key)
{
    return defaults.number(key.key(), key.fallback);
}

inline QString readDefault(const Defaults &defaults, const DefaultsKey<const char *> &key)
{
    return defaults.string(key.key()).value_or(QString::fromLatin1(key.fallback));
}

inline void writeDefault(Defaults &defaults, const QString &key, bool value)
{
    defaults.setBoolean(key, value);
}

inline void writeDefault(Defaults &defaults, const QString &key, double value)
{
    defaults.setNumber(key, value);
}

inline void writeDefault(Defaults &defaults, const QString &key, const QString &value)
{
    defaults.setString(key, value);
}

} // namespace platform
