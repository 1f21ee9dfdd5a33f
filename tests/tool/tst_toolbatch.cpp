#include "batch/converter.h"
#include "batch/fusioner.h"
#include "document/character.h"
#include "formats/pngwriter.h"
#include "imagecompare.h"
#include "imaging/hslshift.h"
#include "testfiles.h"
#include "toolrunner.h"

#include <QDirIterator>
#include <QTest>

using namespace Qt::StringLiterals;

// zenkora-tool's batch commands, run as a script runs them: exit codes, what goes to
// stdout and stderr, the files written and the files left alone.
class TestToolBatch : public QObject
{
    Q_OBJECT

    TestFolders m_folders{u"Dossier \u00e9"_s};

    QString newFolder() { return m_folders.newFolder(); }

    // A folder of three XP sheets, some pixels see-through.
    QString xpFolder()
    {
        const QString folder = newFolder();
        for (int i = 0; i < 3; ++i) {
            QImage image(128, 192, QImage::Format_ARGB32);
            for (int p = 0; p < 128 * 192; ++p)
                image.setPixel(p % 128, p / 128,
                               qRgba(p % 128 * 2, p / 128, i * 40, p % 3 ? 255 : 90));
            PngWriter::save(image, folder + u"/xp%1.png"_s.arg(i));
        }
        return folder;
    }

    // Every file under folder with its bytes.
    static QMap<QString, QByteArray> tree(const QString& folder)
    {
        QMap<QString, QByteArray> files;
        for (QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
            const QString path = it.next();
            files.insert(path.mid(folder.size()), fileContents(path));
        }
        return files;
    }

private slots:
    void usageErrors_data()
    {
        QTest::addColumn<QStringList>("arguments");
        const QString folder = xpFolder();
        const QString other = xpFolder();
        const QString a = folder + u"/xp0.png"_s;
        const QString zk = folder + u"/c.zk"_s;
        const QStringList convert{u"convert"_s, u"--direction"_s};
        const QStringList hues{u"hues"_s, zk, u"--out"_s, folder, u"--elements"_s, u"0"_s};
        QTest::newRow("no direction") << QStringList{u"convert"_s, folder};
        QTest::newRow("direction 6, the reset code") << convert + QStringList{u"6"_s, folder};
        QTest::newRow("direction not a number") << convert + QStringList{u"x"_s, folder};
        QTest::newRow("count 3") << convert + QStringList{u"4"_s, u"--count"_s, u"3"_s, folder};
        QTest::newRow("no path") << convert + QStringList{u"3"_s};
        QTest::newRow("unknown option") << convert + QStringList{u"3"_s, u"--fast"_s, folder};
        QTest::newRow("folder and file") << convert + QStringList{u"3"_s, folder, a};
        QTest::newRow("two folders") << convert + QStringList{u"3"_s, folder, other};
        QTest::newRow("files of two folders")
            << convert + QStringList{u"3"_s, a, other + u"/xp1.png"_s};
        QTest::newRow("merge without input") << QStringList{u"merge"_s, folder + u"/o.png"_s};
        QTest::newRow("hues without file") << hues.mid(2);
        QTest::newRow("hues without --out") << QStringList{u"hues"_s, zk, u"--elements"_s, u"0"_s};
        QTest::newRow("hues without --elements") << hues.mid(0, 4);
        QTest::newRow("hues, step 4") << hues + QStringList{u"--step"_s, u"4"_s};
        QTest::newRow("hues, step 121") << hues + QStringList{u"--step"_s, u"121"_s};
        QTest::newRow("hues of a PNG") << QStringList{u"hues"_s, a} + hues.mid(2);
    }

    void usageErrors()
    {
        QFETCH(QStringList, arguments);
        const QMap<QString, QByteArray> before = tree(m_folders.root());
        const ToolResult result = runTool(arguments);
        QCOMPARE(result.code, 2);
        QVERIFY(result.out.isEmpty() && !result.err.isEmpty());
        QCOMPARE(tree(m_folders.root()), before);
    }

