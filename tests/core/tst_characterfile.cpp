// The .zk character file: exact bytes of both versions, round trips, and the
// damaged and cut files that must neither crash nor allocate what they claim.
#include "document/character.h"
#include "formats/characterfile.h"
#include "imagecompare.h"
#include "testfiles.h"

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Big-endian UTF-16 of Latin-1 bytes, after its byte count.
QByteArray utf16(const QByteArray& latin1)
{
    QByteArray units;
    for (char byte : latin1)
        units += QByteArray(1, '\0') + byte;
    QByteArray length(4, '\0');
    length[3] = char(units.size());
    return length + units;
}

quint32 crc32(const QByteArray& bytes)
{
    quint32 crc = 0xffffffff;
    for (char byte : bytes) {
        crc ^= uchar(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (0xedb88320 & (0 - (crc & 1)));
    }
    return ~crc;
}

// The start of a PNG whose header (with a correct checksum) claims width by height.
QByteArray pngHeader(quint32 width, quint32 height)
{
    QByteArray chunk = "IHDR";
    QDataStream(&chunk, QIODevice::Append)
        << width << height << quint8(8) << quint8(6) << quint16(0) << quint8(0);
    QByteArray png = hex("89504e470d0a1a0a 0000000d") + chunk;
    QDataStream(&png, QIODevice::Append) << crc32(chunk);
    return png + hex("00001000 49444154 78");
}

QImage imageOf(int width, int height, const QList<QRgb>& pixels)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int i = 0; i < pixels.size(); ++i)
        image.setPixel(i % width, i / width, pixels.at(i));
    return image;
}

// 2 by 3, with a see-through colour and the raw transparent 19 that must survive.
QImage imageA()
{
    return imageOf(2, 3, {0xff102030, 0x80c86432, 0x00000013, 0x01020304, 0xfffefdfc, 0x7f000000});
}

QImage imageB()
{
    return imageOf(1, 1, {0x00000013});
}

QImage imageC()
{
    return imageOf(1, 1, {0xffff0000});
}

// Two elements: the first visible, with an accented name, a negative position, a
// null image at a non-zero position; the second hidden, nameless source.
Character sample()
{
    Character character(Character::XP, QSize(128, 192));
    character.resetElements(2);
    character.setElementName(0, "El\xe9ment 1");
    character.setElementSource(0, "elements/XP/corps.png");
    character.setVisible(0, true);
    character.setCellImage(0, 0, imageA());
    character.setCellPosition(0, 0, QPoint(-3, -4));
    character.setCellImage(0, 1, imageB());
    character.setCellPosition(0, 1, QPoint(5, 7));
    character.setCellPosition(0, 15, QPoint(300, -200));
    character.setElementName(1, "Calque");
    character.setCellImage(1, 15, imageC());
    character.setCellPosition(1, 15, QPoint(31, 47));
    character.setFillPixel(0x12345678);
    character.setZoom(2.5);
    character.setShowGrid(false);
    character.setOverflowCells(true);
    character.setSelectionOnly(true);
    return character;
}

QByteArray written(const Character& character, quint8 version)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!CharacterFile::write(character, &buffer, version))
        return "write failed";
    return buffer.data();
}

bool readBytes(Character& character, const QByteArray& bytes, quint8* version = nullptr)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return CharacterFile::read(character, &buffer, QStringLiteral("dossier/é.zk"), version);
}

QByteArray versionZeroSample()
{
    QByteArray bytes = hex("00 00 02  8000 c000  00 01 01  0000000000000440");
    bytes += "elements/XP/corps.png\n\n";
    bytes += "El\xe9ment 1\nCalque\n";
    bytes += hex("01 00");
    bytes += hex("fdff fcff  0500 0700") + QByteArray(13 * 4, '\0') + hex("2c01 38ff");
    bytes += QByteArray(15 * 4, '\0') + hex("1f00 2f00");
    // Pixels column by column, each red, green, blue, alpha.
    bytes += hex("0200 0300  102030ff 00001300 fefdfcff  c8643280 02030401 0000007f");
    bytes += hex("0100 0100  00001300");
    bytes += QByteArray(14 * 4 + 15 * 4, '\0');
    bytes += hex("0100 0100  ff0000ff");
    return bytes;
}

QByteArray versionOnePrefix()
{
    QByteArray bytes = hex("01 00 02  00000080 000000c0  12345678");
    bytes += utf16("elements/XP/corps.png") + hex("00000000");
    bytes += hex("00000012 0045 006c 00e9 006d 0065 006e 0074 0020 0031");
    bytes += hex("0000000c 0043 0061 006c 0071 0075 0065");
    bytes += hex("01 00");
    bytes += hex("fffffffd fffffffc  00000005 00000007") + QByteArray(13 * 8, '\0');
    bytes += hex("0000012c ffffff38") + QByteArray(15 * 8, '\0') + hex("0000001f 0000002f");
    return bytes;
}

