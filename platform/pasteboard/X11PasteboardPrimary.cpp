// SPDX-License-Identifier: MIT
// The primary selection: offered to programs that paste only that, adopted from programs in which
// selecting is copying.
#include "platform/pasteboard/X11Pasteboard.h"

namespace platform {

void X11Pasteboard::offerAsPrimary()
{
    if (!m_primary.isOurs())
        m_primary.watch();
    m_primary.take(m_string);
}

// Read at the server's time of asking, when every copy that came before has been noticed.
void X11Pasteboard::adoptPrimary()
{
    m_primaryReader.cancel();
    m_isAdopting = true;
    askTime();
}

void X11Pasteboard::readPrimary(xcb_timestamp_t now)
{
    if (m_primary.isOurs())
        primarySettled(m_primary.offer().text);
    else
        m_primaryReader.read(now);
}

// Nothing is selected in an empty text, and copying nothing changes nothing.
void X11Pasteboard::primarySettled(const std::optional<QByteArray> &text)
{
    if (text && !text->isEmpty())
        replaceContents(text);
}

void X11Pasteboard::cancelAdoption()
{
    m_isAdopting = false;
    m_primaryReader.cancel();
}

// Noticed only while we offer it: PRIMARY changes with every drag of the mouse.
void X11Pasteboard::primaryOwnerChanged(const xcb_xfixes_selection_notify_event_t &event)
{
    const OwnedSelection::Change change = m_primary.ownerChanged(event);
    if (change == OwnedSelection::Change::Foreign || change == OwnedSelection::Change::Nobodys)
        m_primary.unwatch();
}

} // namespace platform
