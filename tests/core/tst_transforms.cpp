// Resize, rotation and flips of one cell's picture, and their dispatch on a character
// with and without a preview snapshot.
#include "document/character.h"
#include "imagecompare.h"
#include "imaging/transforms.h"
#include "testfiles.h"

#include <QRegularExpression>
#include <QTest>

namespace {

constexpr QRgb Clear = 0x00102030u;

// One string per row: '.' a transparent pixel, any other character an opaque colour
// of its own.
QImage picture(const QList<QByteArray>& rows)
{
    QImage image(int(rows.first().size()), int(rows.size()), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const char c = rows.at(y).at(x);
            image.setPixel(x, y, c == '.' ? Clear : 0xff000000u | uint(c) * 0x010203u);
        }
    }
    return image;
}

QImage opaque(QSize size)
{
    return solidImage(size, 0xff336699u);
}

// One element whose every cell holds image at position.
Character oneElement(const QImage& image, QPoint position)
{
    Character character(Character::XP, QSize());
    const int cells = character.cellCount();
    character.insertElement(0, "e", QByteArray(), QList<QImage>(cells, image),
                            QList<QPoint>(cells, position), true);
    return character;
}

} // namespace

class TestTransforms : public QObject
{
    Q_OBJECT

private slots:
    // Scaling a null image warns; no operation here may.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void resize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QPoint>("position");
        QTest::addColumn<double>("widthFactor");
        QTest::addColumn<double>("heightFactor");
        QTest::addColumn<bool>("recenter");
        QTest::addColumn<bool>("smooth");
        QTest::addColumn<QSize>("newSize");
        QTest::addColumn<QPoint>("newPosition");
        QTest::newRow("half, recentred") << QSize(8, 6) << QPoint(0, 0) << 0.5 << 0.5 << true
                                         << false << QSize(4, 3) << QPoint(2, 1);
        QTest::newRow("half, corner kept") << QSize(8, 6) << QPoint(3, -2) << 0.5 << 0.5 << false
                                           << false << QSize(4, 3) << QPoint(3, -2);
        QTest::newRow("double, recentred, negative truncates toward 0")
            << QSize(3, 5) << QPoint(0, 0) << 2.0 << 2.0 << true << false << QSize(6, 10)
            << QPoint(-1, -2);
        QTest::newRow("sides apart, smooth") << QSize(10, 4) << QPoint(1, 1) << 1.5 << 0.25 << true
                                             << true << QSize(15, 1) << QPoint(-1, 2);
        // The corner still moves towards the middle of what was there.
        QTest::newRow("25 % of 3 pixels is nothing") << QSize(3, 4) << QPoint(7, 7) << 0.25 << 0.25
                                                     << true << false << QSize() << QPoint(8, 8);
    }

    void resize()
    {
        QFETCH(QSize, size);
        QFETCH(QPoint, position);
        QFETCH(double, widthFactor);
        QFETCH(double, heightFactor);
        QFETCH(bool, recenter);
        QFETCH(bool, smooth);
        QFETCH(QSize, newSize);
        QFETCH(QPoint, newPosition);
        const PlacedImage result =
            resizedImage({opaque(size), position}, widthFactor, heightFactor, recenter, smooth);
        QCOMPARE(result.position, newPosition);
        if (!newSize.isValid()) {
            QVERIFY(result.image.isNull());
            return;
        }
        QCOMPARE(result.image.size(), newSize);
        QCOMPARE(result.image.format(), QImage::Format_ARGB32);
    }

    // A null picture stays null and in place, whatever comes after.
    void nullPictureIsLeftAlone()
    {
        const PlacedImage null{QImage(), QPoint(3, 4)};
        const PlacedImage resized = resizedImage(null, 2.0, 2.0, true, true);
        QVERIFY(resized.image.isNull());
        QCOMPARE(resized.position, QPoint(3, 4));
        const PlacedImage rotated = rotatedImage(null, 90.0, false);
        QVERIFY(rotated.image.isNull());
        QCOMPARE(rotated.position, QPoint(3, 4));
        QVERIFY(flippedImage(QImage(), true, true).isNull());
    }

    void fullSizeChangesNothing()
    {
        const QImage image = picture({"ab.", ".cd"});
        const PlacedImage result = resizedImage({image, QPoint(-3, 5)}, 1.0, 1.0, true, false);
        ZK_COMPARE_IMAGES(result.image, image);
        QCOMPARE(result.position, QPoint(-3, 5));
    }

    void rotate_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<QPoint>("position");
        QTest::addColumn<QList<double>>("turns");
        QTest::addColumn<QSize>("newSize");
        QTest::addColumn<QPoint>("newPosition");
        // The vertical correction by widths: by heights this would land at (6, 4).
        QTest::newRow("90") << opaque(QSize(4, 2)) << QPoint(5, 5) << QList<double>{90}
                            << QSize(2, 4) << QPoint(6, 6);
        QTest::newRow("-90") << opaque(QSize(4, 2)) << QPoint(5, 5) << QList<double>{-90}
                             << QSize(2, 4) << QPoint(6, 6);
        QTest::newRow("90 twice, even difference")
            << opaque(QSize(4, 2)) << QPoint(5, 5) << QList<double>{90, 90} << QSize(4, 2)
            << QPoint(5, 5);
        QTest::newRow("90 twice, odd difference")
            << opaque(QSize(3, 2)) << QPoint(4, 4) << QList<double>{90, 90} << QSize(3, 2)
            << QPoint(3, 3);
        QTest::newRow("180, odd difference") << opaque(QSize(3, 2)) << QPoint(4, 4)
                                             << QList<double>{180} << QSize(3, 2) << QPoint(4, 4);
        QTest::newRow("transparent: nothing to trim")
            << solidImage(QSize(4, 2), Clear) << QPoint(0, 0) << QList<double>{90} << QSize(2, 4)
            << QPoint(1, 1);
        // The left column turns into the top row, which the trim cuts off.
        QTest::newRow("margin made by the turn is trimmed")
            << picture({".ab", ".cd"}) << QPoint(4, 4) << QList<double>{90} << QSize(2, 2)
            << QPoint(4, 5);
    }

    void rotate()
    {
        QFETCH(QImage, image);
        QFETCH(QPoint, position);
        QFETCH(QList<double>, turns);
        QFETCH(QSize, newSize);
        QFETCH(QPoint, newPosition);
        PlacedImage placed{image, position};
        for (double degrees : turns)
            placed = rotatedImage(placed, degrees, false);
        QCOMPARE(placed.image.size(), newSize);
        QCOMPARE(placed.position, newPosition);
        QCOMPARE(placed.image.format(), QImage::Format_ARGB32);
    }

    void rotationPixels()
    {
        const QImage image = picture({"abc", "def"});
        ZK_COMPARE_IMAGES(rotatedImage({image, QPoint()}, 90, false).image,
                          picture({"da", "eb", "fc"}));
        const PlacedImage twice =
            rotatedImage(rotatedImage({image, QPoint()}, 90, false), 90, false);
        ZK_COMPARE_IMAGES(twice.image, rotatedImage({image, QPoint()}, 180, false).image);
        ZK_COMPARE_IMAGES(twice.image, picture({"fed", "cba"}));
    }

    // Flips mirror inside the picture's own box; the character's positions stay.
    void flipsKeepPositions()
    {
        const QImage image = picture({"ab.", "cde"});
        Character character = oneElement(image, QPoint(-2, 9));
        character.setSelectedCells({3});
        character.flipSelection(true, false);
        ZK_COMPARE_IMAGES(character.cellImage(0, 3), picture({".ba", "edc"}));
        character.flipSelection(false, true);
        ZK_COMPARE_IMAGES(character.cellImage(0, 3), picture({"edc", ".ba"}));
        QCOMPARE(character.cellPosition(0, 3), QPoint(-2, 9));
        ZK_COMPARE_IMAGES(character.cellImage(0, 2), image);
        QVERIFY(character.selectedElements().isEmpty());
    }

    // With a snapshot, previews start from it each time; without one they work on the
    // live pictures and add up, as the one-shot commands do.
    void previewsReadTheSnapshot_data()
    {
        QTest::addColumn<bool>("rotate");
        QTest::addColumn<bool>("snapshot");
        QTest::addColumn<QSize>("newSize");
        QTest::addColumn<QPoint>("newPosition");
        QTest::newRow("resize, snapshot") << false << true << QSize(4, 2) << QPoint(2, 1);
        QTest::newRow("resize, live") << false << false << QSize(2, 1) << QPoint(3, 1);
        QTest::newRow("rotation, snapshot") << true << true << QSize(4, 8) << QPoint(2, 2);
        QTest::newRow("rotation, live") << true << false << QSize(8, 4) << QPoint(0, 0);
    }

    void previewsReadTheSnapshot()
    {
        QFETCH(bool, rotate);
        QFETCH(bool, snapshot);
        QFETCH(QSize, newSize);
        QFETCH(QPoint, newPosition);
        const QImage image = opaque(QSize(8, 4));
        Character character = oneElement(image, QPoint(0, 0));
        if (snapshot)
            character.beginPreview();
        for (int i = 0; i < 2; ++i) {
            if (rotate)
                character.rotateSelection(90, false, true);
            else
                character.resizeSelection(0.5, 0.5, true, false, true);
        }
        QCOMPARE(character.cellImage(0, 15).size(), newSize);
        QCOMPARE(character.cellPosition(0, 15), newPosition);
        if (snapshot) {
            ZK_COMPARE_IMAGES(character.snapshotImage(0, 15), image);
            QCOMPARE(character.snapshotPosition(0, 15), QPoint(0, 0));
        }
    }
};

QTEST_GUILESS_MAIN(TestTransforms)
#include "tst_transforms.moc"
