// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace platform {

/// A text on its way to another program: handed out part by part in the encoding that was asked
/// for, so that a long text is never encoded as a whole.
class OutgoingText
{
public:
    enum class Encoding {
        Utf8,
        Latin1, ///< characters beyond it become "?"
    };

    OutgoingText(const QByteArray &utf8, Encoding encoding)
        : m_utf8(utf8)
        , m_encoding(encoding)
    {
    }

    /// Bytes of UTF-8 that are still to be handed out.
    qsizetype remaining() const { return m_utf8.size() - m_position; }

    /// The next part, made from at most `maxBytes` bytes of UTF-8 (at least 4); whole characters
    /// only. Empty at the end.
    QByteArray next(qsizetype maxBytes);

private:
    QByteArray m_utf8;
    Encoding m_encoding;
    qsizetype m_position = 0;
};

} // namespace platform