    void convert()
    {
        // A relative folder is made absolute; the files are the worker's, byte for
        // byte; stderr stays quiet when it is no terminal.
        const QString folder = xpFolder();
        const QString twin = xpFolder();
        for (int direction : {2, 3}) {
            const ToolResult result =
                runTool({u"convert"_s, u"--direction"_s, QString::number(direction),
                         QFileInfo(folder).fileName()},
                        m_folders.root());
            QCOMPARE(result.code, 0);
            QCOMPARE(result.err, QString());
            QCOMPARE(result.out,
                     folder + (direction == 2 ? u"/2K3_CONVERSIONS\n"_s : u"/VX_CONVERSIONS\n"_s));
            Converter({twin}, false, uchar(direction), nullptr, 0).run();
        }
        QCOMPARE(tree(folder).size(), 3 + 1 + 3);
        QCOMPARE(tree(folder), tree(twin));

        // Files in place: listed, and nothing written without --overwrite.
        const QString existing = folder + u"/VX_CONVERSIONS/$xp1.png"_s;
        QVERIFY(writeFile(existing, "keep me"));
        QFile::remove(folder + u"/VX_CONVERSIONS/$xp2.png"_s);
        const QStringList arguments{u"convert"_s, u"--direction"_s, u"3"_s, folder};
        const ToolResult refused = runTool(arguments);
        QCOMPARE(refused.code, 1);
        QVERIFY(refused.out.isEmpty());
        QVERIFY(refused.err.contains(existing + u'\n'));
        QCOMPARE(fileContents(existing), QByteArray("keep me"));
        QVERIFY(!QFile::exists(folder + u"/VX_CONVERSIONS/$xp2.png"_s));
        QCOMPARE(runTool(arguments + QStringList{u"--overwrite"_s}).code, 0);
        QCOMPARE(tree(folder), tree(twin));

        // A file that can't be opened is named on stderr, and the rest converted.
        const QString junk = folder + u"/junk.png"_s;
        QVERIFY(writeFile(junk, "no image"));
        const ToolResult partly = runTool({u"convert"_s, u"--direction"_s, u"5"_s, u"--count"_s,
                                           u"1"_s, folder + u"/xp0.png"_s, junk});
        QCOMPARE(partly.code, 1);
        QCOMPARE(partly.out, folder + u"/XP_CONVERSIONS\n"_s);
        QCOMPARE(partly.err, u"cannot open: "_s + junk + u'\n');
        QVERIFY(QFile::exists(folder + u"/XP_CONVERSIONS/xp0.png"_s));
        for (const QString& mode : {u"--dry-run"_s, u"--overwrite"_s}) {
            const ToolResult lost = runTool(
                {u"convert"_s, mode, u"--direction"_s, u"0"_s, folder + u"/nowhere/a.png"_s});
            QCOMPARE(lost.code, 1);
            QCOMPARE(lost.err,
                     u"Impossible d'ouvrir le dossier : "_s + folder + u"/nowhere/a.png\n"_s);
        }
    }

