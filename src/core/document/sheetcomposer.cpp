#include "document/sheetcomposer.h"

#include "document/character.h"
#include "imaging/blend.h"

#include <QPainter>

#include <algorithm>

QImage SheetComposer::compose(const Character& character)
{
    QImage image(character.sheetSize(), QImage::Format_ARGB32);
    image.fill(uint(19));
    drawElements(character, image);
    return image;
}

QImage SheetComposer::render(const Character& character)
{
    QImage image(character.sheetSize(), QImage::Format_ARGB32);
    image.fill(uint(character.fillPixel()));
    drawElements(character, image);
    image = zoomed(image, character.zoom());
    if (image.isNull())
        return image;
    if (character.showGrid())
        drawGrid(character, image);
    if (!character.selectedCells().isEmpty())
        drawSelectionMarks(character, image);
    return image;
}

QImage SheetComposer::zoomed(const QImage& image, double zoom)
{
    if (zoom == 1.0 || !(zoom > 0))
        return image;
    const QSize size(int(image.width() * zoom), int(image.height() * zoom));
    if (size.width() <= 0 || size.height() <= 0)
        return image;
    const int factor = int(zoom);
    if (factor != zoom) {
        QImage scaled = image.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        return scaled.format() == QImage::Format_ARGB32
                   ? scaled
                   : scaled.convertToFormat(QImage::Format_ARGB32);
    }
    // Whole zoom factors, the common steps, are plain pixel repetition: the same pixels
    // the toolkit's fast scaling picks, several times faster.
    QImage result(size, QImage::Format_ARGB32);
    // A view too large for memory (a big sheet at a high zoom) stays empty.
    if (result.isNull())
        return result;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        QRgb* first = reinterpret_cast<QRgb*>(result.scanLine(y * factor));
        for (int x = 0; x < image.width(); ++x)
            std::fill_n(first + x * factor, factor, from[x]);
        for (int copy = 1; copy < factor; ++copy)
            std::copy_n(first, size.width(), reinterpret_cast<QRgb*>(result.scanLine(y * factor + copy)));
    }
    return result;
}

void SheetComposer::drawElements(const Character& character, QImage& image)
{
    drawElements(character, image, -1);
}

int SheetComposer::walkColumn(int kind, int step)
{
    static constexpr int xp[4] = {0, 1, 2, 3};
    static constexpr int vx[4] = {1, 0, 1, 2};
    return (kind == Character::XP ? xp : vx)[step & 3];
}

std::array<QImage, 4> SheetComposer::composeRows(const Character& character, int step)
{
    const int column = walkColumn(character.kind(), step);
    // Without overflow a cell holds only its own images, so the other columns can be
    // left out; with it a neighbour may run over, and the whole sheet is needed.
    QImage sheet(character.sheetSize(), QImage::Format_ARGB32);
    sheet.fill(uint(19));
    drawElements(character, sheet, character.overflowCells() ? -1 : column);
    const QSize cell = character.cellSize();
    std::array<QImage, 4> rows;
    for (int row = 0; row < 4; ++row) {
        QImage image(cell, QImage::Format_ARGB32);
        image.fill(uint(19));
        const QRect area = QRect(QPoint(column * cell.width(), row * cell.height()), cell) &
                           sheet.rect();
        for (int y = 0; y < area.height(); ++y) {
            const QRgb* from = reinterpret_cast<const QRgb*>(sheet.constScanLine(area.top() + y));
            std::copy_n(from + area.left(), area.width(),
                        reinterpret_cast<QRgb*>(image.scanLine(y)));
        }
        rows[size_t(row)] = image;
    }
    return rows;
}

void SheetComposer::drawElements(const Character& character, QImage& image, int column)
{
    if (character.kind() != Character::XP && character.kind() != Character::VX)
        return;
    const int cells = character.cellCount();
    for (int e = 0; e < character.elementCount(); ++e) {
        if (!character.isVisible(e))
            continue;
        for (int c = 0; c < cells; ++c) {
            if (column != -1 && c % character.columnCount() != column)
                continue;
            if (character.selectionOnly() && !character.isElementSelected(e)
                && !character.isCellSelected(c))
                continue;
            drawCell(character, image, e, c);
        }
    }
}

namespace {

// One axis of the clipping of a cell image: where it lands in the sheet, where it is
// read in the image, and how many pixels. Computed wide, since a position read from a
// file may be any 32-bit value.
struct Span
{
    qint64 destination = 0;
    qint64 source = 0;
    qint64 length = 0;

    bool drawable(qint64 imageLength, qint64 sheetLength) const
    {
        return source < imageLength && length >= 1 && destination < sheetLength;
    }
};

// Without overflow an image is cut at its own cell.
Span clipToCell(qint64 corner, qint64 position, qint64 cellLength, qint64 imageLength)
{
    Span span;
    const qint64 offset = position < 0 ? 0 : position;
    span.source = position < 0 ? -position : 0;
    span.length = std::min(cellLength - offset, imageLength - span.source);
    span.destination = corner + offset;
    return span;
}

// With overflow it may cover neighbouring cells and is cut at the sheet only.
Span clipToSheet(qint64 corner, qint64 position, qint64 sheetLength, qint64 imageLength)
{
    Span span;
    span.destination = corner + position;
    if (span.destination < 0) {
        span.source = -span.destination;
        span.destination = 0;
    }
    span.length = std::min(sheetLength - span.destination, imageLength - span.source);
    return span;
}

} // namespace

