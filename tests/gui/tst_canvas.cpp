#include "app/toolstate.h"
#include "canvas/qlayer.h"

#include "testfiles.h"

#include <QTest>

class TestCanvas : public QObject
{
    Q_OBJECT

    ToolState m_tools;

    // A canvas whose widget is larger than its pixmap, as in a big scroll area, with a
    // fresh tool state set on the given tool.
    std::unique_ptr<QLayer> canvas(int kind, quint8 tool = ToolState::Select)
    {
        m_tools = ToolState();
        m_tools.tool = tool;
        auto layer = std::make_unique<QLayer>(QStringLiteral("t"), QSize(), kind, nullptr);
        layer->resize(300, 400);
        layer->setToolState(&m_tools);
        return layer;
    }

    // The widget point at the middle of a cell of the displayed pixmap.
    static QPoint cellCentre(QLayer* layer, int cell)
    {
        const int columns = layer->character()->columnCount();
        const QSize shown = layer->pixmap().size();
        const int cw = shown.width() / columns;
        const int ch = shown.height() / 4;
        return layer->pixmapOffset() +
               QPoint(cell % columns * cw + cw / 2, cell / columns * ch + ch / 2);
    }

    static void click(QLayer* layer, int cell, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        // Any button selects; Ctrl and Shift are those of the mouse event.
        QTest::mouseClick(layer, Qt::RightButton, modifiers, cellCentre(layer, cell));
    }

private slots:
    void coordinates_data()
    {
        QTest::addColumn<double>("zoom");
        QTest::addColumn<QPoint>("widgetPoint");
        QTest::addColumn<QPoint>("offset");
        QTest::addColumn<QPoint>("sheet");
        QTest::addColumn<int>("cell");
        // XP sheet 128x192 in a 300x400 widget.
        QTest::newRow("zoom 1") << 1.0 << QPoint(86 + 40, 104 + 50) << QPoint(86, 104)
                                << QPoint(40, 50) << 5;
        // At 0.5 a displayed pixel is two sheet pixels: pixmap 64x96.
        QTest::newRow("zoom 0.5") << 0.5 << QPoint(118 + 17, 152 + 25) << QPoint(118, 152)
                                  << QPoint(34, 50) << 5;
        // At 3 the pixmap (384x576) is larger than the widget: a negative offset.
        QTest::newRow("zoom 3") << 3.0 << QPoint(100, 200) << QPoint(-42, -88) << QPoint(47, 96)
                                << 9;
        QTest::newRow("in the margin")
            << 1.0 << QPoint(80, 100) << QPoint(86, 104) << QPoint(-6, -4) << -1;
    }

    void coordinates()
    {
        QFETCH(double, zoom);
        QFETCH(QPoint, widgetPoint);
        const auto layer = canvas(0);
        layer->character()->setZoom(zoom);
        layer->refresh();
        QTEST(layer->pixmapOffset(), "offset");
        const QPoint pixel = layer->pixelPoint(widgetPoint);
        QTEST(layer->sheetPoint(pixel), "sheet");
        QTEST(layer->cellAt(pixel), "cell");
    }

    void cellHitTestLeavesRemainderOut()
    {
        std::unique_ptr<QLayer> layer(new QLayer(QStringLiteral("t"), QSize(130, 194), 0, nullptr));
        QCOMPARE(layer->cellAt(QPoint(127, 191)), 15);
        QCOMPARE(layer->cellAt(QPoint(128, 10)), -1);
        QCOMPARE(layer->cellAt(QPoint(10, 192)), -1);
        QCOMPARE(layer->cellAt(QPoint(32, 48)), 5);
        QCOMPARE(layer->cellAt(QPoint(31, 47)), 0);
    }

    void selectionTable_data()
    {
        QTest::addColumn<bool>("ctrl");
        QTest::addColumn<bool>("shift");
        QTest::addColumn<QList<int>>("before");
        QTest::addColumn<int>("cell");
        QTest::addColumn<QList<int>>("after");
        QTest::newRow("plain") << false << false << QList<int>({1, 2}) << 7 << QList<int>({7});
        QTest::newRow("ctrl adds") << true << false << QList<int>({1}) << 7 << QList<int>({1, 7});
        QTest::newRow("ctrl removes")
            << true << false << QList<int>({1, 7}) << 1 << QList<int>({7});
        QTest::newRow("shift, nothing selected")
            << false << true << QList<int>() << 6 << QList<int>({6});
        QTest::newRow("shift on the anchor")
            << false << true << QList<int>({3, 5}) << 5 << QList<int>({3, 5});
        // Columns outer, rows inner; the clicked cell last, as the new anchor.
        QTest::newRow("shift range")
            << false << true << QList<int>({0, 5}) << 10 << QList<int>({5, 9, 6, 10});
        QTest::newRow("shift range backwards")
            << false << true << QList<int>({10}) << 5 << QList<int>({9, 6, 10, 5});
        QTest::newRow("ctrl shift, nothing selected")
            << true << true << QList<int>() << 6 << QList<int>({6});
        // Every cell of the rectangle but the anchor and the target is toggled: an
        // already selected one leaves the selection.
        QTest::newRow("ctrl shift toggles the range")
            << true << true << QList<int>({5, 6}) << 9 << QList<int>({6, 10, 9});
        QTest::newRow("ctrl shift on the anchor")
            << true << true << QList<int>({5, 6}) << 6 << QList<int>({5, 6});
    }

