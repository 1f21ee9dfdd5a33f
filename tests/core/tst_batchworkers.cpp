#include "batch/converter.h"
#include "batch/fusioner.h"
#include "batch/masssaveplan.h"
#include "batch/savemasssystem.h"
#include "batch/sheetpalette.h"
#include "document/character.h"
#include "formats/pngwriter.h"
#include "testfiles.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

// What the three batch workers do when a write fails or a stop is asked for, and the
// colour table of sheets towards RPG Maker 2003.
class TestBatchWorkers : public QObject
{
    Q_OBJECT

    static constexpr QRgb Key = 0xff209c00;
    TestFolders m_folders{u"Lots"_s};

    // A sheet of size with every pixel its own shade of seed.
    static QImage sheet(QSize size, int seed)
    {
        QImage image(size, QImage::Format_ARGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                image.setPixel(x, y, qRgb(seed * 60 % 256, (x * 7) % 256, (y * 5) % 256));
        }
        return image;
    }

    // Three sheets "a.png" to "c.png" in a new folder.
    QStringList threeSources(QSize size)
    {
        const QString folder = m_folders.newFolder();
        QStringList paths;
        for (int i = 0; i < 3; ++i) {
            paths.append(folder + u'/' + QChar(u'a' + i) + u".png"_s);
            PngWriter::save(sheet(size, i + 1), paths.last());
        }
        return paths;
    }

    static Character twoElements()
    {
        Character character(Character::VX, QSize(96, 128));
        for (int e = 0; e < 2; ++e) {
            QImage image(96, 128, QImage::Format_ARGB32);
            image.fill(qRgb(200, 40 + e * 100, 60));
            character.addElement(image, "e" + QByteArray::number(e), e);
        }
        return character;
    }

    // Asks thread to stop, from the thread itself, at the first progress whose text
    // starts with at.
    template <typename Signal> static void stopAt(QThread* thread, Signal signal, const QString& at)
    {
        QObject::connect(
            static_cast<typename QtPrivate::FunctionPointer<Signal>::Object*>(thread), signal,
            thread,
            [thread, at](auto, const QString& info) {
                if (info.startsWith(at))
                    thread->requestInterruption();
            },
            Qt::DirectConnection);
    }

private slots:
    // An output folder whose name a file holds: every output is listed, each once.
    void failedWrites_data()
    {
        QTest::addColumn<int>("direction");
        QTest::newRow("XP to VX") << 3;
        QTest::newRow("XP to 2003, one shared sheet") << 2;
    }

    void failedWrites()
    {
        QFETCH(int, direction);
        const QStringList sources = threeSources(QSize(128, 192));
        const QString folder = QFileInfo(sources.first()).path();
        const QString output =
            folder + (direction == 3 ? u"/VX_CONVERSIONS"_s : u"/2K3_CONVERSIONS"_s);
        QVERIFY(writeFile(output, "a file"));
        Converter converter(sources, true, uchar(direction), nullptr, 0);
        converter.run();
        QStringList expected;
        // Towards VX a single character's name takes the engine's mark.
        for (const QString& source : direction == 3 ? sources : sources.mid(0, 1))
            expected.append(output + (direction == 3 ? u"/$"_s : u"/"_s) +
                            QFileInfo(source).fileName());
        QCOMPARE(converter.failedWrites(), expected);
        QVERIFY(converter.failedFiles().isEmpty());

        const QString target = output + u"/merged.png"_s;
        Fusioner fusioner(sources, target, nullptr);
        fusioner.run();
        QCOMPARE(fusioner.failedWrites(), QStringList{target});

        Character character = twoElements();
        SaveMassSystem saver(&character, {1}, output, u"p"_s, 120, false, nullptr);
        saver.run();
        QCOMPARE(saver.failedWrites(),
                 QStringList({output + u"/p1_0.png"_s, output + u"/p1_120.png"_s,
                              output + u"/p1_240.png"_s}));
    }

    void converterStops_data()
    {
        QTest::addColumn<int>("direction");
        QTest::addColumn<QSize>("size");
        QTest::newRow("XP to VX") << 3 << QSize(128, 192);
        QTest::newRow("single VX to 2003") << 4 << QSize(96, 128);
    }

    // Stopped after the first of three sources: its outputs alone, whole; towards 2003
    // the sheet still gets its colour table and the next run starts a new sheet.
    void converterStops()
    {
        QFETCH(int, direction);
        QFETCH(QSize, size);
        const QStringList sources = threeSources(size);
        auto* converter = new Converter(sources, true, uchar(direction), this, 1);
        stopAt(converter, &Converter::changeProgress, u"Conversion de : "_s + sources.first());
        QSignalSpy finished(converter, &Converter::finishThread);
        converter->start();
        QVERIFY(converter->wait(20000));
        QCOMPARE(finished.size(), 1);
        QVERIFY(converter->stopped());
        const QString output = QFileInfo(sources.first()).path() +
                               (direction == 3 ? u"/VX_CONVERSIONS"_s : u"/2K3_CONVERSIONS"_s);
        const QString name = direction == 3 ? u"$a.png"_s : u"a.png"_s;
        QCOMPARE(QDir(output).entryList(QDir::Files), QStringList{name});
        const QImage written(output + u'/' + name);
        QVERIFY(!written.isNull());
        if (direction == 4) {
            QCOMPARE(written.format(), QImage::Format_Indexed8);
            QCOMPARE(written.color(0), Key);
            QCOMPARE(written.pixelIndex(287, 255), 0);
            QCOMPARE(Converter::sheetState().slot, uchar(0));
            Converter next({sources.at(1)}, true, 4, nullptr, 1);
            next.run();
            QVERIFY(QFile::exists(output + u"/b.png"_s));
        }
        delete converter;
    }

