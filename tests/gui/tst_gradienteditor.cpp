// The gradient editor and the main window's drawing gradient, answered by scripted
// prompts: the position box, the stop's colour, the file, "Valider" and "Annuler".
#include "app/mainwindow.h"
#include "app/qdrawingoptionsbar.h"
#include "colour/qgradientcreator.h"
#include "colour/qgradienteditor.h"
#include "colour/qgradientrender.h"
#include "formats/gradientfile.h"
#include "scriptedprompts.h"
#include "settings/settings.h"
#include "testfiles.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTest>

#include <cstring>
#include <limits>

namespace {

QSpinBox* positionBox(QGradientEditor& editor)
{
    return editor.findChild<QSpinBox*>(QStringLiteral("positionBox"));
}

QComboBox* box(QGradientEditor& editor, const char* name)
{
    return editor.findChild<QComboBox*>(QString::fromLatin1(name));
}

QWidget* swatch(QGradientEditor& editor)
{
    return editor.findChild<QWidget*>(QStringLiteral("colorSwatch"));
}

QPushButton* button(QGradientEditor& editor, const QString& text)
{
    for (QPushButton* candidate : editor.findChildren<QPushButton*>()) {
        if (candidate->text() == text)
            return candidate;
    }
    return nullptr;
}

QAction* menuAction(QGradientEditor& editor, const QString& text)
{
    for (QAction* candidate : editor.findChildren<QAction*>()) {
        if (candidate->text() == text)
            return candidate;
    }
    return nullptr;
}

QList<double> positions(const QGradientCreator* strip)
{
    QList<double> result;
    for (const GradientData& stop : strip->stops())
        result.append(stop.pos);
    return result;
}

bool controlsEnabled(QGradientEditor& editor)
{
    const bool swatchOn = swatch(editor)->isEnabled();
    const bool boxOn = positionBox(editor)->isEnabled();
    const bool deleteOn = button(editor, QStringLiteral("Supprimer"))->isEnabled();
    if (swatchOn != boxOn || boxOn != deleteOn)
        qWarning("the stop's controls are not enabled together");
    return swatchOn;
}

GradientRecord redToBlue()
{
    GradientRecord record;
    record.stops = {{0.0, QColor(Qt::red)}, {1.0, QColor(Qt::blue)}};
    return record;
}

QImage barPreview(MainWindow& window)
{
    QLabel* preview = window.drawingBar()->findChild<QLabel*>(QStringLiteral("gradientPreview"));
    return preview ? preview->pixmap().toImage() : QImage();
}

const QString Damaged = QStringLiteral(" est endommagé.<br />Il est impossible de l'ouvrir.");

} // namespace

class TestGradientEditor : public QObject
{
    Q_OBJECT

private slots:
    void opensOnTheGivenGradient();
    void stopLeftOfTheStripThenTyped();
    void selectionSetsTheBoxOnly();
    void deletionsDisableTheStopControls();
    void stopColourAsked();
    void legendsFollowTheType_data();
    void legendsFollowTheType();
    void loadKeepsWhatWasRead_data();
    void loadKeepsWhatWasRead();
    void saveWritesTheFile();
    void validateAndCancelFromTheWindow();
    void restartReadsTheSavedGradient();
};

void TestGradientEditor::opensOnTheGivenGradient()
{
    GradientRecord record = redToBlue();
    record.type = GradientRecord::Radial;
    record.spread = 2;
    record.radialFocal = QPointF(120, 60);
    record.linearEnd = QPointF(7, 8);
    QGradientEditor editor(record, Qt::green);
    QCOMPARE(box(editor, "typeBox")->currentIndex(), 1);
    QCOMPARE(box(editor, "spreadBox")->currentIndex(), 2);
    QVERIFY(editor.gradient() == record);
    QVERIFY(!controlsEnabled(editor));

    // "Valider" hands over what the editor shows.
    editor.render()->setGradientType(0);
    editor.finishCG();
    QCOMPARE(editor.result(), int(QDialog::Accepted));
    record.type = 0;
    QVERIFY(editor.gradient() == record);
}

