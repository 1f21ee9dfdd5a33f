#include "app/mainwindow.h"
#include "app/startup.h"
#include "canvas/qlayer.h"
#include "formats/filenames.h"
#include "scriptedprompts.h"
#include "testfiles.h"
#include "settings/recentfiles.h"
#include "settings/settings.h"

#include <QAction>
#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>

namespace {

const QString ZkFilter = QStringLiteral("Fichier Zenkora (*.zk)");
const QString BetaFilter = QStringLiteral("Fichier Zenkora Bêta (*.zk)");
const QString PngFilter = QStringLiteral("Image (*.png)");

// A document with one element holding a few opaque pixels, recorded as a change.
QLayer* newDocument(MainWindow& window, const QString& title)
{
    window.addCharacter(title, 128, 192, 0);
    QLayer* layer = window.activeLayer();
    QImage sheet(128, 192, QImage::Format_ARGB32);
    sheet.fill(uint(19));
    for (int c = 0; c < 16; ++c)
        sheet.setPixel(c % 4 * 32 + 5, c / 4 * 48 + 7, qRgba(200, 10 * c, 30, 255));
    layer->character()->addElement(sheet, "Corps \xe9t\xe9", 0);
    layer->recordStep("Ajout de Corps");
    return layer;
}

QString settingValue(const QString& key)
{
    Settings settings;
    QString value;
    settings.get(key, value);
    return value;
}

} // namespace

