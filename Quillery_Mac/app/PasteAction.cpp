// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/PasteAction.h"

#include "platform/log/Log.h"

using platform::KeyEvent;

PasteAction::PasteAction(platform::KeyEventPoster &poster, QProperty<bool> &pasteNow)
    : m_poster(poster)
    , m_pasteNow(pasteNow)
{
}

void PasteAction::windowDidResignKey()
{
    if (!m_pasteNow.value())
        return;
    sendCommand(kKeyV);
    m_pasteNow = false;
}

void PasteAction::copySelection()
{
    sendCommand(kKeyC);
}

void PasteAction::sendCommand(quint16 keyCode)
{
    // Only the key-down carries the flag. An event that cannot be posted is left out; the other one
    // is posted all the same.
    for (const KeyEvent &event :
         {KeyEvent{keyCode, true, KeyEvent::kCommandMask}, KeyEvent{keyCode, false, 0}}) {
        const platform::Result<void> posted = m_poster.post(event);
        if (!posted)
            qCInfo(logApp) << "No keystroke:" << posted.error().text;
    }
}
