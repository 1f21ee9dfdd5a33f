#include "app/mainwindow.h"
#include "app/qdrawingoptionsbar.h"
#include "canvas/qlayer.h"
#include "scriptedprompts.h"

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSpinBox>
#include <QTest>
#include <QToolBar>

#include <optional>

using namespace Qt::StringLiterals;

// The main window: its frame, the tool slots and their options bar, the document
// actions, zoom and background. Each test function gets a fresh settings folder,
// scripted answers and window.
class TestMainWindow : public QObject
{
    Q_OBJECT

    std::optional<SettingsSandbox> m_sandbox;
    std::optional<ScriptedPrompts> m_prompts;
    std::optional<MainWindow> m_window;

    QAction* action(const char* name) const { return m_window->action(QLatin1String(name)); }

    QLayer* newDocument(const QString& title = u"doc"_s, int width = 128, int height = 192,
                        int kind = 0)
    {
        m_window->addCharacter(title, width, height, kind);
        return m_window->activeLayer();
    }

    QStringList checkedTools() const
    {
        QStringList checked;
        for (const char* name : {"selectTool", "moveTool", "pipetteTool", "penTool", "rubberTool",
                                 "lineTool", "rectTool", "circleTool"}) {
            if (action(name)->isChecked())
                checked.append(QString::fromLatin1(name));
        }
        return checked;
    }

    QStringList barTexts() const
    {
        QStringList texts;
        for (QAction* item : m_window->drawingBar()->actions()) {
            QWidget* widget = m_window->drawingBar()->widgetForAction(item);
            if (QLabel* label = qobject_cast<QLabel*>(widget))
                texts.append(label->text().isEmpty() ? QStringLiteral("[picture]") : label->text());
            else if (qobject_cast<QSpinBox*>(widget))
                texts.append(QStringLiteral("[spin]"));
            else if (QComboBox* combo = qobject_cast<QComboBox*>(widget))
                texts.append(QStringLiteral("[") + combo->itemText(0) + QStringLiteral("]"));
            else if (item->isSeparator())
                texts.append(QStringLiteral("|"));
            else
                texts.append(item->text());
        }
        return texts;
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

    void frame()
    {
        QCOMPARE(m_window->windowTitle(), u"Zenkora"_s);
        QVERIFY(!m_window->windowIcon().isNull());
        QCOMPARE(m_window->mdiArea()->viewMode(), QMdiArea::TabbedView);
        for (const QString& dock : {u"Eléments"_s, u"Rendu"_s, u"Couleurs"_s})
            QVERIFY2(m_window->findChild<QDockWidget*>(dock), qPrintable(dock));
        QCOMPARE(m_window->zoomBox()->text(), u"100 %"_s);
        QVERIFY(m_window->drawingBar()->isHidden());
        QCOMPARE(action("save")->shortcut(), QKeySequence(u"Ctrl+S"_s));
        QCOMPARE(action("zoomIn")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Plus));
        // Every icon the window names is drawn.
        for (QAction* item : m_window->findChildren<QAction*>()) {
            QVERIFY2(item->icon().isNull() || !item->icon().pixmap(16).isNull(),
                     qPrintable(item->text()));
        }
    }

