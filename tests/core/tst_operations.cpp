// The stack operations of a character (duplicate, move, delete, merge) and the
// in-program clipboard.
#include "document/character.h"
#include "document/clipboard.h"
#include "document/elementoperations.h"
#include "imagecompare.h"
#include "imaging/blend.h"
#include "testfiles.h"

#include <QTest>

namespace {

// Elements named by names, each cell a 1 by 1 image of its own colour at (e, c), the
// second element hidden: what each operation carried along can be read back.
Character stack(const QList<QByteArray>& names, int kind = Character::XP)
{
    Character character(kind, QSize());
    for (int e = 0; e < names.size(); ++e) {
        QList<QImage> images;
        QList<QPoint> positions;
        for (int c = 0; c < character.cellCount(); ++c) {
            images.append(solidImage(QSize(1, 1), qRgba(e, c, 200, 255)));
            positions.append(QPoint(e, c));
        }
        character.insertElement(e, names.at(e), "src" + QByteArray::number(e), images, positions,
                                e != 1);
    }
    return character;
}

// Each element of character as "name/source/visibility/first pixel's red", bottom first.
QString describe(const Character& character)
{
    QStringList rows;
    for (int e = 0; e < character.elementCount(); ++e) {
        const QImage& image = character.cellImage(e, 0);
        rows.append(
            QString::fromLatin1(character.elementName(e) + '/' + character.elementSource(e)) +
            (character.isVisible(e) ? QStringLiteral("/v/") : QStringLiteral("/h/")) +
            (image.isNull() ? QStringLiteral("null") : QString::number(qRed(image.pixel(0, 0)))));
    }
    return rows.join(QLatin1Char(' '));
}

} // namespace