class TestLifecycle : public QObject
{
    Q_OBJECT

private slots:
    void saveAsThenReopenGivesTheDocument()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QLayer* layer = newDocument(window, QStringLiteral("perso"));
        QVERIFY(layer->isModified());
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{sandbox.path(QStringLiteral("perso é"))}, ZkFilter};
        window.saveAs();
        const QString path = sandbox.path(QStringLiteral("perso é.zk"));
        QCOMPARE(layer->filePath(), path);
        QCOMPARE(layer->title(), QStringLiteral("perso é"));
        QVERIFY(!layer->isModified());
        QCOMPARE(window.mdiArea()->currentSubWindow()->windowTitle(), QStringLiteral("perso é"));
        QCOMPARE(fileContents(path).left(3), QByteArray("\x01\x00\x01", 3));
        QCOMPARE(prompts.lastFilter, QLayer::FileFilters);
        // The save folder is remembered.
        QCOMPARE(settingValue(QStringLiteral("pathSaveZKFile")), directoryOf(path));

        window.openCharacterFile(path, true);
        QLayer* reopened = window.activeLayer();
        QVERIFY(reopened != layer);
        QCOMPARE(reopened->filePath(), path);
        QCOMPARE(reopened->fileVersion(), quint8(1));
        QVERIFY(!reopened->isModified());
        QCOMPARE(reopened->history()->size(), 1);
        const Character* a = layer->character();
        const Character* b = reopened->character();
        QCOMPARE(b->elementNames(), a->elementNames());
        QCOMPARE(b->cellPositions(), a->cellPositions());
        QCOMPARE(b->compose(), a->compose());
        QCOMPARE(RecentFiles::newestFirst(), QStringList({path}));
    }

    void betaKeepsVersionZero()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QLayer* layer = newDocument(window, QStringLiteral("beta"));
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{sandbox.path(QStringLiteral("beta.zk"))}, BetaFilter};
        window.saveAs();
        const QString path = sandbox.path(QStringLiteral("beta.zk"));
        QCOMPARE(fileContents(path).at(0), '\0');
        layer->character()->setSelectedCells({1});
        layer->character()->moveCells(QPoint(1, 1));
        layer->recordStep("D\xe9placement");
        window.save();
        QVERIFY(prompts.asked.size() == 1);
        QCOMPARE(fileContents(path).at(0), '\0');
        // "Enregistrer sous..." with the first filter turns it into version 1 for good.
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{path}, ZkFilter};
        window.saveAs();
        QCOMPARE(fileContents(path).at(0), '\1');
        window.save();
        QCOMPARE(fileContents(path).at(0), '\1');
    }

    void pngExportLeavesTheDocumentNamelessAndMarked()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QLayer* layer = newDocument(window, QStringLiteral("export"));
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{sandbox.path(QStringLiteral("feuille"))}, PngFilter};
        window.save();
        QVERIFY(layer->filePath().isEmpty());
        QVERIFY(layer->isModified());
        QCOMPARE(window.mdiArea()->currentSubWindow()->windowTitle(), QStringLiteral("export*"));
        QImage sheet(sandbox.path(QStringLiteral("feuille.png")));
        QVERIFY(!sheet.isNull());
        sheet = sheet.convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(sheet.pixel(0, 0), 19u);
        QCOMPARE(sheet.pixel(5, 7), qRgba(200, 0, 30, 255));
        QCOMPARE(sheet, layer->character()->compose());
        QVERIFY(!prompts.asked.join(QLatin1Char(' ')).contains(QStringLiteral("message")));

        // Through "Enregistrer sous..." the export leaves name and mark alone too.
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{sandbox.path(QStringLiteral("b.png"))}, PngFilter};
        window.saveAs();
        QVERIFY(QFile::exists(sandbox.path(QStringLiteral("b.png"))));
        QVERIFY(layer->filePath().isEmpty());
        QVERIFY(layer->isModified());
    }

    void cancelledSaveAsShowsNothing()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QLayer* layer = newDocument(window, QStringLiteral("doc"));
        window.saveAs();
        QCOMPARE(prompts.asked, QStringList({QStringLiteral("save:Enregistrer sous...")}));
        QVERIFY(layer->filePath().isEmpty());
        QVERIFY(layer->isModified());
        // A plain save of a nameless document asks as well; a cancel there says nothing.
        window.save();
        QCOMPARE(prompts.asked.size(), 2);
        QCOMPARE(prompts.asked.last(), QStringLiteral("save:Enregistrer"));
    }

    void saveAllPassesOverACancel()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        newDocument(window, QStringLiteral("nameless"));
        QLayer* named = newDocument(window, QStringLiteral("named"));
        named->setFilePath(sandbox.path(QStringLiteral("named.zk")));
        window.saveAll();
        QCOMPARE(prompts.asked, QStringList({QStringLiteral("save:Enregistrer")}));
        QVERIFY(QFile::exists(sandbox.path(QStringLiteral("named.zk"))));
        QVERIFY(!named->isModified());
    }

    void failedSaveKeepsFileAndDocument()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QLayer* layer = newDocument(window, QStringLiteral("doc"));
        const QString first = sandbox.path(QStringLiteral("doc.zk"));
        layer->setFilePath(first);
        window.save();
        const QByteArray saved = fileContents(first);
        QVERIFY(!saved.isEmpty());

        QDir(sandbox.path(QString())).mkdir(QStringLiteral("gone"));
        layer->setFilePath(sandbox.path(QStringLiteral("gone/doc.zk")));
        QVERIFY(QDir(sandbox.path(QStringLiteral("gone"))).removeRecursively());
        layer->character()->addDrawingLayer(1);
        layer->recordStep("Ajouter un calque de dessin");
        const QImage before = layer->character()->compose();
        window.save();
        QCOMPARE(prompts.asked.last(),
                 QStringLiteral("message:Sauvegarde:Impossible de sauvegarder le fichier."));
        QVERIFY(layer->isModified());
        QCOMPARE(layer->filePath(), sandbox.path(QStringLiteral("gone/doc.zk")));
        QCOMPARE(layer->character()->elementCount(), 2);
        QCOMPARE(layer->character()->compose(), before);
        QCOMPARE(fileContents(first), saved);
        QVERIFY(!QFile::exists(sandbox.path(QStringLiteral("gone"))));
    }

    void closingOneDocument()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        window.addCharacter(QStringLiteral("clean"), 128, 192, 0);
        QMdiSubWindow* clean = window.mdiArea()->currentSubWindow();

        prompts.answers << Prompts::Answer{QMessageBox::No, true};
        clean->close();
        QCOMPARE(window.mdiArea()->subWindowList().size(), 1);
        QCOMPARE(prompts.asked.last(),
                 QStringLiteral("message:Fermeture:<h3>Fermer un character</h3>"));
        QCOMPARE(prompts.messages.last().informativeText,
                 QStringLiteral("Etes-vous sûr(e) de vouloir fermer clean ?"));
        // The tick is forgotten on No.
        QVERIFY(!sandbox.ini().contains("showCloseFile"));

        prompts.answers << Prompts::Answer{QMessageBox::Yes, true};
        clean->close();
        QTRY_COMPARE(window.mdiArea()->subWindowList().size(), 0);
        QVERIFY(sandbox.ini().contains("showCloseFile=0\n"));
        QVERIFY(!window.activeLayer());

        // Once ticked, a clean document closes without a word.
        window.addCharacter(QStringLiteral("quiet"), 128, 192, 0);
        prompts.asked.clear();
        window.mdiArea()->currentSubWindow()->close();
        QTRY_COMPARE(window.mdiArea()->subWindowList().size(), 0);
        QVERIFY(prompts.asked.isEmpty());

        QLayer* changed = newDocument(window, QStringLiteral("changed"));
        prompts.closeAnswers << QMessageBox::Cancel << QMessageBox::Save << QMessageBox::Discard;
        window.mdiArea()->currentSubWindow()->close();
        QCOMPARE(prompts.asked.last(), QStringLiteral("changes:changed"));
        QCOMPARE(window.mdiArea()->subWindowList().size(), 1);
        // Save asks for a name; its cancel keeps the document open.
        window.mdiArea()->currentSubWindow()->close();
        QCOMPARE(prompts.asked.last(), QStringLiteral("save:Enregistrer"));
        QCOMPARE(window.mdiArea()->subWindowList().size(), 1);
        QVERIFY(changed->isModified());
        window.mdiArea()->currentSubWindow()->close();
        QTRY_COMPARE(window.mdiArea()->subWindowList().size(), 0);
    }

    void closingABackgroundTabMarksItsOwnWindow()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QLayer* a = newDocument(window, QStringLiteral("a"));
        QMdiSubWindow* aWindow = window.windowOf(a);
        window.addCharacter(QStringLiteral("b"), 96, 128, 1);
        QMdiSubWindow* bWindow = window.mdiArea()->currentSubWindow();
        QVERIFY(bWindow != aWindow);
        prompts.closeAnswers << QMessageBox::Save;
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{sandbox.path(QStringLiteral("savedA"))},
                                                           ZkFilter};
        aWindow->close();
        QTRY_COMPARE(window.mdiArea()->subWindowList().size(), 1);
        QVERIFY(QFile::exists(sandbox.path(QStringLiteral("savedA.zk"))));
        QCOMPARE(bWindow->windowTitle(), QStringLiteral("b"));
        QCOMPARE(window.activeLayer()->title(), QStringLiteral("b"));
    }

    void quitWithOneModifiedFirstForgetsTheOthers()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QLayer* a = newDocument(window, QStringLiteral("a"));
        a->setFilePath(sandbox.path(QStringLiteral("a.zk")));
        QLayer* b = newDocument(window, QStringLiteral("b"));
        b->setFilePath(sandbox.path(QStringLiteral("b.zk")));
        b->setModified(false);
        window.setPrimaryColor(QColor(1, 2, 3));
        prompts.closeAnswers << QMessageBox::Discard;
        QVERIFY(window.close());
        QCOMPARE(prompts.asked, QStringList({QStringLiteral("changes:") + a->filePath()}));
        QCOMPARE(settingValue(QStringLiteral("opened")), a->filePath() + QLatin1Char('|'));
        QVERIFY(sandbox.ini().contains("primary=-16711165\n"));
    }

    void quitWithSeveralAndSaveAll()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QLayer* a = newDocument(window, QStringLiteral("a"));
        a->setFilePath(sandbox.path(QStringLiteral("a.zk")));
        QLayer* clean = newDocument(window, QStringLiteral("clean"));
        clean->setFilePath(sandbox.path(QStringLiteral("clean.zk")));
        clean->setModified(false);
        newDocument(window, QStringLiteral("b"));
        prompts.closeAnswers << QMessageBox::SaveAll;
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{sandbox.path(QStringLiteral("b"))}, ZkFilter};
        QVERIFY(window.close());
        QCOMPARE(prompts.asked, QStringList({QStringLiteral("changes:") + sandbox.path(QStringLiteral("a.zk")) +
                                                 QStringLiteral(":all"),
                                             QStringLiteral("save:Enregistrer")}));
        QVERIFY(QFile::exists(sandbox.path(QStringLiteral("a.zk"))));
        QVERIFY(QFile::exists(sandbox.path(QStringLiteral("b.zk"))));
        // A document named during the close is reopened next time.
        QCOMPARE(settingValue(QStringLiteral("opened")),
                 sandbox.path(QStringLiteral("a.zk|")) + sandbox.path(QStringLiteral("clean.zk|")) +
                     sandbox.path(QStringLiteral("b.zk|")));
    }

    void quitCancelledKeepsEverything()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QLayer* a = newDocument(window, QStringLiteral("a"));
        QLayer* b = newDocument(window, QStringLiteral("b"));
        prompts.closeAnswers << QMessageBox::Discard << QMessageBox::Cancel;
        QVERIFY(!window.close());
        QCOMPARE(prompts.asked, QStringList({QStringLiteral("changes:a:all"), QStringLiteral("changes:b")}));
        // The first one, discarded, stays closed; the other stays open and asks again.
        QTRY_COMPARE(window.mdiArea()->subWindowList().size(), 1);
        QCOMPARE(window.layers(), QList<QLayer*>({b}));
        QVERIFY(b->askOnClose());
        QVERIFY(!sandbox.ini().contains("opened"));
        QVERIFY(sandbox.ini().contains("primary=-16777216\n"));
        Q_UNUSED(a);
    }

    void quitWithNothingStoresAnEmptyList()
    {
        SettingsSandbox sandbox;
        {
            Settings settings;
            settings.set(QStringLiteral("Path"), QStringLiteral("opened"), QStringLiteral("/x.zk|"));
        }
        MainWindow window;
        QVERIFY(window.close());
        QVERIFY(settingValue(QStringLiteral("opened")).isEmpty());
    }

    void recentFiles()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        QCOMPARE(window.recentMenu()->actions().size(), 1);
        QCOMPARE(window.recentMenu()->actions().first()->text(), QStringLiteral("Aucun"));
        QVERIFY(!window.recentMenu()->actions().first()->isEnabled());
        for (int i = 1; i <= 17; ++i)
            RecentFiles::add(QStringLiteral("C:\\dossier\\f%1.zk").arg(i));
        RecentFiles::add(QStringLiteral("C:/dossier/f5.zk"));
        QStringList expected;
        expected << QStringLiteral("C:/dossier/f5.zk");
        for (int i = 17; i >= 3; --i) {
            if (i != 5)
                expected << QStringLiteral("C:/dossier/f%1.zk").arg(i);
        }
        QCOMPARE(RecentFiles::newestFirst(), expected);
        window.updateRecentMenu();
        const QList<QAction*> items = window.recentMenu()->actions();
        QCOMPARE(items.size(), 15);
        QCOMPARE(items.first()->text(), QStringLiteral("f5.zk"));
        QCOMPARE(items.first()->statusTip(), QStringLiteral("Ouvre le fichier : C:/dossier/f5.zk"));
        QCOMPARE(items.last()->data().toString(), QStringLiteral("C:/dossier/f3.zk"));
    }

    void openDialogDispatchesByFilter()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        QImage sheet(96, 128, QImage::Format_ARGB32);
        sheet.fill(0xff336699);
        const QString png = sandbox.path(QStringLiteral("sheet.png"));
        QVERIFY(sheet.save(png));
        // The ".zk" filter reads a PNG file as a character and reports the reader's error.
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{png}, ZkFilter};
        window.openZKFile();
        QCOMPARE(prompts.messages.last().title, QStringLiteral("Erreur"));
        QVERIFY(prompts.messages.last().text.startsWith(QStringLiteral("Erreur : ")));
        QVERIFY(window.layers().isEmpty());
        QCOMPARE(settingValue(QStringLiteral("pathLoadZKFile")), directoryOf(png));

        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{png}, PngFilter};
        prompts.kinds << 1;
        window.openZKFile();
        QCOMPARE(window.layers().size(), 1);
        QLayer* image = window.activeLayer();
        QCOMPARE(image->title(), QStringLiteral("sheet"));
        QVERIFY(image->filePath().isEmpty());
        QCOMPARE(image->character()->kind(), 1);
        QCOMPARE(image->character()->sheetSize(), QSize(96, 128));
        QCOMPARE(RecentFiles::newestFirst(), QStringList({png}));

        // A kind dialog closed without a choice opens nothing.
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{png}, PngFilter};
        window.openZKFile();
        QCOMPARE(window.layers().size(), 1);
    }

    void folderWithQuestionMarkIsNotStored()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        prompts.fileAnswers << ScriptedPrompts::FileAnswer{{QStringLiteral("/tmp/what?/x.zk")}, ZkFilter};
        window.openZKFile();
        QVERIFY(settingValue(QStringLiteral("pathLoadZKFile")).isEmpty());
    }

    void defaultCharacter()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        window.openDefault();
        QCOMPARE(prompts.asked, QStringList({QStringLiteral("defaultCharacter")}));
        QVERIFY(window.layers().isEmpty());

        newDocument(window, QStringLiteral("model"));
        window.assignAsDefault();
        QVERIFY(QFile::exists(sandbox.path(QStringLiteral("default.zk"))));
        QCOMPARE(fileContents(sandbox.path(QStringLiteral("default.zk"))).at(0), '\1');
        window.openDefault();
        QLayer* based = window.activeLayer();
        QCOMPARE(based->title(), QStringLiteral("Sans titre"));
        QVERIFY(based->filePath().isEmpty());
        QVERIFY(based->isModified());
        QCOMPARE(based->character()->elementCount(), 1);
        QCOMPARE(prompts.asked.size(), 1);
    }

    void commandLineOpensBothAndNotTheLastOnes()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        {
            MainWindow window;
            QLayer* layer = newDocument(window, QStringLiteral("x"));
            for (const char* name : {"a.zk", "b.zk", "last.zk"}) {
                layer->setFilePath(sandbox.path(QString::fromLatin1(name)));
                window.save();
            }
        }
        MainWindow window;
        const QStringList arguments = {QStringLiteral("zenkora"), sandbox.path(QStringLiteral("a.zk")),
                                       sandbox.path(QStringLiteral("b.zk"))};
        Startup::open(window, Startup::openings(arguments, sandbox.path(QStringLiteral("last.zk|"))));
        QCOMPARE(window.layers().size(), 2);
        QCOMPARE(window.layers().at(0)->title(), QStringLiteral("a"));
        QCOMPARE(window.layers().at(1)->title(), QStringLiteral("b"));

        // With no argument the last documents come back, quietly skipping a lost one.
        MainWindow again;
        Startup::open(again, Startup::openings({QStringLiteral("zenkora")},
                                               sandbox.path(QStringLiteral("last.zk|")) +
                                                   sandbox.path(QStringLiteral("lost.zk|"))));
        QCOMPARE(again.layers().size(), 1);
        QCOMPARE(again.layers().first()->title(), QStringLiteral("last"));
        QVERIFY(prompts.messages.isEmpty());
    }
};

QTEST_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"
