// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/GnomeShortcuts.h"

#include "platform/hotkeys/system_shortcuts/AcceleratorText.h"
#include "platform/hotkeys/system_shortcuts/SettingsListing.h"
#include "platform/hotkeys/system_shortcuts/VariantText.h"

namespace platform {

namespace {

/// Every value of these that is a list of strings lists the accelerators of one action. One that
/// is switched off is an empty list.
QStringList schemasOfAccelerators()
{
    return {
        QStringLiteral("org.gnome.desktop.wm.keybindings"),
        QStringLiteral("org.gnome.shell.keybindings"),
        QStringLiteral("org.gnome.mutter.keybindings"),
        QStringLiteral("org.gnome.mutter.wayland.keybindings"),
        QStringLiteral("org.gnome.settings-daemon.plugins.media-keys"),
    };
}

/// The one list that holds no accelerators but the paths of the user's own shortcuts, each with its
/// accelerator in a value of its own.
constexpr QStringView kOwnShortcuts = u"custom-keybindings";
constexpr QStringView kOwnAccelerator = u"binding";
constexpr auto kOwnSchema =
    QLatin1StringView("org.gnome.settings-daemon.plugins.media-keys.custom-keybinding:");

} // namespace

GnomeShortcuts::GnomeShortcuts()
    : m_schemas(schemasOfAccelerators())
{
}

// One after the other: a dozen programs at once would be felt by the user.
void GnomeShortcuts::ask()
{
    if (m_schemas.isEmpty()) {
        emit answered(m_chords);
        return;
    }
    listSettings(m_schemas.takeFirst(), *this, [this](const QString &listing) {
        read(listing);
        ask();
    });
}

// A line is "SCHEMA KEY VALUE".
void GnomeShortcuts::read(const QString &listing)
{
    const auto lines = QStringView(listing).split(u'\n', Qt::SkipEmptyParts);
    for (const QStringView line : lines) {
        const qsizetype keyAt = line.indexOf(u' ') + 1;
        const qsizetype valueAt = line.indexOf(u' ', keyAt) + 1;
        if (keyAt > 0 && valueAt > keyAt)
            readValue(line.sliced(keyAt, valueAt - 1 - keyAt), line.sliced(valueAt));
    }
}

void GnomeShortcuts::readValue(QStringView key, QStringView value)
{
    if (key == kOwnAccelerator) {
        if (const std::optional<QString> accelerator = stringOf(value))
            add(*accelerator);
        return;
    }
    const QStringList strings = stringsOf(value).value_or(QStringList());
    for (const QString &string : strings) {
        if (key == kOwnShortcuts)
            m_schemas << kOwnSchema + string;
        else
            add(string);
    }
}

void GnomeShortcuts::add(QStringView accelerator)
{
    if (const std::optional<SymbolChord> chord = chordOfAccelerator(accelerator))
        m_chords.push_back(*chord);
}

} // namespace platform
