// The gradient editor's two drawing widgets driven by the mouse: the strip of stops
// and the preview with its handles.
#include "colour/qgradientcreator.h"
#include "colour/qgradientrender.h"
#include "imaging/imagechecks.h"

#include <QConicalGradient>
#include <QRadialGradient>
#include <QSignalSpy>
#include <QTest>
#include <QtMath>

#include <cmath>

namespace {

const QColor NewColor(10, 200, 30, 220);

// A press, moves through points, and a release at the last.
void drag(QWidget* widget, QPoint from, const QList<QPoint>& through)
{
    QTest::mousePress(widget, Qt::LeftButton, {}, from);
    for (const QPoint& p : through)
        QTest::mouseMove(widget, p);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, through.isEmpty() ? from : through.last());
}

QList<double> positions(const QGradientCreator& strip)
{
    QList<double> result;
    for (const GradientData& stop : strip.stops())
        result.append(stop.pos);
    return result;
}

// The grey level of the preview at distance 60 from (100, 100), at an angle counted
// counter-clockwise from the x axis.
int levelAt(const QImage& image, double degrees)
{
    const double radians = qDegreesToRadians(degrees);
    const QPoint p(int(std::lround(100 + 60 * std::cos(radians))),
                   int(std::lround(100 - 60 * std::sin(radians))));
    return qRed(image.pixel(p));
}

} // namespace

class TestGradientWidgets : public QObject
{
    Q_OBJECT

private slots:
    void pressAddsStopInNewColour();
    void pressOnCursors_data();
    void pressOnCursors();
    void dragStopsAtTheEnds();
    void handleDragsClamp();
    void overlappingHandles_data();
    void overlappingHandles();
    void focalHeldInside();
    void radiusPointOnTheCentre();
    void conicalAngle_data();
    void conicalAngle();
    void conicalPixels();
    void pointsSurviveTypeChanges();
};

void TestGradientWidgets::pressAddsStopInNewColour()
{
    QGradientCreator strip(NewColor);
    QSignalSpy index(&strip, &QGradientCreator::changeIndex);
    QSignalSpy gradient(&strip, &QGradientCreator::changeGradient);
    QTest::mousePress(&strip, Qt::LeftButton, {}, QPoint(205, 70));
    QCOMPARE(positions(strip), QList<double>({0.0, 1.0, 0.5}));
    QCOMPARE(strip.stops().last().color, NewColor);
    QCOMPARE(strip.selected(), 2u);
    QCOMPARE(index.size(), 1);
    QCOMPARE(index.first().first().value<GradientData>(), (GradientData{0.5, NewColor}));
    QCOMPARE(gradient.size(), 1);

    // Outside the strip's active area nothing changes, not even the selection.
    QTest::mousePress(&strip, Qt::LeftButton, {}, QPoint(205, 59));
    QCOMPARE(strip.stops().size(), 3);
    QCOMPARE(strip.selected(), 2u);
    QCOMPARE(index.size(), 1);
}

void TestGradientWidgets::pressOnCursors_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<uint>("selected");
    // Cursors at 200 to 209 and 204 to 213.
    QTest::newRow("first only") << 201 << 0u;
    QTest::newRow("both: the last wins") << 206 << 1u;
    QTest::newRow("right edge of the second") << 213 << 1u;
    QTest::newRow("stop outside the strip, drawn at its end") << 404 << 2u;
}

void TestGradientWidgets::pressOnCursors()
{
    QFETCH(int, x);
    QFETCH(uint, selected);
    QGradientCreator strip(NewColor);
    strip.setGradient({{0.5, QColor(Qt::red)}, {0.51, QColor(Qt::blue)}, {1.5, QColor(Qt::cyan)}});
    QTest::mousePress(&strip, Qt::LeftButton, {}, QPoint(x, 81));
    QCOMPARE(strip.selected(), selected);
    QCOMPARE(strip.stops().size(), 3);
}

void TestGradientWidgets::dragStopsAtTheEnds()
{
    QGradientCreator strip(NewColor);
    strip.setGradient({{0.5, QColor(Qt::red)}});
    drag(&strip, QPoint(203, 70), {QPoint(-40, 300)});
    QCOMPARE(positions(strip), QList<double>({0.0}));
    drag(&strip, QPoint(3, 70), {QPoint(250, 70), QPoint(900, 70)});
    QCOMPARE(positions(strip), QList<double>({1.0}));
    // A release ends the drag: a later move changes nothing.
    QTest::mouseMove(&strip, QPoint(105, 70));
    QCOMPARE(positions(strip), QList<double>({1.0}));
}

void TestGradientWidgets::handleDragsClamp()
{
    QGradientRender preview;
    drag(&preview, QPoint(199, 100), {QPoint(-20, 250)});
    QCOMPARE(preview.record().linearEnd, QPointF(0, 199));
    drag(&preview, QPoint(0, 199), {QPoint(300, -5)});
    QCOMPARE(preview.record().linearEnd, QPointF(199, 0));
    QCOMPARE(preview.record().linearStart, QPointF(0, 100));
    QCOMPARE(preview.handles(), QList<QPoint>({QPoint(0, 100), QPoint(199, 0)}));
    // A handle is within reach up to 6.5 pixels from its point: half the picture.
    drag(&preview, QPoint(6, 97), {QPoint(60, 60)});
    QCOMPARE(preview.handles(), QList<QPoint>({QPoint(0, 100), QPoint(199, 0)}));
    drag(&preview, QPoint(5, 104), {QPoint(60, 60)});
    QCOMPARE(preview.handles(), QList<QPoint>({QPoint(60, 60), QPoint(199, 0)}));
}

