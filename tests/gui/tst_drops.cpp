// Files dropped on the main window: the question asked for each, what it adds or
// opens, and where a drop stops.
#include "app/mainwindow.h"
#include "app/qdropwidget.h"
#include "canvas/qlayer.h"
#include "formats/elementfile.h"
#include "scriptedprompts.h"
#include "testfiles.h"

#include <QMimeData>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString Full = u"message:Erreur:Impossible de créer plus de 255 éléments !"_s;

// A sheet of 128 by 192 (XP) whose cells each hold one pixel of the colour.
QImage sheet(QRgb colour)
{
    QImage image = solidImage(QSize(128, 192), 19);
    for (int c = 0; c < 16; ++c)
        image.setPixel(c % 4 * 32 + 3, c / 4 * 48 + 5, colour);
    return image;
}

// The colours of the elements from the bottom up, read in their first cell.
QList<QRgb> stack(const Character& character)
{
    QList<QRgb> colours;
    for (int e = 0; e < character.elementCount(); ++e)
        colours.append(character.cellImage(e, 0).pixel(0, 0));
    return colours;
}

} // namespace

class TestDrops : public QObject
{
    Q_OBJECT

    std::optional<SettingsSandbox> m_sandbox;
    std::optional<ScriptedPrompts> m_prompts;
    std::optional<MainWindow> m_window;

    QString png(const QString& name, QRgb colour = qRgba(200, 10, 30, 255))
    {
        const QString file = m_sandbox->path(name);
        writeFile(file, pngBytes(sheet(colour)));
        return file;
    }

    // Drops the URLs on the window as a file manager does, then lets the queued
    // handling run.
    void drop(const QList<QUrl>& urls)
    {
        QMimeData data;
        data.setUrls(urls);
        // The toolkit hands a drop only to the widget that accepted the drag's entry.
        QDragEnterEvent enter(m_window->rect().center(), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.operator->(), &enter);
        QDropEvent event(QPointF(m_window->rect().center()), Qt::CopyAction, &data, Qt::LeftButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.operator->(), &event);
        QVERIFY(event.isAccepted());
        // Nothing is asked inside the event itself.
        QCOMPARE(m_prompts->asked, QStringList());
        QCoreApplication::processEvents();
    }

    void dropFiles(const QStringList& files)
    {
        QList<QUrl> urls;
        for (const QString& file : files)
            urls.append(QUrl::fromLocalFile(file));
        drop(urls);
    }

    QLayer* newDocument()
    {
        m_window->addCharacter(u"perso"_s, 128, 192, 0);
        return m_window->activeLayer();
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

    void cancelStopsTheDrop()
    {
        QLayer* layer = newDocument();
        const QStringList files = {png(u"a.png"_s), png(u"b.png"_s), png(u"c.png"_s)};
        m_prompts->dropActions << QDropWidget::Add << QDropWidget::Cancel;
        dropFiles(files);
        QCOMPARE(m_prompts->asked, QStringList({u"drop:"_s + files[0], u"drop:"_s + files[1]}));
        QCOMPARE(layer->character()->elementCount(), 1);
        QCOMPARE(layer->history()->size(), 2);
        QCOMPARE(layer->history()->labelAt(1), "Ajout de " + files[0].toLatin1());
        QCOMPARE(m_window->layers().size(), 1);
    }

    void skipAndOpen()
    {
        QLayer* layer = newDocument();
        const QStringList files = {png(u"a.png"_s), png(u"b.png"_s)};
        m_prompts->dropActions << QDropWidget::Skip << QDropWidget::Open;
        m_prompts->kinds << 0;
        dropFiles(files);
        QCOMPARE(m_prompts->asked,
                 QStringList({u"drop:"_s + files[0], u"drop:"_s + files[1], u"elementType"_s}));
        QCOMPARE(layer->character()->elementCount(), 0);
        QCOMPARE(m_window->layers().size(), 2);
        QCOMPARE(m_window->activeLayer()->title(), u"b"_s);
    }

    // Without a document nothing is asked about the files: they open, one document each.
    void withoutDocument_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QStringList>("asked");
        QTest::addColumn<QStringList>("titles");
        QTest::newRow("two images, both open")
            << QStringList({u"a.png"_s, u"b.PNG"_s})
            << QStringList({u"elementType"_s, u"elementType"_s}) << QStringList({u"a"_s, u"b"_s});
        QTest::newRow("blank, hash and accent in the name")
            << QStringList({u"été #1.PNG"_s}) << QStringList({u"elementType"_s})
            << QStringList({u"été #1"_s});
        QTest::newRow("anything else goes to the character reader")
            << QStringList({u"notes.txt"_s})
            << QStringList({u"message:Erreur:Erreur : notes.txt a été enregistré avec une version "
                            u"de Zenkora "
                            "plus récente."_s})
            << QStringList();
    }

