// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/ShownMap.h"

#include "Quillery_Mac/editor/ShownText.h"

#include <QChar>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

// Decoding one takes some ten microseconds; of ten million bytes there are 600.
constexpr qsizetype kChunkBytes = 16384;
constexpr qsizetype kMaxChunkBytes = 2 * kChunkBytes;
// A long line is rather broken after a blank, if one comes soon; never inside of what is shown as
// one sign, unless that goes on and on.
constexpr int kWaitForBlank = 200;
constexpr int kWaitForSign = 400;

bool joins(char32_t before, char32_t after)
{
    constexpr char32_t kJoiner = 0x200d;
    const auto isIn = [](char32_t code, char32_t first, char32_t last) {
        return code >= first && code <= last;
    };
    return before == kJoiner || after == kJoiner || QChar::isSurrogate(after) ||
           QChar::category(after) == QChar::Mark_NonSpacing ||
           QChar::category(after) == QChar::Mark_SpacingCombining ||
           QChar::category(after) == QChar::Mark_Enclosing || isIn(after, 0x1f3fb, 0x1f3ff) ||
           isIn(after, 0x1f1e6, 0x1f1ff) || isIn(after, 0xe0020, 0xe007f);
}

bool isBreakable(int lineUnits, char32_t before, char32_t after)
{
    if (lineUnits < ShownMap::kLongLine || after == U'\n')
        return false;
    return before == U' ' || before == U'\t' || lineUnits >= ShownMap::kLongLine + kWaitForSign ||
           (lineUnits >= ShownMap::kLongLine + kWaitForBlank && !joins(before, after));
}

} // namespace

// Cuts a text into chunks.
class ShownMap::Cutter
{
public:
    explicit Cutter(LongLines lines)
        : m_breaks(lines == LongLines::Broken)
    {
    }

    std::vector<Chunk> cut(QByteArrayView utf8)
    {
        while (!utf8.empty()) {
            const shownText::Character character = shownText::first(utf8);
            if (m_breaks && isBreakable(m_lineUnits, m_before, character.code))
                endLine();
            else if (m_chunk.bytes >= kChunkBytes)
                close();
            take(character);
            utf8 = utf8.sliced(character.bytes);
        }
        if (m_chunk.units > 0)
            close();
        return std::move(m_chunks);
    }

private:
    void take(const shownText::Character &character)
    {
        m_chunk.bytes += character.bytes;
        m_chunk.units += character.units();
        m_lineUnits = character.code == U'\n' ? 0 : m_lineUnits + character.units();
        m_before = character.code;
    }
    void endLine()
    {
        m_chunk.endsInBreak = true;
        ++m_chunk.units;
        m_lineUnits = 0;
        close();
    }
    void close() { m_chunks.push_back(std::exchange(m_chunk, Chunk())); }

    bool m_breaks;
    Chunk m_chunk;
    int m_lineUnits = 0;
    char32_t m_before = 0;
    std::vector<Chunk> m_chunks;
};

void ShownMap::reset(QByteArrayView utf8)
{
    m_chunks = Cutter(LongLines::Broken).cut(utf8);
    if (m_chunks.empty())
        m_chunks.emplace_back();
    m_units = 0;
    for (const Chunk &chunk : m_chunks)
        m_units += chunk.units;
}

ShownMap::Place ShownMap::chunkStart(std::size_t chunk) const
{
    Place place{chunk, 0, 0};
    for (std::size_t i = 0; i < chunk; ++i) {
        place.byte += m_chunks[i].bytes;
        place.unit += m_chunks[i].units;
    }
    return place;
}

// On inside the chunk, past no limit.
ShownMap::Place ShownMap::walk(QByteArrayView utf8, Place place, int maxUnits,
                               qsizetype maxBytes) const
{
    const Chunk &chunk = m_chunks[place.chunk];
    const int unitLimit = place.unit + std::min(maxUnits, chunk.textUnits());
    const qsizetype byteLimit = place.byte + std::min(maxBytes, chunk.bytes);
    QByteArrayView rest = utf8.sliced(place.byte, chunk.bytes);
    while (!rest.empty()) {
        const shownText::Character character = shownText::first(rest);
        if (place.unit + character.units() > unitLimit || place.byte + character.bytes > byteLimit)
            break;
        place.unit += character.units();
        place.byte += character.bytes;
        rest = rest.sliced(character.bytes);
    }
    return place;
}

ShownMap::Place ShownMap::next(QByteArrayView utf8, Place place) const
{
    const Place start = chunkStart(place.chunk);
    const qsizetype end = start.byte + m_chunks[place.chunk].bytes;
    const shownText::Character character =
        shownText::first(utf8.sliced(place.byte, end - place.byte));
    return {place.chunk, place.byte + character.bytes, place.unit + character.units()};
}

