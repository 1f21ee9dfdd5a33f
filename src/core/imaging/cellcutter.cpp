#include "imaging/cellcutter.h"

#include "document/character.h"
#include "imaging/trimimage.h"

QImage CellCutter::copyRect(const QImage& image, const QRect& rect)
{
    // QImage::copy of a null rectangle would copy the whole image.
    if (rect.isEmpty())
        return QImage();
    return image.copy(rect);
}

CellCutter::Cells CellCutter::cut(const QImage& image, QSize sheetSize, int kind)
{
    Cells cells;
    const int count = Character::cellCountOf(kind);
    const int columns = Character::columnCountOf(kind);
    if (columns == 0) {
        cells.images = QList<QImage>(count);
        cells.positions = QList<QPoint>(count);
        return cells;
    }
    const int cw = sheetSize.width() / columns;
    const int ch = sheetSize.height() / 4;
    const bool sheetSized = image.size() == sheetSize;
    const int iw = sheetSized ? cw : image.width() / columns;
    const int ih = sheetSized ? ch : image.height() / 4;
    const QPoint shift = sheetSized ? QPoint()
                                    : QPoint(int((iw - cw) * 0.5), int((ih - ch) * 0.5));
    cells.images.reserve(count);
    cells.positions.reserve(count);
    for (int c = 0; c < count; ++c) {
        QImage cell = copyRect(image, QRect(c % columns * iw, c / columns * ih, iw, ih));
        QPoint offset(0, 0);
        trimImage(cell, offset);
        cells.images.append(cell);
        cells.positions.append(offset - shift);
    }
    return cells;
}
