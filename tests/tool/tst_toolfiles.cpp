// zenkora-tool's file commands (info, compose, resave), run as a user's script runs
// them: a separate process, without a display.
#include "document/character.h"
#include "formats/elementfile.h"
#include "formats/pngwriter.h"
#include "imagecompare.h"
#include "testfiles.h"
#include "toolrunner.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

namespace {

// Two elements over each other, the upper one see-through and the lower one hidden
// in part of its cells, so that composition has something to blend and to skip.
Character sampleCharacter()
{
    QImage body = solidImage(QSize(128, 192), uint(19));
    for (int y = 10; y < 150; ++y) {
        for (int x = 5; x < 120; ++x)
            body.setPixel(x, y, qRgba(x * 2, y, 90, 255));
    }
    QImage veil = solidImage(QSize(64, 96), qRgba(200, 100, 50, 128));
    Character character(Character::XP, QSize(128, 192));
    character.addElement(body, "Corps", 0);
    character.addElement(veil, "Voile \xe9t\xe9", 1);
    character.addElement(veil, "Cach\xe9", 2);
    character.setVisible(2, false);
    character.setCellPosition(1, 3, QPoint(-5, 7));
    return character;
}

} // namespace

class TestToolFiles : public QObject
{
    Q_OBJECT

private slots:
    void infoOfCharacter_data();
    void infoOfCharacter();
    void infoOfElementFile();
    void compose();
    void resave();
    void errors_data();
    void errors();
    void interruptedWriteKeepsOldFile_data();
    void interruptedWriteKeepsOldFile();

private:
    QTemporaryDir m_dir;
    QString path(const QString& name) const { return m_dir.filePath(name); }
};

void TestToolFiles::infoOfCharacter_data()
{
    QTest::addColumn<int>("version");
    QTest::newRow("version 0") << 0;
    QTest::newRow("version 1") << 1;
}

void TestToolFiles::infoOfCharacter()
{
    QFETCH(int, version);
    Character character = sampleCharacter();
    character.setZoom(2.5);
    const QString file = path(QStringLiteral("info é %1.zk").arg(version));
    QVERIFY(character.saveCharacter(file, quint8(version)));
    const ToolResult result = runTool({QStringLiteral("info"), file});
    QCOMPARE(result.code, 0);
    const QJsonObject json = QJsonDocument::fromJson(result.out.toUtf8()).object();
    QCOMPARE(json.value(QStringLiteral("format")).toInt(-1), version);
    QCOMPARE(json.value(QStringLiteral("kind")).toInt(-1), 0);
    QCOMPARE(json.value(QStringLiteral("width")).toInt(), 128);
    QCOMPARE(json.value(QStringLiteral("height")).toInt(), 192);
    QCOMPARE(json.contains(QStringLiteral("fillPixel")), version == 1);
    QCOMPARE(json.contains(QStringLiteral("zoom")), version == 0);
    if (version == 0) {
        QCOMPARE(json.value(QStringLiteral("zoom")).toDouble(), 2.5);
        QCOMPARE(json.value(QStringLiteral("showGrid")).toBool(), true);
    }
    const QJsonArray elements = json.value(QStringLiteral("elements")).toArray();
    QCOMPARE(elements.size(), 3);
    const QJsonObject veil = elements.at(1).toObject();
    QCOMPARE(veil.value(QStringLiteral("name")).toString(), QStringLiteral("Voile été"));
    QCOMPARE(elements.at(2).toObject().value(QStringLiteral("visible")).toBool(true), false);
    const QJsonArray cells = veil.value(QStringLiteral("cells")).toArray();
    QCOMPARE(cells.size(), 16);
    const QJsonObject cell = cells.at(3).toObject();
    QCOMPARE(cell.value(QStringLiteral("x")).toInt(), -5);
    QCOMPARE(cell.value(QStringLiteral("y")).toInt(), 7);
    QCOMPARE(cell.value(QStringLiteral("width")).toInt(), character.cellImage(1, 3).width());
    QCOMPARE(cell.value(QStringLiteral("height")).toInt(), character.cellImage(1, 3).height());
}