    void toolSlots_data()
    {
        QTest::addColumn<QStringList>("triggered");
        QTest::addColumn<int>("tool");
        QTest::addColumn<QStringList>("checked");
        QTest::addColumn<QStringList>("bar"); // the drawing bar's items; none: disabled
        const QString select = u"selectTool"_s, move = u"moveTool"_s, pen = u"penTool"_s;
        const QStringList none;
        const QStringList width{u"Epaisseur"_s, u"[spin]"_s};
        const QStringList shape{u"Forme"_s, u"[Carré]"_s};
        const QStringList shapes{u"Mode de dessin"_s, u"Remplissage"_s, u"[Couleur unie]"_s,
                                 u"[picture]"_s};
        QTest::newRow("at start") << none << int(ToolState::Select) << QStringList{select} << none;
        QTest::newRow("pen") << QStringList{pen} << int(ToolState::Pen) << QStringList{pen}
                             << width + QStringList{u"|"_s} + shape;
        // Unticking the pen goes back to the select tool's code, but the select action
        // stays unticked until it is pressed.
        QTest::newRow("pen off") << QStringList{pen, pen} << int(ToolState::Select) << none << none;
        QTest::newRow("move") << QStringList{move} << int(ToolState::Move) << QStringList{move}
                              << none;
        QTest::newRow("move off") << QStringList{move, move} << int(ToolState::Select)
                                  << QStringList{select} << none;
        // The select tool cannot be switched off by clicking it.
        QTest::newRow("select again")
            << QStringList{select} << int(ToolState::Select) << QStringList{select} << none;
        QTest::newRow("pipette") << QStringList{u"pipetteTool"_s} << int(ToolState::Pipette)
                                 << QStringList{u"pipetteTool"_s} << none;
        QTest::newRow("pipette, then circle")
            << QStringList{u"pipetteTool"_s, u"circleTool"_s} << int(ToolState::Circle)
            << QStringList{u"circleTool"_s} << shapes;
        QTest::newRow("line") << QStringList{pen, u"lineTool"_s} << int(ToolState::Line)
                              << QStringList{u"lineTool"_s} << width;
        QTest::newRow("rectangle") << QStringList{u"rectTool"_s} << int(ToolState::Rectangle)
                                   << QStringList{u"rectTool"_s} << shapes;
        QTest::newRow("rubber") << QStringList{u"rubberTool"_s} << int(ToolState::Rubber)
                                << QStringList{u"rubberTool"_s}
                                << QStringList{u"Mode d'effacement"_s, u"[Pinceau]"_s} + width +
                                       shape;
    }

    void toolSlots()
    {
        QFETCH(QStringList, triggered);
        QFETCH(QStringList, bar);
        for (const QString& name : triggered)
            m_window->action(name)->trigger();
        QTEST(int(m_window->toolState()->tool), "tool");
        QTEST(checkedTools(), "checked");
        QCOMPARE(m_window->drawingBar()->isEnabled(), !bar.isEmpty());
        if (!bar.isEmpty())
            QCOMPARE(barTexts(), bar);
    }

    void drawingBarForShapesAndRubber()
    {
        ToolState* tools = m_window->toolState();
        action("rectTool")->trigger();
        QWidget* preview = m_window->drawingBar()->findChild<QWidget*>(u"gradientPreview"_s);
        QVERIFY(preview);
        QVERIFY(!preview->isEnabled());
        m_window->setPaintMode(1);
        QVERIFY(preview->isEnabled());
        QCOMPARE(tools->paintMode, 1);

        QCOMPARE(tools->drawMode, 1);
        m_window->changeDrawMode();
        QCOMPARE(tools->drawMode, 2);
        m_window->changeDrawMode();
        QCOMPARE(tools->drawMode, 0);
        m_window->setPleinMode();
        QCOMPARE(tools->drawMode, 1);

        action("rubberTool")->trigger();
        QSpinBox* width = m_window->drawingBar()->findChild<QSpinBox*>();
        QVERIFY(width && width->isEnabled());
        m_window->modeRubber(1);
        QCOMPARE(tools->rubberMode, qint8(1));
        QVERIFY(!width->isEnabled());
        width->setValue(7);
        QCOMPARE(tools->penWidth, 7);
        // The bar is refilled from the shared state.
        action("penTool")->trigger();
        QCOMPARE(m_window->drawingBar()->findChild<QSpinBox*>()->value(), 7);
    }

    void zoneOfEffect()
    {
        ToolState* tools = m_window->toolState();
        // With no document the check mark moves and the value does not.
        action("zoneAll")->trigger();
        QVERIFY(action("zoneAll")->isChecked());
        QVERIFY(!action("zoneTarget")->isChecked());
        QCOMPARE(tools->zoneOfEffect, 0);
        newDocument();
        action("zoneSelected")->trigger();
        QCOMPARE(tools->zoneOfEffect, 1);
        QVERIFY(action("zoneSelected")->isChecked());
        QVERIFY(!action("zoneAll")->isChecked());
    }

