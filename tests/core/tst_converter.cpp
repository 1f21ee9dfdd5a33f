#include "batch/converter.h"
#include "batch/sheetcopier.h"
#include "formats/pngwriter.h"
#include "imagecompare.h"
#include "testfiles.h"

#include <QDir>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

// The sheet converter: the place of every cell in all six directions, the key colour
// and alpha rules, the shared sheet of single characters towards RPG Maker 2003, GIF
// sources, failures, the signals, and real charsets.
class TestConverter : public QObject
{
    Q_OBJECT

    // The engines' layouts: destination column or row i comes from entry i.
    static constexpr int ThreeToFour[4] = {1, 0, 1, 2};
    static constexpr int FourToThree[3] = {1, 0, 3};
    static constexpr int From2003Rows[4] = {2, 3, 1, 0};
    static constexpr int To2003Rows[4] = {3, 2, 0, 1};
    static constexpr QRgb Key = 0xff209c00;
    using CellRule = std::function<QString(int column, int row)>;

    TestFolders m_folders{u"Entr\u00e9e"_s};

    QString newFolder() { return m_folders.newFolder(); }

    static QString outputOf(const QString& folder, int direction)
    {
        const char* names[] = {"XP", "VX", "2K3", "VX", "2K3", "XP"};
        return folder + u'/' + QLatin1String(names[direction]) + u"_CONVERSIONS"_s;
    }

    // Every source cell says which character (block), column and row it is.
    static QRgb marker(int block, int column, int row)
    {
        return qRgb(40 + 40 * column, 40 + 40 * row, 40 + 20 * block);
    }

