#include "app/mainwindow.h"
#include "app/startup.h"
#include "canvas/qlayer.h"
#include "formats/elementfile.h"
#include "formats/filenames.h"
#include "scriptedprompts.h"
#include "settings/recentfiles.h"
#include "settings/settings.h"
#include "testfiles.h"

#include <QAction>
#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString ZkFilter = u"Fichier Zenkora (*.zk)"_s;
const QString BetaFilter = u"Fichier Zenkora Bêta (*.zk)"_s;
const QString ElementFilter = u"Elément Zenkora (*.elzk)"_s;
const QString PngFilter = u"Image (*.png)"_s;
const QString CloseFailed = u"message:Fermeture:Impossible de sauvegarder le fichier."_s;

QString settingValue(const QString& key)
{
    Settings settings;
    QString value;
    settings.get(key, value);
    return value;
}

} // namespace

// A document's life in the window: saving, exporting, closing, quitting, opening.
// Each test function gets a fresh settings folder, scripted answers and window.
class TestLifecycle : public QObject
{
    Q_OBJECT

    std::optional<SettingsSandbox> m_sandbox;
    std::optional<ScriptedPrompts> m_prompts;
    std::optional<MainWindow> m_window;

    QString path(const QString& name) const { return m_sandbox->path(name); }

    // The answer to the next file question: a name in the sandbox and a filter.
    void answerName(const QString& name, const QString& filter)
    {
        m_prompts->fileAnswers << ScriptedPrompts::FileAnswer{{path(name)}, filter};
    }

    // A document with one element holding a few opaque pixels, recorded as a change.
    QLayer* newDocument(const QString& title)
    {
        m_window->addCharacter(title, 128, 192, 0);
        QLayer* layer = m_window->activeLayer();
        QImage sheet = solidImage(QSize(128, 192), 19);
        for (int c = 0; c < 16; ++c)
            sheet.setPixel(c % 4 * 32 + 5, c / 4 * 48 + 7, qRgba(200, 10 * c, 30, 255));
        layer->character()->addElement(sheet, "Corps \xe9t\xe9", 0);
        layer->recordStep("Ajout de Corps");
        return layer;
    }

    QString currentTitle() const { return m_window->mdiArea()->currentSubWindow()->windowTitle(); }

    QStringList titles() const
    {
        QStringList result;
        for (const QLayer* layer : m_window->layers())
            result.append(layer->title());
        return result;
    }

private slots:
    void init()
    {
        m_sandbox.emplace();
        m_prompts.emplace();
        m_window.emplace();
    }

    void cleanup()
    {
        m_window.reset();
        m_prompts.reset();
        m_sandbox.reset();
    }

    void saveAsThenReopenGivesTheDocument()
    {
        QLayer* layer = newDocument(u"perso"_s);
        QVERIFY(layer->isModified());
        answerName(u"perso é"_s, ZkFilter);
        m_window->saveAs();
        const QString file = path(u"perso é.zk"_s);
        QCOMPARE(layer->filePath(), file);
        QCOMPARE(layer->title(), u"perso é"_s);
        QVERIFY(!layer->isModified());
        QCOMPARE(currentTitle(), u"perso é"_s);
        QCOMPARE(fileContents(file).left(3), QByteArray("\x01\x00\x01", 3));
        QCOMPARE(m_prompts->lastFilter,
                 u"Fichier Zenkora (*.zk);;Fichier Zenkora Bêta (*.zk);;Image (*.png)"_s);
        // The save folder is remembered.
        QCOMPARE(settingValue(u"pathSaveZKFile"_s), directoryOf(file));
        // The saved step is the clean one: undone the document differs from its file,
        // redone it matches it again.
        m_window->undo();
        QVERIFY(layer->isModified());
        m_window->redo();
        QVERIFY(!layer->isModified());

        m_window->openCharacterFile(file, true);
        QLayer* reopened = m_window->activeLayer();
        QVERIFY(reopened != layer);
        QCOMPARE(reopened->filePath(), file);
        QCOMPARE(reopened->fileVersion(), quint8(1));
        QVERIFY(!reopened->isModified());
        QCOMPARE(reopened->history()->size(), 1);
        const Character* a = layer->character();
        const Character* b = reopened->character();
        QCOMPARE(b->elementNames(), a->elementNames());
        QCOMPARE(b->cellPositions(), a->cellPositions());
        QCOMPARE(b->compose(), a->compose());
        QCOMPARE(RecentFiles::newestFirst(), QStringList({file}));
    }

