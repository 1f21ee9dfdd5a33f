#include "imaging/trimimage.h"

#include "imagecompare.h"
#include "testfiles.h"

#include <QImage>
#include <QPoint>
#include <QtTest>

namespace {

// Transparent pixels keep colour bytes of their own, so that a test sees whether the
// kept box was copied from the image or filled with the raw 19.
constexpr QRgb Clear = 0x00102030u;
constexpr QRgb Raw19 = 0x00000013u;

QRgb opaque(int i)
{
    return 0xff000000u | uint(0x111111 * (i + 1));
}

// A canvas of Clear with the given pixels opaque, each in its own colour.
QImage canvas(int width, int height, const QList<QPoint>& points)
{
    QImage image = solidImage(QSize(width, height), Clear);
    for (int i = 0; i < points.size(); ++i)
        image.setPixel(points.at(i), opaque(i));
    return image;
}

// rows: one string per row, '.' Clear, '#' Raw19, a digit the opaque pixel of that
// index.
QImage picture(const QList<QByteArray>& rows)
{
    QImage image(rows.isEmpty() ? 0 : int(rows.first().size()), int(rows.size()),
                 QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const char c = rows.at(y).at(x);
            image.setPixel(x, y, c == '.' ? Clear : c == '#' ? Raw19 : opaque(c - '0'));
        }
    }
    return image;
}

} // namespace

class TestTrimImage : public QObject
{
    Q_OBJECT

private slots:
    void trims_data();
    void trims();
    void convertsOtherFormats();
};

void TestTrimImage::trims_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<QPoint>("offsetBefore");
    QTest::addColumn<QImage>("expected");
    QTest::addColumn<QPoint>("offset");

    // A one-row picture keeps one row beneath it, and one column beside it.
    QTest::newRow("single pixel") << canvas(16, 16, {{5, 7}}) << QPoint(0, 0)
                                  << picture({"0.", ".."}) << QPoint(5, 7);
    QTest::newRow("single row") << canvas(8, 8, {{2, 3}, {4, 3}}) << QPoint(0, 0)
                                << picture({"0.1", "..."}) << QPoint(2, 3);
    QTest::newRow("box") << canvas(9, 7, {{3, 1}, {6, 4}, {2, 2}}) << QPoint(0, 0)
                         << picture({".0...", "2....", ".....", "....1"}) << QPoint(2, 1);
    QTest::newRow("bottom row only resets the offset")
        << canvas(8, 8, {{1, 7}, {5, 7}}) << QPoint(9, 9) << canvas(8, 8, {{1, 7}, {5, 7}})
        << QPoint(0, 0);
    // The extra column lies past the image: it is not read, and holds the raw 19.
    QTest::newRow("last column only") << canvas(8, 8, {{7, 2}, {7, 4}}) << QPoint(0, 0)
                                      << picture({"0#", ".#", "1#"}) << QPoint(7, 2);
    QTest::newRow("one pixel wide")
        << canvas(1, 5, {{0, 1}, {0, 2}}) << QPoint(0, 0) << picture({"0#", "1#"}) << QPoint(0, 1);
    QTest::newRow("transparent resets the offset")
        << canvas(6, 4, {}) << QPoint(3, 3) << canvas(6, 4, {}) << QPoint(0, 0);
    QTest::newRow("empty") << QImage(0, 0, QImage::Format_ARGB32) << QPoint(2, 2)
                           << QImage(0, 0, QImage::Format_ARGB32) << QPoint(0, 0);
    QTest::newRow("full box keeps the caller's offset")
        << canvas(4, 4, {{0, 0}, {3, 3}}) << QPoint(4, 5) << canvas(4, 4, {{0, 0}, {3, 3}})
        << QPoint(4, 5);
}

void TestTrimImage::trims()
{
    QFETCH(QImage, image);
    QFETCH(QPoint, offsetBefore);
    QFETCH(QImage, expected);
    QFETCH(QPoint, offset);

    QPoint position = offsetBefore;
    trimImage(image, position);
    if (!expected.isNull())
        QCOMPARE(image.format(), QImage::Format_ARGB32);
    ZK_COMPARE_IMAGES(image, expected);
    QCOMPARE(position, offset);
}

void TestTrimImage::convertsOtherFormats()
{
    QImage opaqueImage(3, 2, QImage::Format_RGB32);
    opaqueImage.fill(0xff336699u);
    QPoint position(7, 8);
    trimImage(opaqueImage, position);
    QCOMPARE(opaqueImage.format(), QImage::Format_ARGB32);
    QCOMPARE(opaqueImage.size(), QSize(3, 2));
    QCOMPARE(opaqueImage.pixel(2, 1), 0xff336699u);
    QCOMPARE(position, QPoint(7, 8));

    QImage premultiplied(6, 6, QImage::Format_ARGB32_Premultiplied);
    premultiplied.fill(0u);
    premultiplied.setPixel(2, 3, 0xff808080u);
    position = QPoint(0, 0);
    trimImage(premultiplied, position);
    QCOMPARE(premultiplied.format(), QImage::Format_ARGB32);
    QCOMPARE(premultiplied.size(), QSize(2, 2));
    QCOMPARE(premultiplied.pixel(0, 0), 0xff808080u);
    QCOMPARE(premultiplied.pixel(1, 1), 0u);
    QCOMPARE(position, QPoint(2, 3));
}

QTEST_APPLESS_MAIN(TestTrimImage)

#include "tst_trimimage.moc"