    static QImage marked(int across, int down, int columns, QSize cell, int firstBlock = 0)
    {
        QImage image(across * columns * cell.width(), down * 4 * cell.height(),
                     QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const int cx = x / cell.width();
                const int cy = y / cell.height();
                image.setPixel(
                    x, y,
                    marker(firstBlock + cy / 4 * across + cx / columns, cx % columns, cy % 4));
            }
        }
        return image;
    }

    // "2003single", "2003sheet", "xp", "vxsingle", "vxsheet"; "@n" numbers a single.
    static QImage layout(const QString& code)
    {
        const int block = code.section(u'@', 1).toInt();
        const QString kind = code.section(u'@', 0, 0);
        if (kind == "2003single"_L1)
            return marked(1, 1, 3, QSize(24, 32), block);
        if (kind == "2003sheet"_L1)
            return marked(4, 2, 3, QSize(24, 32));
        if (kind == "xp"_L1)
            return marked(1, 1, 4, QSize(32, 48), block);
        if (kind == "vxsingle"_L1)
            return marked(1, 1, 3, QSize(32, 32), block);
        return marked(4, 2, 3, QSize(32, 32));
    }

    static QString token(int block, int column, int row)
    {
        return u"%1:%2%3"_s.arg(block).arg(column).arg(row);
    }

    static QString token(QRgb pixel)
    {
        const int c = qRed(pixel) - 40, r = qGreen(pixel) - 40, b = qBlue(pixel) - 40;
        if (pixel == Key)
            return u"--"_s;
        if (qAlpha(pixel) != 255 || c < 0 || r < 0 || b < 0 || c % 40 || r % 40 || b % 20)
            return u"??"_s;
        return token(b / 20, c / 40, r / 40);
    }

    // A line for the file, then a line per row of cells ("??": not of one colour).
    static QStringList dump(const QString& path, int columns, int rows)
    {
        const QImage file(path);
        const QImage image = file.convertToFormat(QImage::Format_ARGB32);
        QStringList lines{
            u"%1 %2x%3%4"_s.arg(QFileInfo(path).fileName())
                .arg(image.width())
                .arg(image.height())
                .arg(file.format() == QImage::Format_Indexed8 ? u" indexed"_s : QString())};
        const int w = image.width() / columns, h = image.height() / rows;
        for (int row = 0; row < rows; ++row) {
            QStringList tokens;
            for (int column = 0; column < columns; ++column) {
                const QImage cell = image.copy(column * w, row * h, w, h);
                QImage plain = solidImage(cell.size(), cell.pixel(0, 0));
                tokens.append(cell == plain ? token(cell.pixel(0, 0)) : u"??"_s);
            }
            lines.append(tokens.join(u' '));
        }
        return lines;
    }

    // Every file of an output folder, by name, cut by the grid of its engine.
    static QStringList dumpFolder(const QString& folder, int direction)
    {
        QStringList lines;
        for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name)) {
            const bool toXP = direction == 0 || direction == 5;
            const bool singleVX = (direction == 1 || direction == 3) && name.startsWith(u'$');
            lines += dump(folder + u'/' + name,
                          toXP       ? 4
                          : singleVX ? 3
                                     : 12,
                          toXP || singleVX ? 4 : 8);
        }
        return lines;
    }

    static QStringList expected(const QString& head, int columns, int rows, const CellRule& cell)
    {
        QStringList lines{head};
        for (int row = 0; row < rows; ++row) {
            QStringList tokens;
            for (int column = 0; column < columns; ++column)
                tokens.append(cell(column, row));
            lines.append(tokens.join(u' '));
        }
        return lines;
    }

    // The 2003 sheet cell by cell: which block, and which of the block's cells.
    static CellRule sheet2003(const std::function<QString(int slot, int column, int row)>& block)
    {
        return [block](int c, int r) { return block(r / 4 * 4 + c / 3, c % 3, r % 4); };
    }

    static void run(const QStringList& paths, bool fileMode, int direction, int count = 0)
    {
        Converter(paths, fileMode, uchar(direction), nullptr, uchar(count)).run();
    }

    // A GIF of at most 255 colours, index 255 transparent, since Qt 6 has no GIF
    // writer. Codes are 9 bits wide, with a clear code every 100 so none grows wider.
    static QByteArray gifBytes(const QImage& image)
    {
        QList<QRgb> palette;
        QByteArray indexes;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = image.pixel(x, y);
                if (qAlpha(pixel) > 0 && !palette.contains(pixel))
                    palette.append(pixel);
                indexes.append(char(qAlpha(pixel) ? palette.indexOf(pixel) : 255));
            }
        }
        QByteArray out("GIF89a");
        const auto le16 = [&out](int v) { out.append(char(v & 0xff)).append(char(v >> 8)); };
        le16(image.width());
        le16(image.height());
        out.append("\xf7\0\0", 3);
        for (int i = 0; i < 256; ++i) {
            const QRgb c = palette.value(i);
            out.append(char(qRed(c))).append(char(qGreen(c))).append(char(qBlue(c)));
        }
        out.append("\x21\xf9\x04\x01\0\0\xff\0\x2c\0\0\0\0", 13);
        le16(image.width());
        le16(image.height());
        out.append("\0\x08", 2);
        QByteArray data;
        quint32 bits = 0;
        int count = 0;
        const auto put = [&](int code) {
            bits |= quint32(code) << count;
            for (count += 9; count >= 8; count -= 8, bits >>= 8)
                data.append(char(bits & 0xff));
        };
        for (int i = 0; i < indexes.size(); ++i) {
            if (i % 100 == 0)
                put(256);
            put(uchar(indexes.at(i)));
        }
        put(257);
        data.append(char(bits & 0xff));
        for (int i = 0; i < data.size(); i += 255)
            out.append(char(data.mid(i, 255).size())).append(data.mid(i, 255));
        return out.append("\0;", 2);
    }

private slots:
    void init()
    {
        // Reading outside an image warns once a pixel in Qt 6: the converter must not.
        QTest::failOnWarning(QRegularExpression(u".*"_s));
    }

    void cellsOfEveryDirection_data();
    void cellsOfEveryDirection();
    void pixelRules_data();
    void pixelRules();
    void outsideTheSourceAndUncovered();
    void singleCharactersFillSheets();
    void progressTowardsXPAndVX_data();
    void progressTowardsXPAndVX();
    void gifSourcesTowards2003();
    void failures();
    void runsOnItsThread();
    void realCharsets();
    void paletteSheetScaledAsLoaded();
};