void TestGradientEditor::stopLeftOfTheStripThenTyped()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QGradientEditor editor(GradientRecord(), Qt::green);
    QGradientCreator* strip = editor.creator();
    menuAction(editor, QStringLiteral("Supprimer tous les curseurs"))->trigger();
    QCOMPARE(positionBox(editor)->value(), 0);
    QTest::mousePress(strip, Qt::LeftButton, {}, QPoint(0, 70));
    QCOMPARE(positions(strip), QList<double>({-0.0125}));
    // Kept by the strip, left out of the toolkit's gradients.
    QCOMPARE(strip->gradient().stops(), QLinearGradient().stops());
    QCOMPARE(editor.render()->brush().gradient()->stops(), QLinearGradient().stops());
    QCOMPARE(positionBox(editor)->value(), 0);
    QVERIFY(controlsEnabled(editor));

    positionBox(editor)->selectAll();
    QTest::keyClicks(positionBox(editor), QStringLiteral("30"));
    QCOMPARE(positions(strip), QList<double>({0.30}));
    QCOMPARE(editor.gradient().stops.first().color, QColor(Qt::green));
}

void TestGradientEditor::selectionSetsTheBoxOnly()
{
    GradientRecord record;
    record.stops = {{0.337, QColor(Qt::red)}, {0.9, QColor(Qt::blue)}};
    QGradientEditor editor(record, Qt::green);
    QTest::mousePress(editor.creator(), Qt::LeftButton, {}, QPoint(137, 70));
    QCOMPARE(positionBox(editor)->value(), 33);
    QCOMPARE(positions(editor.creator()), QList<double>({0.337, 0.9}));
    positionBox(editor)->setValue(50);
    QCOMPARE(positions(editor.creator()), QList<double>({0.5, 0.9}));
    // Dragging the other stop moves the box along, without feeding it back.
    QTest::mousePress(editor.creator(), Qt::LeftButton, {}, QPoint(362, 70));
    QTest::mouseMove(editor.creator(), QPoint(250, 70));
    QTest::mouseRelease(editor.creator(), Qt::LeftButton, {}, QPoint(250, 70));
    QCOMPARE(positionBox(editor)->value(), 61);
    QCOMPARE(positions(editor.creator()), QList<double>({0.5, 0.6125}));

    // A stop read far outside the strip shows at the box's end and stays where it is.
    editor.creator()->setGradient({{1e300, QColor(Qt::red)}});
    QTest::mousePress(editor.creator(), Qt::LeftButton, {}, QPoint(405, 70));
    QCOMPARE(positionBox(editor)->value(), 100);
    QCOMPARE(positions(editor.creator()), QList<double>({1e300}));
}

void TestGradientEditor::deletionsDisableTheStopControls()
{
    QGradientEditor editor(redToBlue(), Qt::green);
    QTest::mousePress(editor.creator(), Qt::LeftButton, {}, QPoint(405, 70));
    QVERIFY(controlsEnabled(editor));
    button(editor, QStringLiteral("Supprimer"))->click();
    QCOMPARE(positions(editor.creator()), QList<double>({0.0}));
    QVERIFY(!controlsEnabled(editor));
    QCOMPARE(editor.render()->record().stops.size(), 1);

    QTest::mousePress(editor.creator(), Qt::LeftButton, {}, QPoint(105, 70));
    QVERIFY(controlsEnabled(editor));
    menuAction(editor, QStringLiteral("Supprimer tous les curseurs"))->trigger();
    QVERIFY(editor.creator()->stops().isEmpty());
    QVERIFY(!controlsEnabled(editor));
}

void TestGradientEditor::stopColourAsked()
{
    ScriptedPrompts prompts;
    prompts.colours.enqueue(QColor(1, 2, 3, 4));
    QGradientEditor editor(redToBlue(), Qt::green);
    QTest::mousePress(editor.creator(), Qt::LeftButton, {}, QPoint(2, 70));
    QTest::mouseClick(swatch(editor), Qt::LeftButton);
    QCOMPARE(prompts.asked, QStringList(QStringLiteral("colour:Choisir une couleur")));
    QCOMPARE(editor.gradient().stops.first().color, QColor(1, 2, 3, 4));
    // A cancelled choice keeps the colour.
    QTest::mouseClick(swatch(editor), Qt::LeftButton);
    QCOMPARE(editor.gradient().stops.first().color, QColor(1, 2, 3, 4));
}

void TestGradientEditor::legendsFollowTheType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("legends");
    QTest::addColumn<bool>("third");
    QTest::addColumn<bool>("spread");
    QTest::newRow("linear") << 0 << QStringList({u"Début"_qs, u"Fin"_qs}) << false << true;
    QTest::newRow("radial") << 1 << QStringList({u"Centre"_qs, u"Rayon"_qs}) << true << true;
    QTest::newRow("conical") << 2 << QStringList({u"Centre"_qs, u"Angle"_qs}) << false << false;
}

