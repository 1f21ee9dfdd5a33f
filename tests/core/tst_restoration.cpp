// Restoration of elements from their source files: retouched and moved elements come
// back as their sheet or group file has them, drawing layers come back blank, an
// element added with conversion comes back where it was added, and files that cannot
// be read are listed.
#include "document/character.h"
#include "formats/elementfile.h"
#include "imagecompare.h"
#include "imaging/hslshift.h"
#include "library/elementadder.h"
#include "testfiles.h"

#include <QDir>
#include <QTest>

namespace {

// A sheet of the kind's default size whose cells are wholly opaque, each of its own
// colour: trimming cuts nothing from them, so a cell cut into a moved position would
// keep that position.
QImage opaqueSheet(int kind)
{
    const QSize size = Character::defaultSheetSize(kind);
    QImage image(size, QImage::Format_ARGB32);
    const int columns = Character::columnCountOf(kind);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int cell = y / (size.height() / 4) * columns + x / (size.width() / columns);
            image.setPixel(x, y, qRgba(cell * 15, 200 - x, y, 255));
        }
    }
    return image;
}

// A sheet whose cell c holds a 6 by 9 block at (c + 2, c + 10) of its cell.
QImage blockSheet(int kind)
{
    const QSize size = Character::defaultSheetSize(kind);
    QImage image = solidImage(size, uint(19));
    const int columns = Character::columnCountOf(kind);
    const QSize cell(size.width() / columns, size.height() / 4);
    for (int c = 0; c < Character::cellCountOf(kind); ++c) {
        const QPoint corner(c % columns * cell.width() + c + 2,
                            c / columns * cell.height() + c + 10);
        for (int y = 0; y < 9; ++y) {
            for (int x = 0; x < 6; ++x)
                image.setPixel(corner + QPoint(x, y), qRgba(c * 15, 80, 40, 255));
        }
    }
    return image;
}

bool noQuestion(const QString&)
{
    return false;
}

} // namespace

class TestRestoration : public QObject
{
    Q_OBJECT

private:
    TestFolders m_folders{u"restauration"_qs};

private slots:
    void restoreRetouched_data()
    {
        QTest::addColumn<QString>("source"); // sheet, group or layer
        QTest::addColumn<QList<int>>("cells");
        QTest::newRow("sheet") << u"sheet"_qs << QList<int>();
        QTest::newRow("group") << u"group"_qs << QList<int>();
        QTest::newRow("drawing layer") << u"layer"_qs << QList<int>();
        QTest::newRow("two cells of a sheet") << u"sheet"_qs << QList<int>{0, 5};
    }

    void restoreRetouched()
    {
        QFETCH(QString, source);
        QFETCH(QList<int>, cells);
        const QString folder = m_folders.newFolder();
        Character character;
        if (source == u"sheet"_qs) {
            const QString path = folder + u"/corps.png"_qs;
            QVERIFY(opaqueSheet(Character::XP).save(path));
            QCOMPARE(ElementAdder::addImage(character, path, false), ElementAdder::Added);
        } else if (source == u"group"_qs) {
            const QString path = folder + u"/groupe.elzk"_qs;
            QVERIFY(ElementFile::write(
                path, {blockSheet(Character::XP), opaqueSheet(Character::XP)}, 1, Character::XP));
            QCOMPARE(ElementAdder::addGroup(character, path, nullptr), ElementAdder::Added);
        } else {
            QCOMPARE(ElementAdder::addDrawingLayer(character), ElementAdder::Added);
        }
        const Character added = character;
        character.shiftCharacterHsl(HslShift{120, 0, 0}, false, false);
        character.moveCells(QPoint(3, -2));
        for (int e = 0; e < character.elementCount(); ++e)
            character.setCellImage(e, 5, solidImage(QSize(4, 4), qRgba(9, 9, 9, 255)));
        const Character retouched = character;

        character.setSelectedCells(cells);
        QVERIFY(character.restoreElements(noQuestion));
        for (int e = 0; e < character.elementCount(); ++e) {
            for (int c = 0; c < character.cellCount(); ++c) {
                const Character& expected =
                    cells.isEmpty() || cells.contains(c) ? added : retouched;
                ZK_COMPARE_IMAGES(character.cellImage(e, c), expected.cellImage(e, c));
                QCOMPARE(character.cellPosition(e, c), expected.cellPosition(e, c));
            }
        }
        // The opaque cells were cut whole, at their cell's corner.
        QCOMPARE(character.cellPosition(character.elementCount() - 1, 0), QPoint(0, 0));
    }

