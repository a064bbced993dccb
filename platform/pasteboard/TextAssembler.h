// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace platform {

/// Puts a text together from the pieces in which it arrives, as UTF-8.
///
/// The work is done piece by piece, so that a text of 50 MB costs no long moment at its end. Bytes
/// that are not UTF-8 become U+FFFD, one for each maximal part of a sequence (Unicode 15,
/// section 3.9); U+0000 is kept.
class TextAssembler
{
public:
    enum class Encoding {
        Utf8,
        Latin1,
        CompoundText, ///< ISO 2022 as X11 programs of the last century speak it; converted by
                      ///< finish()
    };

    explicit TextAssembler(Encoding encoding)
        : m_encoding(encoding)
    {
    }

    void append(QByteArrayView piece);
    /// Bytes gathered so far; an estimate of the text's length.
    qsizetype size() const { return m_text.size(); }
    /// The whole text. To be called once.
    QByteArray finish();

private:
    void appendUtf8(QByteArrayView piece);
    void appendRepaired(QByteArrayView bytes);

    Encoding m_encoding;
    QByteArray m_text;
    QByteArray m_cutSequence; ///< the start of a character whose rest is in the next piece
};

} // namespace platform
