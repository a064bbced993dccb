// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <vector>

/// What was done to a text, to be undone and done again: some bytes at a place became others.
///
/// Typing goes into one step word by word, and so do deletions that follow each other.
class TextHistory
{
public:
    struct Step
    {
        qsizetype at; ///< in bytes
        QByteArray removed;
        QByteArray inserted;
        bool isGroupStart = true; ///< what is undone together starts here
    };

    void clear();
    void record(Step step);

    /// What is recorded until endGroup() is undone together.
    void beginGroup() { m_grouping = Grouping::Starting; }
    void endGroup() { m_grouping = Grouping::None; }

    bool canUndo() const { return m_done > 0; }
    bool canRedo() const { return m_done < m_steps.size(); }
    /// The steps to be reversed, the last one first.
    std::vector<Step> takeUndo();
    /// The steps to be done again.
    std::vector<Step> takeRedo();

private:
    enum class Grouping { None, Starting, Running };

    bool joinToLast(const Step &step);
    void forgetOldest();

    std::vector<Step> m_steps;
    std::size_t m_done = 0; ///< the steps from here on are undone
    qsizetype m_bytes = 0;
    Grouping m_grouping = Grouping::None;
    bool m_canJoin = false;
};
