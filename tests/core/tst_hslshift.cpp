#include "imaging/hslshift.h"

#include "imagecompare.h"
#include "testfiles.h"

#include <QImage>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <thread>

namespace {

using Wide = long double;

Wide referenceChannel(Wide m1, Wide m2, Wide t)
{
    if (t < 0)
        t += 1;
    if (t > 1)
        t -= 1;
    if (6 * t < 1)
        return m1 + (m2 - m1) * 6 * t;
    if (2 * t < 1)
        return m2;
    if (3 * t < 2)
        return m1 + (m2 - m1) * (0.6666666666666666 - t) * 6;
    return m1;
}

// The colour arithmetic written out plainly, one pixel at a time and in the order of
// its steps: floats where a value is stored, long double for everything else, plain
// conversions to int. The routine under test must give these bits.
QRgb referenceShift(QRgb pixel, const HslShift& shift, bool redefine)
{
    const float r = Wide(qRed(pixel)) / 255.0;
    const float g = Wide(qGreen(pixel)) / 255.0;
    const float b = Wide(qBlue(pixel)) / 255.0;
    const Wide max = std::max({Wide(r), Wide(g), Wide(b)});
    const Wide min = std::min({Wide(r), Wide(g), Wide(b)});
    const Wide delta = max - min;
    const float l = 0.5 * (max + min);
    Wide h = 0;
    Wide s = 0;
    if (delta != 0) {
        s = l < 0.5 ? delta / (max + min) : delta / (2 - max - min);
        const float dr = ((max - r) / 6 + delta * 0.5) / delta;
        const float dg = ((max - g) / 6 + delta * 0.5) / delta;
        const float db = ((max - b) / 6 + delta * 0.5) / delta;
        if (r == max)
            h = Wide(db) - dg;
        else if (g == max)
            h = 0.3333333333333333 + Wide(dr) - db;
        else
            h = 0.6666666666666666 + Wide(dg) - dr;
        if (h < 0)
            h += 1;
        if (h > 1)
            h -= 1;
    }
    const float bigH = h * 360;
    const float bigS = s * 255;
    const float bigL = Wide(l) * 255;
    Wide newH = shift.hue;
    if (!redefine) {
        newH = Wide(shift.hue) + bigH;
        if (newH >= 360)
            newH -= 360;
        else if (newH < 0)
            newH += 360;
    }
    const float newS = shift.saturation > 0
                           ? bigS + Wide(shift.saturation) * (255 - Wide(bigS)) / 100
                           : bigS + Wide(shift.saturation) * bigS / 100;
    const float newL = shift.luminosity > 0
                           ? bigL + Wide(shift.luminosity) * (255 - Wide(bigL)) / 100
                           : bigL + Wide(shift.luminosity) * bigL / 100;
    const Wide hh = newH / 360;
    const Wide ss = newS / Wide(255);
    const Wide ll = newL / Wide(255);
    int red;
    int green;
    int blue;
    if (ss == 0) {
        red = green = blue = int(ll * 255);
    } else {
        const Wide m2 = ll < 0.5 ? ll * (1 + ss) : (ll + ss) - ss * ll;
        const Wide m1 = 2 * ll - m2;
        red = int(255 * referenceChannel(m1, m2, hh + 0.3333333333333333));
        green = int(255 * referenceChannel(m1, m2, hh));
        blue = int(255 * referenceChannel(m1, m2, hh - 0.3333333333333333));
    }
    return (pixel & 0xff000000u) | (uint(red) & 0xffu) << 16 | (uint(green) & 0xffu) << 8 |
           (uint(blue) & 0xffu);
}

QRgb shiftedPixel(QRgb pixel, const HslShift& shift, bool redefine)
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, pixel);
    shiftImageHsl(shift, image, redefine, false, image);
    return image.pixel(0, 0);
}

QImage referenceImage(const QImage& source, const QImage& target, const HslShift& shift,
                      bool redefine)
{
    QImage expected = target.copy();
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x) {
            const QRgb pixel = source.pixel(x, y);
            if (qAlpha(pixel) != 0)
                expected.setPixel(x, y, referenceShift(pixel, shift, redefine));
        }
    }
    return expected;
}

} // namespace

Q_DECLARE_METATYPE(HslShift)

class TestHslShift : public QObject
{
    Q_OBJECT

private slots:
    void knownColours_data();
    void knownColours();
    void matchesPlainArithmetic_data();
    void matchesPlainArithmetic();
    void sampledColours_data();
    void sampledColours();
    void everyColourOnce();
    void randomImagesAndRepeatedCalls();
    void concurrentThreads();
    void transparentSourcePixelsLeaveTarget();
    void sharedPixelsStayUntouched();
};