void TestConverter::cellsOfEveryDirection_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("sources"); // name:layout
    QTest::addColumn<QStringList>("expected");
    const auto eight = [](const QString& stem, const QString& size, bool from2003) {
        QStringList lines;
        for (int k = 0; k < 8; ++k) {
            lines +=
                expected(u"%1_%2.png %3"_s.arg(stem).arg(k + 1).arg(size), 4, 4, [=](int c, int r) {
                    return token(k, ThreeToFour[c], from2003 ? From2003Rows[r] : r);
                });
        }
        return lines;
    };
    const CellRule singleTo2003 = sheet2003(
        [](int slot, int c, int r) { return slot == 0 ? token(0, c, To2003Rows[r]) : u"--"_s; });
    const CellRule wholeTo2003 =
        sheet2003([](int slot, int c, int r) { return token(slot, c, To2003Rows[r]); });
    const CellRule singleToXP = [](int c, int r) { return token(0, ThreeToFour[c], r); };

    QTest::newRow("2003 single to XP") << 0 << 0 << QStringList{u"Hero.png:2003single"_s}
                                       << expected(u"Hero.png 96x128"_s, 4, 4, [](int c, int r) {
                                              return token(0, ThreeToFour[c], From2003Rows[r]);
                                          });
    QTest::newRow("2003 sheet to XP")
        << 0 << 0 << QStringList{u"Town.png:2003sheet"_s} << eight(u"Town"_s, u"96x128"_s, true);
    QTest::newRow("2003 single to VX") << 1 << 0 << QStringList{u"Hero.png:2003single"_s}
                                       << expected(u"$Hero.png 72x128"_s, 3, 4, [](int c, int r) {
                                              return token(0, c, From2003Rows[r]);
                                          });
    QTest::newRow("2003 sheet to VX")
        << 1 << 0 << QStringList{u"Town.png:2003sheet"_s}
        << expected(u"Town.png 288x256"_s, 12, 8, sheet2003([](int slot, int c, int r) {
                        return token(slot, c, From2003Rows[r]);
                    }));
    QTest::newRow("XP to 2003") << 2 << 0 << QStringList{u"Xp.png:xp"_s}
                                << expected(u"Xp.png 288x256 indexed"_s, 12, 8,
                                            sheet2003([](int slot, int c, int r) {
                                                return slot == 0
                                                           ? token(0, FourToThree[c], To2003Rows[r])
                                                           : u"--"_s;
                                            }));
    QTest::newRow("XP to VX") << 3 << 0 << QStringList{u"Xp.png:xp"_s}
                              << expected(u"$Xp.png 96x192"_s, 3, 4,
                                          [](int c, int r) { return token(0, FourToThree[c], r); });
    QTest::newRow("VX single to 2003")
        << 4 << 0 << QStringList{u"$Vx.png:vxsingle"_s}
        << expected(u"$Vx.png 288x256 indexed"_s, 12, 8, singleTo2003);
    QTest::newRow("VX sheet to 2003") << 4 << 0 << QStringList{u"Vx8.png:vxsheet"_s}
                                      << expected(u"Vx8.png 288x256 indexed"_s, 12, 8, wholeTo2003);
    QTest::newRow("VX single to XP") << 5 << 0 << QStringList{u"$Vx.png:vxsingle"_s}
                                     << expected(u"$Vx.png 128x128"_s, 4, 4, singleToXP);
    QTest::newRow("VX sheet to XP")
        << 5 << 0 << QStringList{u"Vx8.png:vxsheet"_s} << eight(u"Vx8"_s, u"128x128"_s, false);
    QTest::newRow("count 1, no mark") << 5 << 1 << QStringList{u"Vx.png:vxsingle"_s}
                                      << expected(u"Vx.png 128x128"_s, 4, 4, singleToXP);
    QTest::newRow("count 2, a mark") << 4 << 2 << QStringList{u"$Vx8.png:vxsheet"_s}
                                     << expected(u"$Vx8.png 288x256 indexed"_s, 12, 8, wholeTo2003);
    QTest::newRow("mark in second place") << 5 << 0 << QStringList{u"a$Vx.png:vxsingle"_s}
                                          << expected(u"a$Vx.png 128x128"_s, 4, 4, singleToXP);
    QTest::newRow("mark in third place")
        << 5 << 0 << QStringList{u"ab$V.png:vxsheet"_s} << eight(u"ab$V"_s, u"128x128"_s, false);
    QStringList seven;
    for (int i = 0; i < 7; ++i)
        seven.append(u"%1.png:xp@%2"_s.arg(QChar(u'a' + i)).arg(i));
    QTest::newRow("seven XP files leave the eighth block to the key")
        << 2 << 0 << seven
        << expected(u"a.png 288x256 indexed"_s, 12, 8, sheet2003([](int slot, int c, int r) {
                        return slot < 7 ? token(slot, FourToThree[c], To2003Rows[r]) : u"--"_s;
                    }));
}

