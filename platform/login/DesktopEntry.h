// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace platform {

/// What the group [Desktop Entry] of a file of the Desktop Entry Specification says. Keys without a
/// language only.
class DesktopEntry
{
public:
    /// Reads the text of a file, as strictly as GLib does.
    /// @return none if the group is missing or not the first, or if a line is none of the format,
    ///         as in a file that was cut off
    static std::optional<DesktopEntry> parse(const QByteArray &text);

    bool contains(const QByteArray &key) const { return m_values.contains(key); }
    /// The value of a key with its escapes undone; empty if there is none. Of several lines with
    /// one key the last counts.
    QString string(const QByteArray &key) const;
    /// The items of a value that is a list, in their order, without empty ones.
    QStringList list(const QByteArray &key) const;

    /// A string as it is written into a file: on one line, blanks at its start kept.
    static QByteArray escaped(const QString &value);

private:
    QHash<QByteArray, QByteArray> m_values; ///< as they stand in the file
};

} // namespace platform
