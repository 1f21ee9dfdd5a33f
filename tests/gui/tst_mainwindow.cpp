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

class TestMainWindow : public QObject
{
    Q_OBJECT

private:
    static QStringList checkedTools(MainWindow& window)
    {
        QStringList checked;
        for (const char* name : {"selectTool", "moveTool", "pipetteTool", "penTool",
                                 "rubberTool", "lineTool", "rectTool", "circleTool"}) {
            if (window.action(QString::fromLatin1(name))->isChecked())
                checked.append(QString::fromLatin1(name));
        }
        return checked;
    }

    static QStringList barTexts(MainWindow& window)
    {
        QStringList texts;
        for (QAction* item : window.drawingBar()->actions()) {
            QWidget* widget = window.drawingBar()->widgetForAction(item);
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
    void frame()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        QCOMPARE(window.windowTitle(), QStringLiteral("Zenkora"));
        QVERIFY(!window.windowIcon().isNull());
        QCOMPARE(window.mdiArea()->viewMode(), QMdiArea::TabbedView);
        QVERIFY(window.findChild<QDockWidget*>(QStringLiteral("Eléments")));
        QVERIFY(window.findChild<QDockWidget*>(QStringLiteral("Rendu")));
        QVERIFY(window.findChild<QDockWidget*>(QStringLiteral("Couleurs")));
        QCOMPARE(window.zoomBox()->text(), QStringLiteral("100 %"));
        QVERIFY(window.drawingBar()->isHidden());
        QCOMPARE(window.action(QStringLiteral("save"))->shortcut(),
                 QKeySequence(QStringLiteral("Ctrl+S")));
        QCOMPARE(window.action(QStringLiteral("zoomIn"))->shortcut(),
                 QKeySequence(Qt::CTRL | Qt::Key_Plus));
        // Every icon the window names is drawn.
        for (QAction* item : window.findChildren<QAction*>())
            QVERIFY2(item->icon().isNull() || !item->icon().pixmap(16).isNull(), qPrintable(item->text()));
    }

    void toolSlots()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        ToolState* tools = window.toolState();
        QCOMPARE(tools->tool, quint8(ToolState::Select));
        QCOMPARE(checkedTools(window), QStringList({QStringLiteral("selectTool")}));

        window.action(QStringLiteral("penTool"))->trigger();
        QCOMPARE(tools->tool, quint8(ToolState::Pen));
        QCOMPARE(checkedTools(window), QStringList({QStringLiteral("penTool")}));
        QVERIFY(window.drawingBar()->isEnabled());
        QCOMPARE(barTexts(window), QStringList({QStringLiteral("Epaisseur"), QStringLiteral("[spin]"),
                                                QStringLiteral("|"), QStringLiteral("Forme"),
                                                QStringLiteral("[Carré]")}));

        // Unticking the pen goes back to the select tool's code, but the select action
        // stays unticked until it is pressed.
        window.action(QStringLiteral("penTool"))->trigger();
        QCOMPARE(tools->tool, quint8(ToolState::Select));
        QVERIFY(checkedTools(window).isEmpty());
        QVERIFY(!window.drawingBar()->isEnabled());

        window.action(QStringLiteral("moveTool"))->trigger();
        QCOMPARE(tools->tool, quint8(ToolState::Move));
        QCOMPARE(checkedTools(window), QStringList({QStringLiteral("moveTool")}));
        window.action(QStringLiteral("moveTool"))->trigger();
        QCOMPARE(tools->tool, quint8(ToolState::Select));
        QCOMPARE(checkedTools(window), QStringList({QStringLiteral("selectTool")}));

        // The select tool cannot be switched off by clicking it.
        window.action(QStringLiteral("selectTool"))->trigger();
        QCOMPARE(tools->tool, quint8(ToolState::Select));
        QCOMPARE(checkedTools(window), QStringList({QStringLiteral("selectTool")}));

        window.action(QStringLiteral("pipetteTool"))->trigger();
        window.action(QStringLiteral("circleTool"))->trigger();
        QCOMPARE(tools->tool, quint8(ToolState::Circle));
        QCOMPARE(checkedTools(window), QStringList({QStringLiteral("circleTool")}));
        window.action(QStringLiteral("lineTool"))->trigger();
        QCOMPARE(tools->tool, quint8(ToolState::Line));
        QCOMPARE(barTexts(window), QStringList({QStringLiteral("Epaisseur"), QStringLiteral("[spin]")}));
        window.action(QStringLiteral("rectTool"))->trigger();
        QCOMPARE(tools->tool, quint8(ToolState::Rectangle));
        window.action(QStringLiteral("rubberTool"))->trigger();
        QCOMPARE(tools->tool, quint8(ToolState::Rubber));
    }

