#pragma once

#include "document/historystep.h"

#include <QByteArray>

#include <deque>

// The undo history of one document, and what tells whether it differs from its file.
//
// currentIndex has two regimes: right after a push it is one past the present state
// (push adds 1), right after an undo or a redo it is the index of the present state.
// Undo reconciles them by stepping back 2 in the first case and 1 in the second.
class History
{
public:
    static constexpr int DefaultMaxSteps = 271;
    static constexpr int Unlimited = -2;

    void push(const HistoryStep& step, const QByteArray& label);
    const HistoryStep& goTo(int index);

    int size() const { return int(m_steps.size()); }
    int currentIndex() const { return m_currentIndex; }
    int savedIndex() const { return m_savedIndex; }
    bool hasSaved() const { return m_hasSaved; }
    int maxSteps() const { return m_maxSteps; }
    const QByteArray& labelAt(int i) const { return m_labels.at(size_t(i)); }
    const HistoryStep& stepAt(int i) const { return m_steps.at(size_t(i)); }

    void markSaved();
    // No step matches a file any more: a recovered document differs from its file
    // even after undoing every change.
    void forgetSavedState() { m_savedIndex = -1; }
    void setMaxSteps(int n);

    // The rules the window and the canvas apply before moving in the history.
    bool canUndo() const;
    int undoOffset() const;
    bool canRedo() const;
    bool isAtSavedState() const { return m_currentIndex == m_savedIndex; }

private:
    std::deque<HistoryStep> m_steps;
    std::deque<QByteArray> m_labels;
    int m_currentIndex = 0;
    int m_savedIndex = 0;
    bool m_hasSaved = false;
    int m_maxSteps = DefaultMaxSteps;
};