void TestToolFiles::infoOfElementFile()
{
    const QString file = path(QStringLiteral("groupe.elzk"));
    QImage sheet = solidImage(QSize(96, 128), 0xff123456);
    QVERIFY(ElementFile::write(file, {sheet, sheet, sheet}, 1, Character::VX));
    const ToolResult result = runTool({QStringLiteral("info"), file});
    QCOMPARE(result.code, 0);
    const QJsonObject json = QJsonDocument::fromJson(result.out.toUtf8()).object();
    QCOMPARE(json.value(QStringLiteral("format")).toString(), QStringLiteral("elzk"));
    QCOMPARE(json.value(QStringLiteral("kind")).toInt(), 1);
    QCOMPARE(json.value(QStringLiteral("width")).toInt(), 96);
    QCOMPARE(json.value(QStringLiteral("first")).toInt(), 1);
    const QJsonArray elements = json.value(QStringLiteral("elements")).toArray();
    QCOMPARE(elements.size(), 3);
    for (int i = 0; i < 3; ++i) {
        const QJsonObject element = elements.at(i).toObject();
        QCOMPARE(element.value(QStringLiteral("name")).toString(),
                 QStringLiteral("Element %1").arg(i));
        QVERIFY(element.value(QStringLiteral("source"))
                    .toString()
                    .startsWith(file + QStringLiteral("?%1_").arg(i)));
        QCOMPARE(element.value(QStringLiteral("cells")).toArray().size(), 12);
    }
}

// The sheet written equals the composition in memory, pixel for pixel and byte for
// byte as the editor's export writes it.
void TestToolFiles::compose()
{
    const Character character = sampleCharacter();
    Character saved = character;
    const QString file = path(QStringLiteral("compose.zk"));
    QVERIFY(saved.saveCharacter(file, 1));
    const QString out = path(QStringLiteral("compose é.png"));
    const ToolResult result = runTool({QStringLiteral("compose"), file, out});
    QCOMPARE(result.code, 0);
    const QImage expected = character.compose();
    QImage written(out);
    QCOMPARE(written.format(), QImage::Format_ARGB32);
    ZK_COMPARE_IMAGES(written, expected);
    QVERIFY(PngWriter::save(expected, path(QStringLiteral("reference.png"))));
    QCOMPARE(fileContents(out), fileContents(path(QStringLiteral("reference.png"))));

    // An element file is composed with its two stacks merged.
    QImage sheet = solidImage(QSize(128, 192), uint(19));
    sheet.setPixel(40, 50, 0xff00ff00);
    const QString group = path(QStringLiteral("groupe.elzk"));
    QVERIFY(ElementFile::write(group, {expected, sheet}, 1, Character::XP));
    QCOMPARE(runTool({QStringLiteral("compose"), group, out}).code, 0);
    QString error;
    const auto pair = ElementFile::load(group, &error);
    QVERIFY(pair);
    ZK_COMPARE_IMAGES(QImage(out), ElementFile::merged(*pair).compose());
}

void TestToolFiles::resave()
{
    Character character = sampleCharacter();
    const QString v1 = path(QStringLiteral("resave1.zk"));
    const QString v0 = path(QStringLiteral("resave0.zk"));
    QVERIFY(character.saveCharacter(v1, 1));
    QVERIFY(character.saveCharacter(v0, 0));
    const QString out = path(QStringLiteral("resave out.zk"));

    QCOMPARE(runTool({QStringLiteral("resave"), v1, out, QStringLiteral("--format"),
                      QStringLiteral("0")})
                 .code,
             0);
    QCOMPARE(fileContents(out), fileContents(v0));
    QCOMPARE(runTool({QStringLiteral("resave"), v0, out, QStringLiteral("--format=1")}).code, 0);
    QCOMPARE(fileContents(out), fileContents(v1));
    // Without --format the version read is kept.
    QCOMPARE(runTool({QStringLiteral("resave"), v0, out}).code, 0);
    QCOMPARE(fileContents(out), fileContents(v0));
}

