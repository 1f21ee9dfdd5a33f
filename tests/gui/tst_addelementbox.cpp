// The box that adds library elements to the active document, and the restoration of
// elements from the main window, on a copy of the starter library in the working
// directory.
#include "app/mainwindow.h"
#include "canvas/qlayer.h"
#include "formats/elementfile.h"
#include "library/librarycommands.h"
#include "library/librarypreview.h"
#include "library/qaddcharacterelementbox.h"
#include "library/qlibrarybrowser.h"
#include "library/qlistviewkey.h"
#include "library/qnewcategorydialog.h"
#include "scriptedprompts.h"
#include "testfiles.h"
#include "toolrunner.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTest>

namespace {

void copyStarterLibrary(const QString& to)
{
    const QString from = QStringLiteral(ZENKORA_SOURCE_DIR "/elements");
    QDirIterator files(from, {u"*.png"_qs}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString target = to + u"/elements/"_qs + QDir(from).relativeFilePath(file);
        QDir().mkpath(QFileInfo(target).path());
        QFile::copy(file, target);
    }
}

QModelIndex entry(QAddCharacterElementBox* box, const QString& name)
{
    const QList<QStandardItem*> items = box->browser()->model()->findItems(name);
    return items.isEmpty() ? QModelIndex() : items.first()->index();
}

// Walks the box to a file by its path below the box's folder (".." goes up) and adds
// it as a double click does.
void add(QAddCharacterElementBox* box, const QString& path)
{
    for (const QString& step : path.split(QLatin1Char('/'))) {
        if (step == u".."_qs)
            box->backElement();
        else
            box->validModelIndex(entry(box, step));
    }
}

QByteArray lastLabel(QLayer* layer)
{
    const History* history = layer->history();
    return history->labelAt(history->size() - 1);
}

const QString noDocument = u"message:Information:Vous devez d'abord créer un nouveau character "_qs;

} // namespace

class TestAddElementBox : public QObject
{
    Q_OBJECT

private:
    SettingsSandbox* m_sandbox = nullptr;
    ScriptedPrompts* m_prompts = nullptr;
    MainWindow* m_window = nullptr;

    QLayer* open(int kind) { return m_window->addDocument(Character(kind, QSize()), u"perso"_qs); }

    QAddCharacterElementBox* openBox()
    {
        m_window->action(u"addElement"_qs)->trigger();
        QAddCharacterElementBox* box = m_window->libraryCommands()->addBox();
        if (box)
            box->closeBox()->setChecked(false);
        return box;
    }

private slots:
    void init()
    {
        m_sandbox = new SettingsSandbox;
        copyStarterLibrary(m_sandbox->folder());
        m_prompts = new ScriptedPrompts;
        m_window = new MainWindow;
    }

    void cleanup()
    {
        for (QLayer* layer : m_window->layers())
            layer->setAskOnClose(false);
        delete m_window;
        delete m_prompts;
        delete m_sandbox;
    }

    // Return enters a folder, then adds the file that the arrows chose, once: the key
    // must not go on to the default button, which would add the element again.
    void returnAddsOnce()
    {
        QLayer* layer = open(Character::XP);
        QAddCharacterElementBox* box = openBox();
        QVERIFY(box);
        QCOMPARE(box->browser()->currentDir(), u"elements/XP/"_qs);
        QListViewKey* list = box->browser()->list();
        list->setCurrentIndex(entry(box, u"Corps"_qs));
        box->showElement(list->currentIndex());
        QVERIFY(box->validButton()->isEnabled());
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(box->browser()->currentDir(), u"elements/XP/Corps/"_qs);
        QVERIFY(!box->validButton()->isEnabled());
        QTest::keyClick(list, Qt::Key_Down);
        QVERIFY(box->validButton()->isEnabled());
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(layer->character()->elementCount(), 1);
        QCOMPARE(layer->character()->elementSource(0),
                 QByteArray("elements/XP/Corps/Corps mince.png"));
        QCOMPARE(lastLabel(layer), QByteArray("Ajout de Corps mince.png"));
        QVERIFY(box->isVisible());

        // A second Ctrl+E raises the same box; the ticked box closes it after an add.
        QCOMPARE(openBox(), box);
        box->closeBox()->setChecked(true);
        box->addDessinLayer();
        QCOMPARE(layer->character()->elementCount(), 2);
        QCOMPARE(layer->character()->elementSource(1), QByteArray());
        QCOMPARE(lastLabel(layer), QByteArray("Ajout d'un calque de dessin"));
        QVERIFY(!box->isVisible());
        QVERIFY(m_prompts->asked.isEmpty());
    }

    // The box goes to the document that becomes active, and after the last one closed
    // it refuses both kinds of addition with their own words.
    void followsDocuments()
    {
        QVERIFY(!openBox());
        QLayer* first = open(Character::XP);
        QAddCharacterElementBox* box = openBox();
        QLayer* second = open(Character::VX);
        QCOMPARE(box->layer(), second);
        m_window->mdiArea()->setActiveSubWindow(m_window->windowOf(first));
        QCOMPARE(box->layer(), first);
        // Another top-level window taking the focus leaves the document current.
        box->updateActiveWindow(nullptr);
        QCOMPARE(box->layer(), first);

        for (QLayer* layer : m_window->layers())
            layer->setAskOnClose(false);
        m_window->mdiArea()->closeAllSubWindows();
        QTRY_VERIFY(!box->layer());
        box->addDessinLayer();
        add(box, u"Corps/Corps mince.png"_qs);
        QCOMPARE(m_prompts->asked, (QStringList{noDocument + u"ou en ouvrir un existant."_qs,
                                                noDocument + u"ou un ouvrir un existant."_qs}));
    }