void TestConverter::cellsOfEveryDirection()
{
    QFETCH(int, direction);
    QFETCH(int, count);
    QFETCH(QStringList, sources);
    QFETCH(QStringList, expected);
    const QString folder = newFolder();
    for (const QString& source : sources) {
        QVERIFY(PngWriter::save(layout(source.section(u':', 1)),
                                folder + u'/' + source.section(u':', 0, 0)));
    }
    run({folder}, false, direction, count);
    QCOMPARE(dumpFolder(outputOf(folder, direction), direction), expected);
}

void TestConverter::pixelRules_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("sourceLayout");
    QTest::addColumn<QRect>("area"); // filled with the pixel in the source
    QTest::addColumn<QString>("output");
    QTest::addColumn<QRect>("target"); // where the area lands
    QTest::addColumn<uint>("pixel");
    QTest::addColumn<uint>("result");
    struct Layout
    {
        const char* label;
        int direction;
        const char* name;
        const char* layout;
        QRect area;
        const char* output;
        QRect target;
    };
    struct Pixel
    {
        const char* label;
        QRgb pixel;
        QRgb result;
    };
    const auto add = [](std::initializer_list<Layout> layouts,
                        std::initializer_list<Pixel> pixels) {
        for (const Layout& l : layouts) {
            for (const Pixel& p : pixels) {
                QTest::addRow("%s, %s", l.label, p.label)
                    << l.direction << QString::fromLatin1(l.name) << QString::fromLatin1(l.layout)
                    << l.area << QString::fromLatin1(l.output) << l.target << uint(p.pixel)
                    << uint(p.result);
            }
        }
    };
    // Towards 2003, without blending: alpha 0 gives the key, any other alpha the
    // pixel's own colour made opaque, but the key's own colour its lookalike.
    add({{"XP scaled", 2, "Xp.png", "xp", {32, 144, 32, 48}, "Xp.png", {0, 0, 24, 32}},
         {"VX single", 4, "$Vx.png", "2003single", {0, 96, 72, 32}, "$Vx.png", {0, 0, 72, 32}},
         {"VX sheet", 4, "Vx.png", "2003sheet", {0, 96, 288, 32}, "Vx.png", {0, 0, 288, 32}}},
        {{"opaque key", 0xff209c00, 0xff209c01},
         {"faint key", 0x07209c00, 0xff209c01},
         {"clear key", 0x00209c00, Key},
         {"clear colour", 0x00123456, Key},
         {"half", 0x80c86432, 0xffc86432},
         {"alpha 1", 0x01102030, 0xff102030},
         {"lookalike", 0xff209c01, 0xff209c01}});
    // Towards XP and VX every pixel arrives as it was, colour and alpha.
    add({{"2003 single to XP",
          0,
          "Hero.png",
          "2003single",
          {24, 64, 24, 32},
          "Hero.png",
          {0, 0, 24, 32}},
         {"2003 sheet to XP",
          0,
          "Town.png",
          "2003sheet",
          {96, 192, 24, 32},
          "Town_6.png",
          {0, 0, 24, 32}},
         {"2003 single to VX",
          1,
          "Hero.png",
          "2003single",
          {0, 64, 72, 32},
          "$Hero.png",
          {0, 0, 72, 32}},
         {"XP to VX", 3, "Xp.png", "xp", {32, 0, 32, 48}, "$Xp.png", {0, 0, 32, 48}},
         {"VX sheet to XP",
          5,
          "Vx8.png",
          "vxsheet",
          {224, 128, 32, 32},
          "Vx8_7.png",
          {0, 0, 32, 32}}},
        {{"half", 0x80c86432, 0x80c86432},
         {"clear colour", 0x00123456, 0x00123456},
         {"raw 19", 0x00000013, 0x00000013},
         {"alpha 1", 0x01102030, 0x01102030},
         {"key", 0xff209c00, 0xff209c00}});
}

