#include "app/mainwindow.h"
#include "colour/qcolorbox.h"
#include "colour/qcolorlittlebox.h"
#include "colour/qcolorpalette.h"
#include "colour/qcolorslide.h"
#include "colour/qspectrum.h"
#include "formats/palettefile.h"
#include "imaging/defaultpalette.h"
#include "scriptedprompts.h"
#include "settings/settings.h"

#include <QApplication>
#include <QBuffer>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include "testfiles.h"

#include <sys/stat.h>

Q_DECLARE_METATYPE(QColor)

namespace {

QString setting(const QString& key)
{
    QString value = QStringLiteral("<unset>");
    Settings().get(key, value);
    return value;
}

// The colour the controls show, as their spin boxes read.
QColor shown(const QColorBox& box)
{
    return QColor(box.spinBox(QColorBox::Red)->value(), box.spinBox(QColorBox::Green)->value(),
                  box.spinBox(QColorBox::Blue)->value(), box.spinBox(QColorBox::Alpha)->value());
}

// QTest takes the point (0, 0) for the widget's centre: the corner needs its own event.
void press(QWidget* widget, QPoint point)
{
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(point), widget->mapToGlobal(QPointF(point)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void drag(QWidget* widget, QPoint from, QPoint to)
{
    QTest::mousePress(widget, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), widget->mapToGlobal(QPointF(to)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
}

} // namespace

// The colour box and its palette, driven as a user drives them.
class TestColourBox : public QObject
{
    Q_OBJECT

private slots:
    void paletteMouse()
    {
        SettingsSandbox sandbox;
        QColorPalette palette(10, 10, 20, 6);
        QSignalSpy picked(&palette, &QColorPalette::changeColor);
        QTest::mouseClick(&palette, Qt::LeftButton, {}, QPoint(15, 25));
        QCOMPARE(picked.size(), 1);
        QCOMPARE(picked.at(0).at(0).value<QColor>(), palette.colors().at(8));
        QCOMPARE(palette.selectedIndex(), 8);
        // Pressed on the grid, released just below it: the outline moves, nothing else.
        QTest::mousePress(&palette, Qt::LeftButton, {}, QPoint(5, 55));
        QTest::mouseRelease(&palette, Qt::LeftButton, {}, QPoint(5, 65));
        QCOMPARE(palette.selectedIndex(), 5);
        QCOMPARE(picked.size(), 1);
    }

    // One click in add mode stores the active colour as it is at the click, then the
    // button falls back.
    void addMode()
    {
        SettingsSandbox sandbox;
        QColor primary(10, 20, 30, 40);
        QColor secondary(Qt::white);
        QColorBox box(&primary, &secondary, QColorBox::Panel);
        box.addButton()->click();
        QVERIFY(box.palette()->addMode());
        box.setColor(QColor(1, 2, 3, 4));
        QSignalSpy picked(box.palette(), &QColorPalette::changeColor);
        QTest::mouseClick(box.palette(), Qt::LeftButton, {}, QPoint(15, 25));
        QCOMPARE(box.palette()->colors().at(8), QColor(1, 2, 3, 4));
        QVERIFY(!box.addButton()->isChecked());
        QVERIFY(!box.palette()->addMode());
        QCOMPARE(picked.size(), 0);
        QTest::mouseClick(box.palette(), Qt::LeftButton, {}, QPoint(15, 25));
        QCOMPARE(primary, QColor(1, 2, 3, 4));
        QCOMPARE(picked.size(), 1);
    }

    // The palette in use is remembered until the user restores the default one.
    void rememberedPalette()
    {
        SettingsSandbox sandbox;
        QList<QColor> colours = DefaultPalette::colours(20, 6);
        colours[0] = QColor(9, 8, 7, 6);
        const QString path = sandbox.path(QStringLiteral("mienne é.zkp"));
        QVERIFY(PaletteFile::save(colours, path));
        Settings().set(QStringLiteral("Color"), QStringLiteral("palette"), path);
        for (int restart = 0; restart < 2; ++restart) {
            QColorPalette palette(10, 10, 20, 6);
            QCOMPARE(palette.colors(), colours);
            QCOMPARE(setting(QStringLiteral("palette")), path);
        }
        QColorPalette palette(10, 10, 20, 6);
        QVERIFY(palette.load(QString()));
        QCOMPARE(palette.colors(), DefaultPalette::colours(20, 6));
        QCOMPARE(setting(QStringLiteral("palette")), QStringLiteral("<unset>"));
        QColorPalette again(10, 10, 20, 6);
        QCOMPARE(again.colors(), DefaultPalette::colours(20, 6));
    }

    void openPalette_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("changed");
        QTest::addColumn<QString>("message");
        QList<QColor> red(120, QColor(255, 0, 0, 200));
        QByteArray whole;
        {
            QBuffer buffer(&whole);
            buffer.open(QIODevice::WriteOnly);
            PaletteFile::write(red, &buffer);
        }
        QByteArray newer = whole;
        newer[0] = 1;
        QTest::newRow("whole") << QStringLiteral("rouge.zkp") << whole << 120 << QString();
        QTest::newRow("version 1")
            << QStringLiteral("n.zkp") << newer << 0
            << QStringLiteral(" a été enregistré avec une version de Zenkora plus récente.");
        QTest::newRow("cut inside colour 7")
            << QStringLiteral("c.zkp") << whole.left(3 + 4 * 7 + 1) << 7
            << QStringLiteral(" est endommagé.<br />Il est impossible de l'ouvrir.");
        QTest::newRow("folder") << QStringLiteral("dossier.zkp") << QByteArray() << 0
                                << QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />");
        QTest::newRow("FIFO") << QStringLiteral("tube.zkp") << QByteArray() << 0
                              << QStringLiteral("Ce fichier n'a pas pu s'ouvrir :<br />");
    }

    // "Ouvrir une palette": the file dialog, the remembered folder and file, and the
    // reader's message in a warning.
    void openPalette()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(int, changed);
        QFETCH(QString, message);
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        const QString path = sandbox.path(name);
        if (name == QStringLiteral("dossier.zkp"))
            QVERIFY(QDir().mkpath(path));
        else if (name == QStringLiteral("tube.zkp"))
            QVERIFY(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
        else
            QVERIFY(writeFile(path, bytes));
        QColor primary(Qt::black);
        QColor secondary(Qt::white);
        QColorBox box(&primary, &secondary, QColorBox::Panel);
        prompts.fileAnswers.enqueue({{path}, QString()});
        box.loadPalette();
        QCOMPARE(prompts.asked.value(0), QStringLiteral("open:Ouvrir une palette"));
        QCOMPARE(prompts.lastFilter, QStringLiteral("Palette Zenkora (*.zkp)"));
        QVERIFY(prompts.lastFolder.endsWith(QStringLiteral("palette/")));
        QCOMPARE(setting(QStringLiteral("palette")), path);
        QCOMPARE(setting(QStringLiteral("pathLoadPalette")), QFileInfo(path).path());
        const QList<QColor> defaults = DefaultPalette::colours(20, 6);
        for (int i = 0; i < 120; ++i)
            QCOMPARE(box.palette()->colors().at(i),
                     i < changed ? QColor(255, 0, 0, 200) : defaults.at(i));
        if (message.isEmpty()) {
            QCOMPARE(prompts.messages.size(), 0);
        } else {
            QCOMPARE(prompts.messages.size(), 1);
            QCOMPARE(prompts.messages.at(0).title, QStringLiteral("Erreur"));
            QVERIFY2(prompts.messages.at(0).text.contains(message),
                     qPrintable(prompts.messages.at(0).text));
        }
    }

    void savePalette()
    {
        SettingsSandbox sandbox;
        ScriptedPrompts prompts;
        QColorPalette palette(10, 10, 20, 6);
        prompts.fileAnswers.enqueue({{sandbox.path(QStringLiteral("absent/p.zkp"))}, QString()});
        QVERIFY(!palette.save());
        QCOMPARE(prompts.asked, QStringList({QStringLiteral("save:Sauvegarder une palette"),
                                             QStringLiteral("message:Erreur:Impossible de "
                                                            "sauvegarder la palette.")}));
        prompts.fileAnswers.enqueue({{sandbox.path(QStringLiteral("p"))}, QString()});
        QVERIFY(palette.save());
        QCOMPARE(prompts.lastFolder, sandbox.path(QStringLiteral("absent")));
        QCOMPARE(setting(QStringLiteral("palette")), sandbox.path(QStringLiteral("p.zkp")));
        QCOMPARE(fileContents(sandbox.path(QStringLiteral("p.zkp"))).size(), 483);
        prompts.fileAnswers.enqueue({});
        QVERIFY(!palette.save());
        QCOMPARE(prompts.asked.size(), 4);
    }

    void hexadecimal_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("F") << QStringLiteral("F") << QColor(0, 0, 15, 77);
        QTest::newRow("FFFFFF") << QStringLiteral("FFFFFF") << QColor(255, 255, 255, 77);
        QTest::newRow("12345") << QStringLiteral("12345") << QColor(1, 35, 69, 77);
        QTest::newRow("abc") << QStringLiteral("abc") << QColor(0, 10, 188, 77);
        QTest::newRow("xyz") << QStringLiteral("xyz") << QColor(90, 91, 92, 77);
        QTest::newRow("1x2") << QStringLiteral("1x2") << QColor(0, 0, 18, 77);
    }

    void hexadecimal()
    {
        QFETCH(QString, text);
        QFETCH(QColor, colour);
        SettingsSandbox sandbox;
        QColor primary(90, 91, 92, 77);
        QColor secondary(Qt::white);
        QColorBox box(&primary, &secondary, QColorBox::Panel);
        box.hexaEdit()->clear();
        QTest::keyClicks(box.hexaEdit(), text);
        QCOMPARE(primary, colour);
        QCOMPARE(box.hexaEdit()->text(), text);
        QCOMPARE(shown(box), colour);
    }

    void setColorByType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("toPrimary");
        QTest::addColumn<bool>("onControls");
        QTest::newRow("2, primary active") << 2 << 0 << true << true;
        QTest::newRow("2, secondary active") << 2 << 1 << false << false;
        QTest::newRow("3, secondary active") << 3 << 1 << false << true;
        QTest::newRow("3, primary active") << 3 << 0 << true << false;
        QTest::newRow("other") << 7 << 1 << true << false;
    }

