// The patches of the pen, the line and the shapes, plain and gradient, and the rubber
// on one picture: exact pixels.
#include "imaging/erase.h"
#include "imaging/shapepatch.h"
#include "imaging/strokepatches.h"
#include "testfiles.h"

#include <QPainterPath>
#include <QTest>

namespace {

const QColor Primary(200, 100, 50, 128);
const QColor Secondary(10, 20, 30, 255);

// One character per pixel: 'P' the primary colour, 'S' the secondary, '.' the raw
// transparent 19, 'o' an opaque test pixel, '?' anything else.
QStringList rows(const QImage& image)
{
    QStringList result;
    for (int y = 0; y < image.height(); ++y) {
        QString row;
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            row += pixel == Primary.rgba()     ? QLatin1Char('P')
                   : pixel == Secondary.rgba() ? QLatin1Char('S')
                   : pixel == 19u              ? QLatin1Char('.')
                   : pixel == 0xff336699u      ? QLatin1Char('o')
                                               : QLatin1Char('?');
        }
        result.append(row);
    }
    return result;
}

// The bounds of the pixels of colour in a patch placed at corner.
QRect coloured(const QImage& image, QPoint corner, int* count)
{
    QRect bounds;
    *count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == Primary.rgba()) {
                bounds |= QRect(corner + QPoint(x, y), QSize(1, 1));
                ++*count;
            }
        }
    }
    return bounds;
}

ShapePaint plainPaint(int drawMode)
{
    ShapePaint paint;
    paint.drawMode = drawMode;
    paint.colors = {Primary, Secondary};
    return paint;
}

ShapePaint gradientPaint(int drawMode, quint8 type)
{
    ShapePaint paint = plainPaint(drawMode);
    paint.paintMode = ShapePaint::Gradient;
    paint.gradient.type = type;
    return paint;
}

int grey(const QImage& image, int x, int y)
{
    return qRed(image.pixel(x, y));
}

} // namespace

class TestDrawingPrimitives : public QObject
{
    Q_OBJECT

private slots:
    void dabs_data();
    void dabs();
    void lines_data();
    void lines();
    void shapes_data();
    void shapes();
    void linearRisesAcross_data();
    void linearRisesAcross();
    void gradientFills();
    void rubber_data();
    void rubber();
    void rubberMissKeepsPictureShared();
};

void TestDrawingPrimitives::dabs_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("shape");
    QTest::addColumn<QRect>("bounds");
    QTest::addColumn<int>("pixels");
    // Dabs at (10, 10).
    QTest::newRow("1, square") << 1 << int(SquareDab) << QRect(10, 10, 1, 1) << 1;
    QTest::newRow("1, round is one pixel") << 1 << int(RoundDab) << QRect(10, 10, 1, 1) << 1;
    QTest::newRow("2, square spans p-1 and p") << 2 << int(SquareDab) << QRect(9, 9, 2, 2) << 4;
    QTest::newRow("4, round") << 4 << int(RoundDab) << QRect(8, 8, 4, 4) << 12;
    QTest::newRow("5, round") << 5 << int(RoundDab) << QRect(8, 8, 5, 5) << 21;
    QTest::newRow("7, round") << 7 << int(RoundDab) << QRect(7, 7, 7, 7) << 37;
}

void TestDrawingPrimitives::dabs()
{
    QFETCH(int, width);
    QFETCH(int, shape);
    QPainterPath stroke;
    addDab(stroke, QPoint(10, 10), width, shape);
    const Patch patch = strokePatch(stroke, Primary);
    int pixels = 0;
    QTEST(coloured(patch.image, patch.corner, &pixels), "bounds");
    QTEST(pixels, "pixels");
    // The patch is the dab's square, and what the dab leaves is the raw 19.
    QCOMPARE(QRect(patch.corner, patch.image.size()),
             QRect(10 - width / 2, 10 - width / 2, width, width));
    QCOMPARE(rows(patch.image).join(QString()).count(QLatin1Char('?')), 0);
}

void TestDrawingPrimitives::lines_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<int>("width");
    QTest::addColumn<QRect>("bounds");
    QTest::newRow("1 wide") << QPoint(0, 0) << QPoint(5, 0) << 1 << QRect(0, 0, 6, 1);
    QTest::newRow("3 wide") << QPoint(10, 10) << QPoint(15, 10) << 3 << QRect(9, 9, 8, 3);
    QTest::newRow("2 wide") << QPoint(10, 10) << QPoint(15, 10) << 2 << QRect(9, 9, 7, 2);
    QTest::newRow("backwards") << QPoint(15, 10) << QPoint(10, 10) << 2 << QRect(9, 9, 7, 2);
}

