#include "document/character.h"
#include "formats/safefile.h"

#include "document/elementoperations.h"
#include "document/historystep.h"
#include "document/kindconversion.h"
#include "formats/characterfile.h"
#include "formats/elementrestorer.h"
#include "document/sheetcomposer.h"
#include "imaging/cellcutter.h"
#include "imaging/hslshift.h"
#include "imaging/transforms.h"


#include <algorithm>

QSize Character::defaultSheetSize(int kind)
{
    return kind == VX ? QSize(96, 128) : QSize(128, 192);
}

Character::Character() : Character(XP, QSize()) {}

Character::Character(int kind, QSize size)
    : m_sheetSize(size.isNull() || !size.isValid() ? defaultSheetSize(kind) : size),
      m_kind(kind),
      m_drawingImage(0, 0, QImage::Format_ARGB32),
      m_drawingOverlay(0, 0, QImage::Format_ARGB32)
{
}

void Character::setKind(int kind)
{
    m_kind = kind;
    dropCellsOutsideSheet();
}

// Every cell table is indexed by the selected cells, so a cell past the kind's count
// must never stay selected after an undo, a redo or a conversion.
void Character::dropCellsOutsideSheet()
{
    const int count = cellCount();
    m_selectedCells.removeIf([count](int c) { return c < 0 || c >= count; });
}

QSize Character::cellSize() const
{
    const int columns = columnCount();
    if (columns == 0)
        return QSize(0, m_sheetSize.height() / 4);
    return QSize(m_sheetSize.width() / columns, m_sheetSize.height() / 4);
}

QPoint Character::cellCorner(int cell) const
{
    const int columns = columnCount();
    if (columns == 0)
        return QPoint();
    const QSize size = cellSize();
    return QPoint(cell % columns * size.width(), cell / columns * size.height());
}

QSize Character::zoomedSize() const
{
    return QSize(int(m_sheetSize.width() * m_zoom), int(m_sheetSize.height() * m_zoom));
}

void Character::selectAllElements()
{
    m_selectedElements.clear();
    for (int e = 0; e < elementCount(); ++e)
        m_selectedElements.append(e);
}

void Character::selectAllCells()
{
    m_selectedCells.clear();
    if (m_kind != XP && m_kind != VX)
        return;
    for (int c = 0; c < cellCount(); ++c)
        m_selectedCells.append(c);
}

static void toggle(QList<int>& list, int index)
{
    if (!list.removeOne(index))
        list.append(index);
}

void Character::toggleCell(int c)
{
    toggle(m_selectedCells, c);
}

void Character::toggleElement(int e)
{
    toggle(m_selectedElements, e);
}

static QList<int> complement(const QList<int>& selected, int count)
{
    QList<int> result;
    for (int i = 0; i < count; ++i) {
        if (!selected.contains(i))
            result.append(i);
    }
    return result;
}

void Character::invertCellSelection()
{
    m_selectedCells = complement(m_selectedCells, cellCount());
}

void Character::invertElementSelection()
{
    m_selectedElements = complement(m_selectedElements, elementCount());
}

void Character::setSelectedElements(const QList<int>& list)
{
    m_selectedElements.clear();
    for (int e = 0; e < elementCount(); ++e) {
        if (list.contains(e))
            m_selectedElements.append(e);
    }
}

void Character::setSelectedCells(const QList<int>& list)
{
    m_selectedCells.clear();
    for (int c : list) {
        if (!m_selectedCells.contains(c))
            m_selectedCells.append(c);
    }
}

void Character::forEachSelectedPair(const std::function<void(int, int)>& visit)
{
    const bool cellsOnly = !m_selectedCells.isEmpty() && m_selectedElements.isEmpty();
    if (cellsOnly)
        selectAllElements();
    if (m_selectedCells.isEmpty()) {
        const QList<int> elements = m_selectedElements;
        const int cells = cellCount();
        if (elements.isEmpty()) {
            for (int e = 0; e < elementCount(); ++e) {
                for (int c = 0; c < cells; ++c)
                    visit(e, c);
            }
        } else {
            for (int e : elements) {
                for (int c = 0; c < cells; ++c)
                    visit(e, c);
            }
        }
    } else {
        const QList<int> elements = m_selectedElements;
        const QList<int> cells = m_selectedCells;
        for (int e : elements) {
            for (int c : cells)
                visit(e, c);
        }
    }
    if (cellsOnly)
        m_selectedElements.clear();
}