void TestHslShift::knownColours_data()
{
    QTest::addColumn<uint>("pixel");
    QTest::addColumn<HslShift>("shift");
    QTest::addColumn<bool>("redefine");
    QTest::addColumn<uint>("expected");

    QTest::newRow("pure red +120") << 0xffff0000u << HslShift{120, 0, 0} << false << 0xff00ff00u;
    // No short cut for a zero shift: the round trip truncates red from 0x10 to 0x0f.
    QTest::newRow("0x102030, no shift") << 0xff102030u << HslShift{0, 0, 0} << false << 0xff0f2030u;
    QTest::newRow("grey, hue only") << 0xff808080u << HslShift{90, 0, 0} << false << 0xff808080u;
    QTest::newRow("grey, redefined hue only")
        << 0xff808080u << HslShift{90, 0, 0} << true << 0xff808080u;
    QTest::newRow("grey, saturation shows hue 0")
        << 0xff808080u << HslShift{0, 50, 0} << false << 0xffbf4040u;
    QTest::newRow("grey, redefined hue 0 and saturation")
        << 0xff808080u << HslShift{0, 50, 0} << true << 0xffbf4040u;
    QTest::newRow("white") << 0xffffffffu << HslShift{45, 0, 0} << false << 0xffffffffu;
    QTest::newRow("black") << 0xff000000u << HslShift{45, 0, 0} << false << 0xff000000u;
    QTest::newRow("alpha 1 counts as opaque")
        << 0x01ff0000u << HslShift{120, 0, 0} << false << 0x0100ff00u;
    // l is exactly 0.5: the grey branch truncates 127.5.
    QTest::newRow("saturation -100") << 0xff3366ccu << HslShift{0, -100, 0} << false << 0xff7f7f7fu;
    QTest::newRow("redefined -180") << 0xff3366ccu << HslShift{-180, 0, 0} << true << 0xff32cbccu;
    QTest::newRow("redefined 180") << 0xff3366ccu << HslShift{180, 0, 0} << true << 0xff32cbccu;
    QTest::newRow("redefined 0") << 0xff3366ccu << HslShift{0, 0, 0} << true << 0xffcc3232u;
    QTest::newRow("all three") << 0xff3366ccu << HslShift{37, 20, -10} << false << 0xff5024c0u;
    QTest::newRow("luminosity 100") << 0xff3366ccu << HslShift{0, 0, 100} << false << 0xffffffffu;
    QTest::newRow("luminosity -100") << 0xff3366ccu << HslShift{0, 0, -100} << false << 0xff000000u;
    QTest::newRow("saturation 100") << 0xff3366ccu << HslShift{0, 100, 0} << false << 0xff0055ffu;
}

void TestHslShift::knownColours()
{
    QFETCH(uint, pixel);
    QFETCH(HslShift, shift);
    QFETCH(bool, redefine);
    QFETCH(uint, expected);

    QCOMPARE(QString::number(referenceShift(pixel, shift, redefine), 16),
             QString::number(expected, 16));
    QCOMPARE(QString::number(shiftedPixel(pixel, shift, redefine), 16),
             QString::number(expected, 16));
}

