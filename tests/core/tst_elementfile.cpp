// The .elzk element file: the writer's bytes for sheets of two sizes, the two stacks
// and the load counter of the reader, and the files it must refuse.
#include "document/character.h"
#include "formats/elementfile.h"
#include "imagecompare.h"
#include "testfiles.h"

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

QRgb colourOf(int sheet, int cell)
{
    return qRgba(cell * 15, sheet * 100, 50, 255 - cell);
}

// An XP sheet of the given size whose cells each hold one opaque pixel at spot,
// relative to the cell's corner, over the raw transparent pixel.
QImage sheet(int number, QSize size, QPoint spot)
{
    QImage image = solidImage(size, uint(19));
    const int cw = size.width() / 4;
    const int ch = size.height() / 4;
    for (int c = 0; c < 16; ++c)
        image.setPixel(c % 4 * cw + spot.x(), c / 4 * ch + spot.y(), colourOf(number, c));
    return image;
}

// What trimming leaves of one opaque pixel: a 2 by 2 box, the pixel at its corner.
QImage trimmedCell(int number, int cell)
{
    QImage image = solidImage(QSize(2, 2), uint(19));
    image.setPixel(0, 0, colourOf(number, cell));
    return image;
}

// The larger sheet (128 by 192) keeps its offsets; the smaller one (60 by 90, cells
// of 15 by 22) is centred on 32 by 48 cells by (8.5, 13) cut toward zero: (8, 13).
const QList<QImage> sheets = {sheet(0, QSize(128, 192), QPoint(3, 5)),
                              sheet(1, QSize(60, 90), QPoint(1, 2))};
const QList<QPoint> expectedPositions = {QPoint(3, 5), QPoint(1 + 8, 2 + 13)};

QByteArray writtenFile(int firstCount)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!ElementFile::write(&buffer, sheets, firstCount, Character::XP))
        return "write failed";
    return buffer.data();
}

std::optional<ElementFile::Pair> readBytes(const QByteArray& bytes, QString* errorText)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return ElementFile::read(&buffer, QStringLiteral("groupe.elzk"), errorText);
}

void compareStack(const Character& stack, int firstIndex, const QByteArray& path, int counter)
{
    QCOMPARE(stack.kind(), int(Character::XP));
    QCOMPARE(stack.sheetSize(), QSize(128, 192));
    for (int e = 0; e < stack.elementCount(); ++e) {
        const int i = firstIndex + e;
        QCOMPARE(stack.elementName(e), "Element " + QByteArray::number(i));
        QCOMPARE(stack.elementSource(e),
                 path + '?' + QByteArray::number(i) + '_' + QByteArray::number(counter));
        QVERIFY(stack.isVisible(e));
        for (int c = 0; c < 16; ++c) {
            QCOMPARE(stack.cellPosition(e, c), expectedPositions.at(i));
            ZK_COMPARE_IMAGES(stack.cellImage(e, c), trimmedCell(i, c));
        }
    }
}

} // namespace

class TestElementFile : public QObject
{
    Q_OBJECT

private slots:
    void writtenBytes();
    void stacks_data();
    void stacks();
    void counterRisesBetweenLoads();
    void refused_data();
    void refused();
    void writeFailures();
    void noImages();
};

void TestElementFile::writtenBytes()
{
    const QByteArray bytes = writtenFile(1);
    QCOMPARE(bytes.left(12), hex("00  00000080 000000c0  02 01 00"));
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    buffer.seek(12);
    QDataStream in(&buffer);
    for (int i = 0; i < 2; ++i) {
        for (int c = 0; c < 16; ++c) {
            QPoint position;
            qint32 marker = 0;
            in >> position >> marker;
            QCOMPARE(position, expectedPositions.at(i));
            QCOMPARE(marker, 1);
            const qint64 end = bytes.indexOf("IEND", buffer.pos()) + 8;
            const QByteArray png = bytes.mid(buffer.pos(), end - buffer.pos());
            QVERIFY(png.contains(hex("70485973 00000ec4 00000ec4 01")));
            ZK_COMPARE_IMAGES(QImage::fromData(png, "png"), trimmedCell(i, c));
            buffer.seek(end);
        }
    }
    QCOMPARE(buffer.pos(), qint64(bytes.size()));
}

void TestElementFile::stacks_data()
{
    QTest::addColumn<int>("firstCount");
    QTest::newRow("all in the second stack") << 0;
    QTest::newRow("one in each") << 1;
    QTest::newRow("all in the first stack") << 2;
}

void TestElementFile::stacks()
{
    QFETCH(int, firstCount);
    QTemporaryDir dir;
    const QString path = dir.path() + QStringLiteral("/groupe é.elzk");
    QVERIFY(ElementFile::write(path, sheets, firstCount, Character::XP));
    QString error;
    const std::optional<ElementFile::Pair> pair = ElementFile::load(path, &error);
    QVERIFY2(pair, qPrintable(error));
    QCOMPARE(pair->first.elementCount(), firstCount);
    QCOMPARE(pair->second.elementCount(), 2 - firstCount);
    const QByteArray source = pair->first.elementCount() > 0 ? pair->first.elementSource(0)
                                                             : pair->second.elementSource(0);
    const int counter = source.mid(source.lastIndexOf('_') + 1).toInt();
    compareStack(pair->first, 0, path.toLatin1(), counter);
    compareStack(pair->second, firstCount, path.toLatin1(), counter);

    // Opened as a document, the second stack goes on top of the first, names kept.
    const Character merged = ElementFile::merged(*pair);
    QCOMPARE(merged.elementNames(), (QList<QByteArray>{"Element 0", "Element 1"}));
    compareStack(merged, 0, path.toLatin1(), counter);
}

