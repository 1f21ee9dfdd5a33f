// The element library that ships with the program: every committed sheet is usable
// as it stands, the generator redraws it byte for byte, and one element of each
// category stacks into one dressed figure.
#include "document/character.h"
#include "testfiles.h"
#include "toolrunner.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString LibraryDir = QStringLiteral(ZENKORA_SOURCE_DIR "/elements");

// Categories in stacking order, bottom to top, with their number of elements.
const QList<QPair<QString, int>> Categories = {
    {QStringLiteral("Corps"), 2},   {QStringLiteral("Chaussures"), 2},
    {QStringLiteral("Bas"), 3},     {QStringLiteral("Hauts"), 4},
    {QStringLiteral("Cheveux"), 4}, {QStringLiteral("Accessoires"), 2}};

// Relative paths of the PNG files under a folder, sorted.
QStringList pngFiles(const QString& root)
{
    QStringList files;
    QDirIterator it(root, {QStringLiteral("*.png")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << QDir(root).relativeFilePath(it.next());
    files.sort();
    return files;
}

QStringList elementsOf(const QString& kindFolder, const QString& category)
{
    return QDir(LibraryDir + u'/' + kindFolder + u'/' + category)
        .entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
}

QImage loadSheet(const QString& path)
{
    return QImage(path).convertToFormat(QImage::Format_ARGB32);
}

QRect frameRect(int kind, int cell)
{
    const int columns = Character::columnCountOf(kind);
    const QSize size = Character::defaultSheetSize(kind);
    const int width = size.width() / columns;
    const int height = size.height() / 4;
    return QRect(cell % columns * width, cell / columns * height, width, height);
}

// The opaque box of a frame and whether a pixel of it is opaque.
QRect opaqueBox(const QImage& sheet, const QRect& frame)
{
    QRect box;
    for (int y = frame.top(); y <= frame.bottom(); ++y) {
        for (int x = frame.left(); x <= frame.right(); ++x) {
            if (qAlpha(sheet.pixel(x, y)) != 0)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

} // namespace

class TestStarterLibrary : public QObject
{
    Q_OBJECT

private slots:
    void layout();
    void sheet_data();
    void sheet();
    void regeneration();
    void stacking_data();
    void stacking();
};

void TestStarterLibrary::layout()
{
    QVERIFY(QFileInfo(LibraryDir + QStringLiteral("/LICENCE.txt")).isFile());
    for (const QString& kind : {QStringLiteral("XP"), QStringLiteral("VX")}) {
        const QStringList categories =
            QDir(LibraryDir + u'/' + kind).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        QCOMPARE(categories.size(), Categories.size());
        for (const auto& category : Categories)
            QCOMPARE(elementsOf(kind, category.first).size(), category.second);
    }
    // Both kinds offer the same elements under the same names.
    const QStringList xp = pngFiles(LibraryDir + QStringLiteral("/XP"));
    QCOMPARE(pngFiles(LibraryDir + QStringLiteral("/VX")), xp);
    QCOMPARE(xp.size(), 17);
}

void TestStarterLibrary::sheet_data()
{
    QTest::addColumn<QString>("file");
    for (const QString& file : pngFiles(LibraryDir))
        QTest::newRow(qPrintable(file)) << file;
}

void TestStarterLibrary::sheet()
{
    QFETCH(QString, file);
    const int kind = file.startsWith(QLatin1String("VX/")) ? Character::VX : Character::XP;
    const QImage image = loadSheet(LibraryDir + u'/' + file);
    // The kind's default sheet, so that it lands on a new document without a shift.
    QCOMPARE(image.size(), Character::defaultSheetSize(kind));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            QVERIFY2(
                qAlpha(pixel) == 0 || qAlpha(pixel) == 255,
                qPrintable(QStringLiteral("alpha %1 at %2,%3").arg(qAlpha(pixel)).arg(x).arg(y)));
            // RPG Maker 2003's key colour would vanish in a conversion.
            QVERIFY2(qAlpha(pixel) == 0 || (pixel & 0xffffff) != 0x209c00,
                     qPrintable(QStringLiteral("key colour at %1,%2").arg(x).arg(y)));
        }
    }
    const int columns = Character::columnCountOf(kind);
    for (int cell = 0; cell < Character::cellCountOf(kind); ++cell)
        QVERIFY2(!opaqueBox(image, frameRect(kind, cell)).isNull(),
                 qPrintable(QStringLiteral("frame %1 is empty").arg(cell)));
    // The right-facing row is the left-facing one mirrored, frame by frame.
    for (int column = 0; column < columns; ++column) {
        const QImage left = image.copy(frameRect(kind, columns + column));
        const QImage right = image.copy(frameRect(kind, 2 * columns + column));
        QVERIFY2(right == left.mirrored(true, false),
                 qPrintable(QStringLiteral("column %1").arg(column)));
    }
}

void TestStarterLibrary::regeneration()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString out = dir.filePath(QStringLiteral("elements"));
    QCOMPARE(
        runProgram(QStringLiteral(ZENKORA_ELEMENTGEN_PATH), {QStringLiteral("--elements"), out})
            .code,
        0);
    const QStringList files = pngFiles(out);
    QCOMPARE(files, pngFiles(LibraryDir));
    for (const QString& file : files)
        QVERIFY2(fileContents(out + u'/' + file) == fileContents(LibraryDir + u'/' + file),
                 qPrintable(file + QStringLiteral(" differs: run the target zenkora-elements")));
}

void TestStarterLibrary::stacking_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("choice");
    for (int kind : {Character::XP, Character::VX}) {
        for (int choice = 0; choice < 4; ++choice)
            QTest::addRow("%s, outfit %d", kind == Character::XP ? "XP" : "VX", choice)
                << kind << choice;
    }
}

