#include "formats/fileerrors.h"
#include "formats/palettefile.h"
#include "imaging/classichsv.h"
#include "imaging/defaultpalette.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include "testfiles.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

Q_DECLARE_METATYPE(QColor)

namespace {

QByteArray written(const QList<QColor>& colours)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!PaletteFile::write(colours, &buffer))
        return QByteArray();
    return buffer.data();
}

QByteArray defaultBytes()
{
    return written(DefaultPalette::colours(20, 6));
}

} // namespace

// The palette file and the colours it starts from: the default grid to the byte, the
// reader's handling of short, newer and damaged files, and saves that fail.
class TestPaletteFile : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void defaultPaletteBytes()
    {
        const QByteArray bytes = defaultBytes();
        QCOMPARE(bytes.size(), 483);
        QCOMPARE(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex(),
                 QByteArray("5a76546b709a1eaea52cd1ddd3356f63368ec6590a2a8d33fcdfbc1fabe4c924"));
    }

    // Swatches whose channels the old toolkit's truncation decides: Qt 6's own HSV
    // gives (127, 64, 64) and (255, 77, 0) for 15 and 18.
    void defaultPaletteColours_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("grey 85") << 2 << QColor(85, 85, 85, 255);
        QTest::newRow("translucent grey") << 10 << QColor(64, 64, 64, 128);
        QTest::newRow("dark red") << 15 << QColor(127, 63, 63, 255);
        QTest::newRow("orange") << 18 << QColor(255, 76, 0, 255);
        QTest::newRow("last") << 119 << QColor(128, 0, 81, 128);
    }

    void defaultPaletteColours()
    {
        QFETCH(int, index);
        QFETCH(QColor, colour);
        QCOMPARE(DefaultPalette::colours(20, 6).at(index).rgba(), colour.rgba());
    }

    // Degrees to the old toolkit's arithmetic, and back from RGB.
    void classicHsv()
    {
        QCOMPARE(ClassicHsv::toRgb(ClassicHsv::fromHsv(135, 255, 255)), QColor(0, 255, 64));
        QCOMPARE(ClassicHsv::toRgb(ClassicHsv::fromHsvF(1.0, 1, 1)), QColor(255, 0, 0));
        QCOMPARE(ClassicHsv::toRgb(ClassicHsv::fromHsv(-1, 200, 77, 9)), QColor(77, 77, 77, 9));
        const ClassicHsv::Components rgb = ClassicHsv::of(QColor(100, 30, 5));
        QCOMPARE(rgb.saturation, 243); // Qt 6 rounds to 242
        QCOMPARE(rgb.hue, 15);
        QCOMPARE(rgb.value, 100);
        QCOMPARE(ClassicHsv::of(QColor(40, 40, 40)).hue, -1);
        // An HSV colour keeps its own components, its hue even as a grey.
        const ClassicHsv::Components grey = ClassicHsv::of(ClassicHsv::fromHsvF(0.25, 0, 0.5));
        QCOMPARE(grey.hueF, 0.25);
        QCOMPARE(grey.hue, 90);
        QCOMPARE(grey.valueF, 32768 / 65535.0);
    }

    void read_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("maxColours");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<int>("colours");
        QTest::addColumn<QString>("message");
        const QByteArray whole = defaultBytes();
        const QString damaged = QStringLiteral("p.zkp est endommagé.<br />Il est impossible de "
                                               "l'ouvrir.");
        QByteArray newer = whole;
        newer[0] = 1;
        QTest::newRow("default") << whole << 120 << true << 120 << QString();
        QTest::newRow("version 1") << newer << 120 << false << 0
                                   << QStringLiteral("p.zkp a été enregistré avec une version de "
                                                     "Zenkora plus récente.");
        QTest::newRow("count 0") << QByteArray("\0\0\0", 3) << 120 << true << 0 << QString();
        QTest::newRow("cut inside colour 7")
            << whole.left(3 + 4 * 7 + 2) << 120 << false << 7 << damaged;
        QTest::newRow("count 3") << written(DefaultPalette::colours(20, 6).mid(0, 3)) << 120 << true
                                 << 3 << QString();
        // Surplus colours are not read: neither their bytes nor their absence matter.
        QByteArray declared500 = whole;
        declared500[1] = char(0xf4);
        declared500[2] = 1;
        QTest::newRow("count 500, grid") << declared500 << 120 << true << 120 << QString();
        QTest::newRow("count 500, whole") << declared500 << 0xffff << false << 120 << damaged;
        QTest::newRow("empty") << QByteArray() << 120 << false << 0 << damaged;
        QTest::newRow("cut count") << QByteArray("\0\x05", 2) << 120 << false << 0 << damaged;
    }

    void read()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, maxColours);
        QFETCH(bool, accepted);
        QFETCH(int, colours);
        QFETCH(QString, message);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        PaletteFile::Contents contents;
        QString error;
        QCOMPARE(PaletteFile::read(&buffer, QStringLiteral("p.zkp"), maxColours, contents, &error),
                 accepted);
        QCOMPARE(error, message);
        QCOMPARE(contents.colours, DefaultPalette::colours(20, 6).mid(0, colours));
    }

    void refusedPaths_data()
    {
        QTest::addColumn<QString>("path");
        const QString fifo = m_dir.filePath(QStringLiteral("tube é.zkp"));
        QVERIFY(::mkfifo(QFile::encodeName(fifo).constData(), 0600) == 0);
        const QString folder = m_dir.filePath(QStringLiteral("dossier.zkp"));
        QVERIFY(QDir().mkpath(folder));
        QTest::newRow("FIFO") << fifo;
        QTest::newRow("folder") << folder;
        QTest::newRow("missing") << m_dir.filePath(QStringLiteral("absent.zkp"));
    }

    void refusedPaths()
    {
        QFETCH(QString, path);
        QElapsedTimer clock;
        clock.start();
        PaletteFile::Contents contents;
        QString error;
        QVERIFY(!PaletteFile::load(path, 120, contents, &error));
        QCOMPARE(error, FileErrors::openForReading(path));
        QCOMPARE(contents.version, -1);
        QVERIFY(clock.elapsed() < 5000);
    }

    void failedSavesKeepTheOldFile()
    {
        const QList<QColor> colours = DefaultPalette::colours(20, 6);
        QVERIFY(!PaletteFile::save(colours, m_dir.filePath(QStringLiteral("absent/p.zkp"))));

        const QString folder = m_dir.filePath(QStringLiteral("saves"));
        QVERIFY(QDir().mkpath(folder));
        const QString path = folder + QStringLiteral("/palette é.zkp");
        QVERIFY(writeFile(path, "old"));
        // A disk that fills after 100 bytes: the write fails and the old file stays.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit previous{};
        ::getrlimit(RLIMIT_FSIZE, &previous);
        rlimit small = previous;
        small.rlim_cur = 100;
        ::setrlimit(RLIMIT_FSIZE, &small);
        const bool saved = PaletteFile::save(colours, path);
        ::setrlimit(RLIMIT_FSIZE, &previous);
        QVERIFY(!saved);
        QCOMPARE(fileContents(path), QByteArray("old"));
        QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden).size(), 1);

        QVERIFY(PaletteFile::save(colours, path));
        QCOMPARE(fileContents(path), defaultBytes());
    }

    // The palettes that come with the program read whole.
    void shippedPalettes()
    {
        const QDir folder(QStringLiteral(ZENKORA_SOURCE_DIR "/palette"));
        const QStringList names = folder.entryList({QStringLiteral("*.zkp")}, QDir::Files);
        QVERIFY(names.size() >= 3);
        for (const QString& name : names) {
            PaletteFile::Contents contents;
            QString error;
            QVERIFY2(PaletteFile::load(folder.filePath(name), 120, contents, &error),
                     qPrintable(error));
            QCOMPARE(contents.count, 120);
            QCOMPARE(QFileInfo(folder.filePath(name)).size(), 483);
        }
    }
};

QTEST_GUILESS_MAIN(TestPaletteFile)
#include "tst_palettefile.moc"