void TestConverter::pixelRules()
{
    QFETCH(int, direction);
    QFETCH(QString, name);
    QFETCH(QString, sourceLayout);
    QFETCH(QRect, area);
    QFETCH(QString, output);
    QFETCH(QRect, target);
    QFETCH(uint, pixel);
    QFETCH(uint, result);
    const QString folder = newFolder();
    QImage source = layout(sourceLayout);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            source.setPixel(x, y, pixel);
    }
    QVERIFY(PngWriter::save(source, folder + u'/' + name));
    run({folder + u'/' + name}, true, direction);
    const QImage written(outputOf(folder, direction) + u'/' + output);
    QCOMPARE(written.format(),
             direction == 2 || direction == 4 ? QImage::Format_Indexed8 : QImage::Format_ARGB32);
    QImage expected = solidImage(target.size(), result);
    ZK_COMPARE_IMAGES(written.copy(target), expected);
}

void TestConverter::outsideTheSourceAndUncovered()
{
    const QString folder = newFolder();
    // A charset 72 wide but 100 high: rows below it read the toolkit's outside value.
    const QImage shortSheet = layout(u"2003single"_s).copy(0, 0, 72, 100);
    QImage tall = solidImage(QSize(128, 194), 0xff00ff00);
    tall.setPixel(5, 5, 0x40102030);
    QImage odd = solidImage(QSize(100, 80), 0x80112233);
    const struct
    {
        const char* name;
        QImage image;
        int direction;
    } sources[] = {{"Short.png", shortSheet, 0}, {"Tall.png", tall, 3}, {"Odd.png", odd, 5}};
    for (const auto& source : sources) {
        QVERIFY(PngWriter::save(source.image, folder + u'/' + QLatin1String(source.name)));
        run({folder + u'/' + QLatin1String(source.name)}, true, source.direction);
    }
    QImage shortExpected(96, 128, QImage::Format_ARGB32);
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 96; ++x) {
            const int sx = ThreeToFour[x / 24] * 24 + x % 24;
            const int sy = From2003Rows[y / 32] * 32 + y % 32;
            shortExpected.setPixel(x, y, sy < 100 ? shortSheet.pixel(sx, sy) : 12345);
        }
    }
    ZK_COMPARE_IMAGES(QImage(folder + u"/XP_CONVERSIONS/Short.png"_s), shortExpected);

    // Where no block lands, the white fill shows, opaque: below the last row of cells,
    // and right of four cells of 100 / 12 = 8.
    QImage tallExpected = solidImage(QSize(96, 194), 0xff00ff00);
    for (int x = 0; x < 96; ++x) {
        tallExpected.setPixel(x, 192, 0xffffffff);
        tallExpected.setPixel(x, 193, 0xffffffff);
    }
    tallExpected.setPixel(37, 5, 0x40102030); // source column 0 is column 1 in VX
    ZK_COMPARE_IMAGES(QImage(folder + u"/VX_CONVERSIONS/$Tall.png"_s), tallExpected);
    QImage oddExpected = solidImage(QSize(33, 40), 0x80112233);
    for (int y = 0; y < 40; ++y)
        oddExpected.setPixel(32, y, 0xffffffff);
    ZK_COMPARE_IMAGES(QImage(folder + u"/XP_CONVERSIONS/Odd_8.png"_s), oddExpected);
}

