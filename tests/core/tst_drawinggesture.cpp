// A drawing gesture on a character: the stamp of a patch into the target pictures with
// its growth, the zones of effect, the rubber through the selection, the open gesture.
#include "document/character.h"
#include "document/drawinggesture.h"
#include "testfiles.h"

#include <QTest>

namespace {

constexpr QRgb Blue = 0xff0000ffu;

// An XP character of 128x192 (cells 32x48) with count elements, each cell holding a
// 4x4 blue picture at (10, 10).
Character character(int count)
{
    Character result(Character::XP, QSize());
    for (int e = 0; e < count; ++e) {
        result.insertElement(e, "e" + QByteArray::number(e), QByteArray(),
                             QList<QImage>(16, solidImage(QSize(4, 4), Blue)),
                             QList<QPoint>(16, QPoint(10, 10)), true);
    }
    return result;
}

DrawingGesture gesture(QList<int> elements, int cell, int zone, const QColor& colour, int width = 1)
{
    DrawingGesture result;
    DrawingSettings settings;
    settings.zoneOfEffect = zone;
    settings.penColor = colour;
    settings.penWidth = width;
    result.setSettings(settings);
    result.beginDraw(DrawTarget{elements, cell});
    return result;
}

// One dab of width 1 at point, as the pen leaves it.
void dot(Character& target, QPoint point, int zone = DrawingSettings::TargetCell,
         const QColor& colour = QColor(200, 100, 50, 128), QList<int> elements = {0})
{
    DrawingGesture pen = gesture(elements, 5, zone, colour);
    pen.addDab(point);
    pen.applyStroke(target);
}

} // namespace

class TestDrawingGesture : public QObject
{
    Q_OBJECT

private slots:
    void stampGrowth_data();
    void stampGrowth();
    void exactColours();
    void oldPixelsStayPut();
    void zones_data();
    void zones();
    void gestureMustBeOpen();
    void rubberZones_data();
    void rubberZones();
};

void TestDrawingGesture::stampGrowth_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QRect>("picture");
    // The picture covers (10, 10) to (13, 13) of cell 5, which stands at (32, 48).
    QTest::newRow("inside") << QPoint(12, 11) << QRect(10, 10, 4, 4);
    QTest::newRow("left of it") << QPoint(2, 11) << QRect(1, 10, 13, 4);
    QTest::newRow("below and right") << QPoint(20, 30) << QRect(10, 10, 12, 22);
    // Past the sheet's right edge (x 96 of the cell is the sheet's 128): the picture
    // grows only to the edge, and a stroke wholly off the sheet changes nothing.
    QTest::newRow("across the sheet's edge") << QPoint(95, 11) << QRect(10, 10, 86, 4);
    QTest::newRow("off the sheet") << QPoint(200, 11) << QRect(10, 10, 4, 4);
    QTest::newRow("above the sheet") << QPoint(11, -60) << QRect(10, 10, 4, 4);
}

void TestDrawingGesture::stampGrowth()
{
    QFETCH(QPoint, point);
    Character target = character(1);
    DrawingGesture pen = gesture({0}, 5, DrawingSettings::TargetCell, QColor(Qt::red), 3);
    pen.addDab(point);
    pen.applyStroke(target);
    const QPoint position = target.cellPosition(0, 5);
    const QImage image = target.cellImage(0, 5);
    QTEST(QRect(position, image.size()), "picture");
    // Only the target cell changed.
    QCOMPARE(target.cellPosition(0, 4), QPoint(10, 10));
    QCOMPARE(target.cellImage(0, 4).size(), QSize(4, 4));
    const QRect dab(point - QPoint(1, 1), QSize(3, 3));
    const QRect picture(position, image.size());
    for (int y = picture.top(); y <= picture.bottom(); ++y) {
        for (int x = picture.left(); x <= picture.right(); ++x) {
            const QRgb expected = dab.contains(x, y)                   ? 0xffff0000u
                                  : QRect(10, 10, 4, 4).contains(x, y) ? Blue
                                                                       : 19u;
            QCOMPARE(image.pixel(x - position.x(), y - position.y()), expected);
        }
    }
}

void TestDrawingGesture::exactColours()
{
    // A see-through colour lands exactly on a transparent pixel, and blends over an
    // opaque one.
    Character target = character(1);
    dot(target, QPoint(12, 12));
    dot(target, QPoint(9, 12));
    const QImage image = target.cellImage(0, 5);
    QCOMPARE(target.cellPosition(0, 5), QPoint(9, 10));
    QCOMPARE(image.pixel(3, 2), qRgba(100, 50, 152, 255));
    QCOMPARE(image.pixel(0, 2), qRgba(200, 100, 50, 128));
    QCOMPARE(image.pixel(0, 1), 19u);
    // A colour of alpha 0 paints nothing.
    dot(target, QPoint(11, 11), DrawingSettings::TargetCell, QColor(255, 0, 0, 0));
    QCOMPARE(target.cellImage(0, 5).pixel(2, 1), Blue);
}

