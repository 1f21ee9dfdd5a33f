#include "imaging/blend.h"

#include "imagecompare.h"

#include <QImage>
#include <QRandomGenerator>
#include <QtTest>

namespace {

// One pixel of the blend written out plainly, without short cuts: the alpha in
// double, the weights and channel sums in long double, every conversion truncating.
QRgb referenceBlend(QRgb destination, QRgb source)
{
    const int aS = qAlpha(source);
    const int aD = qAlpha(destination);
    const double a = aD + aS * (255 - aD) / 255.0;
    if (!(a > 0))
        return destination;
    const long double kD = (static_cast<long double>(a) - aS) / a;
    const long double kS = aS / static_cast<long double>(a);
    const auto channel = [&](int shift) {
        const int d = int(destination >> shift & 0xffu);
        const int s = int(source >> shift & 0xffu);
        return (uint(static_cast<long long>(d * kD + s * kS)) & 0xffu) << shift;
    };
    return (uint(static_cast<long long>(a)) & 0xffu) << 24 | channel(16) | channel(8) | channel(0);
}

QRgb blendedPixel(QRgb destination, QRgb source)
{
    QImage to(1, 1, QImage::Format_ARGB32);
    to.setPixel(0, 0, destination);
    QImage from(1, 1, QImage::Format_ARGB32);
    from.setPixel(0, 0, source);
    blendOver(to, 0, 0, from, 0, 0, 1, 1);
    return to.pixel(0, 0);
}

// Alpha 0 and 255 (the short cuts) and 1 and 254 (next to them) come up often.
uint randomAlpha(QRandomGenerator& random)
{
    static const uint edges[] = {0, 255, 1, 254};
    const uint roll = random.bounded(8u);
    return roll < 4 ? edges[roll] : random.bounded(256u);
}

} // namespace

class TestBlend : public QObject
{
    Q_OBJECT

private slots:
    void pinnedPixels_data();
    void pinnedPixels();
    void colourOverItselfAtHalfAlpha();
    void matchesPlainArithmetic();
    void subRectangleOnly();
};

void TestBlend::pinnedPixels_data()
{
    QTest::addColumn<uint>("destination");
    QTest::addColumn<uint>("source");
    QTest::addColumn<uint>("expected");

    QTest::newRow("both transparent keep every bit") << 0x00abcdefu << 0x00123456u << 0x00abcdefu;
    // A = 128 + 128 * 127 / 255.0, about 191.7.
    QTest::newRow("128 over 128") << 0x800a141eu << 0x80c86432u << 0xbf88492bu;
    QTest::newRow("half over transparent keeps the colour")
        << 0x00000013u << 0x80c86432u << 0x80c86432u;
    // The weights in double would give 98.
    QTest::newRow("alpha 1 over alpha 4, channels 99") << 0x04636363u << 0x01636363u << 0x04636363u;
    QTest::newRow("opaque source") << 0x80ffffffu << 0xff102030u << 0xff102030u;
    QTest::newRow("transparent source") << 0xff102030u << 0x00ffffffu << 0xff102030u;
    QTest::newRow("half white over opaque black") << 0xff000000u << 0x80ffffffu << 0xff808080u;
    QTest::newRow("alpha 1 white over opaque black") << 0xff000000u << 0x01ffffffu << 0xff010101u;
    QTest::newRow("alpha 254 black over alpha 1 white")
        << 0x01ffffffu << 0xfe000000u << 0xfe000000u;
    QTest::newRow("quarter over three quarters") << 0xc0204060u << 0x40e0c0a0u << 0xcf5b6773u;
}

void TestBlend::pinnedPixels()
{
    QFETCH(uint, destination);
    QFETCH(uint, source);
    QFETCH(uint, expected);

    QCOMPARE(QString::number(referenceBlend(destination, source), 16),
             QString::number(expected, 16));
    QCOMPARE(QString::number(blendedPixel(destination, source), 16), QString::number(expected, 16));
}

void TestBlend::colourOverItselfAtHalfAlpha()
{
    QImage destination(256, 1, QImage::Format_ARGB32);
    QImage source(256, 1, QImage::Format_ARGB32);
    QImage expected(256, 1, QImage::Format_ARGB32);
    for (int c = 0; c < 256; ++c) {
        destination.setPixel(c, 0, qRgba(c, 255 - c, c / 2, 128));
        source.setPixel(c, 0, qRgba(c, 255 - c, c / 2, 128));
        expected.setPixel(c, 0, qRgba(c, 255 - c, c / 2, 191));
    }
    blendOver(destination, 0, 0, source, 0, 0, 256, 1);
    ZK_COMPARE_IMAGES(destination, expected);
}

void TestBlend::matchesPlainArithmetic()
{
    QRandomGenerator random(1234);
    const int width = 512;
    const int height = 256;
    QImage destination(width, height, QImage::Format_ARGB32);
    QImage source(width, height, QImage::Format_ARGB32);
    QImage expected(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb d = (random.generate() & 0xffffffu) | randomAlpha(random) << 24;
            const QRgb s = (random.generate() & 0xffffffu) | randomAlpha(random) << 24;
            destination.setPixel(x, y, d);
            source.setPixel(x, y, s);
            expected.setPixel(x, y, referenceBlend(d, s));
        }
    }
    blendOver(destination, 0, 0, source, 0, 0, width, height);
    ZK_COMPARE_IMAGES(destination, expected);
}

// Only the rectangle changes, with source pixels taken from their own offset, in a
// destination whose pixels another image shares.
void TestBlend::subRectangleOnly()
{
    QImage source(6, 5, QImage::Format_ARGB32);
    QImage destination(7, 6, QImage::Format_ARGB32);
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 6; ++x)
            source.setPixel(x, y, qRgba(10 * x, 20 * y, 99, 60 + 20 * x));
    }
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 7; ++x)
            destination.setPixel(x, y, qRgba(200, 7 * x, 9 * y, 30 * y));
    }
    const QImage shared = destination;
    const QImage before = destination.copy();
    const QImage sourceBefore = source.copy();

    blendOver(destination, 3, 2, source, 1, 2, 3, 2);

    QImage expected = before.copy();
    for (int i = 0; i < 2; ++i) {
        for (int j = 0; j < 3; ++j) {
            expected.setPixel(
                3 + j, 2 + i,
                referenceBlend(before.pixel(3 + j, 2 + i), source.pixel(1 + j, 2 + i)));
        }
    }
    ZK_COMPARE_IMAGES(destination, expected);
    ZK_COMPARE_IMAGES(shared, before);
    ZK_COMPARE_IMAGES(source, sourceBefore);
}

QTEST_APPLESS_MAIN(TestBlend)

#include "tst_blend.moc"
