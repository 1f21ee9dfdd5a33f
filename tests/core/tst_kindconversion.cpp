// Conversion of whole characters between XP and VX, and the adding of one character's
// elements to another, converted and renamed.
#include "document/character.h"
#include "imagecompare.h"

#include <QTest>

namespace {

// A colour per cell, so that the cell an image came from can be read off it.
QRgb colourOf(int element, int cell)
{
    return qRgba(10 * cell, 100 + element, 200, 255);
}

QImage marked(int element, int cell)
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, colourOf(element, cell));
    return image;
}

// Every cell marked, every position telling its cell: (cell, -cell).
Character markedCharacter(int kind, QSize size, const QList<QByteArray>& names)
{
    Character character(kind, size);
    character.resetElements(int(names.size()));
    for (int e = 0; e < names.size(); ++e) {
        character.setElementName(e, names.at(e));
        character.setElementSource(e, "source " + QByteArray::number(e));
        character.setVisible(e, e != 1);
        for (int c = 0; c < character.cellCount(); ++c) {
            character.setCellImage(e, c, marked(e, c));
            character.setCellPosition(e, c, QPoint(c, -c));
        }
    }
    return character;
}

// Checks that cell c of element e in character came from cell map[c] of element from.
void compareCells(const Character& character, int e, int from, const QList<int>& map)
{
    QCOMPARE(character.cellImages().at(e).size(), map.size());
    for (int c = 0; c < map.size(); ++c) {
        QCOMPARE(character.cellImage(e, c).pixel(0, 0), colourOf(from, map.at(c)));
        QCOMPARE(character.cellPosition(e, c), QPoint(map.at(c), -map.at(c)));
    }
}

const QList<int> xpToVX = {1, 0, 3, 5, 4, 7, 9, 8, 11, 13, 12, 15};
const QList<int> vxToXP = {1, 0, 1, 2, 4, 3, 4, 5, 7, 6, 7, 8, 10, 9, 10, 11};

} // namespace

class TestKindConversion : public QObject
{
    Q_OBJECT

private slots:
    void convert_data();
    void convert();
    void wrongKindIsLeftAlone();
    void roundTripRepeatsStandingFrame();
    void addAndInsert_data();
    void addAndInsert();
    void kindWithoutConversion();
};

void TestKindConversion::convert_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("converted");
    QTest::addColumn<QList<int>>("map");
    QTest::newRow("XP to VX") << 0 << QSize(128, 192) << QSize(96, 192) << xpToVX;
    QTest::newRow("XP to VX, width cut") << 0 << QSize(130, 50) << QSize(97, 50) << xpToVX;
    QTest::newRow("VX to XP") << 1 << QSize(96, 128) << QSize(128, 128) << vxToXP;
    QTest::newRow("VX to XP, width cut") << 1 << QSize(97, 50) << QSize(129, 50) << vxToXP;
}

void TestKindConversion::convert()
{
    QFETCH(int, from);
    QFETCH(QSize, size);
    QFETCH(QSize, converted);
    QFETCH(QList<int>, map);
    Character character = markedCharacter(from, size, {"a", "b"});
    character.setSelectedCells({0, 3});
    character.setSelectedElements({1});
    if (from == Character::XP)
        character.convertToVX();
    else
        character.convertToXP();
    QCOMPARE(character.kind(), 1 - from);
    QCOMPARE(character.sheetSize(), converted);
    QVERIFY(character.selectedCells().isEmpty());
    QCOMPARE(character.selectedElements(), QList<int>{1});
    QCOMPARE(character.elementNames(), (QList<QByteArray>{"a", "b"}));
    QCOMPARE(character.elementSources(), (QList<QByteArray>{"source 0", "source 1"}));
    QVERIFY(character.isVisible(0) && !character.isVisible(1));
    compareCells(character, 0, 0, map);
    compareCells(character, 1, 1, map);
}

void TestKindConversion::wrongKindIsLeftAlone()
{
    const QList<int> same = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    Character vx = markedCharacter(Character::VX, QSize(96, 128), {"a"});
    vx.convertToVX();
    QCOMPARE(vx.sheetSize(), QSize(96, 128));
    compareCells(vx, 0, 0, same);
    Character xp = markedCharacter(Character::XP, QSize(128, 192), {"a"});
    xp.convertToXP();
    QCOMPARE(xp.sheetSize(), QSize(128, 192));
    compareCells(xp, 0, 0, same + QList<int>{12, 13, 14, 15});
}

