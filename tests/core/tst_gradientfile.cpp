// The .zkd gradient file: exact bytes, round trips, and damaged files that stop the
// reader where the damage is, saying how far it got.
#include "formats/gradientfile.h"
#include "testfiles.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

QByteArray written(const GradientRecord& record)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!GradientFile::write(record, &buffer))
        return QByteArray("<failed>");
    return buffer.data();
}

GradientFile::Reading readBytes(const QByteArray& bytes, qint64* stoppedAt = nullptr)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    GradientFile::Reading reading = GradientFile::read(&buffer, QStringLiteral("f.zkd"));
    if (stoppedAt)
        *stoppedAt = buffer.pos();
    return reading;
}

GradientRecord record(quint8 type, quint8 spread, const QList<QPointF>& handles,
                      const QList<GradientData>& stops)
{
    GradientRecord result;
    result.type = type;
    result.spread = spread;
    result.setHandles(handles);
    result.stops = stops;
    return result;
}

QByteArray stopBytes(double pos, const char* rgba)
{
    QByteArray bytes(8, '\0');
    std::memcpy(bytes.data(), &pos, 8); // the test machine is little-endian, as the file
    return bytes + hex(rgba);
}

const QString Damaged = QStringLiteral("f.zkd est endommagé.<br />Il est impossible de l'ouvrir.");

} // namespace

class TestGradientFile : public QObject
{
    Q_OBJECT

private slots:
    void defaultBytes();
    void roundTrip_data();
    void roundTrip();
    void damaged_data();
    void damaged();
    void files();
};

void TestGradientFile::defaultBytes()
{
    QCOMPARE(written(GradientRecord()), hex("00 0200 00 00 0064 c864"
                                            "0000000000000000 000000ff"
                                            "000000000000f03f ffffffff"));
    GradientRecord radial;
    radial.type = GradientRecord::Radial;
    radial.spread = 1;
    const QByteArray bytes = written(radial);
    QCOMPARE(bytes.size(), 35);
    QCOMPARE(bytes.left(11), hex("00 0200 01 01 6464 6400 6432"));
}

void TestGradientFile::roundTrip_data()
{
    QTest::addColumn<GradientRecord>("original");
    const QList<GradientData> two = {{0.25, QColor(10, 20, 30, 40)}, {0.75, QColor(Qt::red)}};
    const QList<QPointF> points = {{3, 199}, {200, 0}, {255, 17}};
    for (quint8 type = 0; type < 3; ++type) {
        for (quint8 spread = 0; spread < 3; ++spread)
            QTest::addRow("type %d spread %d", type, spread) << record(type, spread, points, two);
    }
    QTest::newRow("no stop") << record(0, 0, points, {});
    QTest::newRow("two stops at one place")
        << record(1, 0, points, {{0.5, QColor(Qt::red)}, {0.5, QColor(Qt::blue)}});
    QTest::newRow("outside the strip")
        << record(2, 2, points, {{-0.0125, QColor(1, 2, 3, 0)}, {1.5, QColor(Qt::green)}});
}

void TestGradientFile::roundTrip()
{
    QFETCH(GradientRecord, original);
    const QByteArray bytes = written(original);
    QCOMPARE(bytes.size(),
             5 + 2 * GradientRecord::handleCount(original.type) + 12 * original.stops.size());
    const GradientFile::Reading reading = readBytes(bytes);
    QVERIFY(reading.ok());
    QVERIFY(reading.errorText.isEmpty());
    QVERIFY(reading.record == original);
    QCOMPARE(written(reading.record), bytes);
}