    void betaKeepsVersionZero()
    {
        QLayer* layer = newDocument(u"beta"_s);
        answerName(u"beta.zk"_s, BetaFilter);
        m_window->saveAs();
        const QString file = path(u"beta.zk"_s);
        QCOMPARE(fileContents(file).at(0), '\0');
        layer->character()->setSelectedCells({1});
        layer->character()->moveCells(QPoint(1, 1));
        layer->recordStep("D\xe9placement");
        m_window->save();
        QVERIFY(m_prompts->asked.size() == 1);
        QCOMPARE(fileContents(file).at(0), '\0');
        // "Enregistrer sous..." with the first filter turns it into version 1 for good.
        answerName(u"beta.zk"_s, ZkFilter);
        m_window->saveAs();
        QCOMPARE(fileContents(file).at(0), '\1');
        m_window->save();
        QCOMPARE(fileContents(file).at(0), '\1');
    }

    void pngExportLeavesTheDocumentNamelessAndMarked()
    {
        QLayer* layer = newDocument(u"export"_s);
        answerName(u"feuille"_s, PngFilter);
        m_window->save();
        QVERIFY(layer->filePath().isEmpty());
        QVERIFY(layer->isModified());
        QCOMPARE(currentTitle(), u"export*"_s);
        QImage sheet(path(u"feuille.png"_s));
        QVERIFY(!sheet.isNull());
        sheet = sheet.convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(sheet.pixel(0, 0), 19u);
        QCOMPARE(sheet.pixel(5, 7), qRgba(200, 0, 30, 255));
        QCOMPARE(sheet, layer->character()->compose());
        QVERIFY(!m_prompts->asked.join(u' ').contains(u"message"_s));

        // Through "Enregistrer sous..." the export leaves name and mark alone too.
        answerName(u"b.png"_s, PngFilter);
        m_window->saveAs();
        QVERIFY(QFile::exists(path(u"b.png"_s)));
        QVERIFY(layer->filePath().isEmpty());
        QVERIFY(layer->isModified());
    }

    void cancelledSaveAsShowsNothing()
    {
        QLayer* layer = newDocument(u"doc"_s);
        m_window->saveAs();
        QCOMPARE(m_prompts->asked, QStringList({u"save:Enregistrer sous..."_s}));
        QVERIFY(layer->filePath().isEmpty());
        QVERIFY(layer->isModified());
        // A plain save of a nameless document asks as well; a cancel there says nothing.
        m_window->save();
        QCOMPARE(m_prompts->asked.size(), 2);
        QCOMPARE(m_prompts->asked.last(), u"save:Enregistrer"_s);
    }

    void saveAllPassesOverACancel()
    {
        newDocument(u"nameless"_s);
        QLayer* named = newDocument(u"named"_s);
        named->setFilePath(path(u"named.zk"_s));
        m_window->saveAll();
        QCOMPARE(m_prompts->asked, QStringList({u"save:Enregistrer"_s}));
        QVERIFY(QFile::exists(path(u"named.zk"_s)));
        QVERIFY(!named->isModified());
    }