void TestToolFiles::errors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("message");
    const QString missing = QStringLiteral("/nonexistent/absent.zk");
    const QString notOpened =
        QStringLiteral("Ce fichier n'a pas pu s'ouvrir :\n") + missing + QStringLiteral(".\n");
    QTest::newRow("info of a missing file")
        << QStringList{QStringLiteral("info"), missing} << 1 << notOpened;
    QTest::newRow("compose of a missing file")
        << QStringList{QStringLiteral("compose"), missing, QStringLiteral("/tmp/x.png")} << 1
        << notOpened;
    QTest::newRow("resave of a missing file")
        << QStringList{QStringLiteral("resave"), missing, QStringLiteral("/tmp/x.zk")} << 1
        << notOpened;
    // Opening a FIFO would wait for a writer for ever.
    const QString fifo = path(QStringLiteral("tube.zk"));
    QVERIFY(::mkfifo(QFile::encodeName(fifo).constData(), 0600) == 0);
    QTest::newRow("info of a FIFO")
        << QStringList{QStringLiteral("info"), fifo} << 1
        << QStringLiteral("Ce fichier n'a pas pu s'ouvrir :\n") + fifo + QStringLiteral(".\n");
    QTest::newRow("info without a file") << QStringList{QStringLiteral("info")} << 2 << QString();
    QTest::newRow("compose with one file")
        << QStringList{QStringLiteral("compose"), missing} << 2 << QString();
    QTest::newRow("resave in format 2")
        << QStringList{QStringLiteral("resave"), missing, missing, QStringLiteral("--format"),
                       QStringLiteral("2")}
        << 2 << QString();
    QTest::newRow("resave with an unknown option")
        << QStringList{QStringLiteral("resave"), missing, missing, QStringLiteral("--fast")} << 2
        << QString();
}

void TestToolFiles::errors()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    QFETCH(QString, message);
    const ToolResult result = runTool(arguments);
    QCOMPARE(result.code, code);
    QVERIFY(result.out.isEmpty());
    if (code == 1)
        QCOMPARE(result.err, message);
    else
        QVERIFY2(result.err.contains(QStringLiteral("Usage: zenkora-tool ") + arguments.first()),
                 qPrintable(result.err));
}

void TestToolFiles::interruptedWriteKeepsOldFile_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("blocksShort");
    // The limit falls in the last kibibytes of the new file, where the save file still
    // buffers what it writes, and once past its end.
    for (const char* command : {"resave", "compose"}) {
        for (int shortBy : {3, 2, 1, 0, -1}) {
            QTest::addRow("%s, limit %d KiB short", command, shortBy)
                << QString::fromLatin1(command) << shortBy;
        }
    }
}

// A write cut by a full disk either fails and leaves the old file whole, or succeeds
// with the whole new file: never a cut file behind a success.
void TestToolFiles::interruptedWriteKeepsOldFile()
{
    QFETCH(QString, command);
    QFETCH(int, blocksShort);
    Character character = sampleCharacter();
    // Enough noise that the file is far larger than any write buffer.
    QImage noise(128, 192, QImage::Format_ARGB32);
    QRandomGenerator random(42);
    for (int p = 0; p < 128 * 192; ++p)
        noise.setPixel(p % 128, p / 128, random.generate() | 0xff000000u);
    character.addElement(noise, "Bruit", 3);
    const QString in = path(QStringLiteral("plein.zk"));
    QVERIFY(character.saveCharacter(in, 1));
    const QString extension =
        command == QStringLiteral("resave") ? QStringLiteral(".zk") : QStringLiteral(".png");
    const QString reference = path(QStringLiteral("référence") + extension);
    QCOMPARE(runTool({command, in, reference}).code, 0);
    const QByteArray whole = fileContents(reference);
    QVERIFY(whole.size() > 64 * 1024);

    const QString target = path(QStringLiteral("ancien") + extension);
    const QByteArray old(1000, 'o');
    QVERIFY(writeFile(target, old));
    const int blocks = int(whole.size() / 1024) - blocksShort;
    const ToolResult result = runTool({command, in, target}, QString(), blocks);
    const QByteArray after = fileContents(target);
    if (qint64(blocks) * 1024 >= whole.size()) {
        QCOMPARE(result.code, 0);
        QCOMPARE(after, whole);
    } else {
        QCOMPARE(result.code, 1);
        QCOMPARE(after, old);
        QVERIFY(result.err.contains(QStringLiteral("Impossible d'enregistrer le fichier")));
    }
    // No temporary file is left beside it.
    QCOMPARE(
        QDir(m_dir.path()).entryList({QStringLiteral("ancien") + extension + u'*'}, QDir::Files),
        QStringList{QStringLiteral("ancien") + extension});
}

QTEST_GUILESS_MAIN(TestToolFiles)
#include "tst_toolfiles.moc"
