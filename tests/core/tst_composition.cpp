#include "document/character.h"
#include "document/sheetcomposer.h"
#include "formats/pngwriter.h"
#include "imagecompare.h"
#include "imaging/cellcutter.h"

#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

#include "testfiles.h"

#include <climits>

// Cutting sheets into cells, composing the sheet, and the canvas's rendering.
class TestComposition : public QObject
{
    Q_OBJECT

private:
    // A character with one element whose cell `cell` holds image at position.
    static Character withCellImage(int kind, QSize sheet, int cell, const QImage& image,
                                   QPoint position)
    {
        Character character(kind, sheet);
        character.addDrawingLayer(0);
        for (int c = 0; c < character.cellCount(); ++c)
            character.setCellImage(0, c, QImage());
        character.setCellImage(0, cell, image);
        character.setCellPosition(0, cell, position);
        return character;
    }

private slots:
    void cutPositions_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QSize>("sheet");
        QTest::addColumn<QSize>("image");
        QTest::addColumn<QSize>("cell");
        QTest::addColumn<QPoint>("position");
        QTest::newRow("sheet size")
            << 0 << QSize(128, 192) << QSize(128, 192) << QSize(32, 48) << QPoint(0, 0);
        QTest::newRow("twice as big")
            << 0 << QSize(128, 192) << QSize(256, 384) << QSize(64, 96) << QPoint(-16, -24);
        // -1.5 cut toward zero is -1: floor or rounding would give 2.
        QTest::newRow("smaller, odd")
            << 0 << QSize(128, 192) << QSize(116, 180) << QSize(29, 45) << QPoint(1, 1);
        // 0.5 cut toward zero is 0.
        QTest::newRow("slightly bigger")
            << 0 << QSize(128, 192) << QSize(132, 196) << QSize(33, 49) << QPoint(0, 0);
        QTest::newRow("XP image on VX")
            << 1 << QSize(96, 128) << QSize(128, 192) << QSize(42, 48) << QPoint(-5, -8);
    }

    void cutPositions()
    {
        QFETCH(int, kind);
        QFETCH(QSize, sheet);
        QFETCH(QSize, image);
        const CellCutter::Cells cells = CellCutter::cut(solidImage(image, 0xff336699), sheet, kind);
        QCOMPARE(cells.images.size(), Character::cellCountOf(kind));
        for (int c = 0; c < cells.images.size(); ++c) {
            QTEST(cells.images.at(c).size(), "cell");
            QTEST(cells.positions.at(c), "position");
        }
    }

    void cutTakesEachCellFromItsPlace()
    {
        // Mark each cell of a VX sheet with its own colour and one opaque pixel.
        QImage sheet = solidImage(QSize(96, 128), 19);
        for (int c = 0; c < 12; ++c)
            sheet.setPixel(c % 3 * 32 + 7, c / 3 * 32 + 9, qRgba(c, 2 * c, 3 * c, 255));
        const CellCutter::Cells cells = CellCutter::cut(sheet, QSize(96, 128), 1);
        for (int c = 0; c < 12; ++c) {
            QCOMPARE(cells.positions.at(c), QPoint(7, 9));
            QCOMPARE(cells.images.at(c).size(), QSize(2, 2));
            QCOMPARE(cells.images.at(c).pixel(0, 0), qRgba(c, 2 * c, 3 * c, 255));
        }
    }

    void cutOfTinyOrUnknown()
    {
        // An image smaller than the grid gives empty cells, never the whole image.
        const CellCutter::Cells tiny =
            CellCutter::cut(solidImage(QSize(2, 3), 0xffffffff), QSize(128, 192), 0);
        QCOMPARE(tiny.images.size(), 16);
        QVERIFY(tiny.images.at(0).isNull());
        const CellCutter::Cells unknown =
            CellCutter::cut(solidImage(QSize(96, 128), 0xffffffff), QSize(96, 128), 5);
        QCOMPARE(unknown.images.size(), 12);
        QVERIFY(unknown.images.at(0).isNull());
    }

    void emptyCharacterComposesToRaw19()
    {
        const Character character(0, QSize(128, 192));
        const QImage sheet = character.compose();
        QCOMPARE(sheet.format(), QImage::Format_ARGB32);
        ZK_COMPARE_IMAGES(sheet, solidImage(QSize(128, 192), 19));
    }

    void clipping_data()
    {
        QTest::addColumn<QPoint>("position");
        QTest::addColumn<QRect>("drawn");
        // A 10x10 image in cell 5 of an XP sheet of 32x48 cells (corner 32, 48).
        QTest::newRow("inside") << QPoint(3, 4) << QRect(35, 52, 10, 10);
        QTest::newRow("negative x loses its left columns") << QPoint(-5, 0) << QRect(32, 48, 5, 10);
        QTest::newRow("negative y") << QPoint(0, -8) << QRect(32, 48, 10, 2);
        QTest::newRow("past the right edge is cut") << QPoint(27, 0) << QRect(59, 48, 5, 10);
        QTest::newRow("past the bottom edge is cut") << QPoint(0, 44) << QRect(32, 92, 10, 4);
        QTest::newRow("wholly beyond") << QPoint(32, 0) << QRect();
        QTest::newRow("wholly before") << QPoint(-10, 0) << QRect();
        // Positions come from files and may be any 32-bit value.
        QTest::newRow("extreme negative") << QPoint(INT_MIN, INT_MIN) << QRect();
        QTest::newRow("extreme positive") << QPoint(INT_MAX, 0) << QRect();
    }

    void clipping()
    {
        QFETCH(QPoint, position);
        const Character character =
            withCellImage(0, QSize(128, 192), 5, solidImage(QSize(10, 10), 0xffaa0000), position);
        QImage expected = solidImage(QSize(128, 192), 19);
        QFETCH(QRect, drawn);
        for (int y = drawn.top(); y <= drawn.bottom(); ++y) {
            for (int x = drawn.left(); x <= drawn.right(); ++x)
                expected.setPixel(x, y, 0xffaa0000);
        }
        ZK_COMPARE_IMAGES(character.compose(), expected);
    }

    void overflowCells()
    {
        Character character = withCellImage(0, QSize(128, 192), 5,
                                            solidImage(QSize(10, 10), 0xff00aa00), QPoint(-5, 44));
        character.setOverflowCells(true);
        QImage expected = solidImage(QSize(128, 192), 19);
        for (int y = 92; y < 102; ++y) {
            for (int x = 27; x < 37; ++x)
                expected.setPixel(x, y, 0xff00aa00);
        }
        ZK_COMPARE_IMAGES(character.compose(), expected);

        character.setCellPosition(0, 5, QPoint(INT_MIN, INT_MAX));
        ZK_COMPARE_IMAGES(character.compose(), solidImage(QSize(128, 192), 19));

        // At the sheet's corner the image is cut by the sheet only.
        character.setCellPosition(0, 5, QPoint(-40, -50));
        expected = solidImage(QSize(128, 192), 19);
        for (int y = 0; y < 8; ++y) {
            for (int x = 0; x < 2; ++x)
                expected.setPixel(x, y, 0xff00aa00);
        }
        ZK_COMPARE_IMAGES(character.compose(), expected);
    }

    void hiddenAndSelectionOnly()
    {
        Character character(1, QSize(96, 128));
        character.addElement(solidImage(QSize(96, 128), 0xff0000ff), "bottom", 0);
        character.addElement(solidImage(QSize(96, 128), 0xffff0000), "top", 1);
        QCOMPARE(character.compose().pixel(50, 50), 0xffff0000u);
        character.setVisible(1, false);
        QCOMPARE(character.compose().pixel(50, 50), 0xff0000ffu);

        character.setVisible(1, true);
        character.setSelectionOnly(true);
        character.setSelectedElements({0});
        character.setSelectedCells({4});
        const QImage sheet = character.compose();
        QCOMPARE(sheet.pixel(5, 5), 0xff0000ffu);   // cell 0: element 0 is selected
        QCOMPARE(sheet.pixel(40, 40), 0xffff0000u); // cell 4 is selected: both drawn
        QCOMPARE(sheet.pixel(40, 5), 0xff0000ffu);
    }

    void undividedWidthLeavesRemainderEmpty()
    {
        Character character(0, QSize(130, 194));
        character.addElement(solidImage(QSize(130, 194), 0xff808080), "grey", 0);
        const QImage sheet = character.compose();
        QCOMPARE(sheet.size(), QSize(130, 194));
        QCOMPARE(sheet.pixel(127, 191), 0xff808080u);
        QCOMPARE(sheet.pixel(128, 10), 19u);
        QCOMPARE(sheet.pixel(129, 193), 19u);
        QCOMPARE(sheet.pixel(10, 192), 19u);
    }

    void halfTransparentOverTransparentKeepsColour()
    {
        const Character character = withCellImage(
            0, QSize(128, 192), 0, solidImage(QSize(4, 4), qRgba(200, 100, 50, 128)), QPoint(0, 0));
        QCOMPARE(character.compose().pixel(1, 1), qRgba(200, 100, 50, 128));
    }

    void composedSheetKeepsRaw19InPng()
    {
        const Character character =
            withCellImage(0, QSize(128, 192), 0, solidImage(QSize(4, 4), 0xff123456), QPoint(0, 0));
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("feuille é.png"));
        QVERIFY(PngWriter::save(character.compose(), path));
        QImage back(path);
        back = back.convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(back.pixel(100, 100), 19u);
        QCOMPARE(back.pixel(0, 0), 0xff123456u);
    }

    void renderZoomGridAndMarks()
    {
        Character character(1, QSize(96, 128));
        character.addElement(solidImage(QSize(96, 128), 0xffc0c0c0), "grey", 0);
        character.setZoom(2.0);
        character.setSelectedCells({4});
        const QImage view = character.render();
        QCOMPARE(view.size(), QSize(192, 256));
        QCOMPARE(view.format(), QImage::Format_ARGB32);
        QCOMPARE(character.cachedView(), view);
        // Dashed grid, one pixel wide, at multiples of a quarter and a third.
        QCOMPARE(view.pixel(0, 64), 0xff000000u);
        QCOMPARE(view.pixel(0, 63), 0xffc0c0c0u);
        QCOMPARE(view.pixel(0, 65), 0xffc0c0c0u);
        QCOMPARE(view.pixel(64, 1), 0xff000000u);
        QCOMPARE(view.pixel(128, 1), 0xff000000u);
        // Cell 4 at (64, 64), 64 by 64: from each edge inward, one black pixel, two
        // white ones, one black one, then the picture.
        const QList<QRgb> band = {0xff000000, 0xffffffff, 0xffffffff, 0xff000000, 0xffc0c0c0};
        for (int i = 0; i < band.size(); ++i) {
            QCOMPARE(view.pixel(100, 64 + i), band.at(i));
            QCOMPARE(view.pixel(100, 127 - i), band.at(i));
            QCOMPARE(view.pixel(64 + i, 100), band.at(i));
            QCOMPARE(view.pixel(127 - i, 100), band.at(i));
        }
        QCOMPARE(view.pixel(100, 63), 0xffc0c0c0u);
        QCOMPARE(view.pixel(100, 128), 0xffc0c0c0u);
        QCOMPARE(view.pixel(100, 100), 0xffc0c0c0u);
        // The exact sheet is unaffected.
        QCOMPARE(character.compose().size(), QSize(96, 128));
    }

    void wholeZoomPicksTheToolkitsPixels()
    {
        QImage image(37, 23, QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgba(x * 7, y * 11, (x * y) & 255, 255));
        }
        for (double zoom : {2.0, 3.0, 4.0, 6.0, 8.0, 16.0, 1.5, 0.5}) {
            const QSize size(int(image.width() * zoom), int(image.height() * zoom));
            const QImage expected =
                image.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation)
                    .convertToFormat(QImage::Format_ARGB32);
            ZK_COMPARE_IMAGES(SheetComposer::zoomed(image, zoom), expected);
        }
    }

    void selectionBandMatchesPainterRectangles()
    {
        // The marks as a painter draws them with its pens, for cells of several sizes.
        for (const QSize cell :
             {QSize(8, 8), QSize(9, 13), QSize(32, 48), QSize(64, 64), QSize(120, 33)}) {
            Character character(1, QSize(cell.width() * 3, cell.height() * 4));
            character.setShowGrid(false);
            character.setSelectedCells({0, 4, 11});
            QImage expected = solidImage(character.sheetSize(), uint(19));
            QPainter painter(&expected);
            for (int c : character.selectedCells()) {
                const int x = c % 3 * cell.width();
                const int y = c / 3 * cell.height();
                const int cw = cell.width();
                const int ch = cell.height();
                painter.setPen(QPen(Qt::black, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
                painter.drawRect(QRect(QPoint(x, y), QPoint(x + cw - 2, y + ch - 2)));
                painter.drawRect(QRect(QPoint(x + 3, y + 3), QPoint(x + cw - 5, y + ch - 5)));
                painter.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
                painter.drawRect(QRect(QPoint(x + 2, y + 2), QPoint(x + cw - 3, y + ch - 3)));
            }
            painter.end();
            ZK_COMPARE_IMAGES(character.render(), expected);
        }
    }

    void viewTooLargeForMemoryIsEmpty()
    {
        // 5,000,000 pixels at 16 times do not fit one image: no view, and no crash.
        const QImage wide(5000000, 1, QImage::Format_ARGB32);
        QVERIFY(!wide.isNull());
        QVERIFY(SheetComposer::zoomed(wide, 16).isNull());
        QVERIFY(SheetComposer::zoomed(wide, 15.5).isNull());
    }

    void renderFillsWithFillPixel()
    {
        Character character(0, QSize(128, 192));
        character.setShowGrid(false);
        character.setFillPixel(int(0xff102030));
        QCOMPARE(character.render().pixel(3, 3), 0xff102030u);
        QCOMPARE(character.compose().pixel(3, 3), 19u);
    }
};

QTEST_MAIN(TestComposition)
#include "tst_composition.moc"