    void failedSaveKeepsFileAndDocument()
    {
        QLayer* layer = newDocument(u"doc"_s);
        const QString file = path(u"doc.zk"_s);
        layer->setFilePath(file);
        m_window->save();
        const QByteArray saved = fileContents(file);
        QVERIFY(saved.size() > 100);

        layer->character()->addDrawingLayer(1);
        layer->recordStep("Ajouter un calque de dessin");
        const QImage before = layer->character()->compose();
        {
            // The disk fills up in the middle of the new file.
            FileSizeLimit full(saved.size() / 2);
            m_window->save();
        }
        QCOMPARE(m_prompts->asked.last(),
                 u"message:Sauvegarde:Impossible de sauvegarder le fichier."_s);
        QVERIFY(layer->isModified());
        QCOMPARE(layer->filePath(), file);
        QCOMPARE(layer->character()->elementCount(), 2);
        QCOMPARE(layer->character()->compose(), before);
        QCOMPARE(fileContents(file), saved);
        QCOMPARE(QDir(m_sandbox->folder()).entryList({u"doc*"_s}), QStringList{u"doc.zk"_s});
    }

    void closingOneDocument()
    {
        m_window->addCharacter(u"clean"_s, 128, 192, 0);
        QMdiSubWindow* clean = m_window->mdiArea()->currentSubWindow();

        m_prompts->answers << Prompts::Answer{QMessageBox::No, true};
        clean->close();
        QCOMPARE(m_window->mdiArea()->subWindowList().size(), 1);
        QCOMPARE(m_prompts->asked.last(), u"message:Fermeture:<h3>Fermer un character</h3>"_s);
        QCOMPARE(m_prompts->messages.last().informativeText,
                 u"Etes-vous sûr(e) de vouloir fermer clean ?"_s);
        // The tick is forgotten on No.
        QVERIFY(!m_sandbox->ini().contains("showCloseFile"));

        m_prompts->answers << Prompts::Answer{QMessageBox::Yes, true};
        clean->close();
        QTRY_COMPARE(m_window->mdiArea()->subWindowList().size(), 0);
        QVERIFY(m_sandbox->ini().contains("showCloseFile=0\n"));
        QVERIFY(!m_window->activeLayer());

        // Once ticked, a clean document closes without a word.
        m_window->addCharacter(u"quiet"_s, 128, 192, 0);
        m_prompts->asked.clear();
        m_window->mdiArea()->currentSubWindow()->close();
        QTRY_COMPARE(m_window->mdiArea()->subWindowList().size(), 0);
        QVERIFY(m_prompts->asked.isEmpty());

        QLayer* changed = newDocument(u"changed"_s);
        const QImage content = changed->character()->compose();
        m_prompts->closeAnswers << QMessageBox::Cancel << QMessageBox::Save << QMessageBox::Save
                                << QMessageBox::Discard;
        m_window->mdiArea()->currentSubWindow()->close();
        QCOMPARE(m_prompts->asked.last(), u"changes:changed"_s);
        QCOMPARE(m_window->mdiArea()->subWindowList().size(), 1);
        // Save asks for a name; its cancel keeps the document open.
        m_window->mdiArea()->currentSubWindow()->close();
        QCOMPARE(m_prompts->asked.last(), u"save:Enregistrer"_s);
        QCOMPARE(m_window->mdiArea()->subWindowList().size(), 1);
        QVERIFY(changed->isModified());
        // A save that fails keeps it open too, with its changes.
        answerName(u"absent/x"_s, ZkFilter);
        m_window->mdiArea()->currentSubWindow()->close();
        QCOMPARE(m_prompts->asked.last(), CloseFailed);
        QCOMPARE(m_window->layers(), QList<QLayer*>({changed}));
        QVERIFY(changed->isModified());
        QCOMPARE(changed->character()->compose(), content);
        QVERIFY(!QFile::exists(path(u"absent"_s)));
        // The name that could not be written is not kept: the next save asks again.
        QVERIFY(changed->filePath().isEmpty());
        m_window->mdiArea()->currentSubWindow()->close();
        QTRY_COMPARE(m_window->mdiArea()->subWindowList().size(), 0);
    }