void TestConverter::singleCharactersFillSheets()
{
    // Ten single VX characters, a whole sheet among them, in the order given.
    const QString folder = newFolder();
    QStringList paths;
    for (int i = 0; i < 10; ++i) {
        paths.append(folder + u"/$c%1.png"_s.arg(i));
        QVERIFY(PngWriter::save(layout(u"vxsingle@%1"_s.arg(i)), paths.last()));
        if (i == 3) {
            paths.append(folder + u"/Whole.png"_s);
            QVERIFY(PngWriter::save(layout(u"vxsheet"_s), paths.last()));
        }
    }
    Converter converter(paths, true, 4, nullptr, 0);
    QStringList signalsSeen;
    connect(&converter, &Converter::changeProgress, this, [&](uint value, const QString& info) {
        signalsSeen.append(QString::number(value) + u' ' + info);
    });
    connect(&converter, &Converter::finishThread, this,
            [&](const QStringList& failed, const QString& folder) {
                signalsSeen.append(u"finish "_s + failed.join(u',') + folder);
            });
    converter.run();

    // The first eight fill a sheet named after the first; the ninth starts another at
    // the lower left, and the tenth goes on at the second block. The whole sheet
    // stands alone and doesn't disturb them.
    const auto on = [](int block) {
        return [block](int c, int r) { return token(block, c, To2003Rows[r]); };
    };
    QCOMPARE(
        dumpFolder(outputOf(folder, 4), 4),
        expected(u"$c0.png 288x256 indexed"_s, 12, 8,
                 sheet2003([](int slot, int c, int r) { return token(slot, c, To2003Rows[r]); })) +
            expected(u"$c8.png 288x256 indexed"_s, 12, 8, sheet2003([on](int slot, int c, int r) {
                         return slot == 4 ? on(8)(c, r) : slot == 1 ? on(9)(c, r) : u"--"_s;
                     })) +
            expected(u"Whole.png 288x256 indexed"_s, 12, 8, sheet2003([](int slot, int c, int r) {
                         return token(slot, c, To2003Rows[r]);
                     })));

    QStringList expectedSignals;
    for (int i = 0; i < 11; ++i)
        expectedSignals.append(QString::number(i * 80 / 11) + u" Conversion de : "_s + paths.at(i));
    for (int value : {80, 86, 93})
        expectedSignals.append(QString::number(value) +
                               u" Changement de la profondeur des couleurs..."_s);
    expectedSignals.append(u"finish "_s + outputOf(folder, 4));
    QCOMPARE(signalsSeen, expectedSignals);
    // A run that reaches its end leaves a clean state for the next.
    QCOMPARE(int(Converter::sheetState().slot), 0);
    QCOMPARE(int(Converter::sheetState().lastDirection), 6);
    QVERIFY(Converter::sheetState().lastSheetPath.isEmpty());
}

void TestConverter::progressTowardsXPAndVX_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<QString>("source");
    QTest::newRow("2003 to XP") << 0 << u"2003single"_s;
    QTest::newRow("2003 to VX") << 1 << u"2003single"_s;
    QTest::newRow("XP to VX") << 3 << u"xp"_s;
    QTest::newRow("VX to XP") << 5 << u"vxsingle"_s;
}

// Towards XP and VX the files take the whole bar: no colour depth step follows them.
void TestConverter::progressTowardsXPAndVX()
{
    QFETCH(int, direction);
    QFETCH(QString, source);
    const QString folder = newFolder();
    QStringList paths;
    for (const char* name : {"/a.png", "/b.png", "/c.png"}) {
        paths.append(folder + QLatin1String(name));
        QVERIFY(PngWriter::save(layout(source), paths.last()));
    }
    Converter converter(paths, true, uchar(direction), nullptr, 0);
    QSignalSpy progress(&converter, &Converter::changeProgress);
    QSignalSpy finished(&converter, &Converter::finishThread);
    converter.run();
    QStringList seen;
    for (const QList<QVariant>& arguments : std::as_const(progress))
        seen.append(arguments.at(0).toString() + u' ' + arguments.at(1).toString());
    QCOMPARE(seen, (QStringList{u"0 Conversion de : "_s + paths.at(0),
                                u"33 Conversion de : "_s + paths.at(1),
                                u"66 Conversion de : "_s + paths.at(2)}));
    QCOMPARE(finished.size(), 1);
}

