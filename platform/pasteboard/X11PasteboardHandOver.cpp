// SPDX-License-Identifier: MIT
// Quitting: the only place where the pasteboard waits, and for at most half a second.
#include "platform/pasteboard/X11Pasteboard.h"

#include "platform/log/Log.h"

#include <QClipboard>
#include <QDeadlineTimer>
#include <QGuiApplication>

namespace platform {

namespace {

/// How long quitting may wait for the session's clipboard manager.
constexpr std::chrono::milliseconds kHandOverTime{500};

} // namespace

void X11Pasteboard::handOver()
{
    takeOverFromToolkit();
    if (!m_clipboard.isOurs() || !m_clipboard.offer().text)
        return;
    const QDeadlineTimer deadline(kHandOverTime);
    // The answer also brings whatever happened before it: another program's copy for example.
    const auto manager = std::make_shared<std::optional<xcb_window_t>>();
    m_connection->whenReplied(
        xcb_get_selection_owner(m_connection->xcb(), m_connection->atoms().clipboardManager),
        [manager](xcb_window_t owner) { *manager = owner; });
    m_connection->pumpUntil([&] { return manager->has_value(); }, deadline);
    const xcb_window_t owner = manager->value_or(XCB_NONE);
    if (owner == XCB_NONE || owner == m_connection->window() || !m_clipboard.isOurs())
        return;
    askManagerToSave();
    if (!m_connection->pumpUntil([this] { return m_isHandedOver; }, deadline))
        qCInfo(logPasteboard, "the clipboard manager did not take our text in time");
}

// On its own way out the toolkit waits up to five seconds for the manager if it owns a selection,
// and for ever so long if the manager is us. It is relieved of both.
void X11Pasteboard::takeOverFromToolkit()
{
    if (X11Connection::toolkit() == nullptr)
        return;
    QClipboard *toolkits = QGuiApplication::clipboard();
    if (toolkits->ownsSelection())
        toolkits->clear(QClipboard::Selection);
    if (!toolkits->ownsClipboard())
        return;
    const QString text = toolkits->text(); // its own, so nobody is asked
    toolkits->clear(QClipboard::Clipboard);
    if (!text.isEmpty())
        m_clipboard.take(text.toUtf8());
}

void X11Pasteboard::askManagerToSave()
{
    const SelectionAtoms &atoms = m_connection->atoms();
    m_isHandedOver = false;
    xcb_change_property(m_connection->xcb(), XCB_PROP_MODE_REPLACE, m_connection->window(),
                        atoms.saveList, XCB_ATOM_ATOM, 32, 1, &atoms.utf8String);
    xcb_convert_selection(m_connection->xcb(), m_connection->window(), atoms.clipboardManager,
                          atoms.saveTargets, atoms.saveList, m_clipboard.offer().acquiredAt);
}

} // namespace platform
