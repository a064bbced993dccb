// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/KeyEventPoster.h"

#include <QProperty>

/// The last step of a paste, and the keystroke that copies the selection.
///
/// A row puts its text on the pasteboard, its menu sets the application-wide paste flag and closes;
/// whoever sees a window of ours resign key first sends the keystroke and clears the flag. Owned by
/// the entry type, main thread only.
class PasteAction
{
public:
    /// Key codes of V and C in the numbering of KeyboardShortcuts::Key.
    static constexpr quint16 kKeyV = 9;
    static constexpr quint16 kKeyC = 8;

    /// @param pasteNow the paste flag; true means: the next window that resigns key sends the
    ///                 keystroke
    PasteAction(platform::KeyEventPoster &poster, QProperty<bool> &pasteNow);

    /// For the observers of windows that resign key: sends Command+V if the flag is set and clears
    /// it, whether or not the desktop lets us type. Does nothing while the flag is false.
    void windowDidResignKey();

    /// Sends Command+C into the frontmost application.
    void copySelection();

private:
    void sendCommand(quint16 keyCode);

    platform::KeyEventPoster &m_poster;
    QProperty<bool> &m_pasteNow;
};
