// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// What the program needs of a desktop, as it was found.
struct DesktopAbilities
{
    bool hasShortcuts = false;    ///< a key can reach the program whatever window has the keyboard
    bool canType = false;         ///< the paste keystroke can be sent to other programs
    bool hasTray = false;         ///< somebody shows tray icons
    QStringList refusedShortcuts; ///< of ours, held by somebody else, as the user reads them
};

struct DesktopServices;

/// Asks the services. What comes up later, as a bar may, counts from the next call on.
DesktopAbilities abilitiesOf(const DesktopServices &services);

/// One plain sentence on what is missing and what to do; empty if nothing is. What is worst is
/// told.
QString missingHere(const DesktopAbilities &abilities);
