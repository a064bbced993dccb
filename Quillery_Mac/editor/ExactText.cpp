// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/ExactText.h"

#include <algorithm>
#include <cstring>

namespace {

using Edge = ShownMap::Edge;

// One pass over the text. The bytes are shared with the object that is edited, so that each change
// copies them anyway; QByteArray::replace() would do so and then move the rest once more.
QByteArray spliced(const QByteArray &text, qsizetype at, qsizetype removed,
                   const QByteArray &inserted)
{
    const qsizetype rest = text.size() - at - removed;
    QByteArray result(at + inserted.size() + rest, Qt::Uninitialized);
    char *out = result.data();
    std::memcpy(out, text.constData(), static_cast<std::size_t>(at));
    std::memcpy(out + at, inserted.constData(), static_cast<std::size_t>(inserted.size()));
    std::memcpy(out + at + inserted.size(), text.constData() + at + removed,
                static_cast<std::size_t>(rest));
    return result;
}

struct Difference
{
    qsizetype at;
    qsizetype removed;
    qsizetype inserted;
};

Difference difference(const QByteArray &before, const QByteArray &after)
{
    const qsizetype shorter = std::min(before.size(), after.size());
    const qsizetype start =
        std::mismatch(before.begin(), before.begin() + shorter, after.begin()).first -
        before.begin();
    const qsizetype end =
        std::mismatch(before.rbegin(), before.rbegin() + (shorter - start), after.rbegin()).first -
        before.rbegin();
    return {start, before.size() - start - end, after.size() - start - end};
}

} // namespace

QByteArray ExactText::utf8(int at, int count) const
{
    const Place from = m_map.atUnit(m_utf8, at, Edge::Start);
    const Place to = m_map.atUnit(m_utf8, at + count, Edge::End);
    return m_utf8.mid(from.byte, to.byte - from.byte);
}

QString ExactText::shown(int at, int count) const
{
    const Place from = m_map.atUnit(m_utf8, at, Edge::Start);
    const Place to = m_map.atUnit(m_utf8, at + count, Edge::End);
    return m_map.shown(m_utf8, from, to).mid(at - from.unit, count);
}

qsizetype ExactText::byteAt(int at) const
{
    return m_map.atUnit(m_utf8, at, Edge::Start).byte;
}

int ExactText::atByte(qsizetype byte) const
{
    return m_map.atByte(m_utf8, byte, Edge::Start).unit;
}

void ExactText::setUtf8(const QByteArray &utf8)
{
    m_utf8 = utf8;
    m_map.reset(m_utf8);
    m_history.clear();
}

ExactText::Change ExactText::replace(int at, int removed, const QByteArray &utf8)
{
    return put(at, removed, utf8, ShownMap::LongLines::Broken);
}

void ExactText::follow(int at, int removed, const QByteArray &utf8)
{
    put(at, removed, utf8, ShownMap::LongLines::Whole);
}

std::optional<ExactText::Change> ExactText::become(const QByteArray &utf8)
{
    if (utf8.size() == m_utf8.size() && utf8.constData() == m_utf8.constData())
        return std::nullopt;
    const Difference changed = difference(m_utf8, utf8);
    if (changed.removed == 0 && changed.inserted == 0)
        return std::nullopt;
    const QByteArray inserted = utf8.mid(changed.at, changed.inserted);
    m_history.record({changed.at, m_utf8.mid(changed.at, changed.removed), inserted});
    return replaceBytes(changed.at, changed.removed, inserted);
}

ExactText::Change ExactText::breakLines(int at, int count)
{
    const Place from = m_map.atUnit(m_utf8, at, Edge::Start);
    const Place to = m_map.atUnit(m_utf8, at + count, Edge::End);
    return splice(from, to, m_utf8.mid(from.byte, to.byte - from.byte),
                  ShownMap::LongLines::Broken);
}

std::vector<ExactText::Change> ExactText::undo()
{
    std::vector<Change> changes;
    for (const TextHistory::Step &step : m_history.takeUndo())
        changes.push_back(replaceBytes(step.at, step.inserted.size(), step.removed));
    return changes;
}

std::vector<ExactText::Change> ExactText::redo()
{
    std::vector<Change> changes;
    for (const TextHistory::Step &step : m_history.takeRedo())
        changes.push_back(replaceBytes(step.at, step.removed.size(), step.inserted));
    return changes;
}

// Where other edits made one character of the bytes on both sides, that is shown anew with them.
ExactText::Change ExactText::replaceBytes(qsizetype at, qsizetype removed, const QByteArray &utf8)
{
    const Place from = m_map.atByte(m_utf8, at, Edge::Start);
    const bool isPoint = removed == 0 && from.byte == at;
    const Place to = isPoint ? from : m_map.atByte(m_utf8, at + removed, Edge::End);
    const QByteArray before = m_utf8.mid(from.byte, at - from.byte);
    const QByteArray after = m_utf8.mid(at + removed, to.byte - at - removed);
    return splice(from, to, before + utf8 + after, ShownMap::LongLines::Broken);
}

ExactText::Change ExactText::put(int at, int removed, const QByteArray &utf8,
                                 ShownMap::LongLines lines)
{
    const Place from = m_map.atUnit(m_utf8, at, Edge::Start);
    const Place to = m_map.atUnit(m_utf8, at + removed, Edge::End);
    // Half a surrogate pair that stays in the shown text is no character any more.
    const QByteArray half("\xef\xbf\xbd");
    const QByteArray inserted =
        half.repeated(at - from.unit) + utf8 + half.repeated(to.unit - at - removed);
    if (from.byte != to.byte || !inserted.isEmpty())
        m_history.record({from.byte, m_utf8.mid(from.byte, to.byte - from.byte), inserted});
    return splice(from, to, inserted, lines);
}

ExactText::Change ExactText::splice(const Place &from, const Place &to, const QByteArray &utf8,
                                    ShownMap::LongLines lines)
{
    m_utf8 = spliced(m_utf8, from.byte, to.byte - from.byte, utf8);
    const int units = m_map.replace(m_utf8, from, to, utf8.size(), lines);
    return {from.unit, to.unit - from.unit, shown(from.unit, units)};
}
