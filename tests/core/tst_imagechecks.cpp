#include "imaging/imagechecks.h"

#include "imagecompare.h"
#include "testfiles.h"

#include <QColor>
#include <QImage>
#include <QtTest>

namespace {

// rows: 'a' colorA, 'b' colorB, 'k' opaque black.
QImage picture(const QList<QByteArray>& rows, QRgb a, QRgb b)
{
    QImage image(int(rows.first().size()), int(rows.size()), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const char c = rows.at(y).at(x);
            image.setPixel(x, y, c == 'a' ? a : c == 'b' ? b : 0xff000000u);
        }
    }
    return image;
}

} // namespace

class TestImageChecks : public QObject
{
    Q_OBJECT

private slots:
    void checker_data();
    void checker();
    void transparency_data();
    void transparency();
    void filledWith_data();
    void filledWith();
};

void TestImageChecks::checker_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("squareSize");
    QTest::addColumn<bool>("frame");
    QTest::addColumn<QColor>("colorA");
    QTest::addColumn<QColor>("colorB");
    QTest::addColumn<QList<QByteArray>>("rows");

    const QColor white(Qt::white);
    const QColor gray(Qt::gray);
    QTest::newRow("squares of 2") << QSize(5, 5) << 2 << false << white << gray
                                  << QList<QByteArray>{"aabba", "aabba", "bbaab", "bbaab", "aabba"};
    QTest::newRow("squares of 3, cut at the edges")
        << QSize(7, 4) << 3 << false << white << gray
        << QList<QByteArray>{"aaabbba", "aaabbba", "aaabbba", "bbbaaab"};
    QTest::newRow("squares of 1") << QSize(3, 2) << 1 << false << white << gray
                                  << QList<QByteArray>{"aba", "bab"};
    // See-through colours are written as they are, not through premultiplied pixels.
    QTest::newRow("see-through colours") << QSize(4, 1) << 1 << false << QColor(200, 100, 50, 128)
                                         << QColor(1, 2, 3, 0) << QList<QByteArray>{"abab"};
    QTest::newRow("frame on the outer pixels")
        << QSize(6, 5) << 2 << true << white << gray
        << QList<QByteArray>{"kkkkkk", "kabbak", "kbaabk", "kbaabk", "kkkkkk"};
}

void TestImageChecks::checker()
{
    QFETCH(QSize, size);
    QFETCH(int, squareSize);
    QFETCH(bool, frame);
    QFETCH(QColor, colorA);
    QFETCH(QColor, colorB);
    QFETCH(QList<QByteArray>, rows);

    QImage image(2, 2, QImage::Format_RGB32);
    fillChecker(image, size, squareSize, frame, colorA, colorB);
    QCOMPARE(image.format(), QImage::Format_ARGB32);
    ZK_COMPARE_IMAGES(image, picture(rows, colorA.rgba(), colorB.rgba()));
}

void TestImageChecks::transparency_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<bool>("transparent");

    QTest::newRow("raw 19") << solidImage(QSize(3, 3), 19u) << true;
    QTest::newRow("colour bytes without alpha") << solidImage(QSize(3, 3), 0x00ffffffu) << true;
    QImage lastPixel = solidImage(QSize(4, 3), 0u);
    lastPixel.setPixel(3, 2, 0x01000000u);
    QTest::newRow("alpha 1 in the last pixel") << lastPixel << false;
    QImage firstPixel = solidImage(QSize(4, 3), 0u);
    firstPixel.setPixel(0, 0, 0xff000000u);
    QTest::newRow("opaque first pixel") << firstPixel << false;
    QTest::newRow("no pixels") << QImage() << true;
    QTest::newRow("opaque format") << QImage(2, 2, QImage::Format_RGB32) << false;
}

void TestImageChecks::transparency()
{
    QFETCH(QImage, image);
    QFETCH(bool, transparent);

    QCOMPARE(isTransparent(image), transparent);
}

void TestImageChecks::filledWith_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<uint>("pixel");
    QTest::addColumn<bool>("filled");

    QTest::newRow("same pixel") << solidImage(QSize(5, 2), 0x80123456u) << 0x80123456u << true;
    QTest::newRow("alpha differs") << solidImage(QSize(5, 2), 0x00000013u) << 0x01000013u << false;
    QTest::newRow("colour of a transparent pixel differs")
        << solidImage(QSize(5, 2), 0x00000013u) << 0x00000000u << false;
    QImage lastPixel = solidImage(QSize(5, 2), 0xff00ff00u);
    lastPixel.setPixel(4, 1, 0xff00ff01u);
    QTest::newRow("last pixel differs") << lastPixel << 0xff00ff00u << false;
    QTest::newRow("no pixels") << QImage() << 0x12345678u << true;
}

void TestImageChecks::filledWith()
{
    QFETCH(QImage, image);
    QFETCH(uint, pixel);
    QFETCH(bool, filled);

    QCOMPARE(isFilledWith(image, pixel), filled);
}

QTEST_APPLESS_MAIN(TestImageChecks)

#include "tst_imagechecks.moc"
