#include "batch/conversionplanner.h"
#include "batch/converter.h"
#include "formats/pngwriter.h"
#include "testfiles.h"

#include <QDirIterator>
#include <QTest>

using namespace Qt::StringLiterals;

// The names a conversion will write, predicted before it runs: for every direction
// they are the files the converter then writes, and the replaced ones those that exist.
class TestConversionPlanner : public QObject
{
    Q_OBJECT

    TestFolders m_folders{u"D\u00e9p\u00f4t"_s};

    // Each "name:WxH" a sheet of that size, "name:junk" bytes that are no image.
    QString folderWith(const QStringList& files)
    {
        const QString folder = m_folders.newFolder();
        for (const QString& file : files) {
            const QString path = folder + u'/' + file.section(u':', 0, 0);
            const QStringList size = file.section(u':', 1).split(u'x');
            if (size.size() == 1)
                writeFile(path, "\x89PNG but nothing more");
            else
                PngWriter::save(solidImage(QSize(size[0].toInt(), size[1].toInt()), 0xff336699),
                                path);
        }
        return folder;
    }

    static QStringList relative(QStringList paths, const QString& folder)
    {
        for (QString& path : paths)
            path.remove(0, folder.size() + 1);
        paths.sort();
        return paths;
    }

    static QStringList written(const QString& folder)
    {
        QStringList files;
        for (QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
            const QString path = it.next();
            if (path.contains("_CONVERSIONS/"_L1))
                files.append(path);
        }
        return relative(files, folder);
    }

private slots:
    void predictedAreWritten_data()
    {
        QTest::addColumn<int>("direction");
        QTest::addColumn<int>("count");
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("expected");
        QStringList town, people, nineXP, mixedVX;
        for (int k = 1; k <= 8; ++k) {
            town.append(u"XP_CONVERSIONS/Town_%1.png"_s.arg(k));
            people.append(u"XP_CONVERSIONS/People_%1.png"_s.arg(k));
        }
        // An unreadable file takes no block of a sheet; "$" sorts before letters.
        for (int i = 1; i <= 9; ++i) {
            nineXP << u"xp%1.png:128x192"_s.arg(i) << (i == 4 ? u"xp4b.png:junk"_s : QString());
            mixedVX << u"$s%1.png:96x128"_s.arg(i);
        }
        nineXP.removeAll(QString());
        mixedVX << u"People.png:384x256"_s << u"x$single.png:96x128"_s;
        QTest::newRow("2003 to XP")
            << 0 << 0 << QStringList{u"Hero.png:72x128"_s, u"Town.png:288x256"_s, u"Bad.png:junk"_s}
            << QStringList{u"XP_CONVERSIONS/Hero.png"_s} + town;
        QTest::newRow("2003 to VX")
            << 1 << 0 << QStringList{u"Hero.png:72x128"_s, u"Town.gif:288x256"_s}
            << QStringList{u"VX_CONVERSIONS/$Hero.png"_s, u"VX_CONVERSIONS/Town.png"_s};
        QTest::newRow("XP to 2003")
            << 2 << 0 << nineXP
            << QStringList{u"2K3_CONVERSIONS/xp1.png"_s, u"2K3_CONVERSIONS/xp9.png"_s};
        QTest::newRow("XP to VX") << 3 << 0 << QStringList{u"a.png:128x192"_s, u"B.GIF:128x192"_s}
                                  << QStringList{u"VX_CONVERSIONS/$B.png"_s,
                                                 u"VX_CONVERSIONS/$a.png"_s};
        QTest::newRow("VX to 2003")
            << 4 << 0 << mixedVX
            << QStringList{u"2K3_CONVERSIONS/$s1.png"_s, u"2K3_CONVERSIONS/$s9.png"_s,
                           u"2K3_CONVERSIONS/People.png"_s};
        QTest::newRow("VX to 2003, all single")
            << 4 << 1 << QStringList{u"a.png:96x128"_s, u"b.png:384x256"_s}
            << QStringList{u"2K3_CONVERSIONS/a.png"_s};
        QTest::newRow("VX to XP") << 5 << 0
                                  << QStringList{u"$One.png:96x128"_s, u"People.png:384x256"_s}
                                  << QStringList{u"XP_CONVERSIONS/$One.png"_s} + people;
    }

    void predictedAreWritten()
    {
        QFETCH(int, direction);
        QFETCH(int, count);
        QFETCH(QStringList, files);
        QFETCH(QStringList, expected);
        const QString folder = folderWith(files);
        QStringList unreadable;
        const QStringList planned = ConversionPlanner::plannedFiles(
            {folder}, false, uchar(direction), uchar(count), &unreadable);
        Converter converter({folder}, false, uchar(direction), nullptr, uchar(count));
        converter.run();
        expected.sort();
        QCOMPARE(relative(planned, folder), expected);
        QCOMPARE(written(folder), expected);
        QCOMPARE(unreadable, converter.failedFiles());
        QCOMPARE(int(ConversionPlanner::sheetState().slot), 0);

        // Everything written is what a second run would replace.
        QCOMPARE(relative(ConversionPlanner::replacedFiles({folder}, false, uchar(direction),
                                                           uchar(count)),
                          folder),
                 expected);
    }

    void answers()
    {
        const QString folder = folderWith(
            {u"Town.png:288x256"_s, u"Junk.png:junk"_s, u"$a.png:96x128"_s, u"$b.png:96x128"_s});
        QString eight;
        for (int k = 1; k <= 8; ++k)
            eight += folder + u"/XP_CONVERSIONS/Town_%1.png|"_s.arg(k);
        QCOMPARE(ConversionPlanner::predictNames(folder + u"/Town.png"_s, 0, 0), eight);
        QCOMPARE(ConversionPlanner::predictNames(folder + u"/Junk.png"_s, 0, 0), u"?ERROR?"_s);
        QCOMPARE(ConversionPlanner::predictNames(folder + u"/gone.png"_s, 3, 0), u"?ERROR?"_s);
        // Nothing is replaced while the output folder doesn't exist.
        QCOMPARE(ConversionPlanner::replacedFiles({folder}, false, 0, 0), QStringList());

        // A sheet is named once, after its first character; the converter's state is
        // not the planner's.
        Converter direct({}, true, 4, nullptr, 0);
        QVERIFY(direct.convertFile(folder + u"/$a.png"_s, 4));
        QCOMPARE(ConversionPlanner::predictNames(folder + u"/$a.png"_s, 4, 0),
                 folder + u"/2K3_CONVERSIONS/$a.png"_s);
        QCOMPARE(ConversionPlanner::predictNames(folder + u"/$b.png"_s, 4, 0), QString());
        QCOMPARE(int(ConversionPlanner::sheetState().slot), 2);
        QCOMPARE(int(Converter::sheetState().slot), 1);
        ConversionPlanner::predictNames(QString(), 6, 0);
        QCOMPARE(int(ConversionPlanner::sheetState().slot), 0);
        QCOMPARE(int(Converter::sheetState().slot), 1);
        direct.convertFile(QString(), 6);
    }
};

QTEST_GUILESS_MAIN(TestConversionPlanner)
#include "tst_conversionplanner.moc"