    void newDocumentIsCleanWithOneStep()
    {
        QLayer* layer = newDocument(u"Sans titre 1"_s, 96, 128, 1);
        QVERIFY(layer);
        QCOMPARE(layer->history()->size(), 1);
        QCOMPARE(layer->history()->labelAt(0), QByteArray("Etat d'origine"));
        QVERIFY(!layer->isModified());
        QCOMPARE(m_window->mdiArea()->currentSubWindow()->windowTitle(), u"Sans titre 1"_s);
        QCOMPARE(layer->character()->kind(), 1);
        QCOMPARE(layer->character()->sheetSize(), QSize(96, 128));
        QVERIFY(layer->filePath().isEmpty());
        QCOMPARE(m_window->zoomBox()->text(), u"100 %"_s);
    }

    void modificationMarkFollowsHistory()
    {
        QLayer* layer = newDocument();
        QMdiSubWindow* sub = m_window->mdiArea()->currentSubWindow();
        layer->character()->addDrawingLayer(0);
        layer->recordStep("Ajouter un calque de dessin");
        QVERIFY(layer->isModified());
        QCOMPARE(sub->windowTitle(), u"doc*"_s);
        m_window->undo();
        QVERIFY(!layer->isModified());
        QCOMPARE(sub->windowTitle(), u"doc"_s);
        QCOMPARE(layer->character()->elementCount(), 0);
        m_window->undo(); // nothing before the first step
        QCOMPARE(layer->history()->currentIndex(), 0);
        m_window->redo();
        QCOMPARE(layer->character()->elementCount(), 1);
        QVERIFY(layer->isModified());
    }

    void conversionIsOneStep()
    {
        QLayer* layer = newDocument();
        layer->character()->addDrawingLayer(0);
        layer->character()->setSelectedCells({4});
        m_window->convertCharacter();
        QCOMPARE(layer->character()->kind(), 1);
        QCOMPARE(layer->character()->sheetSize(), QSize(96, 192));
        QCOMPARE(layer->size(), QSize(96, 192));
        QVERIFY(layer->character()->selectedCells().isEmpty());
        QCOMPARE(layer->history()->labelAt(1), QByteArray("Convertion du character"));
        m_window->undo();
        QCOMPARE(layer->character()->kind(), 0);
        QCOMPARE(layer->size(), QSize(128, 192));
        QCOMPARE(layer->pixmap().size(), QSize(128, 192));
    }

    void zoomBox()
    {
        QLayer* layer = newDocument();
        QLineEdit* box = m_window->zoomBox();
        m_window->updateZoomP();
        QCOMPARE(layer->character()->zoom(), 1.5);
        QCOMPARE(box->text(), u"150 %"_s);
        QTest::keyClicks(box, u"x"_s);
        m_window->updateZoom(u"abc"_s);
        QCOMPARE(layer->character()->zoom(), 0.5);
        m_window->updateZoom(u" 250 % "_s);
        QCOMPARE(layer->character()->zoom(), 2.5);
        m_window->updateZoomM();
        QCOMPARE(layer->character()->zoom(), 2.0);
        QCOMPARE(box->text(), u"200 %"_s);
        for (int i = 0; i < 5; ++i)
            m_window->updateZoomP();
        QCOMPARE(box->text(), u"1600 %"_s);
        // At the last step the box is left as it is.
        box->setText(u"x"_s);
        m_window->updateZoomP();
        QCOMPARE(box->text(), u"x"_s);
    }

    void noDocumentActionsAreSilent()
    {
        for (const char* name :
             {"save",    "saveAs",     "saveAll",   "saveMass",   "setDefault",   "undo",
              "redo",    "cut",        "copy",      "paste",      "grid",         "zoomIn",
              "zoomOut", "background", "selectAll", "selectNone", "selectInvert", "addElement",
              "hue",     "resize",     "rotate",    "rotateP90",  "rotateM90",    "flipH",
              "flipV",   "restore",    "cellSize",  "convert"}) {
            action(name)->trigger();
        }
        m_window->updateZoom(u"300"_s);
        QVERIFY2(m_prompts->asked.isEmpty(), qPrintable(m_prompts->asked.join(u'\n')));
        // The docked colour box is a dialog, but no window of its own.
        for (const QDialog* dialog : m_window->findChildren<QDialog*>())
            QVERIFY(!dialog->isWindow());
        QVERIFY(m_window->mdiArea()->subWindowList().isEmpty());
    }