void Character::beginPreview()
{
    m_snapshot.active = true;
    m_snapshot.elementNames = m_elementNames;
    m_snapshot.sheetSize = m_sheetSize;
    m_snapshot.elementSources = m_elementSources;
    m_snapshot.cellImages = m_cellImages;
    m_snapshot.cellPositions = m_cellPositions;
    m_snapshot.kind = m_kind;
    m_snapshot.selectedElements = m_selectedElements;
    m_snapshot.selectedCells = m_selectedCells;
    m_snapshot.elementVisible = m_elementVisible;
    m_snapshot.zoom = m_zoom;
    m_snapshot.showGrid = m_showGrid;
    m_snapshot.overflowCells = m_overflowCells;
    m_snapshot.selectionOnly = m_selectionOnly;
}

void Character::cancelPreview()
{
    if (!m_snapshot.active)
        return;
    m_elementNames = m_snapshot.elementNames;
    m_sheetSize = m_snapshot.sheetSize;
    m_elementSources = m_snapshot.elementSources;
    m_cellImages = m_snapshot.cellImages;
    m_cellPositions = m_snapshot.cellPositions;
    m_kind = m_snapshot.kind;
    m_selectedElements = m_snapshot.selectedElements;
    m_selectedCells = m_snapshot.selectedCells;
    m_elementVisible = m_snapshot.elementVisible;
    m_zoom = m_snapshot.zoom;
    m_showGrid = m_snapshot.showGrid;
    m_overflowCells = m_snapshot.overflowCells;
    m_selectionOnly = m_snapshot.selectionOnly;
}

void Character::endPreview()
{
    m_snapshot = Snapshot();
}

void Character::resetElements(int count)
{
    const int cells = cellCount();
    m_elementNames = QList<QByteArray>(count);
    m_elementSources = QList<QByteArray>(count);
    m_cellImages = QList<QList<QImage>>(count, QList<QImage>(cells));
    m_cellPositions = QList<QList<QPoint>>(count, QList<QPoint>(cells));
    m_elementVisible = QBitArray(count, false);
}

bool Character::hasElementNamed(const QByteArray& name) const
{
    return m_elementNames.contains(name);
}

QByteArray Character::nextElementName() const
{
    for (int number = 1;; ++number) {
        const QByteArray name = QByteArray("El\xe9ment ") + QByteArray::number(number);
        if (!hasElementNamed(name))
            return name;
    }
}

void Character::insertElement(int index, const QByteArray& name, const QByteArray& source,
                              const QList<QImage>& images, const QList<QPoint>& positions,
                              bool visible)
{
    m_elementNames.insert(index, name);
    m_elementSources.insert(index, source);
    m_cellImages.insert(index, images);
    m_cellPositions.insert(index, positions);
    const int count = elementCount();
    QBitArray bits(count);
    for (int e = 0; e < count; ++e) {
        if (e < index)
            bits.setBit(e, m_elementVisible.testBit(e));
        else if (e > index)
            bits.setBit(e, m_elementVisible.testBit(e - 1));
    }
    bits.setBit(index, visible);
    m_elementVisible = bits;
}

bool Character::addElement(const QString& path)
{
    return addElement(path, elementCount());
}

bool Character::addElement(const QString& path, int index)
{
    if (path.isEmpty()) {
        addDrawingLayer(index);
        return true;
    }
    QImage image = SafeFile::readImage(path);
    if (image.isNull())
        return false;
    if (image.format() != QImage::Format_ARGB32)
        image = image.convertToFormat(QImage::Format_ARGB32);
    CellCutter::Cells cells = CellCutter::cut(image, m_sheetSize, m_kind);
    insertElement(index, nextElementName(), path.toLatin1(), cells.images, cells.positions, true);
    return true;
}

void Character::addElement(const QImage& image, const QByteArray& name, int index)
{
    QImage sheet = image.format() == QImage::Format_ARGB32
                       ? image
                       : image.convertToFormat(QImage::Format_ARGB32);
    CellCutter::Cells cells = CellCutter::cut(sheet, m_sheetSize, m_kind);
    insertElement(index, name, QByteArray(), cells.images, cells.positions, true);
}

void Character::addDrawingLayer(int index)
{
    const int cells = cellCount();
    QImage blank(cellSize(), QImage::Format_ARGB32);
    blank.fill(uint(19));
    insertElement(index, nextElementName(), QByteArray(), QList<QImage>(cells, blank),
                  QList<QPoint>(cells, QPoint(0, 0)), true);
}

void Character::shiftCharacterHsl(const HslShift& shift, bool redefine, bool preview)
{
    const bool fromSnapshot = preview && m_snapshot.active;
    forEachSelectedPair([&](int e, int c) {
        QImage& image = m_cellImages[e][c];
        if (!fromSnapshot) {
            shiftImageHsl(shift, image, redefine, false, image);
            return;
        }
        const QImage& source = m_snapshot.cellImages.at(e).at(c);
        if (image.size() != source.size())
            image = source;
        shiftImageHsl(shift, image, redefine, true, source);
    });
}