void TestGradientWidgets::overlappingHandles_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("moved");
    QTest::newRow("linear: end") << 0 << 1;
    QTest::newRow("radial: focal") << 1 << 2;
    QTest::newRow("conical: angle") << 2 << 1;
}

void TestGradientWidgets::overlappingHandles()
{
    QFETCH(int, type);
    QFETCH(int, moved);
    QGradientRender preview;
    preview.setGradientType(type);
    preview.setHandles({QPoint(50, 50), QPoint(52, 50), QPoint(54, 50)});
    drag(&preview, QPoint(53, 52), {QPoint(120, 130)});
    QList<QPoint> expected = {QPoint(50, 50), QPoint(52, 50), QPoint(54, 50)};
    expected = expected.mid(0, preview.handles().size());
    expected[moved] = QPoint(120, 130);
    QCOMPARE(preview.handles(), expected);
}

void TestGradientWidgets::focalHeldInside()
{
    QGradientRender preview;
    preview.setGradientType(1);
    drag(&preview, QPoint(100, 50), {QPoint(100, 199)});
    QCOMPARE(preview.record().radialFocal, QPointF(100, 199));
    const QRadialGradient* painted =
        static_cast<const QRadialGradient*>(preview.brush().gradient());
    QCOMPARE(painted->focalPoint(), QPointF(100, 175));
    QCOMPARE(painted->center(), QPointF(100, 100));
    QCOMPARE(painted->radius(), 100.0);

    const QBrush unit = preview.unitBrush();
    QCOMPARE(static_cast<const QRadialGradient*>(unit.gradient())->radius(), 100 / 199.0);
    QCOMPARE(static_cast<const QRadialGradient*>(unit.gradient())->focalPoint(),
             QPointF(100 / 199.0, 175 / 199.0));

    preview.join();
    QCOMPARE(preview.record().radialFocal, QPointF(100, 100));
    QCOMPARE(preview.record().radialCenter, QPointF(100, 100));
}

void TestGradientWidgets::radiusPointOnTheCentre()
{
    QGradientRender preview;
    preview.setGradientType(1);
    drag(&preview, QPoint(100, 1), {QPoint(100, 100)});
    QCOMPARE(preview.record().radialRadius, QPointF(100, 100));
    const QRadialGradient* painted =
        static_cast<const QRadialGradient*>(preview.brush().gradient());
    QCOMPARE(painted->radius(), 0.0);
    QCOMPARE(painted->focalPoint(), QPointF(100, 100));

    // Nothing is painted: the checker shows everywhere but under the handles.
    const QImage shown = preview.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    QImage checker;
    fillChecker(checker, QSize(200, 200), 5, false, Qt::white, Qt::gray);
    for (int y = 0; y < 200; y += 3) {
        for (int x = 0; x < 200; x += 3) {
            if (qAbs(x - 100) <= 7 && (qAbs(y - 100) <= 7 || qAbs(y - 50) <= 7))
                continue;
            QCOMPARE(shown.pixel(x, y), checker.pixel(x, y));
        }
    }
}

void TestGradientWidgets::conicalAngle_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<double>("angle");
    QTest::newRow("up") << QPoint(100, 0) << 90.0;
    QTest::newRow("down right") << QPoint(150, 150) << 315.0;
    QTest::newRow("on the centre") << QPoint(100, 100) << 0.0;
}

void TestGradientWidgets::conicalAngle()
{
    QFETCH(QPoint, to);
    QFETCH(double, angle);
    QGradientRender preview;
    preview.setGradientType(2);
    drag(&preview, QPoint(100, 3), {QPoint(130, 20), to});
    QCOMPARE(static_cast<const QConicalGradient*>(preview.brush().gradient())->angle(), angle);
}

void TestGradientWidgets::conicalPixels()
{
    QGradientRender preview;
    preview.setGradientType(2);
    const QImage shown = preview.grab().toImage();
    QVERIFY2(levelAt(shown, 95) <= 10, qPrintable(QString::number(levelAt(shown, 95))));
    QVERIFY2(levelAt(shown, 85) >= 245, qPrintable(QString::number(levelAt(shown, 85))));
    QVERIFY2(qAbs(levelAt(shown, 270) - 127) <= 3,
             qPrintable(QString::number(levelAt(shown, 270))));
}

void TestGradientWidgets::pointsSurviveTypeChanges()
{
    QGradientRender preview;
    preview.setGradientType(1);
    preview.setHandles({QPoint(10, 20), QPoint(30, 40), QPoint(50, 60)});
    preview.setGradientType(0);
    preview.setHandles({QPoint(1, 2), QPoint(3, 4)});
    const GradientRecord before = preview.record();
    for (int type : {2, 1, 0, 2})
        preview.setGradientType(type);
    preview.setSpreadType(2);
    GradientRecord after = preview.record();
    QCOMPARE(after.spread, quint8(2));
    after.type = before.type;
    after.spread = before.spread;
    QVERIFY(after == before);

    preview.reset();
    GradientRecord defaults;
    defaults.type = preview.record().type;
    defaults.spread = 2;
    QVERIFY(preview.record() == defaults);
    QCOMPARE(preview.unitHandles(),
             QList<QPointF>({QPointF(100 / 199.0, 100 / 199.0), QPointF(100 / 199.0, 0)}));
}

QTEST_MAIN(TestGradientWidgets)
#include "tst_gradientwidgets.moc"