    // The box's table, and the main window's four slots that forward to it.
    void setColorByType()
    {
        QFETCH(int, type);
        QFETCH(int, index);
        QFETCH(bool, toPrimary);
        QFETCH(bool, onControls);
        SettingsSandbox sandbox;
        const QColor given(12, 34, 56, 78);
        for (int through = 0; through < 2; ++through) {
            MainWindow window;
            QColorBox* box = window.colorBox();
            box->colorIndex()->setCurrentIndex(index);
            const QColor before = shown(*box);
            if (through == 0)
                box->setColor(given, type);
            else if (type == 2)
                window.setPrimaryColor(given);
            else if (type == 3)
                window.setSecondaryColor(given);
            else
                window.setColor(given, type);
            QCOMPARE(window.primaryColor(), toPrimary ? given : QColor(Qt::black));
            QCOMPARE(window.secondaryColor(), toPrimary ? QColor(Qt::white) : given);
            QCOMPARE(shown(*box), onControls ? given : before);
        }
        MainWindow window;
        window.setColor(given);
        QCOMPARE(window.primaryColor(), given);
        QCOMPARE(window.toolState()->primary, given);
    }

    void invertColor_data()
    {
        QTest::addColumn<QColor>("first");
        QTest::addColumn<QColor>("second");
        QTest::newRow("different") << QColor(10, 20, 30, 40) << QColor(200, 100, 50, 128);
        QTest::newRow("equal") << QColor(10, 20, 30, 40) << QColor(10, 20, 30, 40);
    }