void TestGradientEditor::legendsFollowTheType()
{
    QFETCH(int, type);
    QFETCH(QStringList, legends);
    QFETCH(bool, third);
    QFETCH(bool, spread);
    QGradientEditor editor(GradientRecord(), Qt::green);
    box(editor, "typeBox")->setCurrentIndex((type + 1) % 3);
    box(editor, "typeBox")->setCurrentIndex(type);
    QCOMPARE(editor.render()->record().type, quint8(type));
    QLabel* focal = nullptr;
    QStringList shown;
    for (QLabel* label : editor.findChildren<QLabel*>()) {
        if (label->text() == QStringLiteral("Focale"))
            focal = label;
        else if (legends.contains(label->text()) || label->text() == QStringLiteral("Fin"))
            shown.append(label->text());
    }
    QCOMPARE(shown, legends);
    QVERIFY(focal);
    QCOMPARE(focal->isEnabled(), third);
    QCOMPARE(box(editor, "spreadBox")->isEnabled(), spread);
    QCOMPARE(menuAction(editor, QStringLiteral("Superposer le centre et la focale"))->isEnabled(),
             type == 1);
}

void TestGradientEditor::loadKeepsWhatWasRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("spread");
    QTest::addColumn<QList<QPoint>>("handles");
    QTest::addColumn<bool>("stopsRead");
    QTest::addColumn<QString>("error");

    const QByteArray whole = QByteArray::fromHex("00010001020a0b0c0d0e0f") + QByteArray(8, '\0') +
                             QByteArray::fromHex("11223344");
    const QList<QPoint> defaults = {QPoint(0, 100), QPoint(200, 100)};
    const QList<QPoint> read = {QPoint(10, 11), QPoint(12, 13), QPoint(14, 15)};
    const QList<QPoint> radialDefaults = {QPoint(100, 100), QPoint(100, 0), QPoint(100, 50)};
    QByteArray nan = whole;
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    std::memcpy(nan.data() + 11, &notANumber, 8);
    QByteArray type3 = whole;
    type3[3] = 3;
    QByteArray spread3 = whole;
    spread3[4] = 3;

    QTest::newRow("whole") << whole << 1 << 2 << read << true << QString();
    QTest::newRow("cut after the type")
        << whole.left(4) << 1 << 0 << radialDefaults << false << Damaged;
    QTest::newRow("type 3") << type3 << 0 << 0 << defaults << false << Damaged;
    QTest::newRow("spread 3") << spread3 << 1 << 0 << radialDefaults << false << Damaged;
    QTest::newRow("NaN position") << nan << 1 << 2 << read << false << Damaged;
    QTest::newRow("newer version")
        << QByteArray("\x01", 1) << 0 << 0 << defaults << false
        << QStringLiteral(" a été enregistré avec une version de Zenkora plus "
                          "récente.");
}

void TestGradientEditor::loadKeepsWhatWasRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, type);
    QFETCH(int, spread);
    QFETCH(QList<QPoint>, handles);
    QFETCH(bool, stopsRead);
    QFETCH(QString, error);
    SettingsSandbox sandbox;
    ScriptedPrompts prompts;
    const QString path = sandbox.path(QStringLiteral("dégradé.zkd"));
    QVERIFY(writeFile(path, bytes));
    // The working directory's "degrade/" comes before the application's.
    QVERIFY(QDir().mkdir(sandbox.path(QStringLiteral("degrade"))));
    prompts.fileAnswers.enqueue({{path}, QString()});
    QGradientEditor editor(redToBlue(), Qt::green);
    menuAction(editor, QStringLiteral("Ouvrir un dégradé"))->trigger();
    QCOMPARE(box(editor, "typeBox")->currentIndex(), type);
    QCOMPARE(box(editor, "spreadBox")->currentIndex(), spread);
    QCOMPARE(editor.render()->handles(), handles);
    QCOMPARE(editor.gradient().stops,
             stopsRead ? QList<GradientData>({{0.0, QColor(0x11, 0x22, 0x33, 0x44)}})
                       : redToBlue().stops);
    QCOMPARE(prompts.lastFilter, QStringLiteral("Dégradé Zenkora (*.zkd)"));
    QCOMPARE(prompts.lastFolder, QDir::currentPath() + QStringLiteral("/degrade/"));
    QStringList asked = {QStringLiteral("open:Ouvrir un dégradé")};
    if (!error.isEmpty())
        asked.append(QStringLiteral("message:Erreur:") + path + error);
    QCOMPARE(prompts.asked, asked);
    Settings settings;
    QString stored;
    QVERIFY(settings.get(QStringLiteral("degrade"), stored));
    QCOMPARE(stored, path);
    QVERIFY(settings.get(QStringLiteral("pathLoadDegrade"), stored));
    QCOMPARE(stored, QDir::currentPath());
}