void compareElements(const Character& actual, const Character& expected)
{
    QCOMPARE(actual.kind(), expected.kind());
    QCOMPARE(actual.sheetSize(), expected.sheetSize());
    QCOMPARE(actual.elementNames(), expected.elementNames());
    QCOMPARE(actual.elementSources(), expected.elementSources());
    QCOMPARE(actual.elementVisibility(), expected.elementVisibility());
    QCOMPARE(actual.cellPositions(), expected.cellPositions());
    for (int e = 0; e < expected.elementCount(); ++e) {
        for (int c = 0; c < expected.cellCount(); ++c) {
            const QImage& image = actual.cellImage(e, c);
            if (!image.isNull())
                QCOMPARE(image.format(), QImage::Format_ARGB32);
            ZK_COMPARE_IMAGES(image, expected.cellImage(e, c));
        }
    }
}

} // namespace

class TestCharacterFile : public QObject
{
    Q_OBJECT

private slots:
    void versionZeroBytes();
    void versionOneBytes();
    void zeroElements_data();
    void zeroElements();
    void roundTrip_data();
    void roundTrip();
    void damaged_data();
    void damaged();
    void sheetSizeLimits_data();
    void sheetSizeLimits();
    void versionZeroCutAnywhere();
    void versionZeroOddBlocks();
    void files();
    void failedWrite();
};

