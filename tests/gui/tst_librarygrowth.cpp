// The windows that grow the library: the picture on which key colours are picked, the
// window that writes images into a category, and the group element creator, on a
// library made in the working directory. Their questions are answered by the script.
#include "app/mainwindow.h"
#include "canvas/qlayerlistelzk.h"
#include "formats/elementfile.h"
#include "imaging/keycolours.h"
#include "library/qaddlibrarycharacter.h"
#include "library/qelementview.h"
#include "library/qelementviewer.h"
#include "library/qelzkcreator.h"
#include "library/qkeycolourpanel.h"
#include "library/qlibrarybrowser.h"
#include "library/qlistviewkey.h"
#include "scriptedprompts.h"
#include "testfiles.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

namespace {

const QRgb Magenta = 0xffff00ff;

// An XP sheet on an opaque magenta ground with a block of one colour in every cell.
QImage sheet(QRgb colour)
{
    QImage image = solidImage(QSize(128, 192), Magenta);
    for (int y = 10; y < 192; y += 48) {
        for (int x = 8; x < 128; x += 32)
            image.setPixel(x, y, colour);
    }
    return image;
}

QModelIndex entry(QLibraryBrowser* browser, const QString& name)
{
    const QList<QStandardItem*> items = browser->model()->findItems(name);
    return items.isEmpty() ? QModelIndex() : items.first()->index();
}

QString red(const QString& text)
{
    return u"<font color=\"#FF0000\">"_qs + text + u"</font>"_qs;
}

const QString Green = u"<font color=\"#009900\">Choisissez une catégorie et validez.</font>"_qs;
const QString Empty = red(u"Le nom ne doit pas être vide."_qs);
const QString BadName =
    red(u"Le nom ne doit pas contenir les caractères : \\ / : * ? \" &lt; > |."_qs);
const QString ChooseKind = red(u"Choisissez un type d'élément."_qs);
const QString TooFew = red(u"L'élément doit être composé d'au moins 2 éléments simples."_qs);
const QString TooMany = red(u"L'élément ne peut pas contenir plus de 127 éléments simples."_qs);

QPoint rowPoint(QLayerList* list, int i, int dy = -34)
{
    return QPoint(75, list->geometry().rowBase(i) + dy);
}

// Drags row from onto the upper (dy -50) or lower (dy -15) half of row over.
void drag(QLayerList* list, int from, int over, int dy)
{
    QTest::mousePress(list, Qt::LeftButton, Qt::NoModifier, rowPoint(list, from));
    QTest::mouseMove(list, rowPoint(list, over, dy));
    QTest::mouseRelease(list, Qt::LeftButton, Qt::NoModifier, rowPoint(list, over, dy));
}

QByteArray elementBytes(const QList<QImage>& images, int firstCount)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"g.elzk"_qs);
    return ElementFile::write(path, images, firstCount, Character::XP) ? fileContents(path)
                                                                       : QByteArray();
}

} // namespace

class TestLibraryGrowth : public QObject
{
    Q_OBJECT

private:
    SettingsSandbox* m_sandbox = nullptr;
    ScriptedPrompts* m_prompts = nullptr;

    // Sheets written into the working directory under the names given.
    QStringList sheets(const QStringList& names)
    {
        QStringList paths;
        for (int i = 0; i < names.size(); ++i) {
            paths.append(m_sandbox->path(names.at(i)));
            if (names.at(i).startsWith(u"bad"_qs))
                writeFile(paths.last(), "not a picture");
            else
                sheet(qRgb(10 * (i + 1), 0, 0)).save(paths.last());
        }
        return paths;
    }

    // Brings the sheets into the creator through its key colour dialog, the ground
    // picked on each.
    void addSimple(QELZKCreator* creator, const QStringList& names)
    {
        m_prompts->fileAnswers.enqueue({sheets(names), {}});
        creator->addSingleElement();
        QElementViewer* viewer = creator->viewer();
        QVERIFY(viewer);
        for (int i = 0; i < names.size(); ++i) {
            QTest::mouseClick(viewer->panel()->view(), Qt::LeftButton, {}, QPoint(0, 0));
            viewer->validModelIndex();
        }
    }

    static QImage keyed(int i)
    {
        return applyKeyColours(sheet(qRgb(10 * (i + 1), 0, 0)), QColor::fromRgba(Magenta),
                               Qt::transparent);
    }

private slots:
    void init()
    {
        m_sandbox = new SettingsSandbox;
        for (const char* folder : {"elements/XP/Corps", "elements/VX"})
            QDir(m_sandbox->folder()).mkpath(QString::fromLatin1(folder));
        m_prompts = new ScriptedPrompts;
    }