void TestHslShift::matchesPlainArithmetic_data()
{
    QTest::addColumn<uint>("pixel");
    QTest::addColumn<HslShift>("shift");
    QTest::addColumn<bool>("redefine");

    const struct
    {
        uint pixel;
        HslShift shift;
        bool redefine;
    } rows[] = {
        {0xff0000ffu, {-120, 0, 0}, false},
        {0xff00ffffu, {60, 0, 0}, false},
        {0xffff00ffu, {-60, 0, 0}, false},
        {0xffffff00u, {180, 0, 0}, false},
        {0xff7f3fbfu, {1, 0, 0}, false},
        {0xff7f3fbfu, {-1, 0, 0}, false},
        {0xff7f3fbfu, {359, 0, 0}, false},
        {0xff7f3fbfu, {-359, 0, 0}, false},
        {0xff7f3fbfu, {360, 0, 0}, false},
        {0xff7f3fbfu, {-360, 0, 0}, false},
        {0xff010203u, {200, 0, 0}, false},
        {0xfffefdfcu, {-200, 0, 0}, false},
        {0xff808081u, {90, 0, 0}, false},
        {0xff818080u, {-90, 0, 0}, false},
        {0xff00ff80u, {0, 0, 0}, false},
        {0xff80ff00u, {120, 0, 0}, false},
        {0xff123456u, {33.5f, 12.25f, -7.75f}, false},
        {0xff654321u, {-33.25f, -12.5f, 7.5f}, false},
        {0xffc0ffeeu, {0, 99.5f, 0}, false},
        {0xffc0ffeeu, {0, 0, -99.5f}, false},
        {0xffbadbadu, {0, -99.9f, 0}, false},
        {0xffbadbadu, {10, 0, 99.9f}, false},
        {0xff102030u, {0.1f, 0, 0}, false},
        {0xff102030u, {1e-3f, 0, 0}, false},
        {0xff102030u, {-0.0f, 0, 0}, false},
        {0xff203040u, {0, -0.0f, -0.0f}, false},
        {0xff3366ccu, {720, 0, 0}, false},
        {0xff3366ccu, {0, 150, 0}, false},
        {0xff3366ccu, {0, 0, -150}, false},
        {0xff3366ccu, {-90, 0, 0}, true},
        {0xff3366ccu, {270, 0, 0}, true},
        {0xff3366ccu, {-360, 40, 40}, true},
        {0xff3366ccu, {12.34f, -40, 60}, true},
        {0xff999999u, {200, 30, 0}, true},
        {0xff00ff00u, {60, 0, 0}, true},
        {0xff404040u, {-180, 100, -50}, true},
    };
    for (const auto& row : rows) {
        const QByteArray name =
            QByteArray::number(row.pixel, 16) + " " + QByteArray::number(row.shift.hue) + "/" +
            QByteArray::number(row.shift.saturation) + "/" +
            QByteArray::number(row.shift.luminosity) + (row.redefine ? " redefined" : "");
        QTest::newRow(name.constData()) << row.pixel << row.shift << row.redefine;
    }
}

void TestHslShift::matchesPlainArithmetic()
{
    QFETCH(uint, pixel);
    QFETCH(HslShift, shift);
    QFETCH(bool, redefine);

    QCOMPARE(QString::number(shiftedPixel(pixel, shift, redefine), 16),
             QString::number(referenceShift(pixel, shift, redefine), 16));
}

void TestHslShift::sampledColours_data()
{
    QTest::addColumn<HslShift>("shift");
    QTest::addColumn<bool>("redefine");

    QTest::newRow("no shift") << HslShift{0, 0, 0} << false;
    // Sixths of the circle bring many channels onto exact integers.
    QTest::newRow("hue 120") << HslShift{120, 0, 0} << false;
    QTest::newRow("hue -60") << HslShift{-60, 0, 0} << false;
    QTest::newRow("hue 12.5, saturation, luminosity") << HslShift{12.5f, -35, 20} << false;
    QTest::newRow("saturation 100") << HslShift{0, 100, 0} << false;
    QTest::newRow("hue 0.3") << HslShift{0.3f, 0, 0} << false;
    QTest::newRow("redefined -180") << HslShift{-180, 10, -10} << true;
}

// Every 61st colour of the cube, in one image: caches, fast paths and their hand-overs
// to the exact arithmetic all meet colours they have not seen.
void TestHslShift::sampledColours()
{
    QFETCH(HslShift, shift);
    QFETCH(bool, redefine);

    const int count = (1 << 24) / 61 + 1;
    QImage image = solidImage(QSize(512, (count + 511) / 512), 0xff000000u);
    for (int i = 0; i < count; ++i)
        image.setPixel(i % 512, i / 512, 0xff000000u | uint(i * 61));
    const QImage expected = referenceImage(image, image, shift, redefine);
    shiftImageHsl(shift, image, redefine, false, image);
    ZK_COMPARE_IMAGES(image, expected);
}

// The hue of a colour, the one part of the fast path that depends on nothing but the
// colour, checked over the whole cube.
void TestHslShift::everyColourOnce()
{
    const HslShift shift{37, 0, 0};
    QImage image(4096, 4096, QImage::Format_ARGB32);
    for (int y = 0; y < 4096; ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < 4096; ++x)
            line[x] = 0xff000000u | uint(y << 12 | x);
    }
    shiftImageHsl(shift, image, false, false, image);
    for (int y = 0; y < 4096; ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < 4096; ++x) {
            const QRgb expected = referenceShift(0xff000000u | uint(y << 12 | x), shift, false);
            if (line[x] != expected) {
                QFAIL(qPrintable(QStringLiteral("colour %1: %2 against %3")
                                     .arg(y << 12 | x, 6, 16, QLatin1Char('0'))
                                     .arg(line[x], 8, 16)
                                     .arg(expected, 8, 16)));
            }
        }
    }
}

