#include "settings/inifile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "testfiles.h"

class TestIniFile : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir{QDir::tempPath() + u"/zenkora-réglages-XXXXXX"_qs};
    QString path(const QString& name) const { return m_dir.filePath(name); }

    // Loads the bytes as a file and writes the result back out.
    QByteArray resaved(const QByteArray& input, IniFile& ini)
    {
        if (!writeFile(path(u"in.ini"_qs), input) || !ini.load(path(u"in.ini"_qs)) ||
            !ini.save(path(u"out.ini"_qs)))
            return "<failed>";
        return fileContents(path(u"out.ini"_qs));
    }

private slots:
    void saveWritesTreeDepthFirst()
    {
        IniFile ini;
        const quint32 pathId = ini.addSection(u"Path"_qs, 0);
        const quint32 child = ini.addSection(u"Enfant"_qs, pathId);
        const quint32 grandChild = ini.addSection(u"Petit"_qs, child);
        const quint32 color = ini.addSection(u"Color"_qs, 0);
        const quint32 late = ini.addSection(u"Cadet"_qs, pathId); // after a later root
        ini.addInt(u"primary"_qs, -16777216, color);
        ini.addString(u"dossier"_qs, u"/home/é"_qs, pathId);
        ini.addBool(u"vrai"_qs, true, child);
        ini.addDouble(u"tiers"_qs, 1.0 / 3, grandChild);
        ini.addDouble(u"grand"_qs, 1234567.0, grandChild);
        ini.addBool(u"faux"_qs, false, pathId);
        ini.addString(u"euro"_qs, u"5 €"_qs, late);
        ini.addInt(u"periode"_qs, 1000, late);
        QCOMPARE(ini.addString(u"égal"_qs, u"a=b"_qs, 99), 8u); // no section 99: the first
        const QByteArray expected = "[Path]\ndossier=/home/\xe9\nfaux=0\n\xe9gal=a=b\n"
                                    " [Enfant]\n vrai=1\n  [Petit]\n  tiers=0.333333\n"
                                    "  grand=1.23457e+06\n [Cadet]\n euro=5 ?\n periode=1000\n"
                                    "[Color]\nprimary=-16777216\n";
        QVERIFY(ini.save(path(u"arbre.ini"_qs)));
        QCOMPARE(fileContents(path(u"arbre.ini"_qs)), expected);

        IniFile reloaded;
        QCOMPARE(resaved(expected, reloaded), expected);
        QCOMPARE(reloaded.getValue(reloaded.find(u"dossier"_qs)), QVariant(u"/home/é"_qs));
        QCOMPARE(reloaded.getValue(reloaded.find(u"euro"_qs)), QVariant(u"5 ?"_qs));
    }

    void failedSaveChangesNothing()
    {
        IniFile ini;
        ini.addInt(u"k"_qs, 5, 0);
        const QString missing = path(u"absent/zenkora.ini"_qs);
        QVERIFY(!ini.save(missing));
        QCOMPARE(ini.lastError(), u"Impossible d'écrire le fichier : "_qs + missing);
        QVERIFY(!QFileInfo::exists(path(u"absent"_qs)));
        QCOMPARE(ini.sections().size(), 1);
        QCOMPARE(ini.getValue(0), QVariant(5));
    }

    void parsesStructure_data()
    {
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<QByteArray>("output");
        QTest::newRow("empty file") << QByteArray() << QByteArray();
        QTest::newRow("key indentation ignored") << QByteArray("[A]\n k=v\n [B]\n  [C]\n[D]\n")
                                                 << QByteArray("[A]\nk=v\n [B]\n  [C]\n[D]\n");
        QTest::newRow("jump from root")
            << QByteArray("[A]\n  [B]\nk=x\n") << QByteArray("[A]\n[B]\nk=x\n");
        QTest::newRow("deep after root finds older parent")
            << QByteArray("[A]\n [B]\n [C]\n[D]\n  [E]\nk=v\n")
            << QByteArray("[A]\n [B]\n [C]\n  [E]\n  k=v\n[D]\n");
        QTest::newRow("key before any section")
            << QByteArray("k=v\n[A]\nm=w\n") << QByteArray("[Ensemble 1]\nk=v\n[A]\nm=w\n");
        QTest::newRow("blank line stops")
            << QByteArray("[A]\nk=v\n\n[B]\nm=w\n") << QByteArray("[A]\nk=v\n");
        QTest::newRow("blanks-only line stops")
            << QByteArray("[A]\n   \nk=v\n") << QByteArray("[A]\n");
        QTest::newRow("first line blank") << QByteArray("\n[A]\n") << QByteArray();
        QTest::newRow("last line without newline")
            << QByteArray("[A]\nk=v\nm=w") << QByteArray("[A]\nk=v\n");
        QTest::newRow("value with equals")
            << QByteArray("[A]\nk=a=b\n") << QByteArray("[A]\nk=a=b\n");
        QTest::newRow("key starting with equals")
            << QByteArray("[A]\n=k=v\n") << QByteArray("[A]\n=k=v\n");
        QTest::newRow("line without equals")
            << QByteArray("[A]\njunk\n=\nk=v\n") << QByteArray("[A]\nk=v\n");
        QTest::newRow("empty value drops key")
            << QByteArray("[A]\nk=\nm=w\n") << QByteArray("[A]\nm=w\n");
        QTest::newRow("unclosed and trailing names")
            << QByteArray("[A\n[B]x\n") << QByteArray("[A]\n[B]\n");
        QTest::newRow("carriage returns")
            << QByteArray("[A]\r\nk=12\r\n") << QByteArray("[A]\nk=12\n");
        QTest::newRow("latin-1 bytes")
            << QByteArray("[\xc9]\n\xe9=\xe9t\xe9\n") << QByteArray("[\xc9]\n\xe9=\xe9t\xe9\n");
        QTest::newRow("numbers normalised") << QByteArray("[A]\nd=1.50\nn=007\nm=-\np=.\n")
                                            << QByteArray("[A]\nd=1.5\nn=7\nm=0\np=0\n");
    }

    void parsesStructure()
    {
        QFETCH(QByteArray, input);
        QFETCH(QByteArray, output);
        IniFile ini;
        QCOMPARE(resaved(input, ini), output);
    }

    void infersTypes_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("0") << QByteArray("0") << QVariant(false);
        QTest::newRow("1") << QByteArray("1") << QVariant(true);
        QTest::newRow("12") << QByteArray("12") << QVariant(12);
        QTest::newRow("00") << QByteArray("00") << QVariant(0);
        QTest::newRow("colour") << QByteArray("-16777216") << QVariant(-16777216);
        QTest::newRow("-") << QByteArray("-") << QVariant(0);
        QTest::newRow(".") << QByteArray(".") << QVariant(0.0);
        QTest::newRow("1.5") << QByteArray("1.5") << QVariant(1.5);
        QTest::newRow("1.2.3") << QByteArray("1.2.3") << QVariant(0.0);
        QTest::newRow("12a") << QByteArray("12a") << QVariant(u"12a"_qs);
        QTest::newRow("1e5") << QByteArray("1e5") << QVariant(u"1e5"_qs);
        QTest::newRow("leading blank") << QByteArray(" 1") << QVariant(u" 1"_qs);
        QTest::newRow("latin-1") << QByteArray("\xe9") << QVariant(u"é"_qs);
    }

    void infersTypes()
    {
        QFETCH(QByteArray, text);
        QFETCH(QVariant, value);
        IniFile ini;
        QVERIFY(writeFile(path(u"in.ini"_qs), "[A]\nk=" + text + "\n"));
        QVERIFY(ini.load(path(u"in.ini"_qs)));
        const QVariant actual = ini.getValue(ini.find(u"k"_qs));
        QCOMPARE(actual.typeId(), value.typeId());
        QCOMPARE(actual, value);
    }

    void loadReplacesContentOrFailsWhole()
    {
        IniFile ini;
        ini.addInt(u"ancien"_qs, 1, ini.addSection(u"Vieux"_qs, 0));
        const QString missing = path(u"absent.ini"_qs);
        QVERIFY(!ini.load(missing));
        QCOMPARE(ini.lastError(), u"Impossible d'ouvrir le fichier : "_qs + missing);
        QCOMPARE(ini.sectionName(1), u"Vieux"_qs);

        QCOMPARE(resaved("[A]\nk=v\n", ini), QByteArray("[A]\nk=v\n"));
        QCOMPARE(ini.sectionCount(), 1u);
        QCOMPARE(ini.keyCount(), 1u);
        QCOMPARE(ini.find(u"k"_qs), 0u);
        QVERIFY(ini.isFound());
        ini.find(u"ancien"_qs);
        QVERIFY(!ini.isFound());
    }

    void findSearchesSectionsFirst()
    {
        IniFile ini;
        const quint32 a = ini.addSection(u"A"_qs, 0);
        QCOMPARE(ini.addInt(u"k"_qs, 7, a), 0u);
        QCOMPARE(ini.addInt(u"k"_qs, 8, a), 1u); // the same name again is a new key
        QCOMPARE(ini.addString(u"A"_qs, u"shadowed"_qs, a), 2u);
        QCOMPARE(ini.find(u"k"_qs), 0u);
        QVERIFY(ini.isFound());
        QCOMPARE(ini.getValue(0), QVariant(7));
        QCOMPARE(ini.find(u"A"_qs), a);
        QCOMPARE(ini.find(u"?"_qs), 0u);
        QVERIFY(!ini.isFound());
    }

    void settersKeepTypes()
    {
        IniFile ini;
        ini.addSection(u"A"_qs, 0);
        const quint32 colour = ini.addInt(u"c"_qs, 1000, ini.addSection(u"B"_qs, 0));
        QVERIFY(!ini.setString(colour, u"rouge"_qs));
        QVERIFY(!ini.setBool(colour, false));
        QVERIFY(!ini.setInt(42, 3));
        QCOMPARE(ini.getValue(colour), QVariant(1000));
        QVERIFY(ini.setInt(colour, -1)); // found in the second section
        QCOMPARE(ini.getValue(colour), QVariant(-1));
        QVERIFY(ini.getBool(colour));
        QVERIFY(!ini.getValue(42).isValid());
    }

    void removeSectionTakesDescendants()
    {
        IniFile ini;
        const quint32 a = ini.addSection(u"A"_qs, 0);
        const quint32 b = ini.addSection(u"B"_qs, a);
        const quint32 c = ini.addSection(u"C"_qs, b);
        const quint32 d = ini.addSection(u"D"_qs, a);
        const quint32 key = ini.addInt(u"k"_qs, 5, c);
        QCOMPARE(ini.sectionsOf(a).size(), 2);
        QVERIFY(ini.removeSection(b));
        QVERIFY(!ini.removeSection(b));
        QVERIFY(!ini.sectionById(c));
        QVERIFY(!ini.getValue(key).isValid());
        QCOMPARE(ini.sectionsOf(a).size(), 1);
        QCOMPARE(ini.sectionsOf(a).first().id, d);
        QCOMPARE(ini.find(u"B"_qs), b);            // names stay, so ids keep their meaning
        QCOMPARE(ini.addSection(u"E"_qs, 99), 5u); // an unknown parent makes a root
        QVERIFY(ini.save(path(u"taille.ini"_qs)));
        QCOMPARE(fileContents(path(u"taille.ini"_qs)), QByteArray("[A]\n [D]\n[E]\n"));
    }
};

QTEST_GUILESS_MAIN(TestIniFile)
#include "tst_inifile.moc"
