// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/TextHistory.h"

#include <utility>

namespace {

// Of longer histories the oldest steps are forgotten; the last step always stays.
constexpr qsizetype kMaxBytes = 64 << 20;
// What one key press writes or removes, with everything that belongs to one sign.
constexpr qsizetype kKeyPress = 64;

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

bool isTyped(const TextHistory::Step &step)
{
    return step.removed.isEmpty() && !step.inserted.isEmpty() &&
           step.inserted.size() <= kKeyPress && !step.inserted.contains('\n');
}

bool isErased(const TextHistory::Step &step)
{
    return step.inserted.isEmpty() && !step.removed.isEmpty() && step.removed.size() <= kKeyPress;
}

qsizetype size(const TextHistory::Step &step)
{
    return step.removed.size() + step.inserted.size();
}

} // namespace

void TextHistory::clear()
{
    m_steps.clear();
    m_done = 0;
    m_bytes = 0;
    m_canJoin = false;
}

void TextHistory::record(Step step)
{
    for (; m_steps.size() > m_done; m_steps.pop_back())
        m_bytes -= size(m_steps.back());
    step.isGroupStart = m_grouping != Grouping::Running;
    if (m_grouping == Grouping::None && m_canJoin && joinToLast(step))
        return;
    if (m_grouping == Grouping::Starting)
        m_grouping = Grouping::Running;
    m_canJoin = m_grouping == Grouping::None && (isTyped(step) || isErased(step));
    m_bytes += size(step);
    m_steps.push_back(std::move(step));
    ++m_done;
    forgetOldest();
}

bool TextHistory::joinToLast(const Step &step)
{
    if (m_steps.empty())
        return false;
    Step &last = m_steps.back();
    if (isTyped(step) && last.removed.isEmpty() && step.at == last.at + last.inserted.size()) {
        const bool isNewWord = isBlank(last.inserted.back()) && !isBlank(step.inserted.front());
        if (isNewWord)
            return false;
        last.inserted += step.inserted;
    } else if (isErased(step) && last.inserted.isEmpty() &&
               step.at + step.removed.size() == last.at) {
        last.at = step.at;
        last.removed.prepend(step.removed);
    } else if (isErased(step) && last.inserted.isEmpty() && step.at == last.at) {
        last.removed += step.removed;
    } else {
        return false;
    }
    m_bytes += size(step);
    return true;
}

void TextHistory::forgetOldest()
{
    std::size_t count = 0;
    while (m_bytes > kMaxBytes && count + 1 < m_steps.size()) {
        m_bytes -= size(m_steps[count]);
        ++count;
    }
    // A group goes as a whole.
    while (count > 0 && count < m_steps.size() && !m_steps[count].isGroupStart) {
        m_bytes -= size(m_steps[count]);
        ++count;
    }
    m_steps.erase(m_steps.begin(), m_steps.begin() + static_cast<std::ptrdiff_t>(count));
    m_done -= count;
}

std::vector<TextHistory::Step> TextHistory::takeUndo()
{
    std::vector<Step> steps;
    m_canJoin = false;
    while (m_done > 0) {
        steps.push_back(m_steps[--m_done]);
        if (steps.back().isGroupStart)
            break;
    }
    return steps;
}

std::vector<TextHistory::Step> TextHistory::takeRedo()
{
    std::vector<Step> steps;
    m_canJoin = false;
    while (m_done < m_steps.size() && (steps.empty() || !m_steps[m_done].isGroupStart))
        steps.push_back(m_steps[m_done++]);
    return steps;
}