    void convertDryRun()
    {
        const QString folder = newFolder();
        QImage vx = solidImage(QSize(96, 128), 0xff336699);
        QVERIFY(PngWriter::save(vx, folder + u"/Vx.png"_s) &&
                PngWriter::save(vx, folder + u"/$S.png"_s));
        const auto dryRun = [&](const QString& direction, const QString& count) {
            return runTool({u"convert"_s, u"--dry-run"_s, u"--direction"_s, direction, u"--count"_s,
                            count, folder});
        };
        // Count 0 reads the names, 1 makes every file one character; directions other
        // than 4 and 5 ignore it.
        QString eight;
        for (int k = 1; k <= 8; ++k)
            eight += folder + u"/XP_CONVERSIONS/Vx_%1.png\n"_s.arg(k);
        QCOMPARE(dryRun(u"5"_s, u"0"_s).out, folder + u"/XP_CONVERSIONS/$S.png\n"_s + eight);
        QCOMPARE(dryRun(u"5"_s, u"1"_s).out,
                 folder + u"/XP_CONVERSIONS/$S.png\n"_s + folder + u"/XP_CONVERSIONS/Vx.png\n"_s);
        const ToolResult toVX = dryRun(u"3"_s, u"2"_s);
        QCOMPARE(toVX.code, 0);
        QCOMPARE(toVX.out,
                 folder + u"/VX_CONVERSIONS/$$S.png\n"_s + folder + u"/VX_CONVERSIONS/$Vx.png\n"_s);
        QCOMPARE(QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
        // With a file in place, the dry run names it and leaves it.
        QVERIFY(QDir(folder).mkdir(u"VX_CONVERSIONS"_s));
        QVERIFY(writeFile(folder + u"/VX_CONVERSIONS/$Vx.png"_s, "old"));
        QVERIFY(dryRun(u"3"_s, u"0"_s).err.contains(folder + u"/VX_CONVERSIONS/$Vx.png\n"_s));
        QCOMPARE(fileContents(folder + u"/VX_CONVERSIONS/$Vx.png"_s), QByteArray("old"));
    }

    void merge()
    {
        const QString folder = newFolder();
        const QString mage = QStringLiteral(ZENKORA_CORPUS_DIR "/xp_tileset/magecity-2.png");
        const QString small = QStringLiteral(ZENKORA_CORPUS_DIR "/xp_tileset/C3TS.png");
        const QString out = folder + u"/merged.png"_s;
        const ToolResult merged = runTool({u"merge"_s, out, small, mage, small});
        QCOMPARE(merged.code, 0);
        QVERIFY(merged.out.isEmpty() && merged.err.isEmpty());
        Fusioner({small, mage, small}, folder + u"/twin.png"_s, nullptr).run();
        QCOMPARE(fileContents(out).left(4), QByteArray("\x89PNG"));
        QCOMPARE(fileContents(out), fileContents(folder + u"/twin.png"_s));

        // A file in place is kept unless --overwrite; an input that can't be read is
        // reported and passed over.
        const ToolResult refused = runTool({u"merge"_s, out, small});
        QCOMPARE(refused.code, 1);
        QVERIFY(refused.err.contains(out));
        QCOMPARE(fileContents(out), fileContents(folder + u"/twin.png"_s));
        const QString junk = folder + u"/junk.gif"_s;
        QVERIFY(writeFile(junk, "GIF? no"));
        const ToolResult partly = runTool({u"merge"_s, u"--overwrite"_s, out, junk, small});
        QCOMPARE(partly.code, 1);
        QCOMPARE(partly.err, u"cannot open: "_s + junk + u'\n');
        QCOMPARE(QImage(out).size(), QSize(256, 64));
        QCOMPARE(runTool({u"merge"_s, folder + u"/none.png"_s, junk}).code, 1);
        QVERIFY(!QFile::exists(folder + u"/none.png"_s));
    }

    void hues()
    {
        const QString folder = newFolder();
        Character character(Character::VX, QSize(96, 128));
        const QList<QByteArray> sources{"a.png|3", "x.elzk?0_5", "x.elzk?1_5"};
        for (int e = 0; e < 3; ++e) {
            QImage sheet = solidImage(QSize(96, 128), uint(19));
            for (int p = 0; p < 25 * 30; ++p)
                sheet.setPixel(5 + e * 20 + p % 25, 10 + p / 25,
                               qRgba(220 - e * 60, 40 + e * 70, 90, 255 - e * 50));
            character.addElement(sheet, "El\xe9ment " + QByteArray::number(e), e);
            character.setElementSource(e, sources.at(e));
        }
        const QString file = folder + u"/perso.zk"_s;
        Character loaded;
        QVERIFY(character.saveCharacter(file, 1));
        QVERIFY(loaded.loadCharacter(file));

        const QString out = folder + u"/teintes"_s;
        const QStringList plain{u"hues"_s,       file,    u"--out"_s,  out,
                                u"--prefix"_s,   u"p"_s,  u"--step"_s, u"120"_s,
                                u"--elements"_s, u"2,0"_s};
        const ToolResult saved = runTool(plain);
        QCOMPARE(saved.code, 0);
        QCOMPARE(saved.out, u"6\n"_s);
        QVERIFY(saved.err.isEmpty());
        for (int e : {0, 2}) {
            for (int degrees : {0, 120, 240}) {
                Character expected = loaded;
                expected.setSelectedElements({e});
                expected.clearCellSelection();
                HslShift shift;
                shift.hue = float(degrees);
                expected.shiftCharacterHsl(shift, false, false);
                ZK_COMPARE_IMAGES(QImage(out + u"/p%1_%2.png"_s.arg(e).arg(degrees)),
                                  expected.compose());
            }
        }
        // Files in place are replaced only when asked. Grouped, the two elements of
        // group 5 turn together, named after the last.
        const ToolResult refused = runTool(plain);
        QCOMPARE(refused.code, 1);
        QVERIFY(refused.err.contains(out + u"/p0_120.png"_s));
        const ToolResult grouped =
            runTool({u"hues"_s, file, u"--out"_s, out, u"--grouped"_s, u"--elements"_s, u"1,0"_s,
                     u"--step"_s, u"90"_s, u"--redefine"_s});
        QCOMPARE(grouped.code, 0);
        QCOMPARE(grouped.out, u"8\n"_s);
        QVERIFY(QFile::exists(out + u"/2_270.png"_s) && QFile::exists(out + u"/0_270.png"_s));
        QCOMPARE(runTool({u"hues"_s, file, u"--out"_s, out, u"--elements"_s, u"3"_s}).code, 2);
    }
    // An output folder whose name a file holds: every file is named on stderr.
    void cannotWrite()
    {
        const QString folder = xpFolder();
        Character character(Character::VX, QSize(96, 128));
        character.addElement(solidImage(QSize(96, 128), qRgb(200, 50, 50)), "e", 0);
        const QString file = folder + u"/perso.zk"_s;
        QVERIFY(character.saveCharacter(file, 1));
        const QString taken = folder + u"/VX_CONVERSIONS"_s;
        QVERIFY(writeFile(taken, "a file"));

        const ToolResult converted = runTool({u"convert"_s, u"--direction"_s, u"3"_s, folder});
        QCOMPARE(converted.code, 1);
        QCOMPARE(converted.err, u"cannot write: %1/$xp0.png\ncannot write: %1/$xp1.png\n"
                                u"cannot write: %1/$xp2.png\n"_s.arg(taken));
        const ToolResult merged =
            runTool({u"merge"_s, taken + u"/m.png"_s, folder + u"/xp0.png"_s});
        QCOMPARE(merged.code, 1);
        QCOMPARE(merged.err, u"cannot write: "_s + taken + u"/m.png\n"_s);
        // Grouped, an element loaded from a plain image is found all the same.
        const ToolResult hues = runTool({u"hues"_s, file, u"--out"_s, taken, u"--step"_s, u"120"_s,
                                         u"--grouped"_s, u"--elements"_s, u"0"_s});
        QCOMPARE(hues.code, 1);
        QVERIFY(hues.err.startsWith(u"cannot write: "_s + taken + u"/0_0.png\n"_s));
        const QString out = folder + u"/teintes"_s;
        QCOMPARE(runTool({u"hues"_s, file, u"--out"_s, out, u"--step"_s, u"120"_s, u"--grouped"_s,
                          u"--elements"_s, u"0"_s})
                     .code,
                 0);
        QCOMPARE(QDir(out).entryList(QDir::Files),
                 QStringList({u"0_0.png"_s, u"0_120.png"_s, u"0_240.png"_s}));
    }
};

QTEST_GUILESS_MAIN(TestToolBatch)
#include "tst_toolbatch.moc"