void TestGradientEditor::saveWritesTheFile()
{
    SettingsSandbox sandbox;
    ScriptedPrompts prompts;
    const QString path = sandbox.path(QStringLiteral("mien.zkd"));
    const QString missing = sandbox.path(QStringLiteral("absent/mien.zkd"));
    prompts.fileAnswers.enqueue({{missing}, QString()});
    prompts.fileAnswers.enqueue({{path}, QString()});
    prompts.fileAnswers.enqueue({});
    QGradientEditor editor(redToBlue(), Qt::green);
    QAction* save = menuAction(editor, QStringLiteral("Enregistrer le dégradé"));
    save->trigger();
    save->trigger();
    save->trigger(); // cancelled: nothing more
    QCOMPARE(prompts.asked,
             QStringList({u"save:Sauvegarder une palette"_qs,
                          u"message:Erreur:Impossible de sauvegarder le dégradé."_qs,
                          u"save:Sauvegarder une palette"_qs, u"save:Sauvegarder une palette"_qs}));
    QCOMPARE(prompts.messages.first().icon, QMessageBox::Warning);
    QCOMPARE(GradientFile::load(path).record, redToBlue());
    Settings settings;
    QString stored;
    QVERIFY(settings.get(QStringLiteral("degrade"), stored));
    QCOMPARE(stored, path);
}

void TestGradientEditor::validateAndCancelFromTheWindow()
{
    SettingsSandbox sandbox;
    ScriptedPrompts prompts;
    MainWindow window;
    window.action(QStringLiteral("rectTool"))->trigger();
    window.setPaintMode(1);
    const QImage before = barPreview(window);
    QCOMPARE(before.size(), QSize(30, 30));
    QVERIFY(qRed(before.pixel(0, 15)) < 10 && qRed(before.pixel(29, 15)) > 240);

    prompts.gradients.enqueue(std::nullopt);
    prompts.gradients.enqueue(redToBlue());
    QLabel* preview = window.drawingBar()->findChild<QLabel*>(QStringLiteral("gradientPreview"));
    QTest::mouseClick(preview, Qt::LeftButton);
    QCOMPARE(prompts.asked, QStringList(QStringLiteral("gradient:Editeur de dégradé")));
    QVERIFY(prompts.gradientShown == GradientRecord());
    QCOMPARE(prompts.gradientNewColor, window.primaryColor());
    QVERIFY(window.toolState()->gradient == GradientRecord());
    QCOMPARE(barPreview(window), before);

    window.showGradientEditor();
    QVERIFY(window.toolState()->gradient == redToBlue());
    const QImage after = barPreview(window);
    QCOMPARE(after.pixelColor(0, 15).red(), 251);
    QVERIFY(after.pixelColor(0, 15).blue() < 10);
    QVERIFY(after.pixelColor(29, 15).blue() > 240 && after.pixelColor(29, 15).red() < 15);
    // The bar refilled later draws the same.
    window.action(QStringLiteral("circleTool"))->trigger();
    QCOMPARE(barPreview(window), after);
}

void TestGradientEditor::restartReadsTheSavedGradient()
{
    SettingsSandbox sandbox;
    GradientRecord saved = redToBlue();
    saved.type = GradientRecord::Conical;
    saved.conicalAngle = QPointF(3, 4);
    const QString path = sandbox.path(QStringLiteral("départ.zkd"));
    QVERIFY(GradientFile::save(saved, path));
    {
        Settings settings;
        settings.set(QStringLiteral("Color"), QStringLiteral("degrade"), path);
    }
    {
        MainWindow window;
        QVERIFY(window.toolState()->gradient == saved);
    }
    // A damaged file is passed over without a word.
    QVERIFY(writeFile(path, QByteArray::fromHex("0002000101")));
    ScriptedPrompts prompts;
    MainWindow window;
    QVERIFY(window.toolState()->gradient == GradientRecord());
    QVERIFY(prompts.asked.isEmpty());
}

QTEST_MAIN(TestGradientEditor)
#include "tst_gradienteditor.moc"
