#include "batch/fusioner.h"
#include "formats/pngwriter.h"
#include "imagecompare.h"
#include "testfiles.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// The tileset merge: the stacked image pixel for pixel and byte for byte, the files
// that can't be opened, the outside value right of a narrow source, and the signals.
class TestFusioner : public QObject
{
    Q_OBJECT

    QTemporaryDir m_root;
    const QString m_small = QStringLiteral(ZENKORA_CORPUS_DIR "/xp_tileset/C3TS.png");

    QString path(const QString& name) const { return m_root.path() + u'/' + name; }

private slots:
    void initTestCase()
    {
        // See-through pixels replace the white, unblended.
        QImage narrow = solidImage(QSize(100, 40), 0x80405060);
        narrow.setPixel(99, 39, 19);
        QImage wide(300, 20, QImage::Format_ARGB32);
        for (int x = 0; x < 300; ++x)
            wide.setPixel(x, 0, x < 256 ? qRgba(x, 0, 0, 255) : 0xff00ff00);
        QVERIFY(PngWriter::save(narrow, path(u"narrow.png"_s)));
        QVERIFY(PngWriter::save(wide, path(u"wide.png"_s)));
        QVERIFY(writeFile(path(u"junk.png"_s), "these bytes are no image"));
    }

    void init()
    {
        // Reading right of a narrow source warns once a pixel in Qt 6: the merge must not.
        QTest::failOnWarning(QRegularExpression(u".*"_s));
    }

    void merge_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("failed");
        const QString mage = QStringLiteral(ZENKORA_CORPUS_DIR "/xp_tileset/magecity-1.png");
        QTest::newRow("doubled") << QStringList{m_small, mage, m_small} << QStringList();
        QTest::newRow("missing and junk")
            << QStringList{path(u"gone.png"_s), m_small, path(u"junk.png"_s)}
            << QStringList{path(u"gone.png"_s), path(u"junk.png"_s)};
        QTest::newRow("narrow and wide")
            << QStringList{path(u"narrow.png"_s), path(u"wide.png"_s)} << QStringList();
    }

    void merge()
    {
        QFETCH(QStringList, files);
        QFETCH(QStringList, failed);
        const QString target = path(QString::fromLatin1(QTest::currentDataTag()) + u".png"_s);
        Fusioner fusioner(files, target, nullptr);
        QSignalSpy finished(&fusioner, &Fusioner::finishThread);
        fusioner.run();
        QCOMPARE(finished.at(0).at(0).toStringList(), failed);

        // The sources one below the other as the toolkit reads them, cut at 256, and
        // right of a narrow one the value QImage::pixel gives outside an image.
        QImage expected(256, 0, QImage::Format_ARGB32);
        for (const QString& file : files) {
            const QImage image(file);
            if (image.isNull())
                continue;
            QImage grown(256, expected.height() + image.height(), QImage::Format_ARGB32);
            for (int y = 0; y < grown.height(); ++y) {
                const int sy = y - expected.height();
                for (int x = 0; x < 256; ++x) {
                    grown.setPixel(x, y,
                                   sy < 0              ? expected.pixel(x, y)
                                   : x < image.width() ? image.pixel(x, sy)
                                                       : 12345);
                }
            }
            expected = grown;
        }
        ZK_COMPARE_IMAGES(QImage(target), expected);
        QCOMPARE(fileContents(target), pngBytes(expected));
    }

    void progressAndFailures()
    {
        const QStringList files{m_small, path(u"gone.png"_s), m_small};
        Fusioner fusioner(files, path(u"progress.png"_s), nullptr);
        QStringList seen;
        connect(&fusioner, &Fusioner::changeProgress, this, [&](uint value, const QString& info) {
            seen.append(QString::number(value) + u' ' + info);
        });
        fusioner.run();
        QCOMPARE(
            seen,
            (QStringList{u"0 Ouverture de : "_s + files.at(0), u"6 Ouverture de : "_s + files.at(1),
                         u"13 Ouverture de : "_s + files.at(2), u"20 Création du nouveau tileset"_s,
                         u"25 Fusion de : "_s + files.at(0), u"46 Fusion de : "_s + files.at(1),
                         u"68 Fusion de : "_s + files.at(2), u"90 Enregistrement du tileset"_s}));

        // Nothing readable: the empty image can't be saved, and a file in its place
        // stays whole.
        QVERIFY(writeFile(path(u"kept.png"_s), "old contents"));
        for (const QString& target : {path(u"kept.png"_s), path(u"nothing.png"_s)})
            Fusioner({path(u"junk.png"_s)}, target, nullptr).run();
        QCOMPARE(fileContents(path(u"kept.png"_s)), QByteArray("old contents"));
        QVERIFY(!QFile::exists(path(u"nothing.png"_s)));
    }
};

QTEST_GUILESS_MAIN(TestFusioner)
#include "tst_fusioner.moc"
