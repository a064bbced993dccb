// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QStringView>

#include <optional>

namespace platform {

// Values as the gsettings program prints them (GLib, "GVariant Text Format").

/// The strings of a list of strings: "['<Super>v', '<Super>m']", "@as []".
/// @return none for a value of another type, or one that cannot be read
std::optional<QStringList> stringsOf(QStringView text);

/// A string: "'<Super>v'".
/// @return none for a value of another type, or one that cannot be read
std::optional<QString> stringOf(QStringView text);

} // namespace platform