void TestConverter::gifSourcesTowards2003()
{
    // A GIF, a PNG named ".gif" and a PNG, by name, share a sheet named after the
    // GIF. It holds PNG data, which the colour depth step can't rewrite as GIF and
    // must leave in place. A JPEG isn't listed.
    const QString folder = newFolder();
    QImage gif = layout(u"xp@0"_s);
    gif.setPixel(40, 150, 0); // transparent, in the cell that lands at the sheet's corner
    QVERIFY(writeFile(folder + u"/a.gif"_s, gifBytes(gif)));
    QVERIFY(PngWriter::save(layout(u"xp@1"_s), folder + u"/b.gif"_s));
    QVERIFY(PngWriter::save(layout(u"xp@2"_s), folder + u"/c.png"_s));
    QVERIFY(QImage(layout(u"xp@3"_s)).save(folder + u"/d.jpg"_s));
    run({folder}, false, 2);

    const QString sheetPath = outputOf(folder, 2) + u"/a.gif"_s;
    QCOMPARE(QDir(outputOf(folder, 2)).entryList(QDir::Files), QStringList{u"a.gif"_s});
    const QImage sheet(sheetPath);
    QCOMPARE(fileContents(sheetPath), pngBytes(sheet));
    QCOMPARE(sheet.format(), QImage::Format_RGB32);
    QStringList expectedSheet =
        expected(u"a.gif 288x256"_s, 12, 8, sheet2003([](int slot, int c, int r) {
                     return slot < 3 ? token(slot, FourToThree[c], To2003Rows[r]) : u"--"_s;
                 }));
    expectedSheet[1].replace(0, 4, u"??"_s);
    QCOMPARE(dump(sheetPath, 12, 8), expectedSheet);
    QCOMPARE(sheet.pixel(6, 4), Key); // (40 - 32) * 3 / 4, (150 - 144) * 2 / 3
}

void TestConverter::failures()
{
    const QString folder = newFolder();
    const QString missing = folder + u"/nowhere"_s;
    // A sheet under way, which a fatal error leaves as it is.
    Converter direct({}, true, 4, nullptr, 0);
    QVERIFY(PngWriter::save(layout(u"vxsingle"_s), folder + u"/$one.png"_s));
    QVERIFY(direct.convertFile(folder + u"/$one.png"_s, 4));
    for (const QStringList& paths : {QStringList{missing}, QStringList{missing + u"/a.png"_s}}) {
        Converter converter(paths, paths.first().endsWith(".png"_L1), 0, nullptr, 0);
        QSignalSpy fatal(&converter, &Converter::fatalError);
        QSignalSpy progress(&converter, &Converter::changeProgress);
        QSignalSpy finished(&converter, &Converter::finishThread);
        converter.run();
        QCOMPARE(fatal.size(), 1);
        QCOMPARE(fatal.at(0).at(0).toString(),
                 u"Impossible d'ouvrir le dossier : "_s + paths.first());
        QCOMPARE(progress.size() + finished.size(), 0);
    }
    QCOMPARE(int(Converter::sheetState().slot), 1);
    QCOMPARE(Converter::sheetState().lastSheetPath, outputOf(folder, 4) + u"/$one.png"_s);
    QVERIFY(direct.convertFile(QString(), 6));
    QCOMPARE(int(Converter::sheetState().slot), 0);

    // An empty folder: no progress, and the output folder made all the same.
    const QString empty = newFolder();
    Converter emptyRun({empty}, false, 5, nullptr, 0);
    QSignalSpy emptyProgress(&emptyRun, &Converter::changeProgress);
    QSignalSpy emptyFinished(&emptyRun, &Converter::finishThread);
    emptyRun.run();
    QCOMPARE(emptyProgress.size(), 0);
    QCOMPARE(emptyFinished.at(0), (QList<QVariant>{QStringList(), empty + u"/XP_CONVERSIONS"_s}));
    QVERIFY(QDir(empty + u"/XP_CONVERSIONS"_s).exists());

    // Files that can't be read are listed, and take no block of the sheet.
    const QString junk = folder + u"/$b.png"_s;
    QVERIFY(writeFile(junk, "\x89PNG, and nothing more"));
    QVERIFY(PngWriter::save(layout(u"vxsingle@1"_s), folder + u"/$c.png"_s));
    const QStringList paths{folder + u"/$one.png"_s, junk, folder + u"/gone.png"_s,
                            folder + u"/$c.png"_s};
    Converter converter(paths, true, 4, nullptr, 0);
    QSignalSpy finished(&converter, &Converter::finishThread);
    converter.run();
    QCOMPARE(finished.at(0).at(0).toStringList(), (QStringList{paths.at(1), paths.at(2)}));
    QCOMPARE(dumpFolder(outputOf(folder, 4), 4),
             expected(u"$one.png 288x256 indexed"_s, 12, 8, sheet2003([](int slot, int c, int r) {
                          return slot < 2 ? token(slot, c, To2003Rows[r]) : u"--"_s;
                      })));
}