void TestDrawingGesture::oldPixelsStayPut()
{
    Character target = character(1);
    const QImage before = target.compose();
    dot(target, QPoint(3, 3), DrawingSettings::TargetCell, QColor(Qt::red));
    const QImage after = target.compose();
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (QPoint(x, y) != QPoint(35, 51))
                QCOMPARE(after.pixel(x, y), before.pixel(x, y));
        }
    }
    QCOMPARE(after.pixel(35, 51), 0xffff0000u);
}

void TestDrawingGesture::zones_data()
{
    QTest::addColumn<int>("zone");
    QTest::addColumn<QList<int>>("elements");
    QTest::addColumn<int>("stamped");
    // Six elements; cells 2 and 9 selected; the target cell is 5.
    QTest::newRow("target cell") << int(DrawingSettings::TargetCell) << QList<int>{1} << 1;
    QTest::newRow("selected cells") << int(DrawingSettings::SelectedCells) << QList<int>{1, 3} << 4;
    QTest::newRow("all cells of four elements")
        << int(DrawingSettings::AllCells) << QList<int>{0, 2, 3, 5} << 64;
}

void TestDrawingGesture::zones()
{
    QFETCH(int, zone);
    QFETCH(QList<int>, elements);
    Character target = character(6);
    target.setSelectedCells({9, 2});
    dot(target, QPoint(0, 0), zone, QColor(Qt::red), elements);
    int stamped = 0;
    for (int e = 0; e < target.elementCount(); ++e) {
        for (int c = 0; c < 16; ++c) {
            const bool grown = target.cellPosition(e, c) == QPoint(0, 0);
            stamped += grown;
            if (grown) {
                QVERIFY(elements.contains(e));
                QVERIFY(zone != DrawingSettings::TargetCell || c == 5);
                QVERIFY(zone != DrawingSettings::SelectedCells || c == 2 || c == 9);
            }
        }
    }
    QTEST(stamped, "stamped");
    QCOMPARE(target.selectedCells(), QList<int>({9, 2}));
}

void TestDrawingGesture::gestureMustBeOpen()
{
    Character target = character(1);
    DrawingGesture pen = gesture({0}, 5, DrawingSettings::TargetCell, QColor(Qt::red));
    pen.addDab(QPoint(0, 0));
    pen.applyStroke(target);
    QVERIFY(!pen.isOpen());
    // Closed: no dab, no stroke, no line, no shape.
    pen.addDab(QPoint(30, 30));
    QVERIFY(pen.stroke().isEmpty());
    const Character once = target;
    pen.applyStroke(target);
    pen.drawLine(target, QPoint(20, 20), QPoint(25, 20));
    pen.drawShape(target, QRect(20, 20, 5, 5), ShapeKind::Rectangle);
    QCOMPARE(target.cellImage(0, 5), once.cellImage(0, 5));
    QCOMPARE(target.cellPosition(0, 5), QPoint(0, 0));
    // Opened, the line is drawn once and closes the gesture.
    pen.beginDraw(DrawTarget{{0}, 5});
    pen.drawLine(target, QPoint(20, 20), QPoint(25, 20));
    QVERIFY(!pen.isOpen());
    QCOMPARE(target.cellImage(0, 5).pixel(25, 20), 0xffff0000u);
}

void TestDrawingGesture::rubberZones_data()
{
    QTest::addColumn<int>("zone");
    QTest::addColumn<QList<int>>("erased");
    // Element 1 selected, cells 2 and 9 selected, target cell 5.
    QTest::newRow("target cell") << int(DrawingSettings::TargetCell) << QList<int>{5};
    QTest::newRow("selected cells") << int(DrawingSettings::SelectedCells) << QList<int>{2, 9};
    QTest::newRow("all cells") << int(DrawingSettings::AllCells)
                               << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
}

void TestDrawingGesture::rubberZones()
{
    QFETCH(int, zone);
    QFETCH(QList<int>, erased);
    Character target = character(2);
    target.setSelectedElements({1});
    target.setSelectedCells({9, 2});
    DrawingGesture rubber;
    DrawingSettings settings;
    settings.zoneOfEffect = zone;
    rubber.setSettings(settings);
    rubber.setTarget(DrawTarget{{1}, 5});
    // Outside the pictures: nothing changes and nothing grows.
    rubber.erase(target, QRect(0, 0, 3, 3));
    for (int c = 0; c < 16; ++c)
        QCOMPARE(target.cellImage(1, c), solidImage(QSize(4, 4), Blue));
    rubber.erase(target, QRect(11, 11, 2, 2));
    for (int c = 0; c < 16; ++c) {
        QCOMPARE(target.cellImage(0, c).pixel(1, 1), Blue);
        QCOMPARE(target.cellImage(1, c).pixel(1, 1), erased.contains(c) ? 19u : Blue);
        QCOMPARE(target.cellImage(1, c).size(), QSize(4, 4));
    }
    QCOMPARE(target.selectedCells(), QList<int>({9, 2}));
    QCOMPARE(target.selectedElements(), QList<int>({1}));
}

QTEST_GUILESS_MAIN(TestDrawingGesture)
#include "tst_drawinggesture.moc"
