// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QLatin1String>
#include <QLocale>
#include <QString>

namespace KeyboardShortcuts {

/// Keys of the texts. "keyboard_shortcut_used_by_menu_item" has one place, %1, for the title.
namespace textKey {
inline constexpr QLatin1String kRecordShortcut("record_shortcut");
inline constexpr QLatin1String kPressShortcut("press_shortcut");
inline constexpr QLatin1String kUsedByMenuItem("keyboard_shortcut_used_by_menu_item");
inline constexpr QLatin1String kUsedBySystem("keyboard_shortcut_used_by_system");
inline constexpr QLatin1String kCanBeChanged("keyboard_shortcuts_can_be_changed");
inline constexpr QLatin1String kForceUse("force_use_shortcut");
inline constexpr QLatin1String kOk("ok");
} // namespace textKey

/// The library's own texts, in the first of the user's languages that there is a table for, else
/// in English. The tables are JSON objects from key to text, one file per language ("de.json"), in
/// a bundle of the program's resources.
class LocalizationTable
{
public:
    static constexpr QLatin1String kBundle{":/KeyboardShortcuts_KeyboardShortcuts"};

    /// Ends the program if the bundle has no English table: it was built without its texts.
    ///
    /// @param bundle folder of the tables
    explicit LocalizationTable(const QLocale &locale = QLocale(), const QString &bundle = kBundle);

    /// The text of a key; the English one where the language lacks it, the key where all do.
    QString text(QLatin1String key) const;

private:
    void read(const QString &file);

    QHash<QString, QString> m_texts;
};

} // namespace KeyboardShortcuts
