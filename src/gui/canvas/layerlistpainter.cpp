#include "canvas/layerlistpainter.h"

#include "canvas/layerlistgeometry.h"
#include "document/character.h"
#include "imaging/imagechecks.h"

#include <QPainter>

QPixmap LayerListPainter::thumbnail(const Character& character, int e)
{
    const int kind = character.kind();
    const bool known = kind == Character::XP || kind == Character::VX;
    return thumbnail(known ? character.cellImages().at(e) : QList<QImage>());
}

QPixmap LayerListPainter::thumbnail(const QList<QImage>& cells)
{
    QImage image;
    for (qsizetype c = 0; c < cells.size(); ++c) {
        image = cells.at(c);
        if (c == cells.size() - 1 || !isTransparent(image))
            break;
    }
    if (image.width() > 32 || image.height() > 48) {
        image = image.height() * 32 / image.width() <= 48
                    ? image.scaledToWidth(32, Qt::FastTransformation)
                    : image.scaledToHeight(48, Qt::FastTransformation);
    }
    return QPixmap::fromImage(image);
}

void LayerListPainter::prepare(QPainter& painter)
{
    painter.setFont(QFont(QStringLiteral("Arial"), 8));
    painter.setPen(Qt::black);
}

void LayerListPainter::paintEmpty(QPainter& painter)
{
    painter.drawText(5, 12, QStringLiteral("Aucun élément présent."));
}

void LayerListPainter::paintRow(QPainter& painter, const LayerListGeometry& geometry, int row,
                                const QPixmap& thumbnail, const QByteArray& name, bool selected,
                                bool visible)
{
    if (selected)
        painter.fillRect(geometry.selectionRect(row), QColor(50, 101, 255, 255));
    QRect text = geometry.nameRect(row);
    if (!visible) {
        painter.drawText(text, Qt::AlignLeft | Qt::AlignBottom, QStringLiteral("(invisible)"));
        text.setBottom(text.bottom() - 14);
    }
    painter.drawPixmap(geometry.thumbnailCorner(row, thumbnail.size()), thumbnail);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap,
                     QString::fromLatin1(name));
}
