// The tileset merge window and its view: enabling, moves by the mouse, scrolling, and
// merges run to their end, stopped, or failing to write.
#include "batch/fusioner.h"
#include "batch/qfusiontileset.h"
#include "batch/qprogresswindow.h"
#include "batch/qtilesetview.h"
#include "formats/pngwriter.h"
#include "scriptedprompts.h"
#include "testfiles.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

class TestFusionTileset : public QObject
{
    Q_OBJECT

    TestFolders m_folders{u"Fusion"_s};

    // Tilesets "A.png", "B.png"... of 256 by 32 pixels in a new folder.
    QStringList tilesets(int count)
    {
        const QString folder = m_folders.newFolder();
        QStringList paths;
        for (int i = 0; i < count; ++i) {
            paths.append(folder + u'/' + QChar(u'A' + i) + u".png"_s);
            PngWriter::save(solidImage(QSize(256, 32), qRgb(10 * i, 100, 50)), paths.last());
        }
        return paths;
    }

    static QString order(const QTilesetView* view)
    {
        QString names;
        for (const QString& path : view->paths())
            names += QFileInfo(path).baseName();
        return names;
    }

    // Presses on tile from, moves moves times to point, and releases there.
    static void drag(QTilesetView* view, int from, QPoint to, int moves)
    {
        QTest::mousePress(view, Qt::LeftButton, {}, view->tileRect(from).center());
        for (int i = 0; i < moves; ++i)
            QTest::mouseMove(view, to + QPoint(0, i % 2));
    }

