#include "document/character.h"
#include "formats/elementfile.h"
#include "formats/fileerrors.h"
#include "formats/pngwriter.h"
#include "formats/safefile.h"
#include "settings/inifile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "testfiles.h"

#include <sys/stat.h>

// Every reader of a user's file refuses what is no regular file before opening it: a
// FIFO would block the program until someone wrote into it.
class TestSafeFile : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void readersRefuseSpecialFiles_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("readable");
        const QString fifo = m_dir.filePath(QStringLiteral("tube é"));
        QVERIFY(::mkfifo(QFile::encodeName(fifo).constData(), 0600) == 0);
        const QString folder = m_dir.filePath(QStringLiteral("dossier.zk"));
        QVERIFY(QDir().mkpath(folder));
        const QString real = m_dir.filePath(QStringLiteral("vrai"));
        QVERIFY(writeFile(real, QByteArray()));
        const QString link = m_dir.filePath(QStringLiteral("lien"));
        QVERIFY(QFile::link(real, link));
        const QString linkToFifo = m_dir.filePath(QStringLiteral("lien vers tube"));
        QVERIFY(QFile::link(fifo, linkToFifo));
        QTest::newRow("FIFO") << fifo << false;
        QTest::newRow("folder") << folder << false;
        QTest::newRow("link to a FIFO") << linkToFifo << false;
        QTest::newRow("missing") << m_dir.filePath(QStringLiteral("absent")) << false;
        QTest::newRow("link to a file") << link << true;
    }

    void readersRefuseSpecialFiles()
    {
        QFETCH(QString, path);
        QFETCH(bool, readable);
        QCOMPARE(SafeFile::isRegularFile(path), readable);
        if (readable)
            return;
        const QString refused = FileErrors::openForReading(path);
        Character character;
        QVERIFY(!character.loadCharacter(path));
        QCOMPARE(character.errorText(), refused);
        QString error;
        QVERIFY(!ElementFile::load(path, &error));
        QCOMPARE(error, refused);
        IniFile ini;
        QVERIFY(!ini.load(path));
        QVERIFY(SafeFile::readImage(path).isNull());
        QVERIFY(!character.addElement(path));
        QCOMPARE(character.elementCount(), 0);
    }
};

QTEST_GUILESS_MAIN(TestSafeFile)
#include "tst_safefile.moc"