class TestOperations : public QObject
{
    Q_OBJECT

private slots:
    void copyName_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QList<QByteArray>>("names");
        QTest::addColumn<QByteArray>("copy");
        QTest::newRow("first") << QByteArray("Pull") << QList<QByteArray>{"Pull"}
                               << QByteArray("Pull copie");
        QTest::newRow("second") << QByteArray("Pull") << QList<QByteArray>{"Pull", "Pull copie"}
                                << QByteArray("Pull copie 2");
        QTest::newRow("of a copy")
            << QByteArray("Pull copie 2") << QList<QByteArray>{"Pull", "Pull copie", "Pull copie 2"}
            << QByteArray("Pull copie 3");
        QTest::newRow("gap is reused")
            << QByteArray("Pull copie 3") << QList<QByteArray>{"Pull copie", "Pull copie 3"}
            << QByteArray("Pull copie 2");
        QTest::newRow("digits without blank")
            << QByteArray("Pull copie7") << QList<QByteArray>{"Pull copie7"}
            << QByteArray("Pull copie");
        QTest::newRow("number of the name")
            << QByteArray("Pull 2") << QList<QByteArray>{"Pull 2"} << QByteArray("Pull 2 copie");
        QTest::newRow("no blank before copie")
            << QByteArray("Pullcopie") << QList<QByteArray>{"Pullcopie"}
            << QByteArray("Pullcopie copie");
        QTest::newRow("latin-1, by bytes")
            << QByteArray("El\xe9ment 1")
            << QList<QByteArray>{"El\xe9ment 1", "El\xc3\xa9ment 1 copie"}
            << QByteArray("El\xe9ment 1 copie");
    }

    void copyName()
    {
        QFETCH(QByteArray, name);
        QFETCH(QList<QByteArray>, names);
        QTEST(ElementOperations::copyName(name, names), "copy");
    }

    void duplicateKeepsSelectionAndSharesImages()
    {
        Character character = stack({"a", "b", "c", "d", "e"});
        character.setSelectedElements({3});
        character.duplicateElement(3, 4);
        QCOMPARE(describe(character),
                 QStringLiteral(
                     "a/src0/v/0 b/src1/h/1 c/src2/v/2 d/src3/v/3 d copie/src3/v/3 e/src4/v/4"));
        QCOMPARE(character.selectedElements(), QList<int>({3}));
        QCOMPARE(character.cellPositions().at(4), character.cellPositions().at(3));
        QCOMPARE(character.cellImage(4, 5).constBits(), character.cellImage(3, 5).constBits());
        // Copying again, and copying the copy, count up; no "copie copie".
        character.duplicateElement(1, 2);
        character.duplicateElement(1, 3);
        character.duplicateElement(3, 4);
        QCOMPARE(character.elementNames().mid(1, 4),
                 QList<QByteArray>({"b", "b copie", "b copie 2", "b copie 3"}));
        QVERIFY(!character.isVisible(4));
    }

    void move_data()
    {
        QTest::addColumn<QList<int>>("selection");
        QTest::addColumn<int>("target");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QList<int>>("selectionAfter");
        QTest::newRow("up") << QList<int>{0} << 2
                            << QStringLiteral("b/src1/h/1 c/src2/v/2 a/src0/v/0 d/src3/v/3")
                            << QList<int>{2};
        QTest::newRow("down, hidden bit follows")
            << QList<int>{1} << 0 << QStringLiteral("b/src1/h/1 a/src0/v/0 c/src2/v/2 d/src3/v/3")
            << QList<int>{0};
        QTest::newRow("two selected: nothing")
            << QList<int>{0, 1} << 3
            << QStringLiteral("a/src0/v/0 b/src1/h/1 c/src2/v/2 d/src3/v/3") << QList<int>{0, 1};
    }

    void move()
    {
        QFETCH(QList<int>, selection);
        QFETCH(int, target);
        Character character = stack({"a", "b", "c", "d"});
        character.setSelectedElements(selection);
        character.moveElement(target);
        QTEST(describe(character), "after");
        QTEST(character.selectedElements(), "selectionAfter");
    }

    void deleteElements()
    {
        Character character = stack({"a", "b", "c", "d"});
        character.setSelectedElements({2});
        character.deleteElements({3, 0, 3});
        QCOMPARE(describe(character), QStringLiteral("b/src1/h/1 c/src2/v/2"));
        QVERIFY(character.selectedElements().isEmpty());
        QCOMPARE(character.elementVisibility().size(), 2);
        character.selectAllElements();
        character.deleteSelectedElements();
        QCOMPARE(character.elementCount(), 0);
    }

    void mergeCell_data()
    {
        QTest::addColumn<QImage>("lower");
        QTest::addColumn<QPoint>("lowerAt");
        QTest::addColumn<QImage>("upper");
        QTest::addColumn<QPoint>("upperAt");
        QTest::addColumn<QImage>("merged");
        QTest::addColumn<QPoint>("mergedAt");

        const QRgb red = qRgba(255, 0, 0, 255);
        const QRgb halfBlue = qRgba(0, 0, 255, 128);
        QImage expected = solidImage(QSize(4, 3), 19);
        expected.setPixel(0, 0, red);
        expected.setPixel(1, 0, red);
        expected.setPixel(3, 2, halfBlue);
        QTest::newRow("box of both, blended")
            << solidImage(QSize(2, 1), red) << QPoint(0, 0) << solidImage(QSize(1, 1), halfBlue)
            << QPoint(3, 2) << expected << QPoint(0, 0);
        // Half blue over red, both at the same place: the upper one is drawn last.
        QImage over = solidImage(QSize(1, 1), red);
        blendOver(over, 0, 0, solidImage(QSize(1, 1), halfBlue), 0, 0, 1, 1);
        QTest::newRow("over") << solidImage(QSize(1, 1), red) << QPoint(-4, 7)
                              << solidImage(QSize(1, 1), halfBlue) << QPoint(-4, 7) << over
                              << QPoint(-4, 7);
        QTest::newRow("nothing visible keeps the box")
            << solidImage(QSize(32, 48), 19) << QPoint(0, 0) << solidImage(QSize(10, 10), 19)
            << QPoint(5, -3) << solidImage(QSize(32, 51), 19) << QPoint(0, -3);
        QTest::newRow("null below") << QImage() << QPoint(9, 9) << solidImage(QSize(2, 2), red)
                                    << QPoint(4, 4) << solidImage(QSize(2, 2), red) << QPoint(4, 4);
        QTest::newRow("both null")
            << QImage() << QPoint(9, 9) << QImage() << QPoint(4, 4) << QImage() << QPoint(9, 9);
    }

    void mergeCell()
    {
        QFETCH(QImage, lower);
        QFETCH(QPoint, lowerAt);
        QFETCH(QImage, upper);
        QFETCH(QPoint, upperAt);
        Character character = stack({"a", "b", "c"});
        character.setCellImage(0, 6, lower);
        character.setCellPosition(0, 6, lowerAt);
        character.setCellImage(2, 6, upper);
        character.setCellPosition(2, 6, upperAt);
        character.mergeElements({0, 2});
        QCOMPARE(character.elementNames(), QList<QByteArray>({"a", "b"}));
        QFETCH(QImage, merged);
        QCOMPARE(character.cellImage(0, 6).isNull(), merged.isNull());
        if (!merged.isNull())
            ZK_COMPARE_IMAGES(character.cellImage(0, 6), merged);
        QTEST(character.cellPosition(0, 6), "mergedAt");
    }

    void mergeOrderAndVisibility()
    {
        // The hidden element draws all the same, and the result keeps the first
        // element's name, source and visibility; the list's order is the drawing order.
        Character character = stack({"a", "b", "c"});
        character.mergeElements({1, 0});
        QCOMPARE(describe(character), QStringLiteral("b/src1/h/0 c/src2/v/2"));

        character = stack({"a", "b", "c", "d"});
        character.mergeWithLower(2);
        QCOMPARE(describe(character), QStringLiteral("a/src0/v/0 b/src1/h/1 d/src3/v/3"));
        character.mergeWithLower(0);
        QCOMPARE(character.elementCount(), 3);

        // Selected top first: still merged bottom up, into the lowest.
        character = stack({"a", "b", "c", "d"});
        character.setSelectedElements({});
        character.toggleElement(3);
        character.toggleElement(0);
        character.mergeSelection();
        QCOMPARE(describe(character), QStringLiteral("a/src0/v/0 b/src1/h/1 c/src2/v/2"));
        QVERIFY(character.selectedElements().isEmpty());
    }

    void clipBoardElements()
    {
        Character source = stack({"a", "b", "c"}, Character::VX);
        source.resizeSheet(QSize(99, 132), false);
        ClipBoard clipBoard;
        QCOMPARE(clipBoard.contentKind(), quint8(ClipBoard::Empty));
        source.toggleElement(2);
        source.toggleElement(1);
        clipBoard.copyElements(source);
        QCOMPARE(clipBoard.contentKind(), quint8(ClipBoard::Elements));

        // A change of the source after the copy leaves the clipboard as it was.
        QImage changed = source.cellImage(1, 0);
        changed.setPixel(0, 0, 0xff000000);
        source.setCellImage(1, 0, changed);
        source.deleteElements({2});

        const Character copy = clipBoard.elements();
        QCOMPARE(copy.kind(), int(Character::VX));
        QCOMPARE(copy.sheetSize(), QSize(99, 132));
        QCOMPARE(describe(copy), QStringLiteral("b/src1/h/1 c/src2/v/2"));
        QVERIFY(copy.selectedElements().isEmpty());

        clipBoard.copyCell(changed, QPoint(-2, 3));
        QCOMPARE(clipBoard.contentKind(), quint8(ClipBoard::OneCell));
        QCOMPARE(clipBoard.elementCount(), 0);
        QCOMPARE(clipBoard.cellContent().position, QPoint(-2, 3));
        QCOMPARE(clipBoard.cellContent().image, changed);
    }
};

QTEST_GUILESS_MAIN(TestOperations)
#include "tst_operations.moc"