    static void shoot(QWidget* widget, const QString& name)
    {
        const QString folder = qEnvironmentVariable("ZENKORA_SHOTS");
        if (!folder.isEmpty())
            widget->grab().save(folder + u'/' + name + u".png"_s);
    }

private slots:
    void fusionButton()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        QFusionTileset window;
        const QStringList paths = tilesets(2);
        QVERIFY(!window.fusionButton()->isEnabled());
        window.tilesetView()->addPaths({paths.at(0)});
        QVERIFY(!window.fusionButton()->isEnabled());
        window.tilesetView()->addPaths({paths.at(1)});
        QVERIFY(window.fusionButton()->isEnabled());
        QTest::mousePress(window.tilesetView(), Qt::LeftButton, {},
                          window.tilesetView()->tileRect(0).center());
        window.tilesetView()->aSupprimer();
        QVERIFY(!window.fusionButton()->isEnabled());
        QCOMPARE(window.tilesetView()->selected(), -1);
    }

    void moves_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<int>("moves");
        QTest::addColumn<QString>("order");
        QTest::addColumn<int>("selected");
        // Tile 2's right half, tile 0's left half; 19 moves stay a click.
        QTest::newRow("A on C's right half")
            << 0 << QPoint(2 * 140 + 100, 60) << 20 << u"BCAD"_s << 2;
        QTest::newRow("D on A's left half") << 3 << QPoint(30, 60) << 20 << u"DABC"_s << 0;
        QTest::newRow("19 moves") << 0 << QPoint(2 * 140 + 100, 60) << 19 << u"ABCD"_s << 0;
    }

    void moves()
    {
        QFETCH(int, from);
        QFETCH(QPoint, to);
        QFETCH(int, moves);
        QFETCH(QString, order);
        QFETCH(int, selected);
        ScriptedPrompts prompts;
        QFusionTileset window;
        QTilesetView& view = *window.tilesetView();
        view.addPaths(tilesets(4));
        window.show();
        drag(&view, from, to, moves);
        QCOMPARE(view.isMoving(), moves >= 20);
        if (view.isMoving() && from == 0)
            shoot(&window, u"merge-mid-move"_s);
        QTest::mouseRelease(&view, Qt::LeftButton, {}, to);
        QCOMPARE(TestFusionTileset::order(&view), order);
        QCOMPARE(view.selected(), selected);
        QVERIFY(!view.isMoving());
    }

    // A move begun from the menu and set down off every tile changes nothing.
    void moveNowhere()
    {
        ScriptedPrompts prompts;
        QTilesetView view;
        view.addPaths(tilesets(4));
        QTest::mousePress(&view, Qt::LeftButton, {}, view.tileRect(1).center());
        QTest::mouseRelease(&view, Qt::LeftButton, {}, view.tileRect(1).center());
        QTest::mouseMove(&view, QPoint(300, 400));
        view.aMove();
        QCOMPARE(view.insertionIndex(), -1);
        QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(300, 400));
        QCOMPARE(order(&view), u"ABCD"_s);
    }

    void scrolling()
    {
        ScriptedPrompts prompts;
        QTilesetView view;
        const QString one = tilesets(1).first();
        view.addPaths(QStringList(30, one));
        QCOMPARE(view.thumbLength(), 124);
        view.setOffset(3);
        QCOMPARE(view.thumbRect().top(), 155);
        view.setOffset(7);
        QCOMPARE(view.thumbRect().top(), 319);
        view.setOffset(9);
        QCOMPARE(view.offset(), 7);
        QWheelEvent wheel(QPointF(10, 10), QPointF(10, 10), {}, QPoint(0, 60), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view, &wheel);
        QCOMPARE(view.offset(), 7);
        QCoreApplication::sendEvent(&view, &wheel);
        QCOMPARE(view.offset(), 6);
    }

    // The toolkit's dialog adds the suffix before its question about replacing a file:
    // "out" asks about out.png.
    void overwriteQuestion()
    {
        const QString folder = QFileInfo(tilesets(1).first()).path();
        QVERIFY(writeFile(folder + u"/out.png"_s, "old"));
        QString question;
        QTimer answerer;
        connect(&answerer, &QTimer::timeout, this, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                question = box->text();
                box->button(QMessageBox::Yes)->click();
            } else if (auto* dialog = qobject_cast<QFileDialog*>(modal);
                       dialog && question.isEmpty()) {
                dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(u"out"_s);
                QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
            }
        });
        answerer.start(20);
        Prompts prompts;
        const QString answer =
            prompts.saveFileName(nullptr, u"t"_s, folder, u"Images (*.png)"_s, nullptr, u"png"_s);
        QCOMPARE(answer, folder + u"/out.png"_s);
        QVERIFY2(question.contains(u"out.png"_s), qPrintable(question));
    }

    void merge_data()
    {
        QTest::addColumn<QString>("stopAt");
        QTest::addColumn<bool>("blocked");
        QTest::addColumn<QString>("last");
        QTest::newRow("to its end") << QString() << false << u"Fusion effectuée !"_s;
        QTest::newRow("target can't be written")
            << QString() << true << u"Impossible d'enregistrer le fichier :<br />%1."_s;
        QTest::newRow("stopped") << u"Ouverture de"_s << false << QString();
    }

    // "out" becomes out.png; a stop writes nothing and says nothing of success.
    void merge()
    {
        QFETCH(QString, stopAt);
        QFETCH(bool, blocked);
        QFETCH(QString, last);
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        auto* window = new QFusionTileset;
        window->show();
        const QStringList paths = tilesets(3);
        const QString folder =
            QFileInfo(paths.first()).path() + (blocked ? u"/taken"_s : QString());
        if (blocked)
            QVERIFY(writeFile(folder, "a file"));
        prompts.fileAnswers.enqueue({paths, {}});
        window->addFiles();
        prompts.fileAnswers.enqueue({{folder + u"/out"_s}, {}});
        QPointer<QProgressWindow> progress;
        connect(window, &QFusionTileset::workerStarting, this, [&](QThread* worker) {
            progress = window->progressWindow();
            connect(
                static_cast<Fusioner*>(worker), &Fusioner::changeProgress, worker,
                [&, worker](uint, const QString& info) {
                    if (!stopAt.isEmpty() && info.startsWith(stopAt))
                        worker->requestInterruption();
                },
                Qt::DirectConnection);
        });
        QPointer<QFusionTileset> guard(window);
        window->fusionButton()->click();
        QVERIFY(progress);
        QCOMPARE(progress->windowModality(), Qt::ApplicationModal);
        if (!stopAt.isEmpty()) {
            QTRY_VERIFY_WITH_TIMEOUT(progress.isNull(), 20000);
            QVERIFY(window->stopped());
            QVERIFY(prompts.messages.isEmpty());
            QVERIFY(!QFile::exists(folder + u"/out.png"_s));
            delete window;
            return;
        }
        shoot(progress, u"merge-progress"_s);
        QTRY_VERIFY_WITH_TIMEOUT(guard.isNull(), 20000);
        QCOMPARE(prompts.messages.size(), 1);
        QCOMPARE(prompts.messages.last().text, blocked ? last.arg(folder + u"/out.png"_s) : last);
        QCOMPARE(QImage(folder + u"/out.png"_s).size(), blocked ? QSize(0, 0) : QSize(256, 96));
    }
};

QTEST_MAIN(TestFusionTileset)
#include "tst_fusiontileset.moc"
