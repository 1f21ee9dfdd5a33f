// zenkora-tool keycolour and group: the bytes the library windows write, and the
// arguments they refuse without writing anything.
#include "document/character.h"
#include "formats/elementfile.h"
#include "imaging/keycolours.h"
#include "testfiles.h"
#include "toolrunner.h"

#include <QFile>
#include <QTest>

namespace {

// A sheet on a magenta ground, with a grey pixel and a pixel of its own colour.
QImage sheet(QRgb colour)
{
    QImage image = solidImage(QSize(128, 192), 0xffff00ff);
    image.setPixel(5, 6, 0xff808080);
    image.setPixel(40, 60, colour);
    return image;
}

} // namespace

class TestToolLibrary : public QObject
{
    Q_OBJECT

private:
    TestFolders m_folders{u"bibliothèque"_qs};

private slots:
    void keycolour_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QColor>("transparent");
        QTest::addColumn<QColor>("translucent");
        QTest::newRow("none") << QStringList() << QColor(Qt::transparent)
                              << QColor(Qt::transparent);
        QTest::newRow("ground") << QStringList{u"--transparent"_qs, u"#FF00ff"_qs}
                                << QColor(0xff00ff) << QColor(Qt::transparent);
        QTest::newRow("both") << QStringList{u"--translucent"_qs, u"808080"_qs, u"--transparent"_qs,
                                             u"ff00ff"_qs}
                              << QColor(0xff00ff) << QColor(0x808080);
    }

    void keycolour()
    {
        QFETCH(QStringList, options);
        QFETCH(QColor, transparent);
        QFETCH(QColor, translucent);
        const QString folder = m_folders.newFolder();
        const QImage image = sheet(0xff010203);
        QVERIFY(image.save(folder + u"/in é.png"_qs));
        const ToolResult result =
            runTool(QStringList{u"keycolour"_qs, u"in é.png"_qs, u"out.png"_qs} + options, folder);
        QCOMPARE(result.err, QString());
        QCOMPARE(result.code, 0);
        QCOMPARE(fileContents(folder + u"/out.png"_qs),
                 pngBytes(applyKeyColours(image, transparent, translucent)));
    }

    // Two sheets above the placeholder and one beneath, as the creator writes them.
    void group()
    {
        const QString folder = m_folders.newFolder();
        QList<QImage> images;
        for (int i = 0; i < 3; ++i) {
            images.append(sheet(qRgb(i, 0, 0)));
            QVERIFY(images.last().save(folder + u"/s%1.png"_qs.arg(i)));
        }
        const ToolResult result =
            runTool({u"group"_qs, u"g.elzk"_qs, u"--kind"_qs, u"vx"_qs, u"--below"_qs, u"1"_qs,
                     u"s0.png"_qs, u"s1.png"_qs, u"s2.png"_qs},
                    folder);
        QCOMPARE(result.err, QString());
        QCOMPARE(result.code, 0);
        QVERIFY(ElementFile::write(folder + u"/expected.elzk"_qs, images, 1, Character::VX));
        QCOMPARE(fileContents(folder + u"/g.elzk"_qs), fileContents(folder + u"/expected.elzk"_qs));
    }

    void refused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        const QString key = u"keycolour"_qs;
        const QString group = u"group"_qs;
        QTest::newRow("colour") << QStringList{key, u"a.png"_qs, u"o.png"_qs, u"--transparent"_qs,
                                               u"ff00f"_qs}
                                << 2 << u"six hexadecimal digits"_qs;
        QTest::newRow("no colour")
            << QStringList{key, u"a.png"_qs, u"o.png"_qs, u"--translucent"_qs} << 2
            << u"needs a colour"_qs;
        QTest::newRow("one path") << QStringList{key, u"a.png"_qs} << 2 << u"expected"_qs;
        QTest::newRow("unreadable") << QStringList{key, u"bad.png"_qs, u"o.png"_qs} << 1
                                    << u"Impossible d'ouvrir bad.png"_qs;
        QTest::newRow("kind") << QStringList{group,         u"o.elzk"_qs, u"--kind"_qs, u"2k3"_qs,
                                             u"--below"_qs, u"0"_qs,      u"a.png"_qs,  u"a.png"_qs}
                              << 2 << u"--kind is xp or vx"_qs;
        QTest::newRow("one sheet")
            << QStringList{group,         u"o.elzk"_qs, u"--kind"_qs, u"xp"_qs,
                           u"--below"_qs, u"0"_qs,      u"a.png"_qs}
            << 2 << u"at least two sheets"_qs;
        QTest::newRow("below") << QStringList{group,       u"o.elzk"_qs,  u"--kind"_qs,
                                              u"xp"_qs,    u"--below"_qs, u"3"_qs,
                                              u"a.png"_qs, u"a.png"_qs}
                               << 2 << u"--below is a number"_qs;
        QTest::newRow("sheet unreadable")
            << QStringList{group,         u"o.elzk"_qs, u"--kind"_qs, u"xp"_qs,
                           u"--below"_qs, u"0"_qs,      u"a.png"_qs,  u"bad.png"_qs}
            << 1 << u"Impossible d'ouvrir bad.png"_qs;
    }

    void refused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        QFETCH(QString, message);
        const QString folder = m_folders.newFolder();
        QVERIFY(sheet(0xff000000).save(folder + u"/a.png"_qs));
        QVERIFY(writeFile(folder + u"/bad.png"_qs, "no picture"));
        const ToolResult result = runTool(arguments, folder);
        QCOMPARE(result.code, code);
        QVERIFY2(result.err.contains(message), qPrintable(result.err));
        QVERIFY(!QFile::exists(folder + u"/o.png"_qs));
        QVERIFY(!QFile::exists(folder + u"/o.elzk"_qs));
    }
};

QTEST_GUILESS_MAIN(TestToolLibrary)
#include "tst_toollibrary.moc"