ShownMap::Place ShownMap::atUnit(QByteArrayView utf8, int unit, Edge edge) const
{
    Place start{0, 0, 0};
    while (start.chunk + 1 < m_chunks.size() && unit >= start.unit + m_chunks[start.chunk].units) {
        start.byte += m_chunks[start.chunk].bytes;
        start.unit += m_chunks[start.chunk].units;
        ++start.chunk;
    }
    const Place place = walk(utf8, start, unit - start.unit, std::numeric_limits<qsizetype>::max());
    const bool isInside = place.unit < std::min(unit, m_units);
    return edge == Edge::End && isInside ? next(utf8, place) : place;
}

ShownMap::Place ShownMap::atByte(QByteArrayView utf8, qsizetype byte, Edge edge) const
{
    Place start{0, 0, 0};
    const auto isBeyond = [&] {
        const qsizetype end = start.byte + m_chunks[start.chunk].bytes;
        return edge == Edge::Start ? byte >= end : byte > end;
    };
    while (start.chunk + 1 < m_chunks.size() && isBeyond()) {
        start.byte += m_chunks[start.chunk].bytes;
        start.unit += m_chunks[start.chunk].units;
        ++start.chunk;
    }
    const Place place = walk(utf8, start, std::numeric_limits<int>::max(), byte - start.byte);
    return edge == Edge::End && place.byte < byte ? next(utf8, place) : place;
}

bool ShownMap::isBreak(int unit) const
{
    int end = 0;
    for (const Chunk &chunk : m_chunks) {
        end += chunk.units;
        if (unit < end)
            return chunk.endsInBreak && unit == end - 1;
    }
    return false;
}

QString ShownMap::shown(QByteArrayView utf8, const Place &from, const Place &to) const
{
    QString result;
    result.reserve(to.unit - from.unit);
    Place place = from;
    qsizetype chunkEnd = chunkStart(from.chunk).byte;
    for (std::size_t i = from.chunk; i <= to.chunk; ++i) {
        chunkEnd += m_chunks[i].bytes;
        const qsizetype end = i == to.chunk ? to.byte : chunkEnd;
        QByteArrayView rest = utf8.sliced(place.byte, end - place.byte);
        while (!rest.empty()) {
            const shownText::Character character = shownText::first(rest);
            shownText::append(result, character.code);
            rest = rest.sliced(character.bytes);
        }
        if (i < to.chunk && m_chunks[i].endsInBreak)
            result.append(u'\n');
        place.byte = end;
    }
    return result;
}

int ShownMap::replace(QByteArrayView utf8, const Place &from, const Place &to, qsizetype count,
                      LongLines lines)
{
    const Place first = chunkStart(from.chunk);
    const Place last = chunkStart(to.chunk);
    const Chunk &lastChunk = m_chunks[to.chunk];
    const Chunk left{from.byte - first.byte, from.unit - first.unit, false};
    const Chunk right{last.byte + lastChunk.bytes - to.byte, last.unit + lastChunk.units - to.unit,
                      lastChunk.endsInBreak};
    std::vector<Chunk> fresh = Cutter(lines).cut(utf8.sliced(from.byte, count));
    int units = 0;
    for (const Chunk &chunk : fresh)
        units += chunk.units;

    const Chunk whole{left.bytes + count + right.bytes, left.units + units + right.units,
                      right.endsInBreak};
    // Joining characters at the edges never makes more units, so equal is the same.
    const bool isPlain =
        whole.bytes <= kMaxChunkBytes &&
        (fresh.empty() || (fresh.size() == 1 && !fresh.front().endsInBreak)) &&
        shownText::units(utf8.sliced(first.byte, whole.bytes)) == whole.textUnits();
    if (isPlain)
        fresh = {whole};
    else {
        fresh.insert(fresh.begin(), left);
        fresh.push_back(right);
    }
    std::erase_if(fresh, [](const Chunk &chunk) { return chunk.units == 0; });
    const auto begin = m_chunks.begin() + static_cast<std::ptrdiff_t>(from.chunk);
    const auto end = m_chunks.begin() + static_cast<std::ptrdiff_t>(to.chunk) + 1;
    m_chunks.insert(m_chunks.erase(begin, end), fresh.begin(), fresh.end());
    if (m_chunks.empty() || m_chunks.back().endsInBreak)
        m_chunks.emplace_back();
    m_units += units - (to.unit - from.unit);
    return units;
}