    void closingADockUnticksItsAction()
    {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(&*m_window));
        QDockWidget* dock = m_window->findChild<QDockWidget*>(u"Rendu"_s);
        dock->close();
        QVERIFY(!action("renderDock")->isChecked());
        action("renderDock")->trigger();
        QVERIFY(dock->isVisible());
        QVERIFY(action("renderDock")->isChecked());
    }

    void backgroundColour()
    {
        const Character* character = newDocument()->character();
        // An opaque colour asks nothing, and so stores no answer.
        m_prompts->colours << QColor(10, 20, 30);
        m_window->changeBg();
        QVERIFY(!m_sandbox->ini().contains("showAlpha"));
        // A transparent colour is questioned; Yes opens the colour dialog again.
        m_prompts->asked.clear();
        m_prompts->colours << QColor(10, 20, 30, 0) << QColor(10, 20, 30, 200);
        m_prompts->answers << Prompts::Answer{QMessageBox::Yes, false};
        m_window->changeBg();
        QCOMPARE(m_prompts->asked.size(), 3);
        QCOMPARE(character->fillPixel(), qint32(qRgba(10, 20, 30, 200)));
        QCOMPARE(character->cachedView().pixel(1, 1), qRgba(10, 20, 30, 200));

        // No keeps the transparent colour; a ticked box stops the question for good.
        m_prompts->asked.clear();
        m_prompts->colours << QColor(1, 2, 3, 0);
        m_prompts->answers << Prompts::Answer{QMessageBox::No, true};
        m_window->changeBg();
        QCOMPARE(character->fillPixel(), qint32(qRgba(1, 2, 3, 0)));
        QVERIFY(m_sandbox->ini().contains("showAlpha=0\n"));
        m_prompts->asked.clear();
        m_prompts->colours << QColor(4, 5, 6, 0);
        m_window->changeBg();
        QCOMPARE(m_prompts->asked, QStringList({u"colour:Couleur d'arrière plan"_s}));
        QCOMPARE(character->fillPixel(), qint32(qRgba(4, 5, 6, 0)));
        // Files still compose from the raw transparent pixel.
        QCOMPARE(character->compose().pixel(0, 0), 19u);
    }

    void ctrlWShowsTheGridWithADocumentOpen()
    {
        m_prompts->answers << Prompts::Answer{QMessageBox::Yes, false};
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(&*m_window));
        QLayer* layer = newDocument();
        layer->setFocus();
        QTest::keyClick(layer, Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!layer->character()->showGrid());
        QCOMPARE(m_window->mdiArea()->subWindowList().size(), 1);
        // The document still closes by the keyboard.
        QTest::keyClick(layer, Qt::Key_F4, Qt::ControlModifier);
        QTRY_COMPARE(m_window->mdiArea()->subWindowList().size(), 0);
    }

    void tallSheetScrollsAndToolsShow()
    {
        m_window->resize(1024, 700);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(&*m_window));
        // A 256x832 tileset in a 700-pixel window: the sub-window is not held to the
        // sheet's size, so its last row is reached by scrolling.
        QMdiSubWindow* sub = m_window->windowOf(newDocument(u"tuiles"_s, 256, 832));
        QVERIFY(sub->minimumSize().height() < 832);
        QVERIFY(sub->height() <= m_window->mdiArea()->height());
        // Every button of every bar fits a window 1024 pixels wide.
        for (QToolBar* bar : m_window->findChildren<QToolBar*>()) {
            if (bar == m_window->drawingBar())
                continue;
            for (QAction* item : bar->actions()) {
                QWidget* widget = bar->widgetForAction(item);
                QVERIFY2(!widget || widget->isVisible(),
                         qPrintable(bar->windowTitle() + u": "_s + item->text()));
            }
        }
    }

    void gridActionIsCopiedOnActivation()
    {
        QLayer* first = newDocument(u"a"_s);
        m_window->updateGrid();
        QVERIFY(!first->character()->showGrid());
        QVERIFY(newDocument(u"b"_s, 96, 128, 1)->character()->showGrid());
        m_window->mdiArea()->setActiveSubWindow(m_window->mdiArea()->subWindowList().first());
        QCOMPARE(m_window->activeLayer(), first);
        QVERIFY(first->character()->showGrid());
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