    void closingABackgroundTabMarksItsOwnWindow()
    {
        QLayer* a = newDocument(u"a"_s);
        QMdiSubWindow* aWindow = m_window->windowOf(a);
        m_window->addCharacter(u"b"_s, 96, 128, 1);
        QMdiSubWindow* bWindow = m_window->mdiArea()->currentSubWindow();
        QVERIFY(bWindow != aWindow);
        m_prompts->closeAnswers << QMessageBox::Save;
        answerName(u"savedA"_s, ZkFilter);
        aWindow->close();
        QTRY_COMPARE(m_window->mdiArea()->subWindowList().size(), 1);
        QVERIFY(QFile::exists(path(u"savedA.zk"_s)));
        QCOMPARE(bWindow->windowTitle(), u"b"_s);
        QCOMPARE(m_window->activeLayer()->title(), u"b"_s);
    }

    void quit_data()
    {
        // A document is "name.zk" (named) or "name" (nameless), modified with a "*".
        QTest::addColumn<QStringList>("documents");
        QTest::addColumn<QList<int>>("answers");
        QTest::addColumn<QString>("saveName");
        QTest::addColumn<bool>("quits");
        QTest::addColumn<QStringList>("asked"); // "@" stands for the sandbox folder
        QTest::addColumn<QString>("opened");    // the list to reopen, "/x.zk|" before
        QTest::addColumn<QStringList>("written");
        QTest::addColumn<QStringList>("left");
        const int save = QMessageBox::Save;
        const int discard = QMessageBox::Discard;
        const int all = QMessageBox::SaveAll;
        QTest::newRow("nothing open")
            << QStringList() << QList<int>() << QString() << true << QStringList() << QString()
            << QStringList() << QStringList();
        QTest::newRow("clean documents only, all remembered")
            << QStringList{u"a.zk"_s, u"b"_s, u"c.zk"_s} << QList<int>() << QString() << true
            << QStringList() << u"@/a.zk|@/c.zk|"_s << QStringList() << QStringList();
        // With one modified document the program leaves when it is closed: those
        // behind it are not remembered.
        QTest::newRow("one modified, first, forgets the others")
            << QStringList{u"a.zk*"_s, u"b.zk"_s} << QList<int>{discard} << QString() << true
            << QStringList{u"changes:@/a.zk"_s} << u"@/a.zk|"_s << QStringList()
            << QStringList{u"b"_s};
        // A document named during the close is reopened next time.
        QTest::newRow("several, all saved")
            << QStringList{u"a.zk*"_s, u"clean.zk"_s, u"b*"_s} << QList<int>{all} << u"b"_s << true
            << QStringList{u"changes:@/a.zk:all"_s, u"save:Enregistrer"_s}
            << u"@/a.zk|@/clean.zk|@/b.zk|"_s << QStringList{u"a.zk"_s, u"b.zk"_s} << QStringList();
        // The first one, discarded, stays closed; the other stays open and asks again.
        QTest::newRow("cancelled")
            << QStringList{u"a*"_s, u"b*"_s} << QList<int>{discard, QMessageBox::Cancel}
            << QString() << false << QStringList{u"changes:a:all"_s, u"changes:b"_s} << u"/x.zk|"_s
            << QStringList() << QStringList{u"b"_s};
        QTest::newRow("failed save")
            << QStringList{u"a*"_s, u"b.zk"_s} << QList<int>{save} << u"absent/x"_s << false
            << QStringList{u"changes:a"_s, u"save:Enregistrer"_s, CloseFailed} << u"/x.zk|"_s
            << QStringList() << QStringList{u"a"_s, u"b"_s};
        QTest::newRow("failed save of all")
            << QStringList{u"a*"_s, u"b*"_s} << QList<int>{all} << u"absent/x"_s << false
            << QStringList{u"changes:a:all"_s, u"save:Enregistrer"_s, CloseFailed} << u"/x.zk|"_s
            << QStringList() << QStringList{u"a"_s, u"b"_s};
    }