    // Restoration asks about the element of the other engine, and lists the file it
    // could not read in the details of one box.
    void restoration()
    {
        QLayer* layer = open(Character::XP);
        QAddCharacterElementBox* box = openBox();
        box->convertBox()->setChecked(true);
        add(box, u"../VX/Corps/Corps mince.png"_qs);
        Character* character = layer->character();
        character->insertElement(1, "perdu", "perdu.png", QList<QImage>(16), QList<QPoint>(16),
                                 true);
        const QList<QPoint> added = character->cellPositions().at(0);
        character->moveCells(QPoint(5, 5));
        m_prompts->answers.enqueue({QMessageBox::Yes, false});
        m_window->action(u"restore"_qs)->trigger();
        QCOMPARE(m_prompts->asked,
                 (QStringList{u"message:Restauration:elements/VX/Corps/Corps mince.png semble "
                              "être un élément de VX. Faut-il le reconvertir vers XP ?"_qs,
                              u"message:Fichiers non ouverts:Liste des fichiers qui n'ont pas "
                              "été ouverts :\n"_qs}));
        QCOMPARE(m_prompts->messages.last().detailedText, u"- perdu.png"_qs);
        QCOMPARE(character->cellPositions().at(0), added);
        QCOMPARE(lastLabel(layer), QByteArray("Restauration des \xe9l\xe9ments"));
    }

    // A folder shows its first readable element, not looking into its sub-folders; a
    // folder without one shows the card.
    void folderPreviews()
    {
        const QString folder = m_sandbox->path(u"aperçus"_qs);
        QVERIFY(QDir().mkpath(folder + u"/vide/sous"_qs));
        QVERIFY(solidImage(QSize(8, 8), qRgba(1, 2, 3, 255)).save(folder + u"/vide/sous/x.png"_qs));
        QVERIFY(writeFile(folder + u"/a.png"_qs, "not a picture"));
        QVERIFY(solidImage(QSize(8, 8), qRgba(4, 5, 6, 255)).save(folder + u"/b.png"_qs));
        const QImage none = LibraryPreview::none().toImage();
        QCOMPARE(none.size(), QSize(160, 224));
        QCOMPARE(LibraryPreview::of(folder + u"/vide"_qs).toImage(), none);
        QCOMPARE(LibraryPreview::of(folder).toImage().pixel(0, 0), qRgba(4, 5, 6, 255));
        QCOMPARE(LibraryPreview::of(folder + u"/a.png"_qs).toImage(), none);
    }

    // The name is checked as it is typed; "Valider" makes the folder and the list
    // shows it.
    void newCategory()
    {
        open(Character::XP);
        QAddCharacterElementBox* box = openBox();
        QNewCategoryDialog* dialog = box->browser()->makeADir();
        const QList<std::pair<QString, QString>> cases = {
            {u""_qs, u"Le nom ne doit pas être vide."_qs},
            {u"a:b"_qs, u"La synthaxe du nom est mauvaise."_qs},
            {u"Corps"_qs, u"Une catégorie portant le même nom existe déjà."_qs},
            {u"Ailes v2.0"_qs, u"Valider pour créer une nouvelle catégorie."_qs}};
        for (const auto& [name, message] : cases) {
            dialog->nameEdit()->setText(u"x"_qs);
            dialog->nameEdit()->setText(name);
            QVERIFY2(dialog->messageLabel()->text().contains(message), qPrintable(name));
            QCOMPARE(dialog->validButton()->isEnabled(), name == cases.last().first);
        }
        dialog->validButton()->click();
        QVERIFY(QFileInfo(m_sandbox->path(u"elements/XP/Ailes v2.0"_qs)).isDir());
        QVERIFY(entry(box, u"Ailes v2.0"_qs).isValid());
        QVERIFY(m_prompts->asked.isEmpty());
    }

    // The same additions through the box and through zenkora-tool give the same file.
    void toolMatchesBox_data()
    {
        QTest::addColumn<bool>("convert");
        QTest::addColumn<QStringList>("files"); // from the box's folder "elements/XP/"
        QTest::newRow("sheets") << false
                                << QStringList{u"Corps/Corps mince.png"_qs,
                                               u"Chaussures/Bottes.png"_qs,
                                               u"Cheveux/Hérissés.png"_qs};
        QTest::newRow("converted")
            << true << QStringList{u"../VX/Corps/Corps robuste.png"_qs, u"Hauts/Veste.png"_qs};
    }

    void toolMatchesBox()
    {
        QFETCH(bool, convert);
        QFETCH(QStringList, files);
        QLayer* layer = open(Character::XP);
        QAddCharacterElementBox* box = openBox();
        box->convertBox()->setChecked(convert);
        QStringList arguments = {u"add"_qs, u"outil.zk"_qs, u"--new"_qs, u"xp"_qs};
        if (convert)
            arguments.append(u"--convert"_qs);
        for (const QString& file : files) {
            const QString before = box->browser()->currentDir();
            add(box, file);
            arguments.append(QDir::cleanPath(before + file));
            box->backElement();
        }
        QCOMPARE(layer->character()->elementCount(), files.size());
        QVERIFY(layer->character()->saveCharacter(m_sandbox->path(u"boîte.zk"_qs), 1));
        const ToolResult result = runTool(arguments, m_sandbox->folder());
        QCOMPARE(result.err, QString());
        QCOMPARE(result.code, 0);
        QCOMPARE(fileContents(m_sandbox->path(u"outil.zk"_qs)),
                 fileContents(m_sandbox->path(u"boîte.zk"_qs)));
    }
};

QTEST_MAIN(TestAddElementBox)
#include "tst_addelementbox.moc"