// The choice-th element of each category (cycling through the shorter ones), stacked
// on a new document, saved, and composed by zenkora-tool.
void TestStarterLibrary::stacking()
{
    QFETCH(int, kind);
    QFETCH(int, choice);
    const QString kindFolder = kind == Character::XP ? QStringLiteral("XP") : QStringLiteral("VX");
    QList<QImage> layers;
    Character character(kind, QSize());
    for (const auto& category : Categories) {
        const QStringList names = elementsOf(kindFolder, category.first);
        QVERIFY(!names.isEmpty());
        const QString path = LibraryDir + u'/' + kindFolder + u'/' + category.first + u'/' +
                             names.at(choice % names.size());
        QVERIFY(character.addElement(path));
        layers << loadSheet(path);
    }
    QTemporaryDir dir;
    const QString zk = dir.filePath(QStringLiteral("tenue é.zk"));
    const QString png = dir.filePath(QStringLiteral("tenue é.png"));
    QVERIFY(character.saveCharacter(zk, 1));
    QCOMPARE(runTool({QStringLiteral("compose"), zk, png}).code, 0);
    const QImage sheet = loadSheet(png);
    QCOMPARE(sheet.size(), Character::defaultSheetSize(kind));

    const int margin = 4;
    const int baseline = kind == Character::XP ? 46 : 30;
    const QImage& body = layers.first();
    const QImage& shoes = layers.at(1);
    for (int cell = 0; cell < Character::cellCountOf(kind); ++cell) {
        const QRect frame = frameRect(kind, cell);
        const QRect bodyBox = opaqueBox(body, frame);
        const QRect allowed = bodyBox.adjusted(-margin, -margin, margin, margin);
        for (int layer = 1; layer < layers.size(); ++layer) {
            const QImage& garment = layers.at(layer);
            bool overlaps = false;
            for (int y = frame.top(); y <= frame.bottom(); ++y) {
                for (int x = frame.left(); x <= frame.right(); ++x) {
                    if (qAlpha(garment.pixel(x, y)) == 0)
                        continue;
                    overlaps = overlaps || qAlpha(body.pixel(x, y)) != 0;
                    QVERIFY2(allowed.contains(x, y),
                             qPrintable(QStringLiteral("%1 floats off the body at %2,%3")
                                            .arg(Categories.at(layer).first)
                                            .arg(x)
                                            .arg(y)));
                    // The top element shows unchanged: nothing moved it.
                    if (layer == layers.size() - 1)
                        QCOMPARE(sheet.pixel(x, y), garment.pixel(x, y));
                }
            }
            QVERIFY2(overlaps, qPrintable(QStringLiteral("%1 misses the body in frame %2")
                                              .arg(Categories.at(layer).first)
                                              .arg(cell)));
        }
        // The feet rows hold the shoes and nothing else.
        for (int row = baseline; row < baseline + 2; ++row) {
            const int y = frame.top() + row;
            int shoePixels = 0;
            for (int x = frame.left(); x <= frame.right(); ++x) {
                if (qAlpha(sheet.pixel(x, y)) == 0)
                    continue;
                QCOMPARE(sheet.pixel(x, y), shoes.pixel(x, y));
                ++shoePixels;
            }
            QVERIFY2(
                shoePixels > 0,
                qPrintable(QStringLiteral("no shoe in row %1 of frame %2").arg(row).arg(cell)));
        }
    }
}

QTEST_GUILESS_MAIN(TestStarterLibrary)
#include "tst_starterlibrary.moc"
