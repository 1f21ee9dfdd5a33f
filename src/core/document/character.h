#pragma once

#include <QBitArray>
#include <QByteArray>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <array>
#include <functional>

class HistoryStep;
struct HslShift;
struct PlacedImage;

// One sprite sheet under construction: a stack of elements, each holding one small
// trimmed image and one position per cell. Element 0 lies at the bottom. The class is
// a plain value: copies share their images and their per-element containers, so a
// history step costs handles, not pixels.
class Character
{
public:
    // Kind 0 is RPG Maker XP (4 by 4 cells), kind 1 RPG Maker VX (3 by 4 cells).
    // Any other kind counts 12 cells but draws nothing and has no columns.
    static constexpr int XP = 0;
    static constexpr int VX = 1;
    static constexpr int MaxElements = 255;

    Character();
    // A size of 0 by 0 (or an invalid QSize()) takes the kind's default sheet size.
    Character(int kind, QSize size);

    static int cellCountOf(int kind) { return kind == XP ? 16 : 12; }
    static int columnCountOf(int kind) { return kind == XP ? 4 : kind == VX ? 3 : 0; }
    static QSize defaultSheetSize(int kind);

    int kind() const { return m_kind; }
    // A change of kind drops the selected cells that the new kind does not have.
    void setKind(int kind);
    QSize sheetSize() const { return m_sheetSize; }
    void setSheetSize(QSize size) { m_sheetSize = size; }
    int elementCount() const { return int(m_elementNames.size()); }
    int cellCount() const { return cellCountOf(m_kind); }
    int columnCount() const { return columnCountOf(m_kind); }
    QSize cellSize() const;
    QPoint cellCorner(int cell) const;

    double zoom() const { return m_zoom; }
    void setZoom(double zoom) { m_zoom = zoom; }
    QSize zoomedSize() const;
    bool showGrid() const { return m_showGrid; }
    void setShowGrid(bool show) { m_showGrid = show; }
    bool overflowCells() const { return m_overflowCells; }
    void setOverflowCells(bool overflow) { m_overflowCells = overflow; }
    bool selectionOnly() const { return m_selectionOnly; }
    void setSelectionOnly(bool only) { m_selectionOnly = only; }
    qint32 fillPixel() const { return m_fillPixel; }
    void setFillPixel(qint32 pixel) { m_fillPixel = pixel; }

    const QByteArray& elementName(int e) const { return m_elementNames.at(e); }
    void setElementName(int e, const QByteArray& name) { m_elementNames[e] = name; }
    const QByteArray& elementSource(int e) const { return m_elementSources.at(e); }
    void setElementSource(int e, const QByteArray& source) { m_elementSources[e] = source; }
    const QImage& cellImage(int e, int c) const { return m_cellImages.at(e).at(c); }
    void setCellImage(int e, int c, const QImage& image) { m_cellImages[e][c] = image; }
    QPoint cellPosition(int e, int c) const { return m_cellPositions.at(e).at(c); }
    void setCellPosition(int e, int c, QPoint point) { m_cellPositions[e][c] = point; }
    // Bounded, and so never a read into the empty array's storage (the compiler
    // cannot see that the bit array is sized with the elements).
    bool isVisible(int e) const
    {
        return e >= 0 && e < m_elementVisible.size() && m_elementVisible.testBit(e);
    }
    void setVisible(int e, bool visible) { m_elementVisible.setBit(e, visible); }

    const QList<QByteArray>& elementNames() const { return m_elementNames; }
    const QList<QByteArray>& elementSources() const { return m_elementSources; }
    const QList<QList<QImage>>& cellImages() const { return m_cellImages; }
    const QList<QList<QPoint>>& cellPositions() const { return m_cellPositions; }
    const QBitArray& elementVisibility() const { return m_elementVisible; }

    // Selection. Both lists hold no index twice; the last selected cell is the anchor
    // of the canvas's range selection.
    const QList<int>& selectedElements() const { return m_selectedElements; }
    const QList<int>& selectedCells() const { return m_selectedCells; }
    int selectedElementCount() const { return int(m_selectedElements.size()); }
    int selectedCellCount() const { return int(m_selectedCells.size()); }
    int selectedElement(int i) const { return m_selectedElements.at(i); }
    int selectedCell(int i) const { return m_selectedCells.at(i); }
    bool isElementSelected(int e) const { return m_selectedElements.contains(e); }
    bool isCellSelected(int c) const { return m_selectedCells.contains(c); }
    void selectAllElements();
    void selectAllCells();
    void toggleCell(int c);
    void toggleElement(int e);
    void invertCellSelection();
    void invertElementSelection();
    void setSelectedElements(const QList<int>& list);
    void setSelectedCells(const QList<int>& list);
    void clearElementSelection() { m_selectedElements.clear(); }
    void clearCellSelection() { m_selectedCells.clear(); }

    // Calls visit(element, cell) for every pair that the selection designates: an
    // empty list means everything on its axis. While cells alone are selected, the
    // element list holds every element for the time of the walk and is empty again
    // afterwards.
    void forEachSelectedPair(const std::function<void(int, int)>& visit);

