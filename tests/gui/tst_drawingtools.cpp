// The drawing tools on a canvas of the main window, driven by the mouse: the checks of
// the press and their boxes, the question about drawing on an element, the history
// labels, the previews, the pipette and undo.
#include "app/mainwindow.h"
#include "canvas/qlayer.h"
#include "colour/qcolorbox.h"
#include "document/history.h"
#include "scriptedprompts.h"
#include "settings/settings.h"
#include "testfiles.h"

#include <QMouseEvent>
#include <QTest>

namespace {

constexpr QRgb Blue = 0xff0000ffu;
const QString NoElement = QStringLiteral("message:Dessin:Aucun élément n'est sélectionné.");
const QString NoCell = QStringLiteral("message:Dessin:Aucune cellule n'est sélectionnée.");
const QString Question = QStringLiteral("message:Dessin:<h3>Dessiner sur un élément</h3>");

// An XP character of 128x192 with count elements read from files, each cell holding a
// 4x4 blue picture at (10, 10).
Character character(int count, QSize size = QSize())
{
    Character result(Character::XP, size);
    for (int e = 0; e < count; ++e) {
        result.insertElement(e, "e" + QByteArray::number(e), "e.png",
                             QList<QImage>(16, solidImage(QSize(4, 4), Blue)),
                             QList<QPoint>(16, QPoint(10, 10)), true);
    }
    return result;
}

} // namespace

class TestDrawingTools : public QObject
{
    Q_OBJECT

    SettingsSandbox* m_sandbox = nullptr;
    ScriptedPrompts* m_prompts = nullptr;
    MainWindow* m_window = nullptr;
    QLayer* m_layer = nullptr;

    void open(const Character& character, quint8 tool)
    {
        m_layer = m_window->addDocument(character, QStringLiteral("t"));
        m_window->toolState()->tool = tool;
    }

    Character* model() const { return m_layer->character(); }

    // The widget point over a sheet point.
    QPoint at(QPoint sheet) const
    {
        const double zoom = model()->zoom();
        return m_layer->pixmapOffset() + QPoint(int(sheet.x() * zoom), int(sheet.y() * zoom));
    }

    void press(QPoint sheet) { QTest::mousePress(m_layer, Qt::LeftButton, {}, at(sheet)); }
    void move(QPoint sheet)
    {
        QMouseEvent event(QEvent::MouseMove, at(sheet), m_layer->mapToGlobal(at(sheet)),
                          Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_layer, &event);
    }
    void release(QPoint sheet) { QTest::mouseRelease(m_layer, Qt::LeftButton, {}, at(sheet)); }
    void stroke(QPoint from, QPoint to)
    {
        press(from);
        move(to);
        release(to);
    }

    QByteArray lastLabel() const
    {
        const History* history = m_layer->history();
        return history->labelAt(history->size() - 1);
    }

    static void setDrawElement(int value)
    {
        Settings settings;
        settings.set(QStringLiteral("showAgain"), QStringLiteral("showDrawElement"), qint32(value));
    }
    static int drawElement()
    {
        Settings settings;
        qint32 value = 0;
        settings.get(QStringLiteral("showDrawElement"), value);
        return value;
    }

private slots:
    void init()
    {
        m_sandbox = new SettingsSandbox;
        m_prompts = new ScriptedPrompts;
        m_window = new MainWindow;
        m_window->resize(1000, 800);
    }

    void cleanup()
    {
        for (QLayer* layer : m_window->layers())
            layer->setAskOnClose(false);
        delete m_window;
        delete m_prompts;
        delete m_sandbox;
    }

    void noElementSelected_data()
    {
        QTest::addColumn<int>("elements");
        QTest::addColumn<int>("setting");
        QTest::addColumn<quint8>("tool");
        QTest::addColumn<QStringList>("asked");
        QTest::addColumn<int>("painted"); // the element painted on, -1 for none
        QTest::newRow("ask: nothing")
            << 1 << 4 << quint8(ToolState::Pen) << QStringList{NoElement} << -1;
        QTest::newRow("always: a new layer")
            << 0 << 2 << quint8(ToolState::Pen) << QStringList() << 0;
        QTest::newRow("always, rubber")
            << 1 << 2 << quint8(ToolState::Rubber) << QStringList{NoElement} << -1;
        QTest::newRow("never: the top element")
            << 2 << 3 << quint8(ToolState::Line) << QStringList() << 1;
        QTest::newRow("never, no element at all")
            << 0 << 3 << quint8(ToolState::Pen) << QStringList{NoElement} << -1;
    }

    void noElementSelected()
    {
        QFETCH(int, elements);
        QFETCH(int, setting);
        QFETCH(quint8, tool);
        QFETCH(int, painted);
        setDrawElement(setting);
        open(character(elements), tool);
        model()->clearElementSelection();
        stroke(QPoint(40, 50), QPoint(40, 50));
        QTEST(m_prompts->asked, "asked");
        if (painted < 0) {
            QCOMPARE(m_layer->history()->size(), 1);
            return;
        }
        // The new layer's step comes before the stroke's.
        if (elements == 0) {
            QCOMPARE(m_layer->history()->size(), 3);
            QCOMPARE(m_layer->history()->labelAt(1), QByteArray("Ajouter un calque de dessin"));
            QVERIFY(model()->elementSource(0).isEmpty());
        }
        QCOMPARE(
            model()->cellImage(painted, 5).pixel(QPoint(8, 2) - model()->cellPosition(painted, 5)),
            0xff000000u);
    }