    // Adding a sheet of the other engine with conversion, then restoring it with
    // re-conversion, finds every cell where the add put it.
    void conversionRoundTrip_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("question");
        QTest::addColumn<QPoint>("firstCell");
        // The other engine's second frame, (3, 11) in its cell, centred from cells of
        // 32 by 32 on cells of 32 by 48 (XP) or the other way round (VX).
        QTest::newRow("VX sheet on XP") << int(Character::XP)
                                        << u" semble être un élément de VX. Faut-il le "
                                           "reconvertir vers XP ?"_qs
                                        << QPoint(3, 19);
        QTest::newRow("XP sheet on VX") << int(Character::VX)
                                        << u" semble être un élément de XP. Faut-il le "
                                           "reconvertir vers VX ?"_qs
                                        << QPoint(3, 3);
    }

    void conversionRoundTrip()
    {
        QFETCH(int, kind);
        QFETCH(QString, question);
        QFETCH(QPoint, firstCell);
        const int other = 1 - kind;
        const QString folder =
            m_folders.newFolder() +
            (other == Character::VX ? u"/elements/VX/Corps"_qs : u"/elements/XP/Corps"_qs);
        QVERIFY(QDir().mkpath(folder));
        const QString path = folder + u"/corps.png"_qs;
        QVERIFY(blockSheet(other).save(path));

        Character character(kind, QSize());
        QCOMPARE(ElementAdder::addImage(character, path, true), ElementAdder::Added);
        QCOMPARE(character.elementSource(0), path.toLatin1());
        // The walking frames were remapped: XP's first frame is VX's second, and VX's
        // first is XP's second.
        QCOMPARE(character.cellPosition(0, 0), firstCell);
        QCOMPARE(character.cellImage(0, 0).size(), QSize(6, 9));
        const Character added = character;
        character.moveCells(QPoint(-4, 6));

        QStringList asked;
        QVERIFY(character.restoreElements([&](const QString& text) {
            asked.append(text);
            return true;
        }));
        QCOMPARE(asked, QStringList{path + question});
        for (int c = 0; c < character.cellCount(); ++c) {
            QCOMPARE(character.cellPosition(0, c), added.cellPosition(0, c));
            ZK_COMPARE_IMAGES(character.cellImage(0, c), added.cellImage(0, c));
        }
    }

    // The group file is listed once for its two elements; elements that fail keep
    // their images, and the others are restored all the same.
    void unreadableSources()
    {
        const QString folder = m_folders.newFolder();
        const QString sheet = folder + u"/présent.png"_qs;
        QVERIFY(opaqueSheet(Character::XP).save(sheet));
        const QString group = folder + u"/manque.elzk"_qs;
        const QString missing = folder + u"/absent.png"_qs;
        Character character;
        const QList<QImage> images(16, solidImage(QSize(2, 2), qRgba(5, 5, 5, 255)));
        const QList<QByteArray> sources = {(group + u"?0_7"_qs).toLatin1(), sheet.toLatin1(),
                                           (group + u"?1_7"_qs).toLatin1(), missing.toLatin1()};
        for (const QByteArray& source : sources)
            character.insertElement(character.elementCount(), "e", source, images,
                                    QList<QPoint>(16, QPoint(1, 1)), true);
        QVERIFY(!character.restoreElements(noQuestion));
        QCOMPARE(character.errorText(),
                 u"Certains éléments n'ont pas pu être ouverts.|"_qs + group + u"|"_qs + missing);
        for (int e : {0, 2, 3})
            QCOMPARE(character.cellPosition(e, 0), QPoint(1, 1));
        QCOMPARE(character.cellImage(1, 0).size(), QSize(32, 48));
    }
};

QTEST_GUILESS_MAIN(TestRestoration)
#include "tst_restoration.moc"