void TestElementFile::counterRisesBetweenLoads()
{
    const QByteArray bytes = writtenFile(1);
    QString error;
    const auto first = readBytes(bytes, &error);
    const auto second = readBytes(bytes, &error);
    QVERIFY(first && second);
    const QByteArray a = first->second.elementSource(0);
    const QByteArray b = second->second.elementSource(0);
    QVERIFY(a.startsWith("groupe.elzk?1_"));
    QCOMPARE(b.mid(14).toInt(), a.mid(14).toInt() + 1);
}

void TestElementFile::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    const QString newer = QStringLiteral(
        "Impossible d'ouvrir groupe.elzk car il a été enregistré par une version plus récente "
        "de Zenkora.");
    const QString broken = QStringLiteral(
        "Ce fichier est endommagé :<br />groupe.elzk.<br />Il est impossible de l'ouvrir.");
    const QByteArray good = writtenFile(1);
    QTest::newRow("version 1") << QByteArray(1, '\1') + good.mid(1) << newer;
    QTest::newRow("version 255") << hex("ff") << newer;
    QTest::newRow("empty") << QByteArray() << broken;
    QTest::newRow("cut in its header") << good.left(10) << broken;
    QTest::newRow("cut in its images") << good.left(good.size() / 2) << broken;
    QTest::newRow("cut in a position") << good.left(good.indexOf("IEND") + 8 + 5) << broken;
    QTest::newRow("negative total") << hex("00 00000080 000000c0 ff 00 00") << broken;
    QTest::newRow("negative first count") << hex("00 00000080 000000c0 01 ff 00") << broken;
    QTest::newRow("first count above total") << hex("00 00000080 000000c0 01 02 00") << broken;
    QTest::newRow("negative size") << hex("00 ffffff80 000000c0 00 00 00") << broken;
    QTest::newRow("size of zero width") << hex("00 00000000 00000010 00 00 00") << broken;
    QTest::newRow("size above 16384") << hex("00 00000080 00004001 00 00 00") << broken;
}

void TestElementFile::refused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    QString error;
    QVERIFY(!readBytes(bytes, &error));
    QCOMPARE(error, message);
}

void TestElementFile::writeFailures()
{
    QTemporaryDir dir;
    QString error;
    const QString missing = dir.path() + QStringLiteral("/absent/groupe.elzk");
    QVERIFY(!ElementFile::write(missing, sheets, 1, Character::XP, &error));
    QCOMPARE(error,
             QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />") + missing + QLatin1Char('.'));
    QVERIFY(!ElementFile::load(missing, &error));
    QCOMPARE(error,
             QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />") + missing + QLatin1Char('.'));

    // Counts that a signed byte cannot hold, or a split outside the list, are refused
    // before the file is touched.
    const QString path = dir.path() + QStringLiteral("/groupe.elzk");
    const QString refusal =
        QStringLiteral("Impossible de créer l'élément :<br />") + path + QLatin1Char('.');
    QImage small = solidImage(QSize(4, 4), 0xff000000);
    const QList<QImage> many(128, small);
    QVERIFY(!ElementFile::write(path, many, 0, Character::XP, &error));
    QCOMPARE(error, refusal);
    error.clear();
    QVERIFY(!ElementFile::write(path, sheets, 3, Character::XP, &error));
    QCOMPARE(error, refusal);
    QVERIFY(!ElementFile::write(path, sheets, -1, Character::XP, &error));
    QVERIFY(QDir(dir.path()).isEmpty());
    QVERIFY(ElementFile::write(path, many.mid(1), 0, Character::XP, &error));

    // A device that fills up anywhere, even in the last byte, fails the write.
    const QByteArray whole = writtenFile(1);
    for (qint64 capacity : {qint64(0), qint64(1), qint64(12), whole.size() / 2, whole.size() - 1}) {
        FullDevice device(capacity);
        QVERIFY2(!ElementFile::write(&device, sheets, 1, Character::XP),
                 qPrintable(QString::number(capacity)));
    }
    FullDevice roomy(whole.size());
    QVERIFY(ElementFile::write(&roomy, sheets, 1, Character::XP));
    QCOMPARE(roomy.written, whole);
}

// A group written from no image declares 0 by 0 and opens at the default size of its
// kind, with two empty stacks.
void TestElementFile::noImages()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(ElementFile::write(&buffer, {}, 0, Character::VX));
    QCOMPARE(buffer.data(), hex("00  00000000 00000000  00 00 01"));
    QString error;
    const auto pair = readBytes(buffer.data(), &error);
    QVERIFY(pair);
    QCOMPARE(pair->first.sheetSize(), QSize(96, 128));
    QCOMPARE(pair->first.elementCount() + pair->second.elementCount(), 0);
}

QTEST_GUILESS_MAIN(TestElementFile)
#include "tst_elementfile.moc"
