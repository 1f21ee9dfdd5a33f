#include "document/history.h"

void History::push(const HistoryStep& step, const QByteArray& label)
{
    // Whatever could have been redone is dropped.
    while (size() - 1 > m_currentIndex) {
        m_steps.pop_back();
        m_labels.pop_back();
    }
    if (m_maxSteps != Unlimited && size() >= m_maxSteps) {
        // At capacity the oldest step goes and the index stays; savedIndex is not
        // adjusted, so past the cap a document may show clean at another state.
        if (size() == m_maxSteps) {
            m_steps.pop_front();
            m_labels.pop_front();
            m_steps.push_back(step);
            m_labels.push_back(label);
        }
        return;
    }
    m_steps.push_back(step);
    m_labels.push_back(label);
    ++m_currentIndex;
}

const HistoryStep& History::goTo(int index)
{
    if (index < 0)
        m_currentIndex += index;
    else
        m_currentIndex = index;
    return m_steps.at(size_t(m_currentIndex));
}

void History::markSaved()
{
    m_savedIndex = m_currentIndex == size() ? m_currentIndex - 1 : m_currentIndex;
    m_hasSaved = true;
}

void History::setMaxSteps(int n)
{
    if (n > 0 || n == Unlimited)
        m_maxSteps = n;
    else if (n == -1)
        m_maxSteps = DefaultMaxSteps;
}

bool History::canUndo() const
{
    return m_currentIndex != 0 && size() >= 2;
}

int History::undoOffset() const
{
    return m_currentIndex == size() ? -2 : -1;
}

bool History::canRedo() const
{
    return size() != 0 && m_currentIndex < size() - 1;
}