void TestConverter::runsOnItsThread()
{
    const QString folder = newFolder();
    QVERIFY(PngWriter::save(layout(u"xp"_s), folder + u"/Xp.png"_s));
    QObject owner;
    auto* converter = new Converter({folder}, false, 3, &owner, 0);
    QThread* receiver = nullptr;
    connect(converter, &Converter::finishThread, this,
            [&](const QStringList&, const QString&) { receiver = QThread::currentThread(); });
    QSignalSpy ended(converter, &QThread::finished);
    converter->start(QThread::InheritPriority);
    QVERIFY(ended.wait(20000) && converter->wait(20000));
    QTRY_COMPARE(receiver, QThread::currentThread()); // queued across the thread border
    QVERIFY(QFile::exists(folder + u"/VX_CONVERSIONS/$Xp.png"_s));
    delete converter; // only after finished: deleting a running thread aborts
}

void TestConverter::realCharsets()
{
    // RPG Maker 2003 charsets, paletted with a key colour, towards XP: each cell of
    // the eight outputs is the source's, pixel for pixel.
    const QString folder = newFolder();
    const QDir corpus(QStringLiteral(ZENKORA_CORPUS_DIR "/rm2003_charset"));
    const QStringList names = corpus.entryList({u"*.png"_s}, QDir::Files, QDir::Name);
    QCOMPARE(names.size(), 5);
    for (const QString& name : names)
        QVERIFY(QFile::copy(corpus.filePath(name), folder + u'/' + name));
    run({folder}, false, 0);
    for (const QString& name : names) {
        const QImage source = QImage(corpus.filePath(name)).convertToFormat(QImage::Format_ARGB32);
        for (int k = 0; k < 8; ++k) {
            const QImage xp(folder + u"/XP_CONVERSIONS/"_s + QFileInfo(name).baseName() +
                            u"_%1.png"_s.arg(k + 1));
            QCOMPARE(xp.size(), QSize(96, 128));
            for (int cell = 0; cell < 16; ++cell) {
                const QPoint from((k & 3) * 72 + ThreeToFour[cell % 4] * 24,
                                  k / 4 * 128 + From2003Rows[cell / 4] * 32);
                ZK_COMPARE_IMAGES(xp.copy(cell % 4 * 24, cell / 4 * 32, 24, 32),
                                  source.copy(QRect(from, QSize(24, 32))));
            }
        }
    }
}

void TestConverter::paletteSheetScaledAsLoaded()
{
    // A paletted VX sheet of 576x384 towards 2003 is scaled to 288x256 by the rule of
    // its own format, which takes the odd columns where 32-bit images take the even.
    const QString folder = newFolder();
    const QString name = u"!VeCommuterTrainDoor17.png"_s;
    const QString source = QStringLiteral(ZENKORA_CORPUS_DIR "/vx_8char/") + name;
    QVERIFY(QFile::copy(source, folder + u'/' + name));
    run({folder}, false, 4);
    const QImage loaded(source);
    QCOMPARE(loaded.format(), QImage::Format_Indexed8);
    const QImage scaled = loaded.scaled(288, 256, Qt::IgnoreAspectRatio, Qt::FastTransformation)
                              .convertToFormat(QImage::Format_ARGB32);
    const QImage sheet(folder + u"/2K3_CONVERSIONS/!VeCommuterTrainDoor17.png"_s);
    QCOMPARE(sheet.size(), QSize(288, 256));
    QCOMPARE(sheet.pixel(2, 8), qRgb(192, 192, 192));
    for (int y = 0; y < 256; ++y) {
        const int row = y / 128 * 4 + SheetCopier::RowsTo2003[y % 128 / 32];
        for (int x = 0; x < 288; ++x) {
            const QRgb expected = SheetCopier::keyed(scaled.pixel(x, row * 32 + y % 32));
            QVERIFY2(sheet.pixel(x, y) == expected, qPrintable(u"(%1, %2)"_s.arg(x).arg(y)));
        }
    }
}

QTEST_GUILESS_MAIN(TestConverter)
#include "tst_converter.moc"
