// SPDX-License-Identifier: MIT
#include "platform/pasteboard/TextAssembler.h"

#include "platform/pasteboard/CompoundText.h"

#include <QString>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

/// A text that grows beyond the first size gets room for the second at once (bytes). Memory of that
/// size comes from the kernel page by page as it is filled, and grows without being copied; smaller
/// blocks are copied as they grow, which took up to 80 ms at once for 50 MB.
constexpr qsizetype kLongText = qsizetype{1024} * 1024;
constexpr qsizetype kRoomForLongText = qsizetype{64} * 1024 * 1024;

constexpr char kReplacement[] = "\xEF\xBF\xBD"; // U+FFFD

struct Sequence
{
    qsizetype length;
    bool isValid;
    bool isCut; ///< the bytes end before the sequence does
};

struct LeadByte
{
    int followers;
    uchar firstMin; ///< allowed range of the first byte that follows
    uchar firstMax;
};

/// Unicode 15, table 3-7.
LeadByte leadByte(uchar byte)
{
    if (byte < 0x80)
        return {0, 0, 0};
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, uchar(byte == 0xE0 ? 0xA0 : 0x80), uchar(byte == 0xED ? 0x9F : 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, uchar(byte == 0xF0 ? 0x90 : 0x80), uchar(byte == 0xF4 ? 0x8F : 0xBF)};
    return {-1, 0, 0};
}

/// The sequence that starts `bytes`, or the longest part of one.
Sequence firstSequence(QByteArrayView bytes)
{
    const LeadByte lead = leadByte(uchar(bytes.front()));
    if (lead.followers < 0)
        return {1, false, false};
    for (int i = 1; i <= lead.followers; ++i) {
        if (i == bytes.size())
            return {i, false, true};
        const auto byte = uchar(bytes[i]);
        const uchar min = i == 1 ? lead.firstMin : 0x80;
        const uchar max = i == 1 ? lead.firstMax : 0xBF;
        if (byte < min || byte > max)
            return {i, false, false};
    }
    return {lead.followers + 1, true, false};
}

/// How many bytes at the end of `bytes` are the start of a character that is not complete.
qsizetype cutLength(QByteArrayView bytes)
{
    constexpr qsizetype kLongestCut = 3;
    for (qsizetype length = 1; length <= std::min(kLongestCut, bytes.size()); ++length) {
        const QByteArrayView tail = bytes.last(length);
        if (firstSequence(tail).isCut)
            return length;
    }
    return 0;
}

} // namespace

void TextAssembler::append(QByteArrayView piece)
{
    if (m_text.size() > kLongText && m_text.capacity() < kRoomForLongText)
        m_text.reserve(kRoomForLongText);
    switch (m_encoding) {
    case Encoding::Utf8:
        appendUtf8(piece);
        break;
    case Encoding::Latin1:
        m_text += QString::fromLatin1(piece).toUtf8();
        break;
    case Encoding::CompoundText:
        m_text.append(piece);
        break;
    }
}

QByteArray TextAssembler::finish()
{
    if (m_encoding == Encoding::CompoundText)
        return utf8FromCompoundText(m_text);
    if (!m_cutSequence.isEmpty())
        m_text += kReplacement;
    m_text.squeeze();
    return std::move(m_text);
}

void TextAssembler::appendUtf8(QByteArrayView piece)
{
    QByteArray joined;
    if (!m_cutSequence.isEmpty()) {
        joined = std::exchange(m_cutSequence, {});
        joined.append(piece);
        piece = joined;
    }
    const QByteArrayView whole = piece.chopped(cutLength(piece));
    m_cutSequence = piece.sliced(whole.size()).toByteArray();
    if (whole.isValidUtf8())
        m_text.append(whole);
    else
        appendRepaired(whole);
}

void TextAssembler::appendRepaired(QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const Sequence sequence = firstSequence(bytes);
        if (sequence.isValid)
            m_text.append(bytes.first(sequence.length));
        else
            m_text.append(kReplacement);
        bytes = bytes.sliced(sequence.length);
    }
}

} // namespace platform
