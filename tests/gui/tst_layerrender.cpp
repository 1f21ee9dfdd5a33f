#include "app/mainwindow.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerrender.h"
#include "document/sheetcomposer.h"
#include "scriptedprompts.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QDialog>
#include <QMdiArea>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

namespace {

QRgb cellColour(int cell)
{
    return qRgb(cell * 15, 255 - cell * 15, 60 + cell);
}

// A sheet whose every cell is one opaque colour of its own.
Character sheet(int kind, QSize size)
{
    Character character(kind, size);
    const int columns = character.columnCount();
    const QSize cell = character.cellSize();
    QImage image(size, QImage::Format_ARGB32);
    image.fill(uint(19));
    for (int c = 0; c < character.cellCount(); ++c) {
        const QRect area(QPoint(c % columns * cell.width(), c / columns * cell.height()), cell);
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x)
                image.setPixel(x, y, cellColour(c));
        }
    }
    character.addElement(image, "cases", 0);
    return character;
}

QImage pictureOf(const QLayerRender& render)
{
    return render.picture().toImage().convertToFormat(QImage::Format_ARGB32);
}

void release(QWidget* widget, Qt::MouseButton button, QPoint point)
{
    QTest::mouseRelease(widget, button, {}, point);
}

void setPeriod(int period)
{
    Settings().set(QStringLiteral("Render"), QStringLiteral("periode"), qint32(period));
}

} // namespace