    void cleanup()
    {
        delete m_prompts;
        delete m_sandbox;
    }

    void pick_data()
    {
        QTest::addColumn<int>("zoomIndex");
        QTest::addColumn<int>("button");
        QTest::addColumn<QPoint>("click");
        QTest::addColumn<QPoint>("source");
        QTest::addColumn<int>("type");
        QTest::newRow("x4 left") << 2 << int(Qt::LeftButton) << QPoint(13, 7) << QPoint(3, 1) << 0;
        QTest::newRow("x4 block end")
            << 2 << int(Qt::LeftButton) << QPoint(15, 7) << QPoint(3, 1) << 0;
        QTest::newRow("x2 left") << 1 << int(Qt::LeftButton) << QPoint(13, 7) << QPoint(6, 3) << 0;
        QTest::newRow("x1 right") << 0 << int(Qt::RightButton) << QPoint(5, 2) << QPoint(5, 2) << 1;
        QTest::newRow("middle") << 0 << int(Qt::MiddleButton) << QPoint(5, 2) << QPoint() << -1;
        QTest::newRow("outside") << 0 << int(Qt::LeftButton) << QPoint(9, 2) << QPoint() << -1;
    }

    // The pixel under a click at each zoom, as the image holds it (palette included).
    void pick()
    {
        QFETCH(int, zoomIndex);
        QFETCH(int, button);
        QFETCH(QPoint, click);
        QFETCH(QPoint, source);
        QFETCH(int, type);
        QImage image(8, 4, QImage::Format_Indexed8);
        QList<QRgb> colours;
        for (int i = 0; i < 32; ++i)
            colours.append(qRgba(i, 7 * i, 255 - i, 255 - 2 * i));
        image.setColorTable(colours);
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 8; ++x)
                image.setPixel(x, y, uint(8 * y + x));
        }
        const QString path = m_sandbox->path(u"palette.png"_qs);
        QVERIFY(image.save(path));
        QKeyColourPanel panel({path});
        QVERIFY(panel.showFrom(0));
        panel.zoomBox()->setCurrentIndex(zoomIndex);
        QCOMPARE(panel.view()->pixmap().size(), image.size() * (1 << zoomIndex));
        QSignalSpy picked(panel.view(), &QElementView::changeColor);
        QTest::mouseClick(panel.view(), Qt::MouseButton(button), {}, click);
        QCOMPARE(picked.size(), type < 0 ? 0 : 1);
        if (type < 0)
            return;
        const QColor expected = QColor::fromRgba(QImage(path).pixel(source));
        QCOMPARE(picked.first().at(0).value<QColor>().rgba(), expected.rgba());
        QCOMPARE(picked.first().at(1).toInt(), type);
        QCOMPARE((type == 0 ? panel.transparentColor() : panel.translucentColor()).rgba(),
                 expected.rgba());
    }

    // The messages follow the name and the folder; only a kind's tree takes elements.
    void adderMessages()
    {
        QAddLibraryCharacter adder(sheets({u"héros.png"_qs}));
        QLibraryBrowser* browser = adder.browser();
        QCOMPARE(browser->currentDir(), u"elements/"_qs);
        QCOMPARE(adder.nameEdit()->selectedText(), u"héros.png"_qs);
        QCOMPARE(adder.messageLabel()->text(), ChooseKind);
        QVERIFY(!browser->backButton()->isEnabled());
        QVERIFY(!adder.categoryButton()->isEnabled());
        const QList<std::pair<QString, QString>> steps = {
            {u""_qs, Empty}, {u"  "_qs, Empty}, {u"a:b"_qs, BadName}, {u"a.b"_qs, ChooseKind}};
        for (const auto& [name, message] : steps) {
            adder.nameEdit()->setText(name);
            QCOMPARE(adder.messageLabel()->text(), message);
            QVERIFY(!adder.validButton()->isEnabled());
        }
        emit browser->list()->activated(entry(browser, u"XP"_qs));
        QCOMPARE(browser->currentDir(), u"elements/XP/"_qs);
        QCOMPARE(adder.messageLabel()->text(), Green);
        QVERIFY(adder.validButton()->isEnabled());
        QVERIFY(adder.categoryButton()->isEnabled());
        adder.validModelIndex(entry(browser, u"Corps"_qs));
        writeFile(m_sandbox->path(u"elements/XP/Corps/Bras.png"_qs), "x");
        browser->reload();
        emit browser->list()->clicked(entry(browser, u"Bras.png"_qs));
        QCOMPARE(adder.nameEdit()->text(), u"Bras.png"_qs);
        browser->backElement();
        browser->backElement();
        QCOMPARE(adder.messageLabel()->text(), ChooseKind);
        QVERIFY(!browser->backButton()->isEnabled());
        QVERIFY(!adder.categoryButton()->isEnabled());
        QVERIFY(!adder.validButton()->isEnabled());
    }

    void adderWrites_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("written");
        QTest::newRow("extension added") << u"hero"_qs << u"hero.png"_qs;
        QTest::newRow("extension kept") << u"HERO.PNG"_qs << u"HERO.PNG"_qs;
    }

    // The ground picked at the corner, the half-seen colour on a block: the file holds
    // the converted sheet, and the window closes after its only image.
    void adderWrites()
    {
        QFETCH(QString, name);
        QFETCH(QString, written);
        QAddLibraryCharacter adder(sheets({u"a.png"_qs}));
        adder.show();
        adder.validModelIndex(entry(adder.browser(), u"XP"_qs));
        adder.validModelIndex(entry(adder.browser(), u"Corps"_qs));
        QElementView* view = adder.panel()->view();
        QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(0, 0));
        QTest::mouseClick(view, Qt::RightButton, {}, QPoint(8, 10));
        adder.nameEdit()->setText(name);
        adder.validButton()->click();
        QCOMPARE(adder.nameEdit()->text(), written);
        const QImage expected = applyKeyColours(sheet(qRgb(10, 0, 0)), QColor::fromRgba(Magenta),
                                                QColor(qRgb(10, 0, 0)));
        QCOMPARE(expected.pixel(8, 10), 0x800a0000u);
        QCOMPARE(fileContents(m_sandbox->path(u"elements/XP/Corps/"_qs + written)),
                 pngBytes(expected));
        QVERIFY(!adder.isVisible());
        QVERIFY(m_prompts->asked.isEmpty());
    }

    // No keeps the file and the colours; Yes replaces it.
    void adderReplaces()
    {
        QAddLibraryCharacter adder(sheets({u"a.png"_qs}));
        adder.show();
        adder.validModelIndex(entry(adder.browser(), u"XP"_qs));
        const QString path = m_sandbox->path(u"elements/XP/x.png"_qs);
        writeFile(path, "old");
        QTest::mouseClick(adder.panel()->view(), Qt::LeftButton, {}, QPoint(0, 0));
        adder.nameEdit()->setText(u"x"_qs);
        m_prompts->answers.enqueue({QMessageBox::No, false});
        adder.validModelIndex();
        QCOMPARE(m_prompts->asked,
                 QStringList{u"message:Zenkora:x.png existe déjà. Voulez-vous le remplacer ?"_qs});
        QCOMPARE(fileContents(path), QByteArray("old"));
        QCOMPARE(adder.panel()->transparentColor().rgba(), Magenta);
        QVERIFY(adder.isVisible());
        m_prompts->answers.enqueue({QMessageBox::Yes, false});
        adder.validModelIndex();
        QCOMPARE(fileContents(path),
                 pngBytes(applyKeyColours(sheet(qRgb(10, 0, 0)), QColor::fromRgba(Magenta),
                                          Qt::transparent)));
        QVERIFY(!adder.isVisible());
    }

    // A series into one category: the unreadable file is told and skipped, the title
    // counts from the start of the list, and each image starts afresh.
    void adderSeries()
    {
        QAddLibraryCharacter adder(sheets({u"a.png"_qs, u"bad.png"_qs, u"c.png"_qs}));
        adder.show();
        QCOMPARE(adder.windowTitle(), u"Ajouter un élément à la bibliothèque (1/3)"_qs);
        adder.validModelIndex(entry(adder.browser(), u"XP"_qs));
        adder.validModelIndex(entry(adder.browser(), u"Corps"_qs));
        QTest::mouseClick(adder.panel()->view(), Qt::LeftButton, {}, QPoint(0, 0));
        adder.panel()->zoomBox()->setCurrentIndex(2);
        adder.validModelIndex();
        QCOMPARE(m_prompts->asked, QStringList{u"message:Erreur:Impossible d'ouvrir "_qs +
                                               m_sandbox->path(u"bad.png"_qs)});
        QCOMPARE(adder.windowTitle(), u"Ajouter un élément à la bibliothèque (3/3)"_qs);
        QCOMPARE(adder.nameEdit()->selectedText(), u"c.png"_qs);
        QCOMPARE(adder.panel()->transparentColor().rgba(), QColor(Qt::transparent).rgba());
        QCOMPARE(adder.panel()->view()->zoom(), 1.0);
        QCOMPARE(adder.browser()->currentDir(), u"elements/XP/Corps/"_qs);
        QVERIFY(entry(adder.browser(), u"a.png"_qs).isValid());
        adder.validModelIndex();
        QVERIFY(!adder.isVisible());
        QCOMPARE(QDir(m_sandbox->path(u"elements/XP/Corps"_qs)).entryList(QDir::Files),
                 (QStringList{u"a.png"_qs, u"c.png"_qs}));
        QCOMPARE(fileContents(m_sandbox->path(u"elements/XP/Corps/c.png"_qs)),
                 pngBytes(sheet(qRgb(30, 0, 0))));

        QAddLibraryCharacter late(sheets({u"bad1.png"_qs, u"a.png"_qs, u"c.png"_qs}));
        QCOMPARE(late.windowTitle(), u"Ajouter un élément à la bibliothèque (2/3)"_qs);
        QAddLibraryCharacter none(sheets({u"bad1.png"_qs, u"bad2.png"_qs}));
        QVERIFY(!none.hasImage());
    }

    // A write that fails leaves the window on its image.
    void adderWriteFails()
    {
        QAddLibraryCharacter adder(sheets({u"a.png"_qs, u"b.png"_qs}));
        adder.show();
        adder.validModelIndex(entry(adder.browser(), u"XP"_qs));
        {
            FileSizeLimit full(100);
            adder.validModelIndex();
        }
        QCOMPARE(m_prompts->asked,
                 QStringList{u"message:Erreur:Impossible de créer l'élément : a.png."_qs});
        QCOMPARE(adder.windowTitle(), u"Ajouter un élément à la bibliothèque (1/2)"_qs);
        QVERIFY(!QFile::exists(m_sandbox->path(u"elements/XP/a.png"_qs)));
    }

    // The menu's choice: nothing, images that cannot be read (no window), or a creator.
    void addElementLibrary()
    {
        MainWindow window;
        QAction* action = window.action(u"addLibrary"_qs);
        const auto windows = [] {
            QStringList titles;
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (qobject_cast<QAddLibraryCharacter*>(widget) ||
                    qobject_cast<QELZKCreator*>(widget))
                    titles.append(widget->windowTitle());
            }
            return titles;
        };
        action->trigger();
        m_prompts->items.enqueue(0);
        m_prompts->fileAnswers.enqueue({sheets({u"bad1.png"_qs, u"bad2.png"_qs}), {}});
        action->trigger();
        QCOMPARE(windows(), QStringList());
        QCOMPARE(m_prompts->asked.size(), 5);
        QCOMPARE(m_prompts->asked.at(2), u"open:Chercher un élément"_qs);
        QCOMPARE(m_prompts->lastFilter, u"Images (*.png)"_qs);
        QVERIFY(m_prompts->asked.at(4).endsWith(u"bad2.png"_qs));
        m_prompts->items.enqueue(2);
        action->trigger();
        QCOMPARE(windows(), QStringList{u"Ajouter un Elément Zenkora VX à la bibliothèque"_qs});
        QCOMPARE(m_sandbox->ini().contains("pathLoadSingleElement="), true);
    }

    // The stack of [placeholder, a, b, c]: c dragged to the bottom, b deleted. The
    // sources stay contiguous and the file holds c beneath the placeholder, a above.
    void creatorStack()
    {
        QELZKCreator creator(Character::XP);
        creator.show();
        QCOMPARE(creator.messageLabel()->text(), TooFew);
        QVERIFY(!creator.browser()->backButton()->isEnabled());
        QVERIFY(creator.categoryButton()->isEnabled());
        addSimple(&creator, {u"a.png"_qs, u"b.png"_qs, u"c.png"_qs});
        const Character& stack = creator.group().stack();
        QCOMPARE(stack.elementSources(), (QList<QByteArray>{"?ZK?", "0", "1", "2"}));
        QCOMPARE(stack.elementNames().at(3), QByteArray("c"));
        QLayerListELZK* list = creator.list();
        drag(list, 3, 0, -15);
        QCOMPARE(stack.elementSources(), (QList<QByteArray>{"2", "?ZK?", "0", "1"}));
        creator.group().stack().setSelectedElements({3});
        list->aSupprimer();
        QCOMPARE(stack.elementSources(), (QList<QByteArray>{"1", "?ZK?", "0"}));
        QCOMPARE(stack.elementNames(),
                 (QList<QByteArray>{"c", "El\xe9ment s\xe9lectionn\xe9", "a"}));
        QCOMPARE(creator.group().records().size(), 2);
        QCOMPARE(creator.group().records().at(1).name, u"c"_qs);
        QCOMPARE(creator.group().nextIndex(), 2);
        creator.nameEdit()->setText(u"Cape"_qs);
        QVERIFY(creator.validButton()->isEnabled());
        creator.validButton()->click();
        const QString path = m_sandbox->path(u"elements/XP/Cape.elzk"_qs);
        QCOMPARE(fileContents(path), elementBytes({keyed(2), keyed(0)}, 1));
        QString error;
        const std::optional<ElementFile::Pair> pair = ElementFile::load(path, &error);
        QVERIFY(pair);
        QCOMPARE(pair->first.elementCount(), 1);
        QCOMPARE(pair->second.elementCount(), 1);
        QVERIFY(!creator.isVisible());
    }

    // The placeholder dragged to the top: the group has no upper half.
    void creatorPlaceholderOnTop()
    {
        QELZKCreator creator(Character::XP);
        addSimple(&creator, {u"a.png"_qs, u"b.png"_qs});
        QCOMPARE(m_prompts->lastFolder, QDir::homePath());
        addSimple(&creator, {u"c.png"_qs});
        QCOMPARE(m_prompts->lastFolder, m_sandbox->folder());
        creator.group().stack().setSelectedElements({3});
        creator.list()->aSupprimer();
        drag(creator.list(), 0, 2, -50);
        QCOMPARE(creator.group().stack().elementSources(), (QList<QByteArray>{"0", "1", "?ZK?"}));
        creator.nameEdit()->setText(u"Haut"_qs);
        creator.validModelIndex();
        QCOMPARE(fileContents(m_sandbox->path(u"elements/XP/Haut.elzk"_qs)),
                 elementBytes({keyed(0), keyed(1)}, 2));
    }

    void creatorCounts_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("message");
        QTest::newRow("1") << 1 << TooFew;
        QTest::newRow("2") << 2 << Green;
        QTest::newRow("127") << 127 << Green;
        QTest::newRow("128") << 128 << TooMany;
    }

    void creatorCounts()
    {
        QFETCH(int, count);
        QFETCH(QString, message);
        QELZKCreator creator(Character::VX);
        for (int i = 0; i < count; ++i)
            creator.group().add({QImage(), QString::number(i)});
        creator.changeValid(u"nom"_qs);
        QCOMPARE(creator.messageLabel()->text(), message);
        QCOMPARE(creator.validButton()->isEnabled(), message == Green);
    }

    // An existing file is asked about first; a folder gone from the disk gives the
    // writer's own message, and the window stays.
    void creatorSaveProblems()
    {
        QELZKCreator creator(Character::XP);
        creator.show();
        addSimple(&creator, {u"a.png"_qs, u"b.png"_qs});
        const QString path = m_sandbox->path(u"elements/XP/Cape.elzk"_qs);
        writeFile(path, "old");
        creator.nameEdit()->setText(u"Cape.elzk"_qs);
        m_prompts->asked.clear();
        m_prompts->answers.enqueue({QMessageBox::No, false});
        creator.validModelIndex();
        QCOMPARE(fileContents(path), QByteArray("old"));
        creator.validModelIndex(entry(creator.browser(), u"Corps"_qs));
        QVERIFY(creator.browser()->backButton()->isEnabled());
        QVERIFY(QDir(m_sandbox->path(u"elements/XP/Corps"_qs)).removeRecursively());
        creator.validModelIndex();
        QCOMPARE(
            m_prompts->asked,
            (QStringList{u"message:Zenkora:Cape.elzk existe déjà. Voulez-vous le remplacer ?"_qs,
                         u"message:Erreur:Ce fichier n'a pas pu s'ouvrir :<br />"_qs +
                             creator.browser()->folderPath() + u"Cape.elzk."_qs}));
        QVERIFY(creator.isVisible());
    }

    // The placeholder stays, whatever is selected with it.
    void placeholderStays()
    {
        QELZKCreator creator(Character::XP);
        addSimple(&creator, {u"a.png"_qs});
        QSignalSpy deleted(creator.list(), &QLayerListELZK::deleteElement);
        creator.group().stack().setSelectedElements({0, 1});
        creator.list()->aSupprimer();
        QCOMPARE(creator.group().stack().elementSources(), QList<QByteArray>{"?ZK?"});
        QCOMPARE(deleted.size(), 1);
        QCOMPARE(creator.messageLabel()->text(), TooFew);
    }
};

QTEST_MAIN(TestLibraryGrowth)
#include "tst_librarygrowth.moc"
