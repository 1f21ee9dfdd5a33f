#pragma once

#include <QBitArray>
#include <QByteArray>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QSize>

class Character;

// One whole state of a document, as undo brings it back. Copying a Character's
// containers shares their data, so a step costs handles, not pixels. Cell selection,
// zoom, grid and the two composition flags are not part of a step.
class HistoryStep
{
public:
    static HistoryStep capture(const Character& character);

    int kind = 0;
    QSize sheetSize;
    QList<QByteArray> elementNames;
    QList<QByteArray> elementSources;
    QList<QList<QImage>> cellImages;
    QList<QList<QPoint>> cellPositions;
    QBitArray elementVisible;
    QList<int> selectedElements;
};
