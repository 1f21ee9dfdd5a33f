#pragma once

#include "document/character.h"

#include <QImage>
#include <QList>
#include <QString>

// A group element being put together: simple elements stacked around a placeholder
// that stands for the element the group will wrap. The stack is a Character that
// holds names and sources only: a simple element's source is the number of its record,
// in decimal, and the record holds its sheet image. The placeholder can be moved like
// any element; what lies beneath it goes in the file's first stack.
class ElementGroup
{
public:
    struct Record
    {
        QImage image;
        QString name;
    };

    static const QByteArray PlaceholderSource;
    static const QByteArray PlaceholderName;

    explicit ElementGroup(int kind);

    int kind() const { return m_stack.kind(); }
    Character& stack() { return m_stack; }
    const Character& stack() const { return m_stack; }
    const QList<Record>& records() const { return m_records; }
    int nextIndex() const { return m_nextIndex; }
    int simpleCount() const { return m_stack.elementCount() - 1; }

    bool isPlaceholder(int e) const { return m_stack.elementSource(e) == PlaceholderSource; }
    // The record of element e, or -1 for the placeholder.
    int recordOf(int e) const;

    // A new simple element on top of the stack, bearing the next number.
    void add(const Record& record);
    // Drops record index, whose element has already left the stack, and numbers the
    // records above it one lower, in the stack's sources too.
    void removeRecord(int index);

    // The sheets from the bottom of the stack up, the placeholder left out; firstCount
    // receives how many lie beneath it.
    QList<QImage> sheets(int* firstCount) const;
    // Writes the group as an element file; errorText receives the writer's message.
    bool write(const QString& path, QString* errorText) const;

private:
    Character m_stack;
    QList<Record> m_records;
    int m_nextIndex = 0;
};
