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
    const double zoom = character.zoom();
    if (zoom != 1.0 && zoom > 0) {
        const QSize size(int(image.width() * zoom), int(image.height() * zoom));
        if (size.width() > 0 && size.height() > 0) {
            image = image.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
            if (image.format() != QImage::Format_ARGB32)
                image = image.convertToFormat(QImage::Format_ARGB32);
        }
    }
    if (image.isNull())
        return image;
    if (character.showGrid())
        drawGrid(character, image);
    if (!character.selectedCells().isEmpty())
        drawSelectionMarks(character, image);
    return image;
}

void SheetComposer::drawElements(const Character& character, QImage& image)
{
    if (character.kind() != Character::XP && character.kind() != Character::VX)
        return;
    const int cells = character.cellCount();
    for (int e = 0; e < character.elementCount(); ++e) {
        if (!character.isVisible(e))
            continue;
        for (int c = 0; c < cells; ++c) {
            if (character.selectionOnly() && !character.isElementSelected(e)
                && !character.isCellSelected(c))
                continue;
            drawCell(character, image, e, c);
        }
    }
}

void SheetComposer::drawCell(const Character& character, QImage& image, int e, int c)
{
    const QImage& cell = character.cellImage(e, c);
    if (cell.isNull())
        return;
    const QPoint p = character.cellPosition(e, c);
    const QSize cellSize = character.cellSize();
    const QPoint corner = character.cellCorner(c);
    int sx = 0;
    int sy = 0;
    int width = 0;
    int height = 0;
    QPoint destination;
    if (!character.overflowCells()) {
        const int dx = p.x() < 0 ? 0 : p.x();
        const int dy = p.y() < 0 ? 0 : p.y();
        sx = p.x() < 0 ? -p.x() : 0;
        sy = p.y() < 0 ? -p.y() : 0;
        width = std::min(cellSize.width() - dx, cell.width() - sx);
        height = std::min(cellSize.height() - dy, cell.height() - sy);
        destination = corner + QPoint(dx, dy);
    } else {
        destination = corner + p;
        if (destination.x() < 0) {
            sx = -destination.x();
            destination.setX(0);
        }
        if (destination.y() < 0) {
            sy = -destination.y();
            destination.setY(0);
        }
        width = std::min(image.width() - destination.x(), cell.width() - sx);
        height = std::min(image.height() - destination.y(), cell.height() - sy);
    }
    if (sx >= cell.width() || sy >= cell.height() || width < 1 || height < 1)
        return;
    if (destination.x() >= image.width() || destination.y() >= image.height())
        return;
    blendOver(image, destination.x(), destination.y(), cell, sx, sy, width, height);
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

void SheetComposer::drawSelectionMarks(const Character& character, QImage& image)
{
    const int columns = character.columnCount();
    if (columns == 0)
        return;
    const int cw = image.width() / columns;
    const int ch = image.height() / 4;
    QPainter painter(&image);
    for (int cell : character.selectedCells()) {
        const int x = cell % columns * cw;
        const int y = cell / columns * ch;
        painter.setPen(markPen(QColor(0, 0, 0), 1.0, Qt::SolidLine));
        painter.drawRect(QRect(QPoint(x, y), QPoint(x + cw - 2, y + ch - 2)));
        painter.drawRect(QRect(QPoint(x + 3, y + 3), QPoint(x + cw - 5, y + ch - 5)));
        painter.setPen(markPen(QColor(255, 255, 255), 2.0, Qt::SolidLine));
        painter.drawRect(QRect(QPoint(x + 2, y + 2), QPoint(x + cw - 3, y + ch - 3)));
    }
}