void TestCharacterFile::versionZeroBytes()
{
    Character character = sample();
    QCOMPARE(written(character, 0), versionZeroSample());

    // The path form writes the same bytes through its save file, and reads them back.
    QTemporaryDir dir;
    const QString path = dir.path() + QStringLiteral("/personnage é.zk");
    QVERIFY(character.saveCharacter(path, 0));
    QCOMPARE(fileContents(path), versionZeroSample());
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

void TestCharacterFile::versionOneBytes()
{
    const QByteArray bytes = written(sample(), 1);
    const QByteArray prefix = versionOnePrefix();
    QCOMPARE(bytes.left(prefix.size()), prefix);

    // The images: markers in cell order, each PNG decoded pixel for pixel, at 3780
    // dots per metre and without colour space chunks so that output never varies.
    const QList<QImage> expected = {imageA(), imageB(), imageC()};
    const QList<int> filled = {0, 1, 31};
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    buffer.seek(prefix.size());
    QDataStream in(&buffer);
    int found = 0;
    for (int cell = 0; cell < 32; ++cell) {
        qint32 marker = -1;
        in >> marker;
        QCOMPARE(marker, qint32(filled.contains(cell) ? 1 : 0));
        if (marker == 0)
            continue;
        const qint64 start = buffer.pos();
        const qint64 end = bytes.indexOf("IEND", start) + 8;
        const QByteArray png = bytes.mid(start, end - start);
        QVERIFY(png.contains(hex("70485973 00000ec4 00000ec4 01")));
        QVERIFY(!png.contains("iCCP") && !png.contains("sRGB") && !png.contains("gAMA"));
        const QImage image = QImage::fromData(png, "png");
        QCOMPARE(image.format(), QImage::Format_ARGB32);
        ZK_COMPARE_IMAGES(image, expected.at(found++));
        buffer.seek(end);
    }
    QCOMPARE(buffer.pos(), qint64(bytes.size()));
}

void TestCharacterFile::zeroElements_data()
{
    QTest::addColumn<quint8>("version");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("version 0") << quint8(0) << 1
                               << hex("00 01 00  6000 8000  01 00 00 000000000000f03f");
    QTest::newRow("version 1") << quint8(1) << 1 << hex("01 01 00  00000060 00000080  00000013");
    QTest::newRow("version 7 writes its header only") << quint8(7) << 0 << hex("07 00 00");
}

void TestCharacterFile::zeroElements()
{
    QFETCH(quint8, version);
    QFETCH(int, kind);
    QFETCH(QByteArray, bytes);
    const Character character(kind, QSize(0, 0));
    QCOMPARE(written(character, version), bytes);
    if (version > 1)
        return;
    Character read(Character::XP, QSize(1, 1));
    quint8 readVersion = 99;
    QVERIFY(readBytes(read, bytes, &readVersion));
    QCOMPARE(readVersion, version);
    QCOMPARE(read.kind(), kind);
    QCOMPARE(read.sheetSize(), QSize(96, 128));
    QCOMPARE(read.elementCount(), 0);
}

void TestCharacterFile::roundTrip_data()
{
    QTest::addColumn<quint8>("version");
    QTest::newRow("version 0") << quint8(0);
    QTest::newRow("version 1") << quint8(1);
}

void TestCharacterFile::roundTrip()
{
    QFETCH(quint8, version);
    Character original = sample();
    original.setElementName(1, "\xff\x80 \xe0 la ligne");
    const QByteArray bytes = written(original, version);

    // The reader starts from a character whose view fields differ from the file's.
    Character read(Character::VX, QSize(5, 5));
    read.setZoom(3.0);
    read.setFillPixel(77);
    QVERIFY(readBytes(read, bytes));
    compareElements(read, original);
    if (QTest::currentTestFailed())
        return;
    // Each version keeps what the other loses, and leaves the rest as it found it.
    const bool old = version == 0;
    QCOMPARE(read.fillPixel(), old ? 77 : original.fillPixel());
    QCOMPARE(read.zoom(), old ? original.zoom() : 3.0);
    QCOMPARE(read.showGrid(), old ? original.showGrid() : true);
    QCOMPARE(read.overflowCells(), old ? original.overflowCells() : false);
    QCOMPARE(read.selectionOnly(), old ? original.selectionOnly() : false);
    QCOMPARE(written(read, version), bytes);

    // A kind byte of 2 or more is kept as it stands and counts 12 cells.
    Character other(2, QSize(60, 40));
    other.resetElements(1);
    other.setCellImage(0, 11, imageC());
    other.setCellPosition(0, 11, QPoint(-1, 2));
    const QByteArray otherBytes = written(other, version);
    QCOMPARE(otherBytes.left(3), QByteArray(1, char(version)) + hex("02 01"));
    QVERIFY(readBytes(read, otherBytes));
    QCOMPARE(read.cellImages().at(0).size(), 12);
    compareElements(read, other);
}

void TestCharacterFile::damaged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    const QString newer =
        QStringLiteral("dossier/é.zk a été enregistré avec une version de Zenkora plus récente.");
    const QString broken =
        QStringLiteral("dossier/é.zk est endommagé.<br />Il est impossible de l'ouvrir.");
    const QByteArray good = written(sample(), 1);
    const qint64 firstPng = good.indexOf("\x89PNG");
    const QByteArray header = hex("01 00 01  00000020 00000020  00000013");
    const QByteArray oneElement =
        hex("01 01 01  00000020 00000020  00000013  00000000 00000000 01") +
        QByteArray(12 * 8, '\0') + hex("00000001");

    QTest::newRow("version 2") << hex("02 00 01 ffff") << newer;
    QTest::newRow("version 255, nothing else") << hex("ff") << newer;
    QTest::newRow("version 1 cut in its images") << good.left(firstPng + 40) << broken;
    QTest::newRow("version 1 cut in the null images' markers")
        << oneElement.left(oneElement.size() - 4) + QByteArray(10 * 4 + 2, '\0') << broken;
    QTest::newRow("version 1 cut in a string") << good.left(31) << broken;
    QTest::newRow("version 1 string of odd length") << header + hex("00000003 0041 00") << broken;
    QTest::newRow("version 1 string longer than the file")
        << header + hex("7ffffffe 0041") << broken;
    QTest::newRow("version 1 image that is no PNG")
        << oneElement + QByteArray("this is no png at all") << broken;
    // Beyond the image reader's allocation limit: refused before any allocation.
    QTest::newRow("version 1 PNG of 30000 by 30000")
        << oneElement + pngHeader(30000, 30000) << broken;
    QTest::newRow("empty file") << QByteArray() << broken;
}

void TestCharacterFile::damaged()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    Character character;
    QVERIFY(!readBytes(character, bytes));
    QCOMPARE(character.errorText(), message);
}

void TestCharacterFile::sheetSizeLimits_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("readable");
    QTest::newRow("1 by 1") << 1 << 1 << true;
    QTest::newRow("16384 by 16384") << 16384 << 16384 << true;
    QTest::newRow("16385 wide") << 16385 << 8 << false;
    QTest::newRow("16385 high") << 8 << 16385 << false;
    QTest::newRow("zero wide") << 0 << 8 << false;
    QTest::newRow("negative height") << 8 << -1 << false;
}

void TestCharacterFile::sheetSizeLimits()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(bool, readable);
    for (quint8 version : {quint8(0), quint8(1)}) {
        Character character;
        character.setSheetSize(QSize(width, height));
        Character read;
        QCOMPARE(readBytes(read, written(character, version)), readable);
        if (readable)
            QCOMPARE(read.sheetSize(), QSize(width, height));
        else
            QCOMPARE(
                read.errorText(),
                QStringLiteral("dossier/é.zk est endommagé.<br />Il est impossible de l'ouvrir."));
    }
}

