// zenkora-tool add: elements stacked on a new or an existing character, and the
// arguments and files it refuses without writing anything.
#include "document/character.h"
#include "formats/elementfile.h"
#include "testfiles.h"
#include "toolrunner.h"

#include <QTest>

namespace {

// A sheet of the kind's default size holding a block of one colour in every cell.
QImage sheet(int kind, QRgb colour)
{
    const QSize size = Character::defaultSheetSize(kind);
    QImage image = solidImage(size, uint(19));
    for (int y = 4; y < size.height(); y += size.height() / 4) {
        for (int x = 3; x < size.width(); x += size.width() / Character::columnCountOf(kind))
            image.setPixel(x, y, colour);
    }
    return image;
}

} // namespace

class TestToolAdd : public QObject
{
    Q_OBJECT

private:
    TestFolders m_folders{u"ajout"_qs};

private slots:
    // A new character from two sheets, then a group around its top element and a VX
    // sheet converted, added to the file written.
    void addToNewThenExisting()
    {
        const QString folder = m_folders.newFolder();
        QVERIFY(sheet(Character::XP, qRgba(1, 2, 3, 255)).save(folder + u"/corps.png"_qs));
        QVERIFY(sheet(Character::XP, qRgba(4, 5, 6, 255)).save(folder + u"/haut é.png"_qs));
        QVERIFY(sheet(Character::VX, qRgba(7, 8, 9, 255)).save(folder + u"/vx.png"_qs));
        QVERIFY(ElementFile::write(folder + u"/g.elzk"_qs,
                                   {sheet(Character::XP, qRgba(10, 0, 0, 255)),
                                    sheet(Character::XP, qRgba(20, 0, 0, 255))},
                                   1, Character::XP));
        ToolResult result = runTool({u"add"_qs, u"p.zk"_qs, u"corps.png"_qs, u"haut é.png"_qs,
                                     u"--new"_qs, u"xp"_qs, u"--format"_qs, u"0"_qs},
                                    folder);
        QCOMPARE(result.err, QString());
        QCOMPARE(result.code, 0);
        result = runTool({u"add"_qs, u"p.zk"_qs, u"g.elzk"_qs}, folder);
        QCOMPARE(result.code, 0);
        result = runTool({u"add"_qs, u"p.zk"_qs, u"vx.png"_qs, u"--convert"_qs}, folder);
        QCOMPARE(result.code, 0);

        Character character;
        quint8 version = 9;
        QVERIFY(character.loadCharacter(folder + u"/p.zk"_qs, &version));
        QCOMPARE(version, quint8(0));
        QCOMPARE(character.sheetSize(), QSize(128, 192));
        QCOMPARE(character.elementSources(),
                 (QList<QByteArray>{"corps.png", "g.elzk?0_1", "haut \xe9.png", "g.elzk?1_1",
                                    "vx.png"}));
        QCOMPARE(character.elementNames(),
                 (QList<QByteArray>{"El\xe9ment 1", "El\xe9ment 3", "El\xe9ment 2", "El\xe9ment 4",
                                    "El\xe9ment 5"}));
        QCOMPARE(character.cellPosition(0, 0), QPoint(3, 4));
        // VX's second frame became XP's first: its block is in every cell of the sheet
        // at (3, 4) of 32 by 32 cells, centred on cells of 32 by 48.
        QCOMPARE(character.cellPosition(4, 0), QPoint(3, 12));
        QCOMPARE(character.cellImage(4, 0).pixel(0, 0), qRgba(7, 8, 9, 255));
    }

    void refused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        QTest::newRow("no element") << QStringList{u"p.zk"_qs, u"--new"_qs, u"xp"_qs} << 2
                                    << u"at least one element expected"_qs;
        QTest::newRow("kind") << QStringList{u"p.zk"_qs, u"a.png"_qs, u"--new"_qs, u"2k3"_qs} << 2
                              << u"xp or vx"_qs;
        QTest::newRow("format") << QStringList{u"p.zk"_qs, u"a.png"_qs, u"--format"_qs, u"2"_qs}
                                << 2 << u"0 or 1"_qs;
        QTest::newRow("no character")
            << QStringList{u"absent.zk"_qs, u"a.png"_qs} << 1 << u"absent.zk"_qs;
        QTest::newRow("unreadable sheet") << QStringList{u"p.zk"_qs, u"a.png"_qs, u"manque.png"_qs}
                                          << 1 << u"Impossible d'ouvrir : manque.png"_qs;
        QTest::newRow("unreadable group")
            << QStringList{u"p.zk"_qs, u"manque.elzk"_qs} << 1 << u"manque.elzk"_qs;
        QTest::newRow("full") << QStringList{u"plein.zk"_qs, u"a.png"_qs} << 1
                              << u"Impossible de créer plus de 255 éléments !"_qs;
    }

    // Nothing is written when any element cannot be added.
    void refused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        QFETCH(QString, message);
        const QString folder = m_folders.newFolder();
        QVERIFY(sheet(Character::XP, qRgba(1, 2, 3, 255)).save(folder + u"/a.png"_qs));
        Character character;
        QVERIFY(character.saveCharacter(folder + u"/p.zk"_qs, 1));
        if (arguments.first() == u"plein.zk"_qs) {
            for (int e = 0; e < Character::MaxElements; ++e)
                character.addDrawingLayer(e);
            QVERIFY(character.saveCharacter(folder + u"/plein.zk"_qs, 1));
        }
        const QByteArray before = fileContents(folder + u"/"_qs + arguments.first());

        const ToolResult result = runTool(QStringList{u"add"_qs} + arguments, folder);
        QCOMPARE(result.code, code);
        QVERIFY2(result.err.contains(message), qPrintable(result.err));
        QCOMPARE(fileContents(folder + u"/"_qs + arguments.first()), before);
    }
};

QTEST_GUILESS_MAIN(TestToolAdd)
#include "tst_tooladd.moc"
