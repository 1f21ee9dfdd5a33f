// The key colours of an image brought into the library: exact pixels on small images,
// and on real sheets whose ground is picked as a click picks it.
#include "formats/pngwriter.h"
#include "imagecompare.h"
#include "imaging/keycolours.h"
#include "testfiles.h"

#include <QTest>

namespace {

const QColor none = Qt::transparent;

QColor picked(QRgb rgba)
{
    return QColor::fromRgba(rgba);
}

} // namespace

class TestKeyColours : public QObject
{
    Q_OBJECT

private slots:
    void pixels_data()
    {
        QTest::addColumn<QRgb>("pixel");
        QTest::addColumn<QColor>("transparent");
        QTest::addColumn<QColor>("translucent");
        QTest::addColumn<QRgb>("expected");
        const QColor magenta = picked(0xffff00ff);
        const QColor grey = picked(0xff808080);
        QTest::newRow("nothing picked") << 0x12345678u << none << none << 0x12345678u;
        QTest::newRow("not opaque picks nothing")
            << 0xc8ff00ffu << picked(0xc8ff00ff) << none << 0xc8ff00ffu;
        QTest::newRow("ground") << 0xffff00ffu << magenta << none << 0x00000013u;
        QTest::newRow("ground colour, alpha 200") << 0xc8ff00ffu << magenta << none << 0xc8ff00ffu;
        QTest::newRow("other colour") << 0xffff00feu << magenta << none << 0xffff00feu;
        QTest::newRow("half-seen, alpha 128") << 0x80808080u << none << grey << 0x80808080u;
        QTest::newRow("half-seen, opaque") << 0xff808080u << none << grey << 0x80808080u;
        // The ground left unpicked is Qt::transparent, which this pixel equals.
        QTest::newRow("equals the unpicked ground") << 0x00000000u << none << grey << 0x00000013u;
        QTest::newRow("half-seen only, other") << 0x05050500u << none << grey << 0x05050500u;
        QTest::newRow("both") << 0xff808080u << grey << grey << 0x80808080u;
        QTest::newRow("ground with half-seen") << 0xffff00ffu << magenta << grey << 0x00000013u;
    }

    void pixels()
    {
        QFETCH(QRgb, pixel);
        QFETCH(QColor, transparent);
        QFETCH(QColor, translucent);
        QFETCH(QRgb, expected);
        QImage image = solidImage(QSize(3, 2), 0xff010203);
        image.setPixel(1, 1, pixel);
        const QImage result = applyKeyColours(image, transparent, translucent);
        QCOMPARE(result.format(), QImage::Format_ARGB32);
        QCOMPARE(QString::number(result.pixel(1, 1), 16), QString::number(expected, 16));
        QCOMPARE(result.pixel(0, 0), 0xff010203u);
    }

    // A palette image is read by its colours, picked or not.
    void indexed()
    {
        QImage image(4, 1, QImage::Format_Indexed8);
        image.setColorTable({0xffff00ff, 0x80102030, 0xff000000});
        for (int x = 0; x < 4; ++x)
            image.setPixel(x, 0, uint(x % 3));
        ZK_COMPARE_IMAGES(applyKeyColours(image, none, none),
                          image.convertToFormat(QImage::Format_ARGB32));
        const QImage keyed = applyKeyColours(image, picked(image.pixel(0, 0)), none);
        QCOMPARE(keyed.pixel(0, 0), 0x00000013u);
        QCOMPARE(keyed.pixel(1, 0), 0x80102030u);
        QCOMPARE(keyed.pixel(3, 0), 0x00000013u);
    }

    // The ground of a real sheet picked at its corner; the PNG written keeps the
    // program's transparent pixel.
    void corpusSheet()
    {
        const QImage sheet(QStringLiteral(ZENKORA_CORPUS_DIR "/rm2003_charset/Object2.png"));
        QVERIFY(!sheet.isNull());
        QCOMPARE(sheet.pixel(0, 0), 0xffff678bu);
        const QImage source = sheet.convertToFormat(QImage::Format_ARGB32);
        const QImage keyed = applyKeyColours(sheet, picked(sheet.pixel(0, 0)), none);
        int cleared = 0;
        for (int y = 0; y < source.height(); ++y) {
            for (int x = 0; x < source.width(); ++x) {
                if (keyed.pixel(x, y) == 0x00000013u && source.pixel(x, y) == 0xffff678bu)
                    ++cleared;
                else
                    QCOMPARE(keyed.pixel(x, y), source.pixel(x, y));
            }
        }
        QCOMPARE(cleared, 52934);
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("objet.png"));
        QVERIFY(PngWriter::save(keyed, path));
        ZK_COMPARE_IMAGES(QImage(path).convertToFormat(QImage::Format_ARGB32), keyed);
    }

    // A click on an already transparent pixel picks a colour that counts for nothing.
    void transparentPick()
    {
        const QImage sheet(QStringLiteral(ZENKORA_CORPUS_DIR "/vx_single/character10.png"));
        QVERIFY(!sheet.isNull());
        QCOMPARE(qAlpha(sheet.pixel(0, 0)), 0);
        ZK_COMPARE_IMAGES(applyKeyColours(sheet, picked(sheet.pixel(0, 0)), none),
                          sheet.convertToFormat(QImage::Format_ARGB32));
    }
};

QTEST_GUILESS_MAIN(TestKeyColours)
#include "tst_keycolours.moc"