    void pressChecks_data()
    {
        QTest::addColumn<int>("zone");
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<QStringList>("asked");
        QTest::newRow("selected cells, none selected")
            << 1 << QPoint(40, 50) << QStringList{NoCell};
        // The sheet is 130 wide: its last two columns lie in no cell.
        QTest::newRow("between cells") << 0 << QPoint(129, 50) << QStringList();
    }

    void pressChecks()
    {
        QFETCH(int, zone);
        QFETCH(QPoint, point);
        open(character(1, QSize(130, 194)), ToolState::Pen);
        m_window->toolState()->zoneOfEffect = zone;
        model()->setSelectedElements({0});
        model()->clearCellSelection();
        m_layer->setDrawElementAsked(true);
        stroke(point, QPoint(40, 50));
        QTEST(m_prompts->asked, "asked");
        QCOMPARE(m_layer->history()->size(), 1);
        QCOMPARE(model()->cellImage(0, 5), solidImage(QSize(4, 4), Blue));
    }

    void question_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<bool>("ticked");
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("elements"); // after the first press
        QTest::newRow("yes") << int(QMessageBox::Yes) << false << 0 << 4;
        QTest::newRow("yes, ticked") << int(QMessageBox::Yes) << true << 2 << 4;
        QTest::newRow("no") << int(QMessageBox::No) << false << 0 << 3;
        QTest::newRow("no, ticked") << int(QMessageBox::No) << true << 3 << 3;
    }

    void question()
    {
        QFETCH(int, button);
        QFETCH(bool, ticked);
        QFETCH(int, elements);
        open(character(3), ToolState::Pen);
        model()->setSelectedElements({1, 0});
        m_prompts->answers.enqueue({QMessageBox::StandardButton(button), ticked});
        stroke(QPoint(40, 50), QPoint(41, 50));
        QCOMPARE(m_prompts->asked, QStringList{Question});
        QCOMPARE(m_prompts->messages.first().defaultButton, QMessageBox::Yes);
        QTEST(drawElement(), "stored");
        QCOMPARE(model()->elementCount(), elements);
        // The first press paints nothing, whatever the answer.
        for (int e = 0; e < model()->elementCount(); ++e) {
            if (e != 2 || elements == 3)
                QCOMPARE(model()->cellPosition(e, 5), QPoint(10, 10));
        }
        const bool layer = button == QMessageBox::Yes;
        if (layer) {
            QVERIFY(model()->elementSource(2).isEmpty());
            QCOMPARE(model()->selectedElements(), QList<int>{2});
            QCOMPARE(lastLabel(), QByteArray("Ajouter un calque de dessin"));
        }
        // The next press paints, and is not asked again in this document.
        stroke(QPoint(40, 50), QPoint(40, 50));
        QCOMPARE(m_prompts->asked.size(), 1);
        QCOMPARE(lastLabel(), QByteArray("Pinceau"));
        const int painted = layer ? 2 : 1;
        const QPoint p = QPoint(8, 2) - model()->cellPosition(painted, 5);
        QCOMPARE(model()->cellImage(painted, 5).pixel(p), 0xff000000u);
        // Another document asks again while the answer is to ask.
        open(character(1), ToolState::Pen);
        stroke(QPoint(40, 50), QPoint(40, 50));
        QCOMPARE(m_prompts->asked.size(), ticked ? 1 : 2);
    }

    void labels_data()
    {
        QTest::addColumn<quint8>("tool");
        QTest::addColumn<int>("rubberMode");
        QTest::addColumn<QByteArray>("label");
        QTest::addColumn<QRect>("picture"); // of element 0 in cell 5 afterwards
        // The picture covers (10, 10) to (13, 13) of the cell; strokes from (12, 12) of
        // cell 5 to (-2, 16), left of the cell and so in cell 4 of the sheet: the
        // point is mapped, not clipped.
        const QRect grown(-2, 10, 16, 7);
        QTest::newRow("pen") << quint8(ToolState::Pen) << 0 << QByteArray("Pinceau") << grown;
        // The line's patch holds a pen's width more than the line.
        QTest::newRow("line") << quint8(ToolState::Line) << 0 << QByteArray("Ligne")
                              << QRect(-2, 10, 16, 8);
        QTest::newRow("rectangle")
            << quint8(ToolState::Rectangle) << 0 << QByteArray("Rectangle") << grown;
        QTest::newRow("circle") << quint8(ToolState::Circle) << 0 << QByteArray("Cercle") << grown;
        QTest::newRow("rubber, brush")
            << quint8(ToolState::Rubber) << 0 << QByteArray("Gomme") << QRect(10, 10, 4, 4);
        QTest::newRow("rubber, selection")
            << quint8(ToolState::Rubber) << 1 << QByteArray("Gomme") << QRect(10, 10, 4, 4);
    }

    void labels()
    {
        QFETCH(quint8, tool);
        QFETCH(int, rubberMode);
        setDrawElement(3);
        open(character(1), tool);
        m_window->toolState()->rubberMode = qint8(rubberMode);
        m_window->toolState()->drawMode = 1;
        model()->setSelectedElements({0});
        stroke(QPoint(32 + 12, 48 + 12), QPoint(32 - 2, 48 + 16));
        QCOMPARE(m_layer->history()->size(), 2);
        QTEST(lastLabel(), "label");
        QTEST(QRect(model()->cellPosition(0, 5), model()->cellImage(0, 5).size()), "picture");
        if (tool == ToolState::Rubber)
            QCOMPARE(model()->cellImage(0, 5).pixel(2, 2), 19u);
    }

    void rubberKeepsSelection()
    {
        open(character(2), ToolState::Rubber);
        m_window->toolState()->zoneOfEffect = 2;
        model()->setSelectedElements({1});
        model()->setSelectedCells({9, 2});
        stroke(QPoint(32 + 11, 48 + 11), QPoint(32 + 11, 48 + 11));
        QCOMPARE(model()->selectedCells(), QList<int>({9, 2}));
        for (int c = 0; c < 16; ++c) {
            QCOMPARE(model()->cellImage(1, c).pixel(1, 1), 19u);
            QCOMPARE(model()->cellImage(0, c).pixel(1, 1), Blue);
        }
    }

    void undoRestoresExactly()
    {
        setDrawElement(3);
        open(character(1), ToolState::Pen);
        m_window->toolState()->penWidth = 3;
        const Character before = *model();
        model()->setSelectedElements({0});
        stroke(QPoint(32 + 2, 48 + 2), QPoint(32 + 20, 48 + 30));
        QCOMPARE(model()->cellPosition(0, 5), QPoint(1, 1));
        m_window->undo();
        for (int c = 0; c < 16; ++c) {
            QCOMPARE(model()->cellImage(0, c), before.cellImage(0, c));
            QCOMPARE(model()->cellPosition(0, c), before.cellPosition(0, c));
        }
    }

    void penPreview_data()
    {
        QTest::addColumn<double>("zoom");
        QTest::addColumn<int>("side");
        QTest::newRow("zoom 3") << 3.0 << 3;
        QTest::newRow("zoom 1.5") << 1.5 << 1;
        QTest::newRow("zoom 0.5") << 0.5 << 1;
    }

    void penPreview()
    {
        QFETCH(double, zoom);
        QFETCH(int, side);
        setDrawElement(3);
        open(character(1), ToolState::Pen);
        m_window->toolState()->primary = QColor(Qt::red);
        m_window->toolState()->penWidth = 9;
        m_layer->setZoom(zoom);
        model()->setShowGrid(false);
        model()->setSelectedElements({0});
        m_layer->refresh();
        // Sheet point (50, 70): its zoomed pixel snaps to the grid of sheet pixels.
        const QPoint pixel(int(50 * zoom) + 1, int(70 * zoom) + 1);
        QTest::mousePress(m_layer, Qt::LeftButton, {}, m_layer->pixmapOffset() + pixel);
        const QImage shown = m_layer->pixmap().toImage();
        const QPoint corner(int(int(pixel.x() / zoom) * zoom), int(int(pixel.y() / zoom) * zoom));
        const QRect square(corner, QSize(side, side));
        const QRect around = square.adjusted(-1, -1, 1, 1);
        for (int y = around.top(); y <= around.bottom(); ++y) {
            for (int x = around.left(); x <= around.right(); ++x)
                QCOMPARE(shown.pixel(x, y) == qRgb(128, 128, 128), square.contains(x, y));
        }
        release(QPoint(50, 70));
    }

    void pipette_data()
    {
        QTest::addColumn<QPoint>("pixel");
        QTest::addColumn<QRgb>("primary");
        // The grid's first vertical dash, at x 32 of an XP sheet at zoom 1.
        QTest::newRow("grid dash") << QPoint(32, 1) << QRgb(0xff000000u);
        QTest::newRow("margin") << QPoint(-3, 1) << QRgb(0xff123456u);
        QTest::newRow("past the sheet") << QPoint(128, 1) << QRgb(0xff123456u);
    }

    void pipette()
    {
        QFETCH(QPoint, pixel);
        open(character(0), ToolState::Pipette);
        m_window->setPrimaryColor(QColor(0xff123456u));
        model()->setFillPixel(qint32(0xffffffffu));
        m_layer->resize(300, 300);
        m_layer->refresh();
        QTest::mousePress(m_layer, Qt::LeftButton, {}, m_layer->pixmapOffset() + pixel);
        QTEST(m_window->primaryColor().rgba(), "primary");
        QTEST(m_window->colorBox()->activeColor().rgba(), "primary");
    }
};

QTEST_MAIN(TestDrawingTools)
#include "tst_drawingtools.moc"