// A cut old file loads without error wherever it is cut (after its sheet size), the
// missing bytes reading as zero: fields before the cut keep their values.
void TestCharacterFile::versionZeroCutAnywhere()
{
    const Character original = sample();
    const QByteArray bytes = versionZeroSample();
    for (int length = 7; length < bytes.size(); ++length) {
        Character read;
        QVERIFY2(readBytes(read, bytes.left(length)), qPrintable(QString::number(length)));
        QCOMPARE(read.elementCount(), 2);
        QCOMPARE(read.sheetSize(), QSize(128, 192));
    }
    // Cut in the first image's pixels: that image and all after it are null, the
    // positions all read.
    Character read;
    const int pixels = bytes.indexOf(hex("0200 0300 102030ff")) + 4 + 10;
    QVERIFY(readBytes(read, bytes.left(pixels)));
    QCOMPARE(read.cellPositions(), original.cellPositions());
    for (const QList<QImage>& images : read.cellImages()) {
        for (const QImage& image : images)
            QVERIFY(image.isNull());
    }
}

void TestCharacterFile::versionZeroOddBlocks()
{
    const QByteArray head = hex("00 01 01  6000 8000  01 00 00 000000000000f03f") + "src\nnom\n" +
                            hex("01") + QByteArray(12 * 4, '\0');
    // A file of under 100 bytes whose first cell claims 30000 by 30000 pixels: checked
    // against the bytes left, so nothing is allocated, and the cell is null.
    QByteArray huge = head + hex("3075 3075") + QByteArray(20, '\x7f');
    QVERIFY(huge.size() < 100);
    Character character;
    QVERIFY(readBytes(character, huge));
    QVERIFY(character.cellImage(0, 0).isNull());

    // A negative size reads no pixels: the next cell's header follows at once.
    const QByteArray negative = head + hex("feff 0300") + hex("0100 0100 01020304");
    QVERIFY(readBytes(character, negative));
    QVERIFY(character.cellImage(0, 0).isNull());
    ZK_COMPARE_IMAGES(character.cellImage(0, 1), imageOf(1, 1, {0x04010203}));

    // A string without its line feed ends at the end of the file.
    QVERIFY(readBytes(character, hex("00 01 01  6000 8000  01 00 00 000000000000f03f") + "src"));
    QCOMPARE(character.elementSource(0), QByteArray("src"));
    QCOMPARE(character.elementName(0), QByteArray());

    // Zoom values the view cannot show come back within its range.
    QVERIFY(readBytes(character, hex("00 00 00  6000 8000  01 00 00 000000000000f87f")));
    QCOMPARE(character.zoom(), 1.0);
    QVERIFY(readBytes(character, hex("00 00 00  6000 8000  01 00 00 0000000000005940")));
    QCOMPARE(character.zoom(), 16.0);
}

void TestCharacterFile::files()
{
    QTemporaryDir dir;
    // A name outside Latin-1 saves, opens, and shows whole in messages.
    const QString path = dir.path() + QStringLiteral("/キャラ é.zk");
    Character character = sample();
    QVERIFY(character.saveCharacter(path, 1));
    Character read;
    quint8 version = 0;
    QVERIFY(read.loadCharacter(path, &version));
    QCOMPARE(version, quint8(1));
    compareElements(read, character);

    const QString missing = dir.path() + QStringLiteral("/absent/キャラ.zk");
    QVERIFY(!read.loadCharacter(missing));
    QCOMPARE(read.errorText(),
             QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />") + missing + QLatin1Char('.'));
    QVERIFY(!character.saveCharacter(missing, 1));
    QCOMPARE(character.errorText(),
             QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />") + missing + QLatin1Char('.'));
    QVERIFY(!QFileInfo::exists(dir.path() + QStringLiteral("/absent")));
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("キャラ é.zk")));

    QVERIFY(!read.loadCharacter(dir.path()));
    QCOMPARE(read.errorText(), QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />") +
                                   dir.path() + QLatin1Char('.'));
}

// A write that fails part way (a full disk) is reported, whatever the part.
void TestCharacterFile::failedWrite()
{
    const Character character = sample();
    for (int version = 0; version < 2; ++version) {
        const qint64 size = written(character, quint8(version)).size();
        for (qint64 room : {qint64(0), qint64(2), qint64(20), size / 2, size - 1}) {
            FullDevice device(room);
            QVERIFY2(!CharacterFile::write(character, &device, quint8(version)),
                     qPrintable(QStringLiteral("version %1, room %2").arg(version).arg(room)));
        }
        FullDevice enough(size);
        QVERIFY(CharacterFile::write(character, &enough, quint8(version)));
    }
}

QTEST_GUILESS_MAIN(TestCharacterFile)
#include "tst_characterfile.moc"