    void quit()
    {
        QFETCH(QStringList, documents);
        QFETCH(QList<int>, answers);
        QFETCH(QString, saveName);
        QFETCH(bool, quits);
        QFETCH(QStringList, asked);
        QFETCH(QString, opened);
        QFETCH(QStringList, written);
        QFETCH(QStringList, left);
        Settings().set(u"Path"_s, u"opened"_s, u"/x.zk|"_s);
        QStringList modified;
        for (const QString& document : documents) {
            const QString name = document.chopped(document.endsWith(u'*') ? 1 : 0);
            QLayer* layer = newDocument(name.section(u'.', 0, 0));
            if (name.endsWith(u".zk"_s))
                layer->setFilePath(path(name));
            layer->setModified(name != document);
            if (name != document)
                modified.append(layer->title());
        }
        for (int answer : answers)
            m_prompts->closeAnswers << QMessageBox::StandardButton(answer);
        if (!saveName.isEmpty())
            answerName(saveName, ZkFilter);
        m_window->setPrimaryColor(QColor(1, 2, 3));

        QCOMPARE(m_window->close(), quits);
        QCOMPARE(m_prompts->asked, asked.replaceInStrings(u"@"_s, m_sandbox->folder()));
        QCOMPARE(settingValue(u"opened"_s), opened.replace(u'@', m_sandbox->folder()));
        // The colours are written whatever happens.
        QVERIFY(m_sandbox->ini().contains("primary=-16711165\n"));
        for (const QString& file : written)
            QVERIFY2(QFile::exists(path(file)), qPrintable(file));
        QTRY_COMPARE(titles(), left);
        for (QLayer* layer : m_window->layers()) {
            QCOMPARE(layer->isModified(), modified.contains(layer->title()));
            QCOMPARE(layer->character()->elementCount(), 1);
            QCOMPARE(layer->askOnClose(), !quits);
        }
    }

    void recentFiles()
    {
        QCOMPARE(m_window->recentMenu()->actions().size(), 1);
        QCOMPARE(m_window->recentMenu()->actions().first()->text(), u"Aucun"_s);
        QVERIFY(!m_window->recentMenu()->actions().first()->isEnabled());
        for (int i = 1; i <= 17; ++i)
            RecentFiles::add(u"C:\\dossier\\f%1.zk"_s.arg(i));
        RecentFiles::add(u"C:/dossier/f5.zk"_s);
        QStringList expected;
        expected << u"C:/dossier/f5.zk"_s;
        for (int i = 17; i >= 3; --i) {
            if (i != 5)
                expected << u"C:/dossier/f%1.zk"_s.arg(i);
        }
        QCOMPARE(RecentFiles::newestFirst(), expected);
        m_window->updateRecentMenu();
        const QList<QAction*> items = m_window->recentMenu()->actions();
        QCOMPARE(items.size(), 15);
        QCOMPARE(items.first()->text(), u"f5.zk"_s);
        QCOMPARE(items.first()->statusTip(), u"Ouvre le fichier : C:/dossier/f5.zk"_s);
        QCOMPARE(items.last()->data().toString(), u"C:/dossier/f3.zk"_s);
    }