    void fusionerStops_data()
    {
        QTest::addColumn<QString>("at");
        QTest::addColumn<bool>("writes");
        QTest::newRow("while opening") << u"Ouverture de"_s << false;
        QTest::newRow("while merging") << u"Fusion de"_s << false;
        QTest::newRow("once saving") << u"Enregistrement du tileset"_s << true;
    }

    void fusionerStops()
    {
        QFETCH(QString, at);
        QFETCH(bool, writes);
        const QStringList sources = threeSources(QSize(256, 40));
        const QString target = QFileInfo(sources.first()).path() + u"/out.png"_s;
        QVERIFY(writeFile(target, "old bytes"));
        auto* fusioner = new Fusioner(sources, target, this);
        stopAt(fusioner, &Fusioner::changeProgress, at);
        fusioner->start();
        QVERIFY(fusioner->wait(20000));
        QCOMPARE(fusioner->stopped(), !writes);
        if (writes)
            QCOMPARE(QImage(target).size(), QSize(256, 120));
        else
            QCOMPARE(fileContents(target), QByteArray("old bytes"));
        delete fusioner;
    }

    // Stopped after its first file, the mass save writes no more, puts the character
    // back and still says it finished.
    void massSaveStops()
    {
        const QString folder = m_folders.newFolder();
        Character character = twoElements();
        const Character before = character;
        auto* saver = new SaveMassSystem(&character, {0, 1}, folder, u"p"_s, 120, false, this);
        QObject::connect(
            saver, &SaveMassSystem::changeProgess, saver,
            [saver](uchar, const QString&) { saver->requestInterruption(); }, Qt::DirectConnection);
        QSignalSpy finished(saver, &SaveMassSystem::finish);
        saver->start();
        QVERIFY(saver->wait(20000));
        QCOMPARE(finished.size(), 1);
        QVERIFY(saver->stopped());
        QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList{u"p0_0.png"_s});
        QCOMPARE(character.compose(), before.compose());
        QCOMPARE(character.selectedElements(), before.selectedElements());
        delete saver;
    }

    // The key at index 0 on exactly its pixels; up to 256 colours every pixel kept,
    // above that each within a short distance of its own colour.
    void keyAtIndexZero_data()
    {
        QTest::addColumn<int>("colours");
        QTest::addColumn<int>("maxDistance");
        QTest::newRow("opaque top-left, 40 colours") << 40 << 0;
        QTest::newRow("255 colours and the key") << 254 << 0;
        QTest::newRow("577 colours") << 577 << 6;
        QTest::newRow("600 colours") << 600 << 6;
    }

    void keyAtIndexZero()
    {
        QFETCH(int, colours);
        QFETCH(int, maxDistance);
        QImage source(288, 256, QImage::Format_ARGB32);
        for (int y = 0; y < 256; ++y) {
            for (int x = 0; x < 288; ++x) {
                const int n = (y * 288 + x) % (colours + 7) - 7;
                // Seven places of the cycle are key; the rest shades of nine hues, as
                // shaded pixel art has them.
                const int hue = n % 9;
                const int shade = n / 9 * 4;
                source.setPixel(x, y,
                                n < 0 ? Key
                                      : qRgb((hue * 90 + shade) % 256, (hue * 50 + shade) % 256,
                                             (hue * 20 + shade / 2) % 256));
            }
        }
        source.setPixel(0, 0, qRgb(1, 2, 255));
        const QImage indexed = SheetPalette::indexed(source);
        QCOMPARE(indexed.format(), QImage::Format_Indexed8);
        QVERIFY(indexed.colorCount() <= 256);
        QCOMPARE(indexed.color(0), Key);
        int worst = 0;
        for (int y = 0; y < 256; ++y) {
            for (int x = 0; x < 288; ++x) {
                const QRgb was = source.pixel(x, y);
                QCOMPARE(indexed.pixelIndex(x, y) == 0, was == Key);
                const QRgb now = indexed.pixel(x, y);
                worst = qMax(
                    worst, qMax(qAbs(qRed(now) - qRed(was)), qMax(qAbs(qGreen(now) - qGreen(was)),
                                                                  qAbs(qBlue(now) - qBlue(was)))));
            }
        }
        QVERIFY2(worst <= maxDistance, qPrintable(QString::number(worst)));
    }

    // Tagged for the grouped walk, an element of no group is found by its own index,
    // whatever its source held; the elements of a group keep their group.
    void tagSources()
    {
        Character character = twoElements();
        character.setElementSource(0, "C:/a|b.png");
        character.setElementSource(1, "x|y.elzk?3_7");
        MassSavePlan::tagSources(character);
        QCOMPARE(character.elementSource(0), QByteArray("|0"));
        QCOMPARE(character.elementSource(1), QByteArray("?3_7"));
        const MassSavePlan::Grouping grouping = MassSavePlan::grouping(character, {0, 1});
        QCOMPARE(grouping.simpleElements, QList<int>{0});
        QCOMPARE(grouping.groupElements, QList<int>{7});
    }
};

QTEST_GUILESS_MAIN(TestBatchWorkers)
#include "tst_batchworkers.moc"