    void invertColor()
    {
        QFETCH(QColor, first);
        QFETCH(QColor, second);
        SettingsSandbox sandbox;
        for (int index = 0; index < 2; ++index) {
            QColor primary = first;
            QColor secondary = second;
            QColorBox box(&primary, &secondary, QColorBox::Panel);
            box.colorIndex()->setCurrentIndex(index);
            box.invertColor();
            QCOMPARE(primary, second);
            QCOMPARE(secondary, first);
            QCOMPARE(shown(box), index == 0 ? second : first);
        }
    }

    void wheel_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<int>("hue");
        QTest::newRow("centre") << QPoint(100, 100) << QColor(255, 255, 255, 77) << 0;
        QTest::newRow("corner") << QPoint(0, 0) << QColor(0, 255, 64, 77) << 135;
        QTest::newRow("top") << QPoint(70, 0) << QColor(59, 255, 0, 77) << 106;
    }

    void wheel()
    {
        QFETCH(QPoint, point);
        QFETCH(QColor, colour);
        QFETCH(int, hue);
        SettingsSandbox sandbox;
        QColor primary(1, 2, 3, 77);
        QColor secondary(Qt::white);
        QColorBox box(&primary, &secondary, QColorBox::Panel);
        press(box.spectrum(), point);
        QCOMPARE(primary, colour);
        QCOMPARE(shown(box), colour);
        QCOMPARE(box.spinBox(QColorBox::Hue)->value(), hue);
        QCOMPARE(box.slide(QColorBox::Alpha)->position(), 77 / 255.0);
    }

    void saturationOfRgb()
    {
        SettingsSandbox sandbox;
        QColor primary(Qt::black);
        QColor secondary(Qt::white);
        QColorBox box(&primary, &secondary, QColorBox::Panel);
        box.setColor(QColor(100, 30, 5));
        QCOMPARE(box.spinBox(QColorBox::Saturation)->value(), 243);
        QCOMPARE(box.spinBox(QColorBox::Hue)->value(), 15);
        QCOMPARE(box.spinBox(QColorBox::Value)->value(), 100);
    }

    // A drag past either end of a slider stops at the end of the range; the hue, kept
    // by the HSV colour, survives a drag of the saturation to grey and back.
    void slidersPastTheirEnds()
    {
        SettingsSandbox sandbox;
        QColor primary(100, 30, 5, 60);
        QColor secondary(Qt::white);
        QColorBox box(&primary, &secondary, QColorBox::Panel);
        drag(box.slide(QColorBox::Red), QPoint(30, 4), QPoint(-40, 4));
        QCOMPARE(primary, QColor(0, 30, 5, 60));
        drag(box.slide(QColorBox::Red), QPoint(30, 4), QPoint(400, 4));
        QCOMPARE(primary, QColor(255, 30, 5, 60));
        drag(box.slide(QColorBox::Alpha), QPoint(30, 4), QPoint(-40, 4));
        QCOMPARE(primary.alpha(), 0);
        drag(box.slide(QColorBox::Alpha), QPoint(30, 4), QPoint(400, 4));
        QCOMPARE(primary.alpha(), 255);
        QCOMPARE(box.spinBox(QColorBox::Alpha)->value(), 255);
        const int hue = box.spinBox(QColorBox::Hue)->value();
        drag(box.slide(QColorBox::Saturation), QPoint(30, 4), QPoint(-40, 4));
        QCOMPARE(box.spinBox(QColorBox::Saturation)->value(), 0);
        QCOMPARE(primary, QColor(255, 255, 255, 255));
        QCOMPARE(box.spinBox(QColorBox::Hue)->value(), hue);
        drag(box.slide(QColorBox::Saturation), QPoint(30, 4), QPoint(400, 4));
        QCOMPARE(box.spinBox(QColorBox::Saturation)->value(), 255);
        QCOMPARE(box.spinBox(QColorBox::Hue)->value(), hue);
        drag(box.slide(QColorBox::Hue), QPoint(30, 4), QPoint(400, 4));
        QCOMPARE(box.spinBox(QColorBox::Hue)->value(), 360);
        QCOMPARE(primary, QColor(255, 0, 0, 255));
        // The spin boxes drive their sliders.
        box.spinBox(QColorBox::Green)->setValue(128);
        QCOMPARE(primary, QColor(255, 128, 0, 255));
        QCOMPARE(box.slide(QColorBox::Green)->position(), 128 / 255.0);
    }

    void swatchesChooseTheActiveColour()
    {
        SettingsSandbox sandbox;
        QColor primary(10, 20, 30, 40);
        QColor secondary(50, 60, 70, 80);
        QColorBox box(&primary, &secondary, QColorBox::Panel);
        QTest::mouseClick(box.secondaryBox(), Qt::LeftButton);
        QCOMPARE(box.colorIndex()->currentIndex(), 1);
        QCOMPARE(shown(box), secondary);
        QTest::mouseClick(box.primaryBox(), Qt::LeftButton);
        QCOMPARE(shown(box), primary);
        // A dialog in name only: Escape leaves the panel in place.
        box.show();
        QTest::keyClick(box.hexaEdit(), Qt::Key_Escape);
        QTest::keyClick(box.hexaEdit(), Qt::Key_Return);
        QVERIFY(box.isVisible());
        QVERIFY(!box.addButton()->isChecked());
    }

    // With no script installed the question is the box's own dialog form.
    void defaultPromptShowsTheDialogForm()
    {
        SettingsSandbox sandbox;
        QString title;
        bool dialogForm = false;
        QTimer::singleShot(0, this, [&] {
            QColorBox* box = qobject_cast<QColorBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            title = box->windowTitle();
            dialogForm = box->secondaryBox() == nullptr && box->isModal();
            box->setColor(QColor(1, 2, 3, 4));
            for (QPushButton* button : box->findChildren<QPushButton*>()) {
                if (button->text() == QStringLiteral("Valider"))
                    button->click();
            }
        });
        const std::optional<QColor> colour = Prompts::instance()->colour(
            nullptr, QStringLiteral("Couleur d'arrière plan"), QColor(9, 9, 9));
        QCOMPARE(title, QStringLiteral("Couleur d'arrière plan"));
        QVERIFY(dialogForm);
        QVERIFY(colour);
        QCOMPARE(*colour, QColor(1, 2, 3, 4));
    }
};

QTEST_MAIN(TestColourBox)
#include "tst_colourbox.moc"