void TestDrawingPrimitives::lines()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(int, width);
    QFETCH(QRect, bounds);
    const Patch patch = linePatch(from, to, width, Primary);
    int pixels = 0;
    QCOMPARE(coloured(patch.image, patch.corner, &pixels), bounds);
    // A straight line covers its whole box, each pixel exactly in the colour.
    QCOMPARE(pixels, bounds.width() * bounds.height());
}

void TestDrawingPrimitives::shapes_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<bool>("circle");
    QTest::addColumn<int>("drawMode");
    QTest::addColumn<QStringList>("expected");
    const QString border = QStringLiteral("P........P");
    QTest::newRow("rectangle outline 10x6")
        << QRect(3, 4, 10, 6) << false << 0
        << QStringList{QStringLiteral("PPPPPPPPPP"), border, border, border, border,
                       QStringLiteral("PPPPPPPPPP")};
    QTest::newRow("rectangle 1 wide")
        << QRect(0, 0, 1, 3) << false << 0
        << QStringList{QStringLiteral("P"), QStringLiteral("P"), QStringLiteral("P")};
    QTest::newRow("filled rectangle") << QRect(0, 0, 3, 2) << false << 1
                                      << QStringList{QStringLiteral("PPP"), QStringLiteral("PPP")};
    QTest::newRow("mode 2, 5x4") << QRect(0, 0, 5, 4) << false << 2
                                 << QStringList{QStringLiteral("PPPPP"), QStringLiteral("PSSSP"),
                                                QStringLiteral("PSSSP"), QStringLiteral("PPPPP")};
    QTest::newRow("mode 2, 2 wide shows only the outline")
        << QRect(0, 0, 2, 3) << false << 2
        << QStringList{QStringLiteral("PP"), QStringLiteral("PP"), QStringLiteral("PP")};
    const QString wide = QStringLiteral("PPPPPPPPPP");
    const QString narrow = QStringLiteral(".PPPPPPPP.");
    QTest::newRow("filled circle 10x10")
        << QRect(0, 0, 10, 10) << true << 1
        << QStringList{
               QStringLiteral("...PPPP..."), narrow, narrow, wide, wide, wide, wide, narrow, narrow,
               QStringLiteral("...PPPP...")};
    QTest::newRow("circle outline 10x10") << QRect(0, 0, 10, 10) << true << 0
                                          << QStringList{QStringLiteral("..PPPPPP.."),
                                                         QStringLiteral(".P......P."),
                                                         QStringLiteral(".P......P."),
                                                         border,
                                                         border,
                                                         border,
                                                         border,
                                                         QStringLiteral(".P......P."),
                                                         QStringLiteral(".P......P."),
                                                         QStringLiteral("..PPPPPP..")};
}

void TestDrawingPrimitives::shapes()
{
    QFETCH(QRect, rect);
    QFETCH(bool, circle);
    QFETCH(int, drawMode);
    const QImage patch =
        shapePatch(rect, circle ? ShapeKind::Ellipse : ShapeKind::Rectangle, plainPaint(drawMode));
    QTEST(rows(patch), "expected");
}

void TestDrawingPrimitives::linearRisesAcross_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("withStops");
    QTest::newRow("10x1") << QSize(10, 1) << true;
    QTest::newRow("37x5") << QSize(37, 5) << true;
    // The toolkit's own stops run from black to white.
    QTest::newRow("no stops") << QSize(37, 1) << false;
}

void TestDrawingPrimitives::linearRisesAcross()
{
    QFETCH(QSize, size);
    QFETCH(bool, withStops);
    ShapePaint paint = gradientPaint(ShapePaint::Filled, GradientRecord::Linear);
    if (!withStops)
        paint.gradient.stops.clear();
    const QImage patch = shapePatch(QRect(QPoint(4, 4), size), ShapeKind::Rectangle, paint);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 1; x < size.width(); ++x)
            QVERIFY2(grey(patch, x, y) > grey(patch, x - 1, y), qPrintable(QString::number(x)));
    }
    QVERIFY(grey(patch, 0, 0) < 20);
    QVERIFY(grey(patch, size.width() - 1, 0) > 235);
}