    void selectionTable()
    {
        QFETCH(bool, ctrl);
        QFETCH(bool, shift);
        QFETCH(QList<int>, before);
        QFETCH(int, cell);
        const auto layer = canvas(0);
        layer->character()->setSelectedCells(before);
        Qt::KeyboardModifiers modifiers;
        modifiers.setFlag(Qt::ControlModifier, ctrl);
        modifiers.setFlag(Qt::ShiftModifier, shift);
        click(layer.get(), cell, modifiers);
        QTEST(layer->character()->selectedCells(), "after");
        // A selection is no change of the document.
        QCOMPARE(layer->history()->size(), 0);
        QVERIFY(!layer->isModified());
    }

    void modifiersComeWithTheClick()
    {
        const auto layer = canvas(0);
        click(layer.get(), 2, Qt::ControlModifier);
        click(layer.get(), 3, Qt::ControlModifier);
        QCOMPARE(layer->character()->selectedCells(), QList<int>({2, 3}));
        // A Ctrl pressed whose release went elsewhere (a shortcut's dialog) must not
        // stick: the next plain click acts as plain.
        QTest::keyPress(layer.get(), Qt::Key_Control);
        click(layer.get(), 4);
        QCOMPARE(layer->character()->selectedCells(), QList<int>({4}));
        // Shift on an arrow extends from the anchor.
        QTest::keyClick(layer.get(), Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(layer->character()->selectedCells(), QList<int>({4, 5}));
    }

    void arrowsSelect_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("selected");
        QTest::newRow("XP up") << 0 << 5 << int(Qt::Key_Up) << 1;
        QTest::newRow("XP up at the top") << 0 << 3 << int(Qt::Key_Up) << 3;
        QTest::newRow("XP down") << 0 << 11 << int(Qt::Key_Down) << 15;
        QTest::newRow("XP down at the bottom") << 0 << 12 << int(Qt::Key_Down) << 12;
        QTest::newRow("XP right wraps rows") << 0 << 3 << int(Qt::Key_Right) << 4;
        QTest::newRow("XP right at the end") << 0 << 15 << int(Qt::Key_Right) << 15;
        QTest::newRow("XP left wraps rows") << 0 << 4 << int(Qt::Key_Left) << 3;
        QTest::newRow("XP left at the start") << 0 << 0 << int(Qt::Key_Left) << 0;
        QTest::newRow("VX up") << 1 << 3 << int(Qt::Key_Up) << 0;
        QTest::newRow("VX up at the top") << 1 << 2 << int(Qt::Key_Up) << 2;
        QTest::newRow("VX down") << 1 << 8 << int(Qt::Key_Down) << 11;
        QTest::newRow("VX down at the bottom") << 1 << 9 << int(Qt::Key_Down) << 9;
        QTest::newRow("VX right at the end") << 1 << 11 << int(Qt::Key_Right) << 11;
    }

    void arrowsSelect()
    {
        QFETCH(int, kind);
        QFETCH(int, anchor);
        QFETCH(int, key);
        const auto layer = canvas(kind);
        layer->character()->setSelectedCells({anchor});
        QTest::keyClick(layer.get(), Qt::Key(key));
        QFETCH(int, selected);
        QCOMPARE(layer->character()->selectedCells(), QList<int>({selected}));
        // Without a selection the arrows do nothing.
        layer->character()->clearCellSelection();
        QTest::keyClick(layer.get(), Qt::Key(key));
        QVERIFY(layer->character()->selectedCells().isEmpty());
    }

    void arrowsMoveWithMoveToolOnly()
    {
        const auto layer = canvas(1, ToolState::Move);
        layer->character()->addDrawingLayer(0);
        layer->character()->setSelectedCells({4});
        QTest::keyClick(layer.get(), Qt::Key_Left);
        QTest::keyClick(layer.get(), Qt::Key_Down);
        QTest::keyClick(layer.get(), Qt::Key_Down);
        QCOMPARE(layer->character()->cellPosition(0, 4), QPoint(-1, 2));
        QCOMPARE(layer->character()->cellPosition(0, 5), QPoint(0, 0));
        QCOMPARE(layer->history()->size(), 3);
        QCOMPARE(layer->history()->labelAt(2), QByteArray("D\xe9placement"));
        QCOMPARE(layer->character()->selectedCells(), QList<int>({4}));

        m_tools.tool = ToolState::Pen;
        QTest::keyClick(layer.get(), Qt::Key_Up);
        QCOMPARE(layer->history()->size(), 3);
        QCOMPARE(layer->character()->cellPosition(0, 4), QPoint(-1, 2));
    }

