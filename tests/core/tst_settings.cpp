#include "settings/settings.h"
#include "settings/settingspath.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "testfiles.h"

namespace {

// Reads the key "k" through the getter of T, with the fallback as the default.
template <typename T> QVariant read(Settings& settings, const QVariant& fallback, bool& found)
{
    T value = fallback.value<T>();
    found = settings.get(u"k"_qs, value);
    return QVariant::fromValue(value);
}

} // namespace

class TestSettings : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir{QDir::tempPath() + u"/zenkora-préférences-XXXXXX"_qs};
    QString path(const QString& name) const { return m_dir.filePath(name); }

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void missingFileGivesDefaults()
    {
        const QString missing = path(u"absent/zenkora.ini"_qs);
        {
            Settings settings(missing);
            QString text = u"défaut"_qs;
            qint32 number = 1000;
            QVERIFY(!settings.get(u"recentFiles"_qs, text));
            QVERIFY(!settings.get(u"periode"_qs, number));
            QCOMPARE(text, u"défaut"_qs);
            QCOMPARE(number, 1000);
            QCOMPARE(settings.lastError(), u"Impossible d'ouvrir le fichier : "_qs + missing);
        }
        QVERIFY(!QFileInfo::exists(path(u"absent"_qs)));
    }

    void gettersConvert_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QVariant>("fallback");
        QTest::addColumn<bool>("known");
        QTest::addColumn<QVariant>("result");
        const QVariant none = u"défaut"_qs;
        QTest::newRow("string") << QByteArray("abc") << none << true << QVariant(u"abc"_qs);
        QTest::newRow("numeric path") << QByteArray("12") << none << true << QVariant(u"12"_qs);
        QTest::newRow("string of double")
            << QByteArray("1.50") << none << true << QVariant(u"1.5"_qs);
        QTest::newRow("int") << QByteArray("-16777216") << QVariant(7) << true
                             << QVariant(-16777216);
        QTest::newRow("int of bool 1") << QByteArray("1") << QVariant(7) << true << QVariant(1);
        QTest::newRow("int of double") << QByteArray("-2.9") << QVariant(7) << true << QVariant(-2);
        QTest::newRow("int of huge double")
            << QByteArray("9999999999.0") << QVariant(7) << false << QVariant(7);
        QTest::newRow("int of string") << QByteArray("abc") << QVariant(7) << false << QVariant(7);
        QTest::newRow("bool of int")
            << QByteArray("4") << QVariant(false) << true << QVariant(true);
        QTest::newRow("bool of string")
            << QByteArray("oui") << QVariant(true) << false << QVariant(true);
        QTest::newRow("double") << QByteArray("0.25") << QVariant(1.0) << true << QVariant(0.25);
        QTest::newRow("double of int") << QByteArray("3") << QVariant(1.0) << true << QVariant(3.0);
    }

    void gettersConvert()
    {
        QFETCH(QByteArray, text);
        QFETCH(QVariant, fallback);
        QFETCH(bool, known);
        QFETCH(QVariant, result);
        QVERIFY(writeFile(path(u"types.ini"_qs), "[Render]\nk=" + text + "\n"));
        Settings settings(path(u"types.ini"_qs));
        bool found = false;
        QVariant out;
        switch (fallback.typeId()) {
        case QMetaType::QString:
            out = read<QString>(settings, fallback, found);
            break;
        case QMetaType::Int:
            out = read<qint32>(settings, fallback, found);
            break;
        case QMetaType::Bool:
            out = read<bool>(settings, fallback, found);
            break;
        default:
            out = read<double>(settings, fallback, found);
        }
        QCOMPARE(found, known);
        QCOMPARE(out, result);
    }

    void settersKeepKeysWhereTheyAre()
    {
        const QString file = path(u"setters.ini"_qs);
        QVERIFY(writeFile(file, "[Path]\nopened=a|\n[Render]\nperiode=1000\n"));
        {
            Settings settings(file);
            settings.set(u"Color"_qs, u"opened"_qs, u"b|"_qs); // stays in Path
            QVERIFY(settings.isDirty());
            QVERIFY(settings.save());
            QVERIFY(!settings.isDirty());
            settings.set(u"Render"_qs, u"periode"_qs, u"vite"_qs); // wrong type: not stored
            QVERIFY(settings.isDirty());
            settings.set(u"Color"_qs, u"primary"_qs, qint32(0xff000000));
            settings.set(u"showAgain"_qs, u"showWelcome"_qs, false);
            settings.set(u"Color"_qs, u"palette"_qs, ""); // a string, not a boolean
            settings.set(u"Path"_qs, u"recentFiles"_qs, u"/tmp/ü€.zk"_qs);
            settings.set(u"Render"_qs, u"echelle"_qs, 2.5);
        }
        QCOMPARE(fileContents(file), QByteArray("[Path]\nopened=b|\nrecentFiles=/tmp/\xfc?.zk\n"
                                             "[Render]\nperiode=1000\nechelle=2.5\n"
                                             "[Color]\nprimary=-16777216\npalette=\n"
                                             "[showAgain]\nshowWelcome=0\n"));
        Settings reread(file);
        QString palette = u"défaut"_qs;
        QVERIFY(!reread.get(u"palette"_qs, palette)); // an empty value is not kept
        QCOMPARE(palette, u"défaut"_qs);
    }

    void numberOnABooleanTakesItsType()
    {
        // Transparent black is stored as 0 and reads back as a boolean; the next colour
        // must still be stored, and the one after it too.
        const QString file = path(u"couleur.ini"_qs);
        QVERIFY(writeFile(file, "[Color]\nprimary=0\nsecondary=1\n"));
        {
            Settings settings(file);
            settings.set(u"Color"_qs, u"primary"_qs, qint32(-16777216));
            settings.set(u"Color"_qs, u"secondary"_qs, 0.5);
        }
        {
            Settings settings(file);
            settings.set(u"Color"_qs, u"primary"_qs, qint32(255));
        }
        QCOMPARE(fileContents(file), QByteArray("[Color]\nprimary=255\nsecondary=0.5\n"));
    }

    void writesBackOnlyWhenDirty()
    {
        const QString file = path(u"retour.ini"_qs);
        // A rewrite would drop what follows the blank line.
        const QByteArray original = "[A]\nk=v\n\n[ignored]\n";
        QVERIFY(writeFile(file, original));
        {
            Settings settings(file);
            QString value;
            QVERIFY(settings.get(u"k"_qs, value));
            QVERIFY(settings.save());
        }
        QCOMPARE(fileContents(file), original);
        {
            Settings first(file);
            Settings second(file);
            second.set(u"A"_qs, u"m"_qs, 2);
            first.set(u"A"_qs, u"k"_qs, u"w"_qs);
            second.save();
        } // first dies last and its image wins
        QCOMPARE(fileContents(file), QByteArray("[A]\nk=w\n"));
    }

    void failedWriteStaysDirty()
    {
        const QString missing = path(u"absent/zenkora.ini"_qs);
        Settings settings(missing);
        settings.set(u"A"_qs, u"k"_qs, 1);
        QVERIFY(!settings.save());
        QVERIFY(settings.isDirty());
        QCOMPARE(settings.lastError(), u"Impossible d'écrire le fichier : "_qs + missing);
        QVERIFY(!QFileInfo::exists(path(u"absent"_qs)));
    }

    void followsWorkingDirectory()
    {
        QTemporaryDir work(QDir::tempPath() + u"/zenkora-dossier-été-XXXXXX"_qs);
        const QString file = work.filePath(SettingsPath::fileName());
        QVERIFY(writeFile(file, "[Render]\nperiode=250\n"));
        const QString previous = QDir::currentPath();
        QVERIFY(QDir::setCurrent(work.path()));
        {
            Settings settings;
            qint32 periode = 1000;
            settings.get(u"periode"_qs, periode);
            settings.set(u"Render"_qs, u"periode"_qs, periode * 2);
        }
        QDir::setCurrent(previous);
        QCOMPARE(fileContents(file), QByteArray("[Render]\nperiode=500\n"));
    }

    void pathRule_data()
    {
        QTest::addColumn<QString>("present"); // folders holding a zenkora.ini
        QTest::addColumn<bool>("writable");   // the application folder
        QTest::addColumn<QString>("reading");
        QTest::addColumn<QString>("writing");
        QTest::newRow("working wins") << u"wac"_qs << false << u"w"_qs << u"w"_qs;
        QTest::newRow("beside program") << u""_qs << true << u"a"_qs << u"a"_qs;
        QTest::newRow("config ignored") << u"ac"_qs << true << u"a"_qs << u"a"_qs;
        QTest::newRow("installed, first run") << u""_qs << false << u"c"_qs << u"c"_qs;
        QTest::newRow("installed with file") << u"a"_qs << false << u"a"_qs << u"c"_qs;
        QTest::newRow("installed, user copy") << u"ac"_qs << false << u"c"_qs << u"c"_qs;
    }

    void pathRule()
    {
        QFETCH(QString, present);
        QFETCH(bool, writable);
        QFETCH(QString, reading);
        QFETCH(QString, writing);
        QTemporaryDir root(m_dir.filePath(u"règle-XXXXXX"_qs));
        const QString names = u"wac"_qs;
        const QStringList folders = {root.filePath(u"travail"_qs), root.filePath(u"programme"_qs),
                                     root.filePath(u"config"_qs)};
        for (int i = 0; i < 3; ++i) {
            if (present.contains(names.at(i))) {
                QVERIFY(QDir().mkpath(folders.at(i)));
                QVERIFY(writeFile(QDir(folders.at(i)).filePath(SettingsPath::fileName()), ""));
            }
        }
        const SettingsPath::Folders given{folders.at(0), folders.at(1), folders.at(2), writable};
        const auto expected = [&](const QString& which) {
            return QDir(folders.at(names.indexOf(which))).filePath(SettingsPath::fileName());
        };
        QCOMPARE(SettingsPath::resolve(given, SettingsPath::Reading), expected(reading));
        QCOMPARE(SettingsPath::resolve(given, SettingsPath::Writing), expected(writing));
    }
};

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