    void drawingBarForShapesAndRubber()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        ToolState* tools = window.toolState();
        window.action(QStringLiteral("rectTool"))->trigger();
        QCOMPARE(barTexts(window),
                 QStringList({QStringLiteral("Mode de dessin"), QStringLiteral("Remplissage"),
                              QStringLiteral("[Couleur unie]"), QStringLiteral("[picture]")}));
        QWidget* preview = window.drawingBar()->findChild<QWidget*>(QStringLiteral("gradientPreview"));
        QVERIFY(preview);
        QVERIFY(!preview->isEnabled());
        window.setPaintMode(1);
        QVERIFY(preview->isEnabled());
        QCOMPARE(tools->paintMode, 1);

        QCOMPARE(tools->drawMode, 1);
        window.changeDrawMode();
        QCOMPARE(tools->drawMode, 2);
        window.changeDrawMode();
        QCOMPARE(tools->drawMode, 0);
        window.setPleinMode();
        QCOMPARE(tools->drawMode, 1);

        window.action(QStringLiteral("rubberTool"))->trigger();
        QSpinBox* width = window.drawingBar()->findChild<QSpinBox*>();
        QVERIFY(width && width->isEnabled());
        window.modeRubber(1);
        QCOMPARE(tools->rubberMode, qint8(1));
        QVERIFY(!width->isEnabled());
        width->setValue(7);
        QCOMPARE(tools->penWidth, 7);
        // The bar is refilled from the shared state.
        window.action(QStringLiteral("penTool"))->trigger();
        QCOMPARE(window.drawingBar()->findChild<QSpinBox*>()->value(), 7);
    }

    void zoneOfEffect()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        ToolState* tools = window.toolState();
        // With no document the check mark moves and the value does not.
        window.action(QStringLiteral("zoneAll"))->trigger();
        QVERIFY(window.action(QStringLiteral("zoneAll"))->isChecked());
        QVERIFY(!window.action(QStringLiteral("zoneTarget"))->isChecked());
        QCOMPARE(tools->zoneOfEffect, 0);
        window.addCharacter(QStringLiteral("a"), 128, 192, 0);
        window.action(QStringLiteral("zoneSelected"))->trigger();
        QCOMPARE(tools->zoneOfEffect, 1);
        QVERIFY(window.action(QStringLiteral("zoneSelected"))->isChecked());
        QVERIFY(!window.action(QStringLiteral("zoneAll"))->isChecked());
    }

    void newDocumentIsCleanWithOneStep()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        window.addCharacter(QStringLiteral("Sans titre 1"), 96, 128, 1);
        QLayer* layer = window.activeLayer();
        QVERIFY(layer);
        QCOMPARE(layer->history()->size(), 1);
        QCOMPARE(layer->history()->labelAt(0), QByteArray("Etat d'origine"));
        QVERIFY(!layer->isModified());
        QCOMPARE(window.mdiArea()->currentSubWindow()->windowTitle(), QStringLiteral("Sans titre 1"));
        QCOMPARE(layer->character()->kind(), 1);
        QCOMPARE(layer->character()->sheetSize(), QSize(96, 128));
        QVERIFY(layer->filePath().isEmpty());
        QCOMPARE(window.zoomBox()->text(), QStringLiteral("100 %"));
    }

    void modificationMarkFollowsHistory()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        window.addCharacter(QStringLiteral("doc"), 128, 192, 0);
        QLayer* layer = window.activeLayer();
        QMdiSubWindow* sub = window.mdiArea()->currentSubWindow();
        layer->character()->addDrawingLayer(0);
        layer->recordStep("Ajouter un calque de dessin");
        QVERIFY(layer->isModified());
        QCOMPARE(sub->windowTitle(), QStringLiteral("doc*"));
        window.undo();
        QVERIFY(!layer->isModified());
        QCOMPARE(sub->windowTitle(), QStringLiteral("doc"));
        QCOMPARE(layer->character()->elementCount(), 0);
        window.undo(); // nothing before the first step
        QCOMPARE(layer->history()->currentIndex(), 0);
        window.redo();
        QCOMPARE(layer->character()->elementCount(), 1);
        QVERIFY(layer->isModified());
    }

    void conversionIsOneStep()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        window.addCharacter(QStringLiteral("doc"), 128, 192, 0);
        QLayer* layer = window.activeLayer();
        layer->character()->addDrawingLayer(0);
        layer->character()->setSelectedCells({4});
        window.convertCharacter();
        QCOMPARE(layer->character()->kind(), 1);
        QCOMPARE(layer->character()->sheetSize(), QSize(96, 192));
        QCOMPARE(layer->size(), QSize(96, 192));
        QVERIFY(layer->character()->selectedCells().isEmpty());
        QCOMPARE(layer->history()->labelAt(1), QByteArray("Convertion du character"));
        window.undo();
        QCOMPARE(layer->character()->kind(), 0);
        QCOMPARE(layer->size(), QSize(128, 192));
        QCOMPARE(layer->pixmap().size(), QSize(128, 192));
    }

    void zoomBox()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        window.addCharacter(QStringLiteral("doc"), 128, 192, 0);
        QLayer* layer = window.activeLayer();
        window.updateZoomP();
        QCOMPARE(layer->character()->zoom(), 1.5);
        QCOMPARE(window.zoomBox()->text(), QStringLiteral("150 %"));
        QTest::keyClicks(window.zoomBox(), QStringLiteral("x"));
        window.updateZoom(QStringLiteral("abc"));
        QCOMPARE(layer->character()->zoom(), 0.5);
        window.updateZoom(QStringLiteral(" 250 % "));
        QCOMPARE(layer->character()->zoom(), 2.5);
        window.updateZoomM();
        QCOMPARE(layer->character()->zoom(), 2.0);
        QCOMPARE(window.zoomBox()->text(), QStringLiteral("200 %"));
        for (int i = 0; i < 5; ++i)
            window.updateZoomP();
        QCOMPARE(window.zoomBox()->text(), QStringLiteral("1600 %"));
        // At the last step the box is left as it is.
        window.zoomBox()->setText(QStringLiteral("x"));
        window.updateZoomP();
        QCOMPARE(window.zoomBox()->text(), QStringLiteral("x"));
    }

    void noDocumentActionsAreSilent()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        for (const char* name :
             {"save", "saveAs", "saveAll", "saveMass", "setDefault", "undo", "redo", "cut", "copy",
              "paste", "grid", "zoomIn", "zoomOut", "background", "selectAll", "selectNone",
              "selectInvert", "addElement", "hue", "resize", "rotate", "rotateP90", "rotateM90",
              "flipH", "flipV", "restore", "cellSize", "convert"}) {
            window.action(QString::fromLatin1(name))->trigger();
        }
        window.updateZoom(QStringLiteral("300"));
        QVERIFY2(prompts.asked.isEmpty(), qPrintable(prompts.asked.join(QLatin1Char('\n'))));
        // The docked colour box is a dialog, but no window of its own.
        for (const QDialog* dialog : window.findChildren<QDialog*>())
            QVERIFY(!dialog->isWindow());
        QVERIFY(window.mdiArea()->subWindowList().isEmpty());
    }

    void closingADockUnticksItsAction()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QDockWidget* dock = window.findChild<QDockWidget*>(QStringLiteral("Rendu"));
        dock->close();
        QVERIFY(!window.action(QStringLiteral("renderDock"))->isChecked());
        window.action(QStringLiteral("renderDock"))->trigger();
        QVERIFY(dock->isVisible());
        QVERIFY(window.action(QStringLiteral("renderDock"))->isChecked());
    }

    void backgroundColour()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        MainWindow window;
        window.addCharacter(QStringLiteral("doc"), 128, 192, 0);
        QLayer* layer = window.activeLayer();

        // An opaque colour asks nothing, and so stores no answer.
        prompts.colours << QColor(10, 20, 30);
        window.changeBg();
        QVERIFY(!sandbox.ini().contains("showAlpha"));
        // A transparent colour is questioned; Yes opens the colour dialog again.
        prompts.asked.clear();
        prompts.colours << QColor(10, 20, 30, 0) << QColor(10, 20, 30, 200);
        prompts.answers << Prompts::Answer{QMessageBox::Yes, false};
        window.changeBg();
        QCOMPARE(prompts.asked.size(), 3);
        QCOMPARE(layer->character()->fillPixel(), qint32(qRgba(10, 20, 30, 200)));
        QCOMPARE(layer->character()->cachedView().pixel(1, 1), qRgba(10, 20, 30, 200));

        // No keeps the transparent colour; a ticked box stops the question for good.
        prompts.asked.clear();
        prompts.colours << QColor(1, 2, 3, 0);
        prompts.answers << Prompts::Answer{QMessageBox::No, true};
        window.changeBg();
        QCOMPARE(layer->character()->fillPixel(), qint32(qRgba(1, 2, 3, 0)));
        QVERIFY(sandbox.ini().contains("showAlpha=0\n"));
        prompts.asked.clear();
        prompts.colours << QColor(4, 5, 6, 0);
        window.changeBg();
        QCOMPARE(prompts.asked, QStringList({QStringLiteral("colour:Couleur d'arrière plan")}));
        QCOMPARE(layer->character()->fillPixel(), qint32(qRgba(4, 5, 6, 0)));
        // Files still compose from the raw transparent pixel.
        QCOMPARE(layer->character()->compose().pixel(0, 0), 19u);
    }

    void ctrlWShowsTheGridWithADocumentOpen()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        prompts.answers << Prompts::Answer{QMessageBox::Yes, false};
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.addCharacter(QStringLiteral("doc"), 128, 192, 0);
        QLayer* layer = window.activeLayer();
        layer->setFocus();
        QTest::keyClick(layer, Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!layer->character()->showGrid());
        QCOMPARE(window.mdiArea()->subWindowList().size(), 1);
        // The document still closes by the keyboard.
        QTest::keyClick(layer, Qt::Key_F4, Qt::ControlModifier);
        QTRY_COMPARE(window.mdiArea()->subWindowList().size(), 0);
    }

    void tallSheetScrollsAndToolsShow()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        window.resize(1024, 700);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        // A 256x832 tileset in a 700-pixel window: the sub-window is not held to the
        // sheet's size, so its last row is reached by scrolling.
        window.addCharacter(QStringLiteral("tuiles"), 256, 832, 0);
        QMdiSubWindow* sub = window.windowOf(window.activeLayer());
        QVERIFY(sub->minimumSize().height() < 832);
        QVERIFY(sub->height() <= window.mdiArea()->height());
        // Every button of every bar fits a window 1024 pixels wide.
        for (QToolBar* bar : window.findChildren<QToolBar*>()) {
            if (bar == window.drawingBar())
                continue;
            for (QAction* item : bar->actions()) {
                QWidget* widget = bar->widgetForAction(item);
                QVERIFY2(!widget || widget->isVisible(),
                         qPrintable(bar->windowTitle() + QStringLiteral(": ") + item->text()));
            }
        }
    }

    void gridActionIsCopiedOnActivation()
    {
        SettingsSandbox sandbox;
        MainWindow window;
        window.addCharacter(QStringLiteral("a"), 128, 192, 0);
        QLayer* first = window.activeLayer();
        window.updateGrid();
        QVERIFY(!first->character()->showGrid());
        window.addCharacter(QStringLiteral("b"), 96, 128, 1);
        QVERIFY(window.activeLayer()->character()->showGrid());
        window.mdiArea()->setActiveSubWindow(window.mdiArea()->subWindowList().first());
        QCOMPARE(window.activeLayer(), first);
        QVERIFY(first->character()->showGrid());
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
