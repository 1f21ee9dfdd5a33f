#include "document/character.h"
#include "document/historystep.h"
#include "imaging/hslshift.h"

#include <QTest>

#include "testfiles.h"

class TestCharacter : public QObject
{
    Q_OBJECT

private:
    // A character with `count` elements whose cells are filled with distinct opaque colours.
    static Character filled(int kind, int count)
    {
        Character character(kind, QSize());
        for (int e = 0; e < count; ++e) {
            QImage sheet = solidImage(character.sheetSize(), qRgba(10 * e, 20, 30, 255));
            character.addElement(sheet, QByteArray("e") + QByteArray::number(e), e);
        }
        return character;
    }

private slots:
    void sizesAndCells_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QSize>("given");
        QTest::addColumn<QSize>("sheet");
        QTest::addColumn<QSize>("cell");
        QTest::addColumn<int>("cells");
        QTest::addColumn<QPoint>("cornerOfLast");
        QTest::newRow("XP default")
            << 0 << QSize(0, 0) << QSize(128, 192) << QSize(32, 48) << 16 << QPoint(96, 144);
        QTest::newRow("VX default")
            << 1 << QSize(0, 0) << QSize(96, 128) << QSize(32, 32) << 12 << QPoint(64, 96);
        QTest::newRow("VX kept") << 1 << QSize(120, 160) << QSize(120, 160) << QSize(40, 40) << 12
                                 << QPoint(80, 120);
        // A width that does not divide leaves its remainder out of every cell.
        QTest::newRow("XP odd") << 0 << QSize(130, 194) << QSize(130, 194) << QSize(32, 48) << 16
                                << QPoint(96, 144);
        // An unknown kind counts 12 cells and has no columns.
        QTest::newRow("kind 2") << 2 << QSize(96, 128) << QSize(96, 128) << QSize(0, 32) << 12
                                << QPoint(0, 0);
    }

    void sizesAndCells()
    {
        QFETCH(int, kind);
        QFETCH(QSize, given);
        const Character character(kind, given);
        QTEST(character.sheetSize(), "sheet");
        QTEST(character.cellSize(), "cell");
        QTEST(character.cellCount(), "cells");
        QTEST(character.cellCorner(character.cellCount() - 1), "cornerOfLast");
        QCOMPARE(character.zoom(), 1.0);
        QVERIFY(character.showGrid());
        QVERIFY(!character.overflowCells());
        QVERIFY(!character.selectionOnly());
        QCOMPARE(character.fillPixel(), 19);
        QCOMPARE(character.elementCount(), 0);
        QCOMPARE(Character().sheetSize(), QSize(128, 192));
    }

    void zoomedSizeTruncates()
    {
        Character character(1, QSize());
        character.setZoom(1.5);
        QCOMPARE(character.zoomedSize(), QSize(144, 192));
        character.setZoom(0.33);
        QCOMPARE(character.zoomedSize(), QSize(31, 42));
    }

    void cellSelection()
    {
        Character character(0, QSize());
        character.toggleCell(3);
        character.toggleCell(5);
        character.toggleCell(3);
        character.toggleCell(3);
        // Toggling twice leaves the same set, at another place in the list.
        QCOMPARE(character.selectedCells(), QList<int>({5, 3}));

        character.invertCellSelection();
        QCOMPARE(character.selectedCells(),
                 QList<int>({0, 1, 2, 4, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
        character.clearCellSelection();
        character.invertCellSelection();
        QCOMPARE(character.selectedCellCount(), 16);

        Character vx(1, QSize());
        vx.selectAllCells();
        QCOMPARE(vx.selectedCells(), QList<int>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
        vx.setSelectedCells({4, 2, 4, 7});
        QCOMPARE(vx.selectedCells(), QList<int>({4, 2, 7}));
    }

    void cellsPastTheKindLeaveTheSelection()
    {
        // Undo across a conversion brings back a 12-cell sheet while cells 12-15 of
        // the 16-cell one were selected: they must go, or Delete reads past the tables.
        Character character(Character::VX, QSize());
        character.addDrawingLayer(0);
        const HistoryStep vx = HistoryStep::capture(character);
        character.convertToXP();
        character.setSelectedCells({3, 12, 15});
        character.restore(vx);
        QCOMPARE(character.selectedCells(), QList<int>({3}));
        character.setSelectedCells({11, 14});
        character.setKind(Character::VX);
        QCOMPARE(character.selectedCells(), QList<int>({11}));
        character.deleteCells();
        character.moveCells(QPoint(1, 1));
        QCOMPARE(character.cellPosition(0, 11), QPoint(1, 1));
    }

    void elementSelection()
    {
        Character character = filled(0, 4);
        character.setSelectedElements({3, 9, 1, 3, -1});
        // Sorted, without duplicates, without indices past the end.
        QCOMPARE(character.selectedElements(), QList<int>({1, 3}));
        character.invertElementSelection();
        QCOMPARE(character.selectedElements(), QList<int>({0, 2}));
        character.toggleElement(0);
        character.toggleElement(3);
        QCOMPARE(character.selectedElements(), QList<int>({2, 3}));
        character.selectAllElements();
        QCOMPARE(character.selectedElements(), QList<int>({0, 1, 2, 3}));
    }

    void selectionDispatch_data()
    {
        QTest::addColumn<QList<int>>("elements");
        QTest::addColumn<QList<int>>("cells");
        QTest::addColumn<QList<QPoint>>("pairs");
        QList<QPoint> all;
        for (int e = 0; e < 3; ++e) {
            for (int c = 0; c < 12; ++c)
                all.append(QPoint(e, c));
        }
        QList<QPoint> ofElement2;
        for (int c = 0; c < 12; ++c)
            ofElement2.append(QPoint(2, c));
        QTest::newRow("nothing selected") << QList<int>() << QList<int>() << all;
        QTest::newRow("elements only") << QList<int>({2}) << QList<int>() << ofElement2;
        QTest::newRow("cells only")
            << QList<int>() << QList<int>({7, 1})
            << QList<QPoint>({{0, 7}, {0, 1}, {1, 7}, {1, 1}, {2, 7}, {2, 1}});
        QTest::newRow("both") << QList<int>({0, 2}) << QList<int>({5})
                              << QList<QPoint>({{0, 5}, {2, 5}});
    }

    void selectionDispatch()
    {
        QFETCH(QList<int>, elements);
        QFETCH(QList<int>, cells);
        Character character = filled(1, 3);
        character.setSelectedElements(elements);
        character.setSelectedCells(cells);
        QList<QPoint> visited;
        character.forEachSelectedPair([&](int e, int c) { visited.append(QPoint(e, c)); });
        QTEST(visited, "pairs");
        // The cells-only case fills the element list for the walk and empties it again.
        QCOMPARE(character.selectedElements(), elements);
        QCOMPARE(character.selectedCells(), cells);
    }

    void selectionDispatchSeesAllElementsDuringCellsOnlyWalk()
    {
        Character character = filled(0, 2);
        character.setSelectedCells({0});
        QList<int> seen;
        character.forEachSelectedPair([&](int, int) { seen = character.selectedElements(); });
        QCOMPARE(seen, QList<int>({0, 1}));
        QVERIFY(character.selectedElements().isEmpty());
    }

    void cancelledPreviewRestoresEveryField()
    {
        Character character = filled(0, 3);
        character.setSelectedElements({1});
        character.setSelectedCells({2, 4});
        character.setVisible(2, false);
        character.setZoom(3);
        const Character before = character;

        character.beginPreview();
        character.setElementName(0, "changed");
        character.setElementSource(1, "elsewhere");
        character.setCellImage(2, 5, solidImage(QSize(3, 3), 0xff00ff00));
        character.setCellPosition(1, 0, QPoint(-7, 9));
        character.setVisible(2, true);
        character.setVisible(0, false);
        character.setSelectedElements({0, 2});
        character.setSelectedCells({9});
        character.setZoom(8);
        character.setShowGrid(false);
        character.setOverflowCells(true);
        character.setSelectionOnly(true);
        character.setSheetSize(QSize(256, 384));
        character.addDrawingLayer(0);
        character.cancelPreview();

        QCOMPARE(character.elementNames(), before.elementNames());
        QCOMPARE(character.elementSources(), before.elementSources());
        QCOMPARE(character.cellImages(), before.cellImages());
        QCOMPARE(character.cellPositions(), before.cellPositions());
        QCOMPARE(character.elementVisibility(), before.elementVisibility());
        QCOMPARE(character.selectedElements(), before.selectedElements());
        QCOMPARE(character.selectedCells(), before.selectedCells());
        QCOMPARE(character.sheetSize(), before.sheetSize());
        QCOMPARE(character.zoom(), 3.0);
        QVERIFY(character.showGrid());
        QVERIFY(!character.overflowCells());
        QVERIFY(!character.selectionOnly());
        // The snapshot stays until it is ended: a second cancel gives the same state.
        QVERIFY(character.hasSnapshot());
        character.endPreview();
        QVERIFY(!character.hasSnapshot());
    }

    void previewSharesImages()
    {
        Character character = filled(0, 1);
        const qint64 key = character.cellImage(0, 0).cacheKey();
        character.beginPreview();
        QCOMPARE(character.snapshotImage(0, 0).cacheKey(), key);
        QCOMPARE(character.snapshotImage(0, 0).constBits(), character.cellImage(0, 0).constBits());
    }

    void namingFillsGaps()
    {
        Character character(0, QSize());
        character.addDrawingLayer(0);
        character.addDrawingLayer(1);
        QCOMPARE(character.elementName(0), QByteArray("El\xe9ment 1"));
        QCOMPARE(character.elementName(1), QByteArray("El\xe9ment 2"));
        character.setElementName(0, "Pull");
        QCOMPARE(character.nextElementName(), QByteArray("El\xe9ment 1"));
        character.addDrawingLayer(2);
        QCOMPARE(character.elementName(2), QByteArray("El\xe9ment 1"));
        QCOMPARE(character.nextElementName(), QByteArray("El\xe9ment 3"));
    }

    void drawingLayer()
    {
        Character character(1, QSize(120, 160));
        character.addDrawingLayer(0);
        QCOMPARE(character.elementSource(0), QByteArray());
        QVERIFY(character.isVisible(0));
        for (int c = 0; c < 12; ++c) {
            QCOMPARE(character.cellImage(0, c).size(), QSize(40, 40));
            QCOMPARE(character.cellImage(0, c).pixel(0, 0), 19u);
            QCOMPARE(character.cellImage(0, c).format(), QImage::Format_ARGB32);
            QCOMPARE(character.cellPosition(0, c), QPoint(0, 0));
        }
    }

    void insertionShiftsVisibility()
    {
        Character character = filled(0, 3);
        character.setVisible(1, false);
        character.addDrawingLayer(1);
        QCOMPARE(character.elementCount(), 4);
        QVERIFY(character.isVisible(0));
        QVERIFY(character.isVisible(1));
        QVERIFY(!character.isVisible(2));
        QVERIFY(character.isVisible(3));
        QCOMPARE(character.elementName(2), QByteArray("e1"));
    }

    void addElementFromFile()
    {
        Character character(0, QSize());
        QVERIFY(!character.addElement(QStringLiteral("/nonexistent/file.png")));
        QCOMPARE(character.elementCount(), 0);
        const QString path = QStringLiteral(ZENKORA_CORPUS_DIR "/vx_single/character1.png");
        QVERIFY(character.addElement(path));
        QCOMPARE(character.elementCount(), 1);
        QCOMPARE(character.elementSource(0), path.toLatin1());
        QCOMPARE(character.cellImage(0, 0).format(), QImage::Format_ARGB32);
    }

    void deleteAndMoveCells()
    {
        Character character = filled(0, 2);
        character.setSelectedCells({1});
        character.moveCells(QPoint(-3, 4));
        character.deleteCells();
        QCOMPARE(character.cellPosition(0, 1), QPoint(-3, 4));
        QCOMPARE(character.cellPosition(1, 1), QPoint(-3, 4));
        QCOMPARE(character.cellPosition(1, 2), QPoint(0, 0));
        QCOMPARE(character.cellImage(0, 1).size(), QSize(32, 48));
        QCOMPARE(character.cellImage(0, 1).pixel(5, 5), 19u);
        QCOMPARE(character.cellImage(0, 2).pixel(5, 5), qRgba(0, 20, 30, 255));
        QVERIFY(character.selectedElements().isEmpty());
    }

    void resizeSheet_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QSize>("from");
        QTest::addColumn<QSize>("to");
        QTest::addColumn<bool>("centred");
        QTest::addColumn<QPoint>("shift");
        QTest::newRow("0.5 cut to 0")
            << 0 << QSize(128, 192) << QSize(132, 192) << true << QPoint(0, 0);
        QTest::newRow("grow") << 0 << QSize(128, 192) << QSize(160, 256) << true << QPoint(4, 8);
        QTest::newRow("shrink VX")
            << 1 << QSize(96, 128) << QSize(81, 112) << true << QPoint(-2, -2);
        QTest::newRow("not centred")
            << 1 << QSize(96, 128) << QSize(150, 200) << false << QPoint(0, 0);
    }

    void resizeSheet()
    {
        QFETCH(int, kind);
        QFETCH(QSize, from);
        QFETCH(QSize, to);
        QFETCH(bool, centred);
        Character character(kind, from);
        character.addDrawingLayer(0);
        character.setCellPosition(0, 3, QPoint(1, 2));
        character.resizeSheet(to, centred);
        QCOMPARE(character.sheetSize(), to);
        QFETCH(QPoint, shift);
        QCOMPARE(character.cellPosition(0, 3), QPoint(1, 2) + shift);
        QCOMPARE(character.cellPosition(0, 0), shift);
    }

    void hueShiftPreviewReadsSnapshot()
    {
        Character character(0, QSize());
        QImage sheet = solidImage(character.sheetSize(), qRgba(200, 40, 40, 255));
        character.addElement(sheet, "e", 0);
        const QImage original = character.cellImage(0, 0);

        character.beginPreview();
        const HslShift shift{60, 0, 0};
        character.shiftCharacterHsl(shift, false, true);
        const QImage once = character.cellImage(0, 0);
        character.shiftCharacterHsl(shift, false, true);
        // A second preview starts again from the snapshot: the same picture.
        QCOMPARE(character.cellImage(0, 0), once);
        QCOMPARE(character.snapshotImage(0, 0), original);

        QImage expected = original;
        shiftImageHsl(shift, expected, false, false, expected);
        QCOMPARE(once, expected);
    }
};

QTEST_GUILESS_MAIN(TestCharacter)
#include "tst_character.moc"