    void openDialogDispatchesByFilter()
    {
        const QString png = path(u"sheet.png"_s);
        QVERIFY(solidImage(QSize(96, 128), 0xff336699).save(png));
        // The ".zk" filter reads a PNG file as a character and reports the reader's error.
        answerName(u"sheet.png"_s, ZkFilter);
        m_window->openZKFile();
        QCOMPARE(m_prompts->messages.last().title, u"Erreur"_s);
        QVERIFY(m_prompts->messages.last().text.startsWith(u"Erreur : "_s));
        QVERIFY(m_window->layers().isEmpty());
        QCOMPARE(settingValue(u"pathLoadZKFile"_s), directoryOf(png));

        answerName(u"sheet.png"_s, PngFilter);
        m_prompts->kinds << 1;
        m_window->openZKFile();
        QCOMPARE(m_window->layers().size(), 1);
        QLayer* image = m_window->activeLayer();
        QCOMPARE(image->title(), u"sheet"_s);
        QVERIFY(image->filePath().isEmpty());
        QCOMPARE(image->character()->kind(), 1);
        QCOMPARE(image->character()->sheetSize(), QSize(96, 128));
        QCOMPARE(RecentFiles::newestFirst(), QStringList({png}));

        // A kind dialog closed without a choice opens nothing.
        answerName(u"sheet.png"_s, PngFilter);
        m_window->openZKFile();
        QCOMPARE(m_window->layers().size(), 1);

        // A PNG that can't be read is reported before any question.
        QVERIFY(writeFile(path(u"cut.png"_s), "no picture here"));
        answerName(u"cut.png"_s, PngFilter);
        m_prompts->asked.clear();
        m_window->openZKFile();
        QCOMPARE(m_prompts->asked,
                 QStringList({u"open:Ouvrir un fichier"_s,
                              u"message:Erreur:Impossible d'ouvrir : "_s + path(u"cut.png"_s)}));
        QCOMPARE(m_window->layers().size(), 1);

        // An element file opens as one document, its second stack over the first.
        QImage upper = solidImage(QSize(128, 192), 19);
        upper.setPixel(40, 50, 0xff00ff00);
        QVERIFY(ElementFile::write(path(u"groupe.elzk"_s),
                                   {solidImage(QSize(128, 192), 0xff0000ff), upper}, 1,
                                   Character::XP));
        answerName(u"groupe.elzk"_s, ElementFilter);
        m_window->openZKFile();
        const Character* group = m_window->activeLayer()->character();
        QCOMPARE(group->elementNames(), (QList<QByteArray>{"Element 0", "Element 1"}));
        QCOMPARE(group->compose().pixel(40, 50), 0xff00ff00u);
        QCOMPARE(group->compose().pixel(41, 50), 0xff0000ffu);
    }

    void folderWithQuestionMarkIsNotStored()
    {
        m_prompts->fileAnswers << ScriptedPrompts::FileAnswer{{u"/tmp/what?/x.zk"_s}, ZkFilter};
        m_window->openZKFile();
        QVERIFY(settingValue(u"pathLoadZKFile"_s).isEmpty());
    }

    void defaultCharacter()
    {
        m_window->openDefault();
        QCOMPARE(m_prompts->asked, QStringList({u"defaultCharacter"_s}));
        QVERIFY(m_window->layers().isEmpty());

        newDocument(u"model"_s);
        m_window->assignAsDefault();
        QVERIFY(QFile::exists(path(u"default.zk"_s)));
        QCOMPARE(fileContents(path(u"default.zk"_s)).at(0), '\1');
        m_window->openDefault();
        QLayer* based = m_window->activeLayer();
        QCOMPARE(based->title(), u"Sans titre"_s);
        QVERIFY(based->filePath().isEmpty());
        QVERIFY(based->isModified());
        QCOMPARE(based->character()->elementCount(), 1);
        QCOMPARE(m_prompts->asked.size(), 1);
    }

    void commandLineOpensBothAndNotTheLastOnes()
    {
        QLayer* layer = newDocument(u"x"_s);
        for (const char* name : {"a.zk", "b.zk", "last.zk"}) {
            layer->setFilePath(path(QString::fromLatin1(name)));
            m_window->save();
        }
        MainWindow window;
        const QStringList arguments = {u"zenkora"_s, path(u"a.zk"_s), path(u"b.zk"_s)};
        Startup::open(window, Startup::openings(arguments, path(u"last.zk|"_s)));
        QCOMPARE(window.layers().size(), 2);
        QCOMPARE(window.layers().at(0)->title(), u"a"_s);
        QCOMPARE(window.layers().at(1)->title(), u"b"_s);

        // With no argument the last documents come back, quietly skipping a lost one.
        MainWindow again;
        Startup::open(again,
                      Startup::openings({u"zenkora"_s}, path(u"last.zk|"_s) + path(u"lost.zk|"_s)));
        QCOMPARE(again.layers().size(), 1);
        QCOMPARE(again.layers().first()->title(), u"last"_s);
        QVERIFY(m_prompts->messages.isEmpty());
    }
};

QTEST_MAIN(TestLifecycle)
#include "tst_lifecycle.moc"
