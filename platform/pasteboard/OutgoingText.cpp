// SPDX-License-Identifier: MIT
#include "platform/pasteboard/OutgoingText.h"

#include <QString>

namespace platform {

namespace {

bool isContinuation(char byte)
{
    return (uchar(byte) & 0xC0) == 0x80;
}

} // namespace

QByteArray OutgoingText::next(qsizetype maxBytes)
{
    qsizetype end = m_position + std::min(maxBytes, remaining());
    // A character has at most three bytes that continue it.
    for (int i = 0; i < 3 && end < m_utf8.size() && isContinuation(m_utf8.at(end)); ++i)
        --end;
    const QByteArray part = m_utf8.sliced(m_position, end - m_position);
    m_position = end;
    return m_encoding == Encoding::Latin1 ? QString::fromUtf8(part).toLatin1() : part;
}

} // namespace platform
