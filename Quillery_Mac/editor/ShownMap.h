// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

/// Which byte of a text stands behind which unit of what a field shows of it.
///
/// The text is cut into chunks of some thousand bytes, of which only the lengths are kept, so that
/// a place in ten million bytes is found by adding up and decoding one chunk. Three rules hold:
///   1. Each chunk is decoded by itself, whatever stands in the next one. So where an edit puts a
///      CR before an LF that was shown as a line end of its own, the two stay in two chunks, and
///      the map goes on to agree with what is shown.
///   2. A chunk may end with a break: a line end that is shown but is not in the text. The toolkit
///      lays a line out as a whole, and one of ten million characters would take it minutes.
///   3. There is always at least one chunk, and the last one ends in no break.
class ShownMap
{
public:
    /// The border between two characters.
    struct Place
    {
        std::size_t chunk;
        qsizetype byte;
        int unit;
    };
    /// Which end of a range a place is wanted for.
    enum class Edge { Start, End };
    enum class LongLines { Whole, Broken };

    /// A line is broken in pieces not much longer than this, in units.
    static constexpr int kLongLine = 4000;

    /// Starts anew.
    void reset(QByteArrayView utf8);

    /// How long the shown text is.
    int units() const { return m_units; }

    /// The border at `unit`, or, where that is inside a character, the one before it for a start
    /// and the one after it for an end.
    /// @param utf8 the whole text, as in the following functions
    Place atUnit(QByteArrayView utf8, int unit, Edge edge) const;
    /// The border at `byte`, in the same way; at a break, the place after it for a start and the
    /// one before it for an end.
    Place atByte(QByteArrayView utf8, qsizetype byte, Edge edge) const;

    /// Whether a break is shown at `unit`.
    bool isBreak(int unit) const;

    /// What is shown between two places.
    QString shown(QByteArrayView utf8, const Place &from, const Place &to) const;

    /// The bytes between the two places became `count` others, which stand in `utf8` already.
    /// @return how many units they are shown as
    int replace(QByteArrayView utf8, const Place &from, const Place &to, qsizetype count,
                LongLines lines);

private:
    struct Chunk
    {
        qsizetype bytes = 0;
        int units = 0; ///< with the break
        bool endsInBreak = false;
        int textUnits() const { return units - (endsInBreak ? 1 : 0); }
    };
    class Cutter;

    Place chunkStart(std::size_t chunk) const;
    Place walk(QByteArrayView utf8, Place place, int maxUnits, qsizetype maxBytes) const;
    Place next(QByteArrayView utf8, Place place) const;

    std::vector<Chunk> m_chunks{Chunk()};
    int m_units = 0;
};