PlacedImage Character::retouchSource(int e, int c, bool preview) const
{
    if (preview && m_snapshot.active)
        return {m_snapshot.cellImages.at(e).at(c), m_snapshot.cellPositions.at(e).at(c)};
    return {m_cellImages.at(e).at(c), m_cellPositions.at(e).at(c)};
}

void Character::resizeSelection(double widthFactor, double heightFactor, bool recenter,
                                bool smooth, bool preview)
{
    forEachSelectedPair([&](int e, int c) {
        const PlacedImage result = resizedImage(retouchSource(e, c, preview), widthFactor,
                                                heightFactor, recenter, smooth);
        m_cellImages[e][c] = result.image;
        m_cellPositions[e][c] = result.position;
    });
}

void Character::rotateSelection(double degrees, bool smooth, bool preview)
{
    forEachSelectedPair([&](int e, int c) {
        const PlacedImage result = rotatedImage(retouchSource(e, c, preview), degrees, smooth);
        m_cellImages[e][c] = result.image;
        m_cellPositions[e][c] = result.position;
    });
}

void Character::flipSelection(bool horizontal, bool vertical)
{
    forEachSelectedPair([&](int e, int c) {
        m_cellImages[e][c] = flippedImage(m_cellImages[e][c], horizontal, vertical);
    });
}

void Character::deleteCells()
{
    forEachSelectedPair([this](int e, int c) {
        QImage& image = m_cellImages[e][c];
        if (!image.isNull())
            image.fill(uint(19));
    });
}

void Character::moveCells(QPoint delta)
{
    forEachSelectedPair([this, delta](int e, int c) { m_cellPositions[e][c] += delta; });
}

void Character::resizeSheet(QSize size, bool keepCentred)
{
    if (keepCentred) {
        const QSize oldCell = cellSize();
        const QSize oldSheet = m_sheetSize;
        m_sheetSize = size;
        const QSize newCell = cellSize();
        m_sheetSize = oldSheet;
        const QPoint shift(int((newCell.width() - oldCell.width()) * 0.5),
                           int((newCell.height() - oldCell.height()) * 0.5));
        for (QList<QPoint>& positions : m_cellPositions) {
            for (QPoint& point : positions)
                point += shift;
        }
    }
    m_sheetSize = size;
}

QImage Character::compose() const
{
    return SheetComposer::compose(*this);
}

std::array<QImage, 4> Character::composeRows(int step) const
{
    return SheetComposer::composeRows(*this, step);
}

QImage Character::render()
{
    m_cachedView = SheetComposer::render(*this);
    return m_cachedView;
}

void Character::restore(const HistoryStep& step)
{
    m_kind = step.kind;
    m_sheetSize = step.sheetSize;
    m_elementNames = step.elementNames;
    m_elementSources = step.elementSources;
    m_cellImages = step.cellImages;
    m_cellPositions = step.cellPositions;
    m_elementVisible = step.elementVisible;
    m_selectedElements = step.selectedElements;
    dropCellsOutsideSheet();
}

bool Character::loadCharacter(const QString& path, quint8* version)
{
    return CharacterFile::load(*this, path, version);
}

bool Character::saveCharacter(const QString& path, quint8 version)
{
    return CharacterFile::save(*this, path, version);
}

void Character::convertToVX()
{
    KindConversion::toVX(*this);
}

void Character::convertToXP()
{
    KindConversion::toXP(*this);
}

void Character::addCharacter(const Character& other, bool rename)
{
    KindConversion::insert(*this, other, elementCount(), rename);
}

void Character::insertCharacter(const Character& other, int index, bool rename)
{
    KindConversion::insert(*this, other, index, rename);
}

bool Character::restoreElements(const std::function<bool(const QString& question)>& reconvert)
{
    return ElementRestorer::restore(*this, reconvert);
}

void Character::duplicateElement(int e, int target)
{
    ElementOperations::duplicate(*this, e, target);
}

void Character::moveElement(int target)
{
    ElementOperations::move(*this, target);
}

void Character::deleteSelectedElements()
{
    ElementOperations::remove(*this, m_selectedElements);
}

void Character::deleteElements(const QList<int>& list)
{
    ElementOperations::remove(*this, list);
}

void Character::mergeElements(const QList<int>& list)
{
    ElementOperations::merge(*this, list);
}

void Character::mergeWithLower(int e)
{
    if (e > 0)
        ElementOperations::merge(*this, {e - 1, e});
}

// The list is taken in rising order whatever order the elements were selected in, so
// the lowest element is the target and the stack's order is the drawing order.
void Character::mergeSelection()
{
    QList<int> list = m_selectedElements;
    std::sort(list.begin(), list.end());
    ElementOperations::merge(*this, list);
    m_selectedElements.clear();
}
