#include "library/elementgroup.h"

#include "formats/elementfile.h"

const QByteArray ElementGroup::PlaceholderSource = QByteArrayLiteral("?ZK?");
const QByteArray ElementGroup::PlaceholderName = QByteArrayLiteral("El\xe9ment s\xe9lectionn\xe9");

namespace {

// The stack never shows pictures, so its elements hold empty cells.
void insertNamed(Character& stack, const QByteArray& name, const QByteArray& source)
{
    const int cells = stack.cellCount();
    stack.insertElement(stack.elementCount(), name, source, QList<QImage>(cells),
                        QList<QPoint>(cells), true);
}

} // namespace

ElementGroup::ElementGroup(int kind) : m_stack(kind, QSize())
{
    insertNamed(m_stack, PlaceholderName, PlaceholderSource);
}

int ElementGroup::recordOf(int e) const
{
    return isPlaceholder(e) ? -1 : m_stack.elementSource(e).toInt();
}

void ElementGroup::add(const Record& record)
{
    m_records.append(record);
    insertNamed(m_stack, record.name.toLatin1(), QByteArray::number(m_nextIndex));
    ++m_nextIndex;
}

void ElementGroup::removeRecord(int index)
{
    m_records.removeAt(index);
    --m_nextIndex;
    for (int e = 0; e < m_stack.elementCount(); ++e) {
        const int number = recordOf(e);
        if (number > index)
            m_stack.setElementSource(e, QByteArray::number(number - 1));
    }
}

QList<QImage> ElementGroup::sheets(int* firstCount) const
{
    QList<QImage> images;
    *firstCount = 0;
    for (int e = 0; e < m_stack.elementCount(); ++e) {
        const int number = recordOf(e);
        if (number < 0)
            *firstCount = int(images.size());
        else
            images.append(m_records.value(number).image);
    }
    return images;
}

bool ElementGroup::write(const QString& path, QString* errorText) const
{
    int firstCount = 0;
    const QList<QImage> images = sheets(&firstCount);
    return ElementFile::write(path, images, firstCount, kind(), errorText);
}