void TestDrawingPrimitives::gradientFills()
{
    // Centre and focal joined: drawn round, then stretched to 20 by 10, the rings are
    // ellipses, so points at the same share of either half-axis are the same grey.
    ShapePaint paint = gradientPaint(ShapePaint::Filled, GradientRecord::Radial);
    paint.gradient.radialFocal = paint.gradient.radialCenter;
    const QImage radial = shapePatch(QRect(0, 0, 20, 10), ShapeKind::Rectangle, paint);
    for (const QPoint& point : {QPoint(4, 5), QPoint(16, 5), QPoint(10, 2), QPoint(10, 8)}) {
        const int value = grey(radial, point.x(), point.y());
        QVERIFY2(value >= 100 && value <= 180, qPrintable(QString::number(value)));
    }
    QVERIFY(grey(radial, 10, 5) < 40);

    // Mode 2: the outline in the primary colour over the gradient; 2 wide, no
    // gradient pixel at all.
    paint = gradientPaint(ShapePaint::FilledWithOutline, GradientRecord::Linear);
    const QStringList framed = rows(shapePatch(QRect(0, 0, 6, 4), ShapeKind::Rectangle, paint));
    QCOMPARE(framed.first(), QStringLiteral("PPPPPP"));
    QCOMPARE(framed.at(1).front(), QLatin1Char('P'));
    QCOMPARE(framed.at(1).mid(1, 4), QStringLiteral("????"));
    for (quint8 type : {GradientRecord::Linear, GradientRecord::Radial}) {
        paint = gradientPaint(ShapePaint::FilledWithOutline, type);
        QCOMPARE(rows(shapePatch(QRect(0, 0, 2, 3), ShapeKind::Rectangle, paint)),
                 QStringList({QStringLiteral("PP"), QStringLiteral("PP"), QStringLiteral("PP")}));
    }

    // A radial gradient of radius 0 leaves the raw 19 in place.
    paint = gradientPaint(ShapePaint::Filled, GradientRecord::Radial);
    paint.gradient.radialRadius = paint.gradient.radialCenter;
    QCOMPARE(rows(shapePatch(QRect(0, 0, 3, 1), ShapeKind::Ellipse, paint)),
             QStringList{QStringLiteral("...")});
}

void TestDrawingPrimitives::rubber_data()
{
    QTest::addColumn<bool>("ellipse");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QStringList>("expected");
    // An opaque 7x6 picture placed at (1, 0) of its cell.
    QTest::newRow("rectangle") << false << QRect(0, 1, 3, 2)
                               << QStringList{QStringLiteral("ooooooo"), QStringLiteral("..ooooo"),
                                              QStringLiteral("..ooooo"), QStringLiteral("ooooooo"),
                                              QStringLiteral("ooooooo"), QStringLiteral("ooooooo")};
    // Six columns for a 5 wide ellipse: the outer two in the middle row only.
    QTest::newRow("ellipse 5x5") << true << QRect(1, 0, 5, 5)
                                 << QStringList{
                                        QStringLiteral("o....oo"), QStringLiteral("o....oo"),
                                        QStringLiteral("......o"), QStringLiteral("o....oo"),
                                        QStringLiteral("o....oo"), QStringLiteral("ooooooo")};
    QTest::newRow("ellipse 1x1") << true << QRect(3, 3, 1, 1)
                                 << QStringList{
                                        QStringLiteral("ooooooo"), QStringLiteral("ooooooo"),
                                        QStringLiteral("ooooooo"), QStringLiteral("oo..ooo"),
                                        QStringLiteral("ooooooo"), QStringLiteral("ooooooo")};
}

void TestDrawingPrimitives::rubber()
{
    QFETCH(bool, ellipse);
    QFETCH(QRect, rect);
    QImage image = solidImage(QSize(7, 6), 0xff336699u);
    const bool reached =
        ellipse ? eraseEllipse(image, QPoint(1, 0), rect) : eraseRect(image, QPoint(1, 0), rect);
    QVERIFY(reached);
    QTEST(rows(image), "expected");
}

void TestDrawingPrimitives::rubberMissKeepsPictureShared()
{
    const QImage original = solidImage(QSize(4, 4), 0xff336699u);
    QImage image = original;
    QVERIFY(!eraseRect(image, QPoint(10, 10), QRect(0, 0, 10, 10)));
    QVERIFY(!eraseEllipse(image, QPoint(10, 10), QRect(0, 0, 5, 5)));
    QCOMPARE(image.constBits(), original.constBits());
}

QTEST_GUILESS_MAIN(TestDrawingPrimitives)
#include "tst_drawingprimitives.moc"
