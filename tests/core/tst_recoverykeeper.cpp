#include "document/character.h"
#include "document/sheetcomposer.h"
#include "formats/characterfile.h"
#include "recovery/recoveryfolder.h"
#include "recovery/recoverykeeper.h"
#include "testfiles.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

// A number no process can have (above the kernel's largest pid).
constexpr qint64 GonePid = 0x3fffffff;

Character sampleCharacter(QRgb colour)
{
    Character character(Character::VX, QSize());
    character.resetElements(1);
    character.setElementName(0, "Corps");
    character.setCellImage(0, 4, solidImage(QSize(9, 7), colour));
    character.setCellPosition(0, 4, QPoint(3, 5));
    return character;
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files, QDir::Name);
}

} // namespace

class TestRecoveryKeeper : public QObject
{
    Q_OBJECT

private slots:
    void changesMakeOneCopyPerDelay();
    void copiesGoAway_data();
    void copiesGoAway();
    void failedCopyIsReportedOnce();
    void scanOffersWhatOwnersLeft();
};

void TestRecoveryKeeper::changesMakeOneCopyPerDelay()
{
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("recovery"));
    QRgb colour = 0xff112233;
    RecoveryKeeper keeper(folder);
    const int document = keeper.track([&colour] {
        return RecoverySource{sampleCharacter(colour), QStringLiteral("/somewhere/hero.zk"),
                              QStringLiteral("hero")};
    });
    QVERIFY(!keeper.isPending(document));
    keeper.changed(document);
    keeper.changed(document);
    QCOMPARE(keeper.pendingInterval(document), RecoveryKeeper::Delay);
    keeper.copyDue(document);
    keeper.waitForCopies();
    QVERIFY(!keeper.isPending(document));
    const QString pid = QString::number(QCoreApplication::applicationPid());
    QCOMPARE(filesIn(folder),
             QStringList({pid + QStringLiteral("-1-1.zk"), pid + QStringLiteral("-1.json")}));

    // A second change gives a second copy, which replaces the first.
    colour = 0xff445566;
    keeper.changed(document);
    keeper.copyDue(document);
    keeper.waitForCopies();
    QCOMPARE(filesIn(folder),
             QStringList({pid + QStringLiteral("-1-2.zk"), pid + QStringLiteral("-1.json")}));
    const RecoveryEntry entry = keeper.entry(document);
    QCOMPARE(entry.originalPath, QStringLiteral("/somewhere/hero.zk"));
    QCOMPARE(entry.kind, int(Character::VX));
    Character read;
    QVERIFY(CharacterFile::load(read, entry.copyPath, nullptr));
    QCOMPARE(SheetComposer::compose(read), SheetComposer::compose(sampleCharacter(colour)));
}

void TestRecoveryKeeper::copiesGoAway_data()
{
    QTest::addColumn<QString>("ending");
    QTest::newRow("saved") << QStringLiteral("discard");
    QTest::newRow("saved while copying") << QStringLiteral("discard early");
    QTest::newRow("closed") << QStringLiteral("untrack");
    QTest::newRow("closed while copying") << QStringLiteral("untrack early");
    QTest::newRow("program left") << QStringLiteral("exit");
}

void TestRecoveryKeeper::copiesGoAway()
{
    QFETCH(QString, ending);
    QTemporaryDir dir;
    {
        RecoveryKeeper keeper(dir.path());
        const int document = keeper.track([] {
            return RecoverySource{sampleCharacter(0xff000000), QString(), QStringLiteral("x")};
        });
        keeper.changed(document);
        keeper.copyDue(document);
        if (!ending.endsWith(QStringLiteral("early")))
            keeper.waitForCopies();
        if (ending.startsWith(QStringLiteral("discard")))
            keeper.discard(document);
        else if (ending.startsWith(QStringLiteral("untrack")))
            keeper.untrack(document);
        keeper.waitForCopies();
        if (ending != QStringLiteral("exit")) {
            QCOMPARE(filesIn(dir.path()), QStringList());
            QVERIFY(!keeper.isPending(document));
        }
    }
    QCOMPARE(filesIn(dir.path()), QStringList());
}