    // Preview protocol of the retouch boxes: previews replay their effect on the live
    // fields from the snapshot, so that they never add up.
    void beginPreview();
    void cancelPreview();
    void endPreview();
    bool hasSnapshot() const { return m_snapshot.active; }
    const QImage& snapshotImage(int e, int c) const { return m_snapshot.cellImages.at(e).at(c); }
    QPoint snapshotPosition(int e, int c) const { return m_snapshot.cellPositions.at(e).at(c); }

    // Elements.
    bool addElement(const QString& path);
    bool addElement(const QString& path, int index);
    void addElement(const QImage& image, const QByteArray& name, int index);
    void addDrawingLayer(int index);
    void insertElement(int index, const QByteArray& name, const QByteArray& source,
                       const QList<QImage>& images, const QList<QPoint>& positions,
                       bool visible);
    // Empties the five element tables and sizes them to count elements of empty
    // names and sources, hidden, with null images at (0,0): what a reader fills in.
    void resetElements(int count);
    QByteArray nextElementName() const;
    bool hasElementNamed(const QByteArray& name) const;

    // The stack: a copy of e moved to target, the one selected element moved to
    // target, deletions (which empty the element selection), and merges into the
    // first listed element, drawn in the list's order.
    void duplicateElement(int e, int target);
    void moveElement(int target);
    void deleteSelectedElements();
    void deleteElements(const QList<int>& list);
    void mergeElements(const QList<int>& list);
    void mergeWithLower(int e);
    void mergeSelection();

    // Operations on the selection.
    void shiftCharacterHsl(const HslShift& shift, bool redefine, bool preview);
    // Resize and rotation read their pictures and positions from the snapshot when
    // previewing with one, so that repeated previews do not add up.
    void resizeSelection(double widthFactor, double heightFactor, bool recenter, bool smooth,
                         bool preview);
    void rotateSelection(double degrees, bool smooth, bool preview);
    void flipSelection(bool horizontal, bool vertical);
    void deleteCells();
    void moveCells(QPoint delta);
    void resizeSheet(QSize size, bool keepCentred);

    // Composition: the exact sheet, starting from the raw pixel 19.
    QImage compose() const;
    // The preview's step of the walk: one cell per row (SheetComposer::composeRows).
    std::array<QImage, 4> composeRows(int step) const;
    // The canvas's view: composition over fillPixel, zoom, grid and selection marks.
    // The result is kept as the cached view, which the pipette reads.
    QImage render();
    const QImage& cachedView() const { return m_cachedView; }

    // Files (.zk, both versions). On failure the result is false and errorText says why.
    bool loadCharacter(const QString& path, quint8* version = nullptr);
    bool saveCharacter(const QString& path, quint8 version);

    // Conversion of the whole character between kinds, and adding another character's
    // elements (converted to this kind first), renamed by the element naming rule when
    // rename is set.
    void convertToVX();
    void convertToXP();
    void addCharacter(const Character& other, bool rename);
    void insertCharacter(const Character& other, int index, bool rename);

    // Reads the selected elements' source files again (an empty selection means all),
    // undoing their retouches and moves. reconvert is asked, with the question's text,
    // whether a library element of the other engine is to be converted. False when
    // some files could not be read; errorText then lists them after "|" separators.
    bool restoreElements(const std::function<bool(const QString& question)>& reconvert);

    // Whole-state history.
    void restore(const HistoryStep& step);

    const QImage& drawingImage() const { return m_drawingImage; }
    const QImage& drawingOverlay() const { return m_drawingOverlay; }

    const QString& errorText() const { return m_errorText; }
    void setErrorText(const QString& text) { m_errorText = text; }

    // Set by whoever changes the elements' pictures behind the element list's back
    // (the canvas's tools): the list draws its thumbnails again before it paints.
    bool listDirty() const { return m_listDirty; }
    void setListDirty(bool dirty) { m_listDirty = dirty; }

private:
    friend class ElementOperations;
    friend class HistoryStep;

    void dropCellsOutsideSheet();
    // The picture and position a retouch of (e, c) starts from.
    PlacedImage retouchSource(int e, int c, bool preview) const;

    struct Snapshot
    {
        bool active = false;
        QList<QByteArray> elementNames;
        QSize sheetSize;
        QList<QByteArray> elementSources;
        QList<QList<QImage>> cellImages;
        QList<QList<QPoint>> cellPositions;
        int kind = XP;
        QList<int> selectedElements;
        QList<int> selectedCells;
        QBitArray elementVisible;
        double zoom = 1.0;
        bool showGrid = true;
        bool overflowCells = false;
        bool selectionOnly = false;
    };

    qint32 m_fillPixel = 19;
    QList<QByteArray> m_elementNames;
    QSize m_sheetSize;
    QList<QByteArray> m_elementSources;
    QList<QList<QImage>> m_cellImages;
    QList<QList<QPoint>> m_cellPositions;
    int m_kind = XP;
    QList<int> m_selectedElements;
    QList<int> m_selectedCells;
    QBitArray m_elementVisible;
    double m_zoom = 1.0;
    bool m_showGrid = true;
    bool m_overflowCells = false;
    bool m_selectionOnly = false;
    Snapshot m_snapshot;
    QImage m_drawingImage;
    QImage m_drawingOverlay;
    QImage m_cachedView;
    QString m_errorText;
    bool m_listDirty = false;
};