void TestGradientFile::damaged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("reached");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("spread");
    QTest::addColumn<qint64>("stoppedAt");
    QTest::addColumn<QString>("message");

    const QByteArray radial = hex("00 0100 01 02 0a0b 0c0d 0e0f");
    const QByteArray stop = stopBytes(0.5, "11223344");
    const QString newer =
        QStringLiteral("f.zkd a été enregistré avec une version de Zenkora plus récente.");
    QTest::newRow("empty") << QByteArray() << 0 << 0 << 0 << qint64(0) << Damaged;
    QTest::newRow("version 1") << hex("01 0200 01 01") << 1 << 0 << 0 << qint64(1) << newer;
    QTest::newRow("cut in the count") << hex("00 02") << 1 << 0 << 0 << qint64(2) << Damaged;
    QTest::newRow("cut after the type") << radial.left(4) << 2 << 1 << 0 << qint64(4) << Damaged;
    QTest::newRow("type 3") << hex("00 0000 03 01 0000 0000") << 1 << 0 << 0 << qint64(4)
                            << Damaged;
    QTest::newRow("spread 3") << hex("00 0000 02 03 0000 0000") << 2 << 2 << 0 << qint64(5)
                              << Damaged;
    QTest::newRow("cut in the handles") << radial.left(10) << 3 << 1 << 2 << qint64(10) << Damaged;
    QTest::newRow("cut in the stop")
        << radial + stop.left(11) << 4 << 1 << 2 << qint64(11) << Damaged;
    QTest::newRow("NaN position") << radial + stopBytes(std::numeric_limits<double>::quiet_NaN(),
                                                        "00000000")
                                  << 4 << 1 << 2 << qint64(23) << Damaged;
    QTest::newRow("infinite position")
        << radial + stopBytes(-std::numeric_limits<double>::infinity(), "00000000") << 4 << 1 << 2
        << qint64(23) << Damaged;
    // 65535 stops announced in 20 bytes: refused before a single stop is read.
    QTest::newRow("count 65535") << hex("00 ffff 00 00 0000 0000") + QByteArray(11, '\0') << 4 << 0
                                 << 0 << qint64(9) << Damaged;
    QTest::newRow("one stop too few")
        << hex("00 0200 00 00 0000 0000") + stop << 4 << 0 << 0 << qint64(9) << Damaged;
}

void TestGradientFile::damaged()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, reached);
    QFETCH(int, type);
    QFETCH(int, spread);
    QFETCH(qint64, stoppedAt);
    QFETCH(QString, message);
    qint64 position = -1;
    const GradientFile::Reading reading = readBytes(bytes, &position);
    QCOMPARE(int(reading.reached), reached);
    QCOMPARE(reading.errorText, message);
    QCOMPARE(int(reading.record.type), type);
    QCOMPARE(int(reading.record.spread), spread);
    QCOMPARE(position, stoppedAt);
    GradientRecord expected;
    expected.type = quint8(type);
    if (reached >= GradientFile::Handles) {
        expected.setHandles({{10, 11}, {12, 13}, {14, 15}});
        if (type == 0)
            expected.setHandles({{0, 0}, {0, 0}});
        QCOMPARE(reading.record.handles(), expected.handles());
        QVERIFY(reading.record.stops.isEmpty());
    } else {
        QCOMPARE(reading.record.handles(), expected.handles());
    }
}

void TestGradientFile::files()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("dégradé é.zkd"));
    GradientRecord original;
    original.type = GradientRecord::Conical;
    QVERIFY(GradientFile::save(original, path));
    QVERIFY(GradientFile::load(path).record == original);

    // A failed save leaves the old file whole and no temporary file behind.
    GradientRecord tooMany;
    tooMany.stops = QList<GradientData>(0x10000, GradientData{0.5, QColor(Qt::red)});
    QString error;
    QVERIFY(!GradientFile::save(tooMany, path, &error));
    QCOMPARE(error, QStringLiteral("Impossible d'enregistrer le fichier :<br />") + path +
                        QLatin1Char('.'));
    QCOMPARE(fileContents(path), written(original));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);

    const QString missing = dir.filePath(QStringLiteral("absent/d.zkd"));
    QVERIFY(!GradientFile::save(original, missing, &error));
    QVERIFY(!QFileInfo::exists(dir.filePath(QStringLiteral("absent"))));

    const QString fifo = dir.filePath(QStringLiteral("tube"));
    QVERIFY(::mkfifo(QFile::encodeName(fifo).constData(), 0600) == 0);
    for (const QString& unreadable : {missing, dir.path(), fifo}) {
        const GradientFile::Reading reading = GradientFile::load(unreadable);
        QCOMPARE(int(reading.reached), int(GradientFile::Nothing));
        QCOMPARE(reading.errorText, QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />") +
                                        unreadable + QLatin1Char('.'));
    }
}

QTEST_GUILESS_MAIN(TestGradientFile)
#include "tst_gradientfile.moc"