    void withoutDocument()
    {
        QFETCH(QStringList, names);
        QFETCH(QStringList, titles);
        QStringList files;
        for (const QString& name : names)
            files.append(png(name));
        m_prompts->kinds << 0 << 0;
        dropFiles(files);
        QTEST(m_prompts->asked.replaceInStrings(m_sandbox->folder() + u'/', QString()), "asked");
        QStringList opened;
        for (const QLayer* layer : m_window->layers())
            opened.append(layer->title());
        QCOMPARE(opened, titles);
    }

    void webAddressIsSkipped()
    {
        newDocument();
        drop({QUrl(u"http://example.com/a.png"_s)});
        QCOMPARE(m_prompts->asked, QStringList());
        QCOMPARE(m_window->layers().size(), 1);
    }

    // The group wraps the selected element: its first stack beneath, its second above.
    void groupWrapsTheSelectedElement()
    {
        QLayer* layer = newDocument();
        Character& character = *layer->character();
        const QRgb a = qRgba(1, 0, 0, 255), b = qRgba(2, 0, 0, 255), c = qRgba(3, 0, 0, 255);
        const QRgb g1 = qRgba(0, 1, 0, 255), g2 = qRgba(0, 2, 0, 255);
        for (QRgb colour : {a, b, c})
            character.addElement(png(u"e.png"_s, colour));
        character.setSelectedElements({1});
        const QString group = m_sandbox->path(u"groupe.elzk"_s);
        QVERIFY(ElementFile::write(group, {sheet(g1), sheet(g2)}, 1, 0));
        m_prompts->dropActions << QDropWidget::Add;
        dropFiles({group});
        QCOMPARE(stack(character), QList<QRgb>({a, g1, b, g2, c}));
        QCOMPARE(character.selectedElements(), QList<int>({2}));
        QCOMPARE(layer->history()->labelAt(layer->history()->size() - 1),
                 "Ajout de " + group.toLatin1());
    }

    // The limit counts the whole group: 250 and 6 would make 256.
    void groupBeyondTheLimitIsRefused()
    {
        QLayer* layer = newDocument();
        Character& character = *layer->character();
        for (int e = 0; e < 250; ++e)
            character.addElement(sheet(qRgba(e, 0, 0, 255)), "e", e);
        const QString group = m_sandbox->path(u"groupe.elzk"_s);
        QList<QImage> sheets;
        for (int e = 0; e < 6; ++e)
            sheets.append(sheet(qRgba(0, e, 0, 255)));
        QVERIFY(ElementFile::write(group, sheets, 3, 0));
        m_prompts->dropActions << QDropWidget::Add;
        dropFiles({group});
        QCOMPARE(m_prompts->asked, QStringList({u"drop:"_s + group, Full}));
        QCOMPARE(character.elementCount(), 250);
        QCOMPARE(layer->history()->size(), 1);
    }

    void dragEnterWantsFileLists_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("file list") << u"text/uri-list"_s << true;
        QTest::newRow("plain text") << u"text/plain"_s << false;
    }

    void dragEnterWantsFileLists()
    {
        QFETCH(QString, format);
        QMimeData data;
        data.setData(format, "file:///tmp/a.png\r\n");
        QDragEnterEvent event(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        event.setAccepted(false);
        QCoreApplication::sendEvent(m_window.operator->(), &event);
        QTEST(event.isAccepted(), "accepted");
    }

    void previewFitsWithoutEnlarging_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("small stays") << QSize(128, 150) << QSize(128, 150);
        QTest::newRow("wide") << QSize(384, 96) << QSize(192, 48);
        QTest::newRow("tall") << QSize(100, 400) << QSize(48, 192);
    }

    void previewFitsWithoutEnlarging()
    {
        QFETCH(QSize, size);
        // Columns of alternating colours: a smooth scaling would blend them, the
        // nearest pixel keeps every pixel one of the two.
        const QRgb red = qRgba(255, 0, 0, 255), blue = qRgba(0, 0, 255, 255);
        QImage image = solidImage(size, blue);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); x += 2)
                image.setPixel(x, y, red);
        }
        const QImage preview = QDropWidget::preview(image);
        QTEST(preview.size(), "expected");
        for (int y = 0; y < preview.height(); ++y) {
            for (int x = 0; x < preview.width(); ++x)
                QVERIFY(preview.pixel(x, y) == red || preview.pixel(x, y) == blue);
        }
    }

    // The frame's close button and Escape answer "Annuler".
    void closingTheQuestionCancels()
    {
        QDropWidget dialog(png(u"a.png"_s));
        QCOMPARE(dialog.windowTitle(), u"Glisser-Déplacer"_s);
        QCOMPARE(dialog.optionCount(), 4);
        QVERIFY(!dialog.headPixmap().isNull());
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.action(), int(QDropWidget::Cancel));
        emit dialog.row(2)->clicked();
        QCOMPARE(dialog.action(), int(QDropWidget::Skip));
    }
};

QTEST_MAIN(TestDrops)
#include "tst_drops.moc"
