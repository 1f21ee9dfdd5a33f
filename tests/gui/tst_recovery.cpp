#include "app/mainwindow.h"
#include "app/recoverycommands.h"
#include "canvas/qlayer.h"
#include "document/sheetcomposer.h"
#include "formats/characterfile.h"
#include "recovery/recoveryfolder.h"
#include "recovery/recoverykeeper.h"
#include "scriptedprompts.h"
#include "testfiles.h"

#include <QBuffer>
#include <QDir>
#include <QStandardPaths>
#include <QTest>

namespace {

constexpr qint64 GonePid = 0x3fffffff;

Character sampleCharacter()
{
    Character character(Character::XP, QSize());
    QImage sheet = solidImage(character.sheetSize(), 19);
    sheet.setPixel(5, 7, qRgba(200, 10, 30, 255));
    character.addElement(sheet, "Corps", 0);
    return character;
}

// Leaves in folder what a killed program leaves: a copy and its index.
RecoveryEntry leaveCopy(const QString& folder, int document, const QString& original,
                        const QByteArray& copyBytes)
{
    RecoveryEntry entry;
    entry.indexPath = QDir(folder).filePath(RecoveryFolder::indexName(GonePid, document));
    entry.copyPath = QDir(folder).filePath(RecoveryFolder::copyName(GonePid, document, 1));
    entry.originalPath = original;
    entry.title = QStringLiteral("hero");
    entry.copied = QDateTime::currentDateTime().addSecs(-60);
    entry.pid = GonePid;
    writeFile(entry.copyPath, copyBytes);
    writeFile(entry.indexPath, entry.toJson());
    return entry;
}

} // namespace

class TestRecovery : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void abandonedCopiesAreOffered();
    void documentsKeepACopyUntilSaved();
};

void TestRecovery::abandonedCopiesAreOffered()
{
    SettingsSandbox sandbox;
    ScriptedPrompts prompts;
    MainWindow window;
    const QString folder = window.recoveryCommands()->keeper()->folder();
    QDir(folder).removeRecursively();
    QVERIFY(QDir().mkpath(folder));

    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(CharacterFile::write(sampleCharacter(), &buffer, 1));
    const QString original = sandbox.path(QStringLiteral("hero.zk"));
    QVERIFY(writeFile(original, "written after the copy"));
    const RecoveryEntry good = leaveCopy(folder, 1, original, buffer.data());
    const RecoveryEntry damaged = leaveCopy(folder, 2, QString(), "\x01\x00\x05");
    prompts.recoveryChoices = {RecoveryOffer::Recover, RecoveryOffer::Delete};

    window.recoveryCommands()->offerAbandoned();
    QCOMPARE(prompts.asked, QStringList({QStringLiteral("recovery")}));
    QCOMPARE(prompts.recoveryOffers.size(), 2);
    QVERIFY(prompts.recoveryOffers.at(0).originalNewer);
    QVERIFY(prompts.recoveryOffers.at(0).errorText.isEmpty());
    QVERIFY(prompts.recoveryOffers.at(1).errorText.contains(QStringLiteral("endommagé")));

    QLayer* layer = window.activeLayer();
    QVERIFY(layer);
    QCOMPARE(layer->filePath(), original);
    QVERIFY(layer->isModified());
    QCOMPARE(layer->history()->size(), 1);
    QCOMPARE(SheetComposer::compose(*layer->character()),
             SheetComposer::compose(sampleCharacter()));
    // Both old copies are gone; the recovered document has a copy of this instance.
    QVERIFY(!QFile::exists(good.copyPath) && !QFile::exists(damaged.copyPath));
    const QString own = QString::number(QCoreApplication::applicationPid());
    QCOMPARE(QDir(folder).entryList(QDir::Files),
             QStringList({own + QStringLiteral("-1-1.zk"), own + QStringLiteral("-1.json")}));
    // Undoing cannot make it match a file it never was.
    layer->recordStep("Changement");
    layer->goToStep(0);
    QVERIFY(layer->isModified());
}

void TestRecovery::documentsKeepACopyUntilSaved()
{
    SettingsSandbox sandbox;
    ScriptedPrompts prompts;
    MainWindow window;
    RecoveryKeeper* keeper = window.recoveryCommands()->keeper();
    QDir(keeper->folder()).removeRecursively();
    QLayer* layer = window.addDocument(sampleCharacter(), QStringLiteral("hero"));
    QVERIFY(!keeper->isPending(1));
    layer->recordStep("Changement");
    QVERIFY(keeper->isPending(1));
    keeper->copyDue(1);
    keeper->waitForCopies();
    QCOMPARE(keeper->entry(1).title, QStringLiteral("hero"));
    QVERIFY(QFile::exists(keeper->entry(1).copyPath));

    prompts.fileAnswers << ScriptedPrompts::FileAnswer{{sandbox.path(QStringLiteral("hero.zk"))},
                                                       QStringLiteral("Fichier Zenkora (*.zk)")};
    QCOMPARE(layer->saveDocument(), 1);
    QVERIFY(!keeper->isPending(1));
    QCOMPARE(QDir(keeper->folder()).entryList(QDir::Files), QStringList());
}

QTEST_MAIN(TestRecovery)
#include "tst_recovery.moc"
