#include "formats/elementrestorer.h"

#include "document/character.h"
#include "document/kindconversion.h"
#include "formats/elementfile.h"
#include "formats/safefile.h"
#include "imaging/cellcutter.h"

namespace {

QList<int> allUpTo(int count)
{
    QList<int> list;
    for (int i = 0; i < count; ++i)
        list.append(i);
    return list;
}

} // namespace

ElementRestorer::ElementRestorer(Character& character, const Reconvert& reconvert)
    : m_character(character), m_reconvert(reconvert)
{}

bool ElementRestorer::restore(Character& character, const Reconvert& reconvert)
{
    ElementRestorer restorer(character, reconvert);
    const QList<int> elements = character.selectedElements().isEmpty()
                                    ? allUpTo(character.elementCount())
                                    : character.selectedElements();
    const QList<int> cells = character.selectedCells().isEmpty() ? allUpTo(character.cellCount())
                                                                 : character.selectedCells();
    for (int e : elements)
        restorer.restoreElement(e, cells);
    if (restorer.m_failures.isEmpty())
        return true;
    character.setErrorText(QStringLiteral("Certains éléments n'ont pas pu être ouverts.|") +
                           restorer.m_failures.join(QLatin1Char('|')));
    return false;
}

void ElementRestorer::restoreElement(int e, const QList<int>& cells)
{
    const QByteArray& source = m_character.elementSource(e);
    Cells fresh;
    const bool read = source.contains('?') ? groupCells(source, fresh) : sourceCells(source, fresh);
    if (!read)
        return;
    for (int c : cells) {
        m_character.setCellImage(e, c, fresh.images.at(c));
        m_character.setCellPosition(e, c, fresh.positions.at(c));
    }
}

// A cell is always cut from (0, 0): trimming a cell into its present position would
// keep that position whenever there is no margin to cut, and a moved element would
// stay moved.
bool ElementRestorer::sourceCells(const QByteArray& source, Cells& cells)
{
    const QString path = QString::fromLatin1(source);
    const int kind = m_character.kind();
    bool convert = false;
    if (kind == Character::XP && source.contains("elements/VX/"))
        convert = m_reconvert(path + QStringLiteral(" semble être un élément de VX. Faut-il le "
                                                    "reconvertir vers XP ?"));
    else if (kind == Character::VX && source.contains("elements/XP/"))
        convert = m_reconvert(path + QStringLiteral(" semble être un élément de XP. Faut-il le "
                                                    "reconvertir vers VX ?"));
    QImage image = path.isEmpty() ? QImage() : SafeFile::readImage(path);
    if (image.isNull() && !path.isEmpty()) {
        fail(path, false);
        return false;
    }
    if (image.isNull()) {
        // A drawing layer: blank cells at the cell's corner, ready to be painted on.
        QImage blank(m_character.cellSize(), QImage::Format_ARGB32);
        blank.fill(uint(19));
        cells.images = QList<QImage>(m_character.cellCount(), blank);
        cells.positions = QList<QPoint>(m_character.cellCount(), QPoint(0, 0));
        return true;
    }
    if (image.format() != QImage::Format_ARGB32)
        image = image.convertToFormat(QImage::Format_ARGB32);
    if (convert)
        image = KindConversion::convertedSheet(image, m_character);
    const CellCutter::Cells cut = CellCutter::cut(image, m_character.sheetSize(), kind);
    cells.images = cut.images;
    cells.positions = cut.positions;
    return true;
}

// A source "<path>?<index>_<load>" names element index of the group file at path,
// counted through both stacks.
bool ElementRestorer::groupCells(const QByteArray& source, Cells& cells)
{
    const qsizetype mark = source.indexOf('?');
    const QString path = QString::fromLatin1(source.left(mark));
    const QByteArray rest = source.mid(mark + 1);
    bool numbered = false;
    const int index = rest.left(rest.indexOf('_')).toInt(&numbered);
    QString error;
    const std::optional<ElementFile::Pair> pair = ElementFile::load(path, &error);
    if (!pair || !numbered || index < 0 ||
        index >= pair->first.elementCount() + pair->second.elementCount()) {
        fail(path, true);
        return false;
    }
    Character group = ElementFile::merged(*pair);
    if (m_character.kind() == Character::XP)
        group.convertToXP();
    else if (m_character.kind() == Character::VX)
        group.convertToVX();
    // A file of a kind that has no conversion has cells that do not match ours.
    if (group.kind() != m_character.kind()) {
        fail(path, true);
        return false;
    }
    cells.images = group.cellImages().at(index);
    cells.positions = group.cellPositions().at(index);
    return true;
}

// A group file is listed once however many of its elements it failed; a sheet is
// listed for each element taken from it.
void ElementRestorer::fail(const QString& path, bool once)
{
    if (!once || !m_failures.contains(path))
        m_failures.append(path);
}