    void dragWithMoveTool()
    {
        const auto layer = canvas(0, ToolState::Move);
        layer->character()->addDrawingLayer(0);
        layer->character()->setZoom(2);
        layer->resizeToSheet();
        const QPoint start = layer->pixmapOffset() + QPoint(20, 20);
        QTest::mousePress(layer.get(), Qt::MiddleButton, Qt::NoModifier, start);
        QCOMPARE(layer->cursor().shape(), Qt::ClosedHandCursor);
        QMouseEvent move(QEvent::MouseMove, start + QPoint(7, -4),
                         layer->mapToGlobal(start + QPoint(7, -4)), Qt::NoButton, Qt::MiddleButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(layer.get(), &move);
        QTest::mouseRelease(layer.get(), Qt::MiddleButton, Qt::NoModifier, start + QPoint(7, -4));
        // Seven displayed pixels at zoom 2 are three sheet pixels (cut toward zero).
        for (int c = 0; c < 16; ++c)
            QCOMPARE(layer->character()->cellPosition(0, c), QPoint(3, -2));
        QCOMPARE(layer->history()->size(), 1);
        QCOMPARE(layer->cursor().shape(), Qt::OpenHandCursor);
    }

    void deleteClearsSelectedCells()
    {
        const auto layer = canvas(0);
        QImage sheet = solidImage(QSize(128, 192), 0xff00ff00);
        layer->character()->addElement(sheet, "e", 0);
        layer->character()->setSelectedCells({2});
        QTest::keyClick(layer.get(), Qt::Key_Delete);
        QCOMPARE(layer->character()->cellImage(0, 2).pixel(0, 0), 19u);
        QCOMPARE(layer->character()->cellImage(0, 3).pixel(0, 0), 0xff00ff00u);
        QCOMPARE(layer->history()->labelAt(0), QByteArray("Suppression de cellules"));
    }

    void zoomSteps_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("in");
        QTest::addColumn<double>("out");
        QTest::newRow("1") << 1.0 << 1.5 << 0.5;
        QTest::newRow("between 1 and 1.5") << 1.25 << 1.5 << 1.0;
        QTest::newRow("between 0.5 and 1") << 0.7 << 1.0 << 0.5;
        QTest::newRow("between 8 and 16") << 10.0 << 16.0 << 8.0;
        QTest::newRow("16 stays up") << 16.0 << 16.0 << 8.0;
        QTest::newRow("0.5 stays down") << 0.5 << 1.0 << 0.5;
        QTest::newRow("on a step") << 3.0 << 4.0 << 2.0;
    }

    void zoomSteps()
    {
        QFETCH(double, from);
        const auto layer = canvas(0);
        layer->character()->setZoom(from);
        layer->zoomStep(0);
        QTEST(layer->character()->zoom(), "in");
        layer->character()->setZoom(from);
        layer->zoomStep(1);
        QTEST(layer->character()->zoom(), "out");
        layer->character()->setZoom(from);
        layer->zoomStep(5);
        QCOMPARE(layer->character()->zoom(), from);
    }

    void freeZoomIsBoundedAndResizes()
    {
        const auto layer = canvas(0);
        layer->setZoom(0);
        QCOMPARE(layer->character()->zoom(), 0.5);
        layer->setZoom(40);
        QCOMPARE(layer->character()->zoom(), 16.0);
        layer->setZoom(2.5);
        QCOMPARE(layer->character()->zoom(), 2.5);
        QCOMPARE(layer->size(), QSize(320, 480));
        QCOMPARE(layer->pixmap().size(), QSize(320, 480));
    }

    void cursorsPerTool()
    {
        const auto layer = canvas(0);
        const QList<std::pair<quint8, Qt::CursorShape>> expected = {
            {ToolState::Select, Qt::ArrowCursor},
            {ToolState::Move, Qt::OpenHandCursor},
            {ToolState::Pipette, Qt::CrossCursor},
            {ToolState::Line, Qt::CrossCursor}};
        for (const auto& [tool, shape] : expected) {
            m_tools.tool = tool;
            QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
            QCoreApplication::sendEvent(layer.get(), &enter);
            QCOMPARE(layer->cursor().shape(), shape);
        }
    }
};

QTEST_MAIN(TestCanvas)
#include "tst_canvas.moc"