void SheetComposer::drawCell(const Character& character, QImage& image, int e, int c)
{
    const QImage& cell = character.cellImage(e, c);
    if (cell.isNull())
        return;
    const QPoint p = character.cellPosition(e, c);
    const QSize cellSize = character.cellSize();
    const QPoint corner = character.cellCorner(c);
    Span x;
    Span y;
    if (!character.overflowCells()) {
        x = clipToCell(corner.x(), p.x(), cellSize.width(), cell.width());
        y = clipToCell(corner.y(), p.y(), cellSize.height(), cell.height());
    } else {
        x = clipToSheet(corner.x(), p.x(), image.width(), cell.width());
        y = clipToSheet(corner.y(), p.y(), image.height(), cell.height());
    }
    if (!x.drawable(cell.width(), image.width()) || !y.drawable(cell.height(), image.height()))
        return;
    blendOver(image, int(x.destination), int(y.destination), cell, int(x.source), int(y.source),
              int(x.length), int(y.length));
}

static QPen markPen(const QColor& colour, qreal width, Qt::PenStyle style)
{
    QPen pen(colour, width, style, Qt::SquareCap, Qt::BevelJoin);
    return pen;
}

void SheetComposer::drawGrid(const Character& character, QImage& image)
{
    const int w = image.width();
    const int h = image.height();
    QPainter painter(&image);
    painter.setPen(markPen(QColor(0, 0, 0), 1.0, Qt::DashLine));
    const int rowHeight = h / 4;
    for (int i = 1; i <= 3; ++i)
        painter.drawLine(0, i * rowHeight, w, i * rowHeight);
    const int columns = character.columnCount();
    if (columns == 0)
        return;
    const int columnWidth = w / columns;
    for (int i = 1; i < columns; ++i)
        painter.drawLine(i * columnWidth, 0, i * columnWidth, h);
}

// The marks are a band along the inside of the cell: from each edge inward one black
// pixel, two white ones and one black one, drawn by the painter as three rectangles.
// Its bevel join leaves the outer corner of the white band unpainted at the top left
// and bottom left. drawBand writes exactly those pixels directly, many times faster
// than stroking, which matters at high zoom with many selected cells; cells too small
// for the band keep the painter's rectangles, whose overlaps decide what shows.
void SheetComposer::drawSelectionMarks(const Character& character, QImage& image)
{
    const int columns = character.columnCount();
    if (columns == 0)
        return;
    const int cw = image.width() / columns;
    const int ch = image.height() / 4;
    for (int cell : character.selectedCells()) {
        const int x = cell % columns * cw;
        const int y = cell / columns * ch;
        if (cw >= 8 && ch >= 8) {
            drawBand(image, QRect(x, y, cw, ch));
            continue;
        }
        QPainter painter(&image);
        painter.setPen(markPen(QColor(0, 0, 0), 1.0, Qt::SolidLine));
        painter.drawRect(QRect(QPoint(x, y), QPoint(x + cw - 2, y + ch - 2)));
        painter.drawRect(QRect(QPoint(x + 3, y + 3), QPoint(x + cw - 5, y + ch - 5)));
        painter.setPen(markPen(QColor(255, 255, 255), 2.0, Qt::SolidLine));
        painter.drawRect(QRect(QPoint(x + 2, y + 2), QPoint(x + cw - 3, y + ch - 3)));
    }
}

static void fillRect(QImage& image, const QRect& rect, QRgb colour)
{
    const QRect clipped = rect & image.rect();
    for (int y = clipped.top(); y <= clipped.bottom(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::fill(line + clipped.left(), line + clipped.right() + 1, colour);
    }
}

static void frame(QImage& image, const QRect& r, int thickness, QRgb colour)
{
    fillRect(image, QRect(r.left(), r.top(), r.width(), thickness), colour);
    fillRect(image, QRect(r.left(), r.bottom() - thickness + 1, r.width(), thickness), colour);
    fillRect(image, QRect(r.left(), r.top(), thickness, r.height()), colour);
    fillRect(image, QRect(r.right() - thickness + 1, r.top(), thickness, r.height()), colour);
}

void SheetComposer::drawBand(QImage& image, const QRect& cell)
{
    const QPoint topLeft = cell.topLeft() + QPoint(1, 1);
    const QPoint bottomLeft = cell.bottomLeft() + QPoint(1, -1);
    const QRgb keptTop = image.valid(topLeft) ? image.pixel(topLeft) : 0;
    const QRgb keptBottom = image.valid(bottomLeft) ? image.pixel(bottomLeft) : 0;
    frame(image, cell, 1, 0xff000000);
    frame(image, cell.adjusted(1, 1, -1, -1), 2, 0xffffffff);
    frame(image, cell.adjusted(3, 3, -3, -3), 1, 0xff000000);
    if (image.valid(topLeft))
        image.setPixel(topLeft, keptTop);
    if (image.valid(bottomLeft))
        image.setPixel(bottomLeft, keptBottom);
}