namespace {

// Runs of one colour (with alpha changing along the run), from a small palette or not,
// and transparent pixels here and there.
QImage randomPicture(quint32 seed)
{
    QRandomGenerator random(seed);
    QList<QRgb> palette;
    for (int i = 0; i < 40; ++i)
        palette.append(random.generate());
    QImage picture(300, 200, QImage::Format_ARGB32);
    QRgb colour = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (random.bounded(3u) == 0) {
                colour = random.bounded(2u) ? palette.at(int(random.bounded(40u)))
                                            : QRgb(random.generate());
            }
            const uint alpha = random.bounded(10u) == 0 ? 0u : random.bounded(1u, 256u);
            picture.setPixel(x, y, (colour & 0xffffffu) | alpha << 24);
        }
    }
    return picture;
}

} // namespace

// Calls with the same shift, then the same numbers redefined, then another shift, then
// the first again, must each give the plain arithmetic's bits whatever the calls before
// them worked out.
void TestHslShift::randomImagesAndRepeatedCalls()
{
    const QImage source = randomPicture(77);
    const HslShift first{25, 10, -5};
    const HslShift second{-140, 0, 0};
    const struct
    {
        HslShift shift;
        bool redefine;
    } calls[] = {{first, false}, {first, false}, {first, true}, {second, false}, {first, false}};
    for (const auto& call : calls) {
        QImage target = solidImage(source.size(), 0x80402010u);
        const QImage expected = referenceImage(source, target, call.shift, call.redefine);
        shiftImageHsl(call.shift, target, call.redefine, true, source);
        ZK_COMPARE_IMAGES(target, expected);
    }
}

// The mass save shifts its own copy of a character on its own thread while the
// interface may preview another shift.
void TestHslShift::concurrentThreads()
{
    const QImage source = randomPicture(78);
    const HslShift shifts[2] = {{60, -20, 0}, {-75, 0, 30}};
    QImage results[2];
    {
        std::thread threads[2];
        for (int t = 0; t < 2; ++t) {
            threads[t] = std::thread([&, t] {
                for (int round = 0; round < 20; ++round) {
                    results[t] = source.copy();
                    shiftImageHsl(shifts[t], results[t], false, false, results[t]);
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    }
    for (int t = 0; t < 2; ++t)
        ZK_COMPARE_IMAGES(results[t], referenceImage(source, source, shifts[t], false));
}

void TestHslShift::transparentSourcePixelsLeaveTarget()
{
    QImage source(3, 1, QImage::Format_ARGB32);
    source.setPixel(0, 0, 0x00ff0000u);
    source.setPixel(1, 0, 0x80ff0000u);
    source.setPixel(2, 0, 0x00000013u);
    QImage target(3, 1, QImage::Format_ARGB32);
    target.setPixel(0, 0, 0xff123456u);
    target.setPixel(1, 0, 0xff123456u);
    target.setPixel(2, 0, 0x00abcdefu);

    shiftImageHsl(HslShift{120, 0, 0}, target, false, true, source);

    QCOMPARE(target.pixel(0, 0), 0xff123456u);
    QCOMPARE(target.pixel(1, 0), 0x8000ff00u);
    QCOMPARE(target.pixel(2, 0), 0x00abcdefu);
    QCOMPARE(source.pixel(1, 0), 0x80ff0000u);
}

// The model's images are shared between history steps and the preview snapshot.
void TestHslShift::sharedPixelsStayUntouched()
{
    QImage original = solidImage(QSize(4, 4), 0xff3366ccu);
    const QImage untouched = original.copy();

    QImage copy = original;
    shiftImageHsl(HslShift{90, 0, 0}, copy, false, false, copy);
    ZK_COMPARE_IMAGES(original, untouched);
    QCOMPARE(copy.pixel(0, 0), referenceShift(0xff3366ccu, HslShift{90, 0, 0}, false));

    QImage preview = original;
    shiftImageHsl(HslShift{-90, 0, 0}, preview, false, true, original);
    ZK_COMPARE_IMAGES(original, untouched);
    QCOMPARE(preview.pixel(3, 3), referenceShift(0xff3366ccu, HslShift{-90, 0, 0}, false));
}

QTEST_APPLESS_MAIN(TestHslShift)

#include "tst_hslshift.moc"
