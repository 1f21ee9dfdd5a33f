// The gradients fitted to a patch: points scaled per axis from the preview's 0 to 199,
// the focal point drawn in before scaling, the stops the toolkit may take.
#include "imaging/gradientbrushes.h"
#include "imaging/gradientrecord.h"

#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTest>

#include <cmath>

namespace {

QPointF fit(QPointF p, QSize size)
{
    return QPointF(p.x() / 199.0 * size.width(), p.y() / 199.0 * size.height());
}

QImage painted(const QBrush& brush, QSize size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(uint(19));
    QPainter painter(&image);
    painter.fillRect(image.rect(), brush);
    return image;
}

} // namespace

class TestGradientBrushes : public QObject
{
    Q_OBJECT

private slots:
    void focalAndAngle_data();
    void focalAndAngle();
    void linearFillsLeftToRight_data();
    void linearFillsLeftToRight();
    void radialScaledPerAxis();
    void conicalKeepsItsAngle();
    void stopsTheToolkitTakes();
    void zeroRadiusIsLeftOut();
};

void TestGradientBrushes::focalAndAngle_data()
{
    QTest::addColumn<QPointF>("center");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QPointF>("focal");
    QTest::addColumn<QPointF>("painted");
    QTest::addColumn<double>("angle");
    QTest::newRow("defaults") << QPointF(100, 100) << QPointF(100, 0) << QPointF(100, 50)
                              << QPointF(100, 50) << 90.0;
    QTest::newRow("at three quarters")
        << QPointF(100, 100) << QPointF(100, 0) << QPointF(175, 100) << QPointF(175, 100) << 90.0;
    QTest::newRow("focal at the rim")
        << QPointF(100, 100) << QPointF(100, 0) << QPointF(100, 199) << QPointF(100, 175) << 90.0;
    // The lengths are kept in single precision.
    const double inward = 0.75 * double(float(std::hypot(50.0, 50.0))) * std::sqrt(0.5);
    QTest::newRow("focal on the diagonal")
        << QPointF(100, 100) << QPointF(150, 150) << QPointF(199, 199)
        << QPointF(100 + inward, 100 + inward) << 315.0;
    QTest::newRow("radius point on the centre")
        << QPointF(100, 100) << QPointF(100, 100) << QPointF(100, 50) << QPointF(100, 100) << 0.0;
}

void TestGradientBrushes::focalAndAngle()
{
    QFETCH(QPointF, center);
    QFETCH(QPointF, point);
    QFETCH(QPointF, focal);
    QFETCH(QPointF, painted);
    QFETCH(double, angle);
    GradientRecord record;
    record.radialCenter = center;
    record.radialRadius = point;
    record.radialFocal = focal;
    record.conicalCenter = center;
    record.conicalAngle = point;
    QCOMPARE(record.paintedFocal(), painted);
    QCOMPARE(record.radialFocal, focal);
    QCOMPARE(record.conicalAngleDegrees(), angle);
}

void TestGradientBrushes::linearFillsLeftToRight_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("30 by 30") << QSize(30, 30);
    QTest::newRow("37 by 5") << QSize(37, 5);
}

void TestGradientBrushes::linearFillsLeftToRight()
{
    QFETCH(QSize, size);
    const GradientRecord record; // black at the left edge, white at the right
    const QLinearGradient gradient = makeLinearBrush(record, size);
    QCOMPARE(gradient.start(), fit(QPointF(0, 100), size));
    QCOMPARE(gradient.finalStop(), fit(QPointF(200, 100), size));

    const QImage image = painted(QBrush(gradient), size);
    QVERIFY(qRed(image.pixel(0, 0)) < 10);
    QVERIFY(qRed(image.pixel(size.width() - 1, 0)) > 240);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            QCOMPARE(image.pixel(x, y), image.pixel(x, 0));
            if (x > 0)
                QVERIFY(qRed(image.pixel(x, y)) > qRed(image.pixel(x - 1, y)));
        }
    }
}

void TestGradientBrushes::radialScaledPerAxis()
{
    GradientRecord record;
    record.type = GradientRecord::Radial;
    record.radialFocal = QPointF(100, 199);
    const QSize size(20, 10);
    const QRadialGradient gradient = makeRadialBrush(record, size);
    QCOMPARE(gradient.center(), fit(QPointF(100, 100), size));
    QCOMPARE(gradient.focalPoint(), fit(QPointF(100, 175), size));
    QCOMPARE(gradient.radius(), 100 / 199.0 * 10);
    QCOMPARE(gradient.spread(), QGradient::PadSpread);
    QCOMPARE(makeGradientBrush(record, size).gradient()->type(), QGradient::RadialGradient);
}

void TestGradientBrushes::conicalKeepsItsAngle()
{
    GradientRecord record;
    record.type = GradientRecord::Conical;
    record.spread = 2;
    record.conicalCenter = QPointF(50, 150);
    record.conicalAngle = QPointF(100, 100);
    const QConicalGradient gradient = makeConicalBrush(record, QSize(40, 8));
    QCOMPARE(gradient.center(), fit(QPointF(50, 150), QSize(40, 8)));
    QCOMPARE(gradient.angle(), 45.0);
    QCOMPARE(gradient.spread(), QGradient::RepeatSpread);
}

void TestGradientBrushes::stopsTheToolkitTakes()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    GradientRecord record;
    record.spread = 1;
    record.stops = {{-0.0125, QColor(Qt::red)},
                    {0.5, QColor(Qt::green)},
                    {1.0000001, QColor(Qt::blue)},
                    {0.5, QColor(10, 20, 30, 40)},
                    {0.25, QColor(Qt::yellow)}};
    const QLinearGradient gradient = makeLinearBrush(record, QSize(10, 10));
    const QGradientStops expected = {{0.25, QColor(Qt::yellow)}, {0.5, QColor(10, 20, 30, 40)}};
    QCOMPARE(gradient.stops(), expected);
    QCOMPARE(gradient.spread(), QGradient::ReflectSpread);
    QCOMPARE(record.stops.size(), 5);
}

// The toolkit clears the pixels under a radial gradient of radius 0 instead of leaving
// them: the editor and the fills leave such a gradient out.
void TestGradientBrushes::zeroRadiusIsLeftOut()
{
    GradientRecord record;
    record.type = GradientRecord::Radial;
    QVERIFY(!record.paintsNothing());
    record.radialRadius = record.radialCenter;
    QVERIFY(record.paintsNothing());
    const QImage image = painted(makeGradientBrush(record, QSize(8, 8)), QSize(8, 8));
    QCOMPARE(image.pixel(0, 0), 0u);
    QCOMPARE(image.pixel(4, 4), 0u);
    record.type = GradientRecord::Conical;
    QVERIFY(!record.paintsNothing());
}

QTEST_GUILESS_MAIN(TestGradientBrushes)
#include "tst_gradientbrushes.moc"
