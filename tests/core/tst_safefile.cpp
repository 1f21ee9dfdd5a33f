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

    void fullDiskKeepsTheOldFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("element file") << QStringLiteral("groupe.elzk");
        QTest::newRow("settings") << QStringLiteral("zenkora.ini");
    }

    // The writers no tool command reaches: a disk that fills up within the new file
    // leaves the old one whole, and no temporary file beside it.
    void fullDiskKeepsTheOldFile()
    {
        QFETCH(QString, name);
        const QString path = m_dir.filePath(name);
        const QByteArray old(100, 'o');
        QVERIFY(writeFile(path, old));
        const auto write = [&] {
            if (name.endsWith(QStringLiteral(".ini"))) {
                IniFile ini;
                const quint32 section = ini.addSection(QStringLiteral("Path"), 0);
                for (int i = 0; i < 200; ++i)
                    ini.addInt(QStringLiteral("cle%1").arg(i), i, section);
                return ini.save(path);
            }
            const QImage sheet = solidImage(QSize(128, 192), 0xff123456);
            return ElementFile::write(path, {sheet, sheet}, 1, Character::XP);
        };
        {
            FileSizeLimit full(500);
            QVERIFY(!write());
        }
        QCOMPARE(fileContents(path), old);
        QCOMPARE(QDir(m_dir.path()).entryList({name + u'*'}), QStringList{name});
        QVERIFY(write());
        QVERIFY(fileContents(path).size() > 500);
    }
};

QTEST_GUILESS_MAIN(TestSafeFile)
#include "tst_safefile.moc"