// XP's third frame is lost going to VX and comes back as a copy of the first.
void TestKindConversion::roundTripRepeatsStandingFrame()
{
    Character character = markedCharacter(Character::XP, QSize(128, 192), {"a"});
    character.convertToVX();
    character.convertToXP();
    QCOMPARE(character.sheetSize(), QSize(128, 192));
    compareCells(character, 0, 0, {0, 1, 0, 3, 4, 5, 4, 7, 8, 9, 8, 11, 12, 13, 12, 15});
}

void TestKindConversion::addAndInsert_data()
{
    QTest::addColumn<int>("otherKind");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("rename");
    QTest::addColumn<QList<QByteArray>>("names");
    const QByteArray one = "El\xe9ment 1";
    const QByteArray two = "El\xe9ment 2";
    const QByteArray three = "El\xe9ment 3";
    const QByteArray four = "El\xe9ment 4";
    QTest::newRow("add VX to XP, renamed")
        << 1 << -1 << true << QList<QByteArray>{one, three, two, four};
    QTest::newRow("add XP to XP, names kept")
        << 0 << -1 << false << QList<QByteArray>{one, three, "x", "y"};
    QTest::newRow("insert VX at 1, renamed")
        << 1 << 1 << true << QList<QByteArray>{one, two, four, three};
    QTest::newRow("insert at 0, names kept")
        << 1 << 0 << false << QList<QByteArray>{"x", "y", one, three};
}

void TestKindConversion::addAndInsert()
{
    QFETCH(int, otherKind);
    QFETCH(int, index);
    QFETCH(bool, rename);
    QFETCH(QList<QByteArray>, names);
    // The target's names leave a gap at 2 that renaming fills first.
    Character target =
        markedCharacter(Character::XP, QSize(128, 192), {"El\xe9ment 1", "El\xe9ment 3"});
    target.setVisible(1, false);
    const QSize otherSize = otherKind == Character::XP ? QSize(128, 192) : QSize(96, 128);
    const Character other = markedCharacter(otherKind, otherSize, {"x", "y"});
    if (index < 0)
        target.addCharacter(other, rename);
    else
        target.insertCharacter(other, index, rename);

    QCOMPARE(target.kind(), int(Character::XP));
    QCOMPARE(target.sheetSize(), QSize(128, 192));
    QCOMPARE(target.elementNames(), names);
    const int at = index < 0 ? 2 : index;
    const QList<int> kept = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    const QList<int> map = otherKind == Character::XP ? kept : vxToXP;
    compareCells(target, at, 0, map);
    compareCells(target, at + 1, 1, map);
    QCOMPARE(target.elementSource(at + 1), QByteArray("source 1"));
    // Visibility travels with the elements: other's element 1 is hidden, and so is
    // the target's own element 1 wherever it went.
    QVERIFY(target.isVisible(at) && !target.isVisible(at + 1));
    const int ownSecond = at <= 1 ? 3 : 1;
    QVERIFY(!target.isVisible(ownSecond));
    QCOMPARE(target.elementCount(), 4);
}

// A file may name a kind that has no conversion: its elements still get the target's
// number of cells, padded with null images.
void TestKindConversion::kindWithoutConversion()
{
    Character target = markedCharacter(Character::XP, QSize(128, 192), {});
    const Character other = markedCharacter(2, QSize(30, 40), {"z"});
    target.addCharacter(other, false);
    QCOMPARE(target.cellImages().at(0).size(), 16);
    QCOMPARE(target.cellPositions().at(0).size(), 16);
    QCOMPARE(target.cellImage(0, 11).pixel(0, 0), colourOf(0, 11));
    QVERIFY(target.cellImage(0, 12).isNull());
    QCOMPARE(target.cellPosition(0, 15), QPoint(0, 0));
}

QTEST_GUILESS_MAIN(TestKindConversion)
#include "tst_kindconversion.moc"