void TestRecoveryKeeper::failedCopyIsReportedOnce()
{
    QTemporaryDir dir;
    // The folder's place is taken by a file: nothing can be written there.
    const QString folder = dir.filePath(QStringLiteral("recovery"));
    QVERIFY(writeFile(folder, "not a folder"));
    RecoveryKeeper keeper(folder);
    QSignalSpy failures(&keeper, &RecoveryKeeper::copyFailed);
    const int document = keeper.track([] {
        return RecoverySource{sampleCharacter(0xff000000), QString(), QStringLiteral("x")};
    });
    for (int attempt = 0; attempt < 2; ++attempt) {
        keeper.changed(document);
        QVERIFY(keeper.isPending(document));
        keeper.copyDue(document);
        keeper.waitForCopies();
    }
    QCOMPARE(failures.count(), 1);
    QVERIFY(failures.at(0).at(0).toString().startsWith(
        QStringLiteral("Copie de secours impossible : ")));
    QCOMPARE(fileContents(folder), QByteArray("not a folder"));

    // Once the folder can be made, copies work again, and the next failure is told.
    QVERIFY(QFile::remove(folder));
    keeper.changed(document);
    keeper.copyDue(document);
    keeper.waitForCopies();
    QCOMPARE(filesIn(folder).size(), 2);
    QVERIFY(QDir(folder).removeRecursively());
    QVERIFY(writeFile(folder, "again"));
    keeper.changed(document);
    keeper.copyDue(document);
    keeper.waitForCopies();
    QCOMPARE(failures.count(), 2);
}

void TestRecoveryKeeper::scanOffersWhatOwnersLeft()
{
    QTemporaryDir dir;
    const QString folder = dir.path();
    auto writeEntry = [&folder](qint64 pid, int document, int sequence, const QString& title) {
        RecoveryEntry entry;
        entry.indexPath = QDir(folder).filePath(RecoveryFolder::indexName(pid, document));
        entry.copyPath = QDir(folder).filePath(RecoveryFolder::copyName(pid, document, sequence));
        entry.title = title;
        entry.pid = pid;
        entry.copied = QDateTime(QDate(2026, 1, document), QTime(12, 0));
        Character character = sampleCharacter(0xff00ff00);
        return CharacterFile::save(character, entry.copyPath, 1) &&
               writeFile(entry.indexPath, entry.toJson());
    };
    // Left by a process that is gone: offered.
    QVERIFY(writeEntry(GonePid, 2, 1, QStringLiteral("gone")));
    // Still owned by a running instance (this very process): left alone.
    QVERIFY(writeEntry(QCoreApplication::applicationPid(), 1, 1, QStringLiteral("alive")));
    // Killed between a new copy and its index: the index names the older copy, and the
    // newer one, whole or not, is swept.
    QVERIFY(writeEntry(GonePid, 1, 3, QStringLiteral("older")));
    const QString stray = QDir(folder).filePath(RecoveryFolder::copyName(GonePid, 1, 4));
    QVERIFY(writeFile(stray, "\x01\x01"));
    // An index that is not one.
    const QString damaged = QDir(folder).filePath(RecoveryFolder::indexName(GonePid, 3));
    QVERIFY(writeFile(damaged, "{\"copy\": \"../../etc/passwd\", \"pid\": 12"));

    const QList<RecoveryEntry> entries = RecoveryFolder::abandoned(folder);
    QStringList titles;
    for (const RecoveryEntry& entry : entries)
        titles << entry.title + u'|' + QFileInfo(entry.copyPath).fileName() + u'|' +
                      QString::number(!entry.errorText.isEmpty());
    const QString gone = QString::number(GonePid);
    QCOMPARE(titles, QStringList({QStringLiteral("older|%1-1-3.zk|0").arg(gone),
                                  QStringLiteral("gone|%1-2-1.zk|0").arg(gone),
                                  QStringLiteral("%1-3||1").arg(gone)}));
    QVERIFY(!QFile::exists(stray));
}

QTEST_GUILESS_MAIN(TestRecoveryKeeper)
#include "tst_recoverykeeper.moc"
