// SPDX-License-Identifier: MIT
#include "Quillery_Mac/store/ByteSearch.h"

#include <cstring>

namespace {

// A block is looked at without a branch, which compilers turn into vector instructions. Three bytes
// of the needle (first, middle, last) are compared at every place; only a block in which all three
// fit somewhere is searched place by place.
constexpr qsizetype kBlock = 64;

struct Pattern
{
    explicit Pattern(QByteArrayView bytes)
        : needle(bytes)
        , middleAt(bytes.size() / 2)
        , lastAt(bytes.size() - 1)
        , first(bytes.front())
        , middle(bytes[middleAt])
        , last(bytes.back())
    {
    }

    bool mayStartIn(const char *block) const
    {
        unsigned char any = 0;
        for (qsizetype i = 0; i < kBlock; ++i) {
            any |=
                static_cast<unsigned char>((block[i] == first) & (block[i + middleAt] == middle) &
                                           (block[i + lastAt] == last));
        }
        return any != 0;
    }

    bool startsAt(const char *place) const
    {
        return *place == first && place[lastAt] == last &&
               std::memcmp(place, needle.data(), static_cast<std::size_t>(needle.size())) == 0;
    }

    QByteArrayView needle;
    qsizetype middleAt;
    qsizetype lastAt;
    char first;
    char middle;
    char last;
};

qsizetype findOneByte(QByteArrayView haystack, char byte, qsizetype from)
{
    const void *found =
        std::memchr(haystack.data() + from, byte, static_cast<std::size_t>(haystack.size() - from));
    return found ? static_cast<const char *>(found) - haystack.data() : -1;
}

} // namespace

qsizetype findBytes(QByteArrayView haystack, QByteArrayView needle, qsizetype from)
{
    if (needle.isEmpty())
        return from;
    if (from < 0 || haystack.size() - from < needle.size())
        return -1;
    if (needle.size() == 1)
        return findOneByte(haystack, needle.front(), from);

    const Pattern pattern(needle);
    const qsizetype end = haystack.size() - needle.size() + 1; // after the last possible place
    const char *data = haystack.data();
    qsizetype at = from;
    while (at < end) {
        const bool isWholeBlock = end - at >= kBlock;
        if (isWholeBlock && !pattern.mayStartIn(data + at)) {
            at += kBlock;
            continue;
        }
        const qsizetype blockEnd = isWholeBlock ? at + kBlock : end;
        for (; at < blockEnd; ++at) {
            if (pattern.startsAt(data + at))
                return at;
        }
    }
    return -1;
}