// The animated preview: its geometry for each kind of sheet, its button and menu, its
// properties, and a document closed under it.
class TestLayerRender : public QObject
{
    Q_OBJECT

private slots:
    void geometry_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QSize>("sheetSize");
        QTest::addColumn<QSize>("panelSize");
        QTest::addColumn<int>("y");
        QTest::newRow("XP") << Character::XP << QSize(128, 192) << QSize(173, 48) << 0;
        QTest::newRow("VX") << Character::VX << QSize(96, 128) << QSize(173, 45) << 6;
        QTest::newRow("VX, cells 24 high")
            << Character::VX << QSize(96, 96) << QSize(173, 45) << 10;
    }

    void geometry()
    {
        QFETCH(int, kind);
        QFETCH(QSize, sheetSize);
        QFETCH(QSize, panelSize);
        QFETCH(int, y);
        SettingsSandbox sandbox;
        Character character = sheet(kind, sheetSize);
        QLayerRender render;
        render.setCharacter(&character);
        for (int step = 0; step < 4; ++step) {
            render.refresh();
            QCOMPARE(render.size(), panelSize);
            QCOMPARE(render.minimumSize(), panelSize);
            QCOMPARE(render.maximumSize(), panelSize);
            const QImage picture = pictureOf(render);
            QCOMPARE(picture.size(), panelSize);
            const int column = SheetComposer::walkColumn(kind, step);
            const int columns = character.columnCount();
            const QSize cell = character.cellSize();
            for (int row = 0; row < 4; ++row) {
                const QPoint corner(row * 32, y);
                const QRgb expected = cellColour(row * columns + column);
                QCOMPARE(picture.pixel(corner), expected);
                QCOMPARE(picture.pixel(corner + QPoint(cell.width() - 1, cell.height() - 1)),
                         expected);
                if (y > 0)
                    QCOMPARE(picture.pixel(corner - QPoint(0, 1)), 0xffffffffu);
            }
            // The button's white ground on the right, below or around the icon.
            QCOMPARE(picture.pixel(128, panelSize.height() - 1), 0xffffffffu);
        }
        QCOMPARE(render.step(), 0);
    }

    // A new cell size rebuilds the panel at the next step, button included; a paused
    // preview shows nothing new until play is pressed.
    void resizeAndPause()
    {
        SettingsSandbox sandbox;
        setPeriod(50);
        Character character = sheet(Character::XP, QSize(128, 192));
        QLayerRender render;
        render.setCharacter(&character);
        render.refresh();
        QVERIFY(render.isPlaying());
        character.setSheetSize(QSize(256, 384));
        QCOMPARE(render.size(), QSize(173, 48));
        render.refresh();
        QCOMPARE(render.size(), QSize(301, 96));
        QCOMPARE(pictureOf(render).pixel(256, 95), 0xffffffffu);
        QVERIFY(pictureOf(render).pixel(256 + 22, 22) != 0xffffffffu);

        release(&render, Qt::LeftButton, QPoint(250, 40)); // beside the button
        QVERIFY(render.isPlaying());
        release(&render, Qt::LeftButton, QPoint(280, 40));
        QVERIFY(!render.isPlaying());
        const QImage paused = pictureOf(render);
        for (int c = 0; c < 16; ++c)
            character.setCellImage(0, c, QImage());
        QTest::qWait(200);
        QCOMPARE(pictureOf(render), paused);
        release(&render, Qt::LeftButton, QPoint(280, 40));
        QVERIFY(render.isPlaying());
        QTRY_COMPARE(pictureOf(render).pixel(10, 10), 0xffffffffu);
    }

    void storedPeriodIsBounded_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("period");
        QTest::newRow("too short") << 10 << 50;
        QTest::newRow("too long") << 100000 << 60000;
        QTest::newRow("within") << 700 << 700;
    }

    void storedPeriodIsBounded()
    {
        QFETCH(int, stored);
        QFETCH(int, period);
        SettingsSandbox sandbox;
        setPeriod(stored);
        QLayerRender render;
        QCOMPARE(render.period(), period);
        QCOMPARE(render.findChild<QTimer*>()->interval(), period);
    }

    // The right button's menu opens the properties, which open without a loop of their
    // own and write both settings.
    void properties()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        Character character = sheet(Character::VX, QSize(96, 128));
        QLayerRender render;
        render.setCharacter(&character);
        render.refresh();
        render.show();
        release(&render, Qt::RightButton, QPoint(10, 10));
        QVERIFY(render.actionMenu()->isVisible());
        QCOMPARE(render.actionMenu()->title(), QStringLiteral("Actions"));
        QAction* entry = render.actionMenu()->actions().value(0);
        QCOMPARE(entry->text(), QStringLiteral("Modifier les propriétés"));
        entry->trigger();
        render.actionMenu()->hide();

        QDialog* dialog = render.propertyDialog();
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Propriétés du rendu"));
        QCOMPARE(render.periodBox()->minimum(), 50);
        QCOMPARE(render.periodBox()->maximum(), 60000);
        QCOMPARE(render.periodBox()->value(), 1000);
        QVERIFY(!render.stopBox()->isChecked());
        prompts.colours.enqueue(QColor(10, 20, 30, 40));
        const auto button = [&](const QString& text) {
            for (QPushButton* b : render.propertyDialog()->findChildren<QPushButton*>()) {
                if (b->text() == text)
                    return b;
            }
            return static_cast<QPushButton*>(nullptr);
        };
        button(QStringLiteral("Changer la couleur d'arrière plan"))->click();
        QCOMPARE(prompts.asked, QStringList(QStringLiteral("colour:Choisir une couleur")));
        render.periodBox()->setValue(700);
        render.stopBox()->setChecked(true);
        button(QStringLiteral("Valider"))->click();
        QVERIFY(!dialog->isVisible());
        QVERIFY(!render.isPlaying());
        QCOMPARE(render.period(), 700);
        QCOMPARE(render.backgroundColor(), QColor(10, 20, 30, 40));
        QVERIFY(sandbox.ini().contains("periode=700\n"));
        QVERIFY(sandbox.ini().contains(
            "backgroundColor=" + QByteArray::number(qint32(qRgba(10, 20, 30, 40))) + '\n'));

        render.showProperty();
        prompts.colours.enqueue(QColor(Qt::white));
        button(QStringLiteral("Changer la couleur d'arrière plan"))->click();
        render.stopBox()->setChecked(false);
        button(QStringLiteral("Valider"))->click();
        QVERIFY(render.isPlaying());
        QVERIFY(sandbox.ini().contains("backgroundColor=-1\n"));
    }

    // The preview is pointed at the canvas's character; once the last document is
    // closed a tick reads nothing of it.
    void closingTheLastDocumentWhilePlaying()
    {
        SettingsSandbox sandbox;
        setPeriod(50);
        MainWindow window;
        QLayer* layer =
            window.addDocument(sheet(Character::XP, QSize(128, 192)), QStringLiteral("feuille"));
        QLayerRender* render = window.layerRender();
        render->refresh();
        QVERIFY(render->isPlaying());
        const int shownStep = (render->step() + 3) % 4;
        QCOMPARE(pictureOf(*render).pixel(0, 0),
                 cellColour(SheetComposer::walkColumn(Character::XP, shownStep)));
        layer->setAskOnClose(false);
        window.mdiArea()->closeAllSubWindows();
        QTRY_VERIFY(window.layers().isEmpty());
        QTest::qWait(120);
        render->refresh();
        // A canvas destroyed while still shown is not read either.
        Character kept = sheet(Character::XP, QSize(128, 192));
        QObject* owner = new QObject;
        render->setCharacter(&kept, owner);
        delete owner;
        const QImage before = pictureOf(*render);
        render->refresh();
        QCOMPARE(pictureOf(*render), before);
    }
};

QTEST_MAIN(TestLayerRender)
#include "tst_layerrender.moc"
