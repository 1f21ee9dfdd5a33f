#include "app/qnewcharacter.h"
#include "canvas/qlayer.h"
#include "canvas/qscrolllayer.h"

#include "testfiles.h"
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

namespace {
template <typename T> T* part(const QNewCharacter& dialog, const char* name)
{
    T* widget = dialog.findChild<T*>(QLatin1String(name));
    if (!widget)
        qFatal("no child %s", name);
    return widget;
}

QString nameOf(const QNewCharacter& dialog)
{
    return part<QLineEdit>(dialog, "nameEdit")->text();
}

// Types a value over the number of a spin box, as a user would, suffix untouched.
void typeValue(QSpinBox* box, int value)
{
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QString::number(value));
}

// The two information lines, as "width x height" of one cell.
QString cellLabels(const QNewCharacter& dialog)
{
    QString text = part<QLabel>(dialog, "cellWidthLabel")->text() + QLatin1Char('|') +
                   part<QLabel>(dialog, "cellHeightLabel")->text();
    return text.replace(QStringLiteral("Largeur d'une cellule : "), QString())
        .replace(QStringLiteral(" pixels.|Hauteur d'une cellule : "), QStringLiteral(" x "))
        .remove(QStringLiteral(" pixels."));
}

void clickButton(const QNewCharacter& dialog, const char* name)
{
    QTest::mouseClick(part<QPushButton>(dialog, name), Qt::LeftButton);
}

} // namespace

class TestNewCharacter : public QObject
{
    Q_OBJECT

private slots:
    // Runs first: the counter of created characters starts at 0 in a fresh program.
    void defaultNamesCountCreations();
    void sizesRoundDownToWholeCells_data();
    void sizesRoundDownToWholeCells();
    void blankNameCannotBeValidated();
    void signalCarriesUntrimmedNameThenCounts();
    void editModeResizesTheOpenDocument();
    void editModeKeepsATallSheet();
};

void TestNewCharacter::defaultNamesCountCreations()
{
    QCOMPARE(QNewCharacter::createdCount(), 0);
    {
        QNewCharacter cancelled(0, QString(), false, nullptr);
        QCOMPARE(nameOf(cancelled), QStringLiteral("Sans titre 1"));
        QSignalSpy spy(&cancelled, &QNewCharacter::validNewChar);
        cancelled.show();
        clickButton(cancelled, "cancelButton");
        QCOMPARE(spy.count(), 0);
    }
    QCOMPARE(QNewCharacter::createdCount(), 0);
    {
        QNewCharacter first(1, QString(), false, nullptr);
        QCOMPARE(nameOf(first), QStringLiteral("Sans titre 1"));
        first.show();
        clickButton(first, "validButton");
        QVERIFY(!first.isVisible());
    }
    QNewCharacter second(0, QString(), false, nullptr);
    QCOMPARE(nameOf(second), QStringLiteral("Sans titre 2"));
    // A given name is kept, and uses no number.
    QNewCharacter named(0, QStringLiteral("Héros"), false, nullptr);
    QCOMPARE(nameOf(named), QStringLiteral("Héros"));
    QCOMPARE(QNewCharacter::createdCount(), 1);
}

void TestNewCharacter::sizesRoundDownToWholeCells_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("typedWidth");
    QTest::addColumn<int>("typedHeight");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");

    QTest::newRow("XP 130 x 194") << 0 << 130 << 194 << 128 << 192;
    QTest::newRow("VX 100 x 131") << 1 << 100 << 131 << 99 << 128;
    QTest::newRow("VX 101 keeps thirds") << 1 << 101 << 64 << 99 << 64;
}

void TestNewCharacter::sizesRoundDownToWholeCells()
{
    QFETCH(int, kind);
    QFETCH(int, typedWidth);
    QFETCH(int, typedHeight);
    QFETCH(int, width);
    QFETCH(int, height);

    QNewCharacter dialog(kind, QString(), false, nullptr);
    QSignalSpy spy(&dialog, &QNewCharacter::validNewChar);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto* widthBox = part<QSpinBox>(dialog, "widthBox");
    typeValue(widthBox, typedWidth);
    typeValue(part<QSpinBox>(dialog, "heightBox"), typedHeight);

    // The labels follow the typing, the boxes keep what was typed.
    QCOMPARE(widthBox->value(), typedWidth);
    QCOMPARE(cellLabels(dialog), QStringLiteral("%1 x %2").arg(width / (4 - kind)).arg(height / 4));

    clickButton(dialog, "validButton");
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(1).toInt(), width);
    QCOMPARE(spy.at(0).at(2).toInt(), height);
}

void TestNewCharacter::blankNameCannotBeValidated()
{
    QNewCharacter dialog(0, QStringLiteral("Héros"), false, nullptr);
    QSignalSpy spy(&dialog, &QNewCharacter::validNewChar);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    auto* name = part<QLineEdit>(dialog, "nameEdit");
    auto* valid = part<QPushButton>(dialog, "validButton");
    auto* message = part<QLabel>(dialog, "messageLabel");
    const QString green = message->text();
    QCOMPARE(green, QStringLiteral(
                        "<font color=\"#009900\">Choisissez les paramètres et validez.</font>"));

    // The name was selected: typing replaces it.
    QTest::keyClicks(name, QStringLiteral("   "));
    QCOMPARE(name->text(), QStringLiteral("   "));
    QVERIFY(!valid->isEnabled());
    QCOMPARE(message->text(),
             QStringLiteral("<font color=\"#FF0000\">Le nom ne doit pas être vide.</font>"));
    QTest::keyClick(name, Qt::Key_Return);
    QTest::mouseClick(valid, Qt::LeftButton);
    QCOMPARE(spy.count(), 0);
    QVERIFY(dialog.isVisible());

    QTest::keyClicks(name, QStringLiteral("b"));
    QVERIFY(valid->isEnabled());
    QCOMPARE(message->text(), green);
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(spy.count(), 1);
}

void TestNewCharacter::signalCarriesUntrimmedNameThenCounts()
{
    QNewCharacter dialog(1, QStringLiteral("  Héros  "), false, nullptr);
    const int before = QNewCharacter::createdCount();
    QList<QVariantList> received;
    connect(&dialog, &QNewCharacter::validNewChar, this,
            [&](const QString& name, int width, int height, int kind) {
                received.append({name, width, height, kind, QNewCharacter::createdCount()});
            });
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    dialog.show();
    clickButton(dialog, "validButton");
    QCOMPARE(received.size(), 1);
    // The counter moves after the signal, so the receiver still sees the old count.
    QCOMPARE(received.first(), (QVariantList{QStringLiteral("  Héros  "), 96, 128, 1, before}));
    QCOMPARE(QNewCharacter::createdCount(), before + 1);
    QCOMPARE(accepted.count(), 1);
}

void TestNewCharacter::editModeResizesTheOpenDocument()
{
    QMdiArea area;
    auto* layer = new QLayer(QStringLiteral("Ancien"), QSize(96, 128), 1, &area);
    auto* scroll = new QScrollLayer(layer);
    QMdiSubWindow* window = area.addSubWindow(scroll);
    area.show();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    area.setActiveSubWindow(window);
    Character* character = layer->character();
    character->insertElement(0, "Corps", "", QList<QImage>(12, solidImage(QSize(2, 2), 0xffff0000)),
                             QList<QPoint>(12, QPoint(10, 20)), true);
    const int steps = layer->history()->size();
    const int createdBefore = QNewCharacter::createdCount();

    QNewCharacter dialog(layer->kind(), layer->title(), true, scroll, 96, 128);
    QSignalSpy created(&dialog, &QNewCharacter::validNewChar);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClicks(part<QLineEdit>(dialog, "nameEdit"), QStringLiteral("Nouveau"));
    // 105 is a whole number of VX columns (35 each) but not of XP ones.
    typeValue(part<QSpinBox>(dialog, "widthBox"), 105);
    typeValue(part<QSpinBox>(dialog, "heightBox"), 142);
    clickButton(dialog, "validButton");

    QCOMPARE(created.count(), 0);
    QCOMPARE(character->kind(), 1);
    QCOMPARE(character->sheetSize(), QSize(105, 140));
    QCOMPARE(character->cellSize(), QSize(35, 35));
    // Cells grew by 3 pixels each way: elements move by half of it, cut toward zero.
    for (int cell = 0; cell < 12; ++cell)
        QCOMPARE(character->cellPosition(0, cell), QPoint(11, 21));
    QCOMPARE(layer->title(), QStringLiteral("Nouveau"));
    QVERIFY(window->windowTitle().startsWith(QStringLiteral("Nouveau")));
    QCOMPARE(layer->history()->size(), steps + 1);
    QCOMPARE(layer->history()->labelAt(steps), QByteArray("Changement de la taille des cellules"));
    QVERIFY(layer->isModified());
    QCOMPARE(layer->size(), QSize(105, 140));
    QCOMPARE(layer->pixmap().size(), QSize(105, 140));
    QCOMPARE(QNewCharacter::createdCount(), createdBefore);
}

// An opened tileset is taller than a new sheet may be: validating the dialog without a
// change keeps it whole.
void TestNewCharacter::editModeKeepsATallSheet()
{
    QMdiArea area;
    auto* layer = new QLayer(QStringLiteral("Tuiles"), QSize(256, 832), 0, &area);
    auto* scroll = new QScrollLayer(layer);
    area.addSubWindow(scroll)->show();
    QNewCharacter dialog(layer->kind(), layer->title(), true, scroll, 256, 832);
    QCOMPARE(part<QSpinBox>(dialog, "heightBox")->value(), 832);
    clickButton(dialog, "validButton");
    QCOMPARE(layer->character()->sheetSize(), QSize(256, 832));
}

QTEST_MAIN(TestNewCharacter)
#include "tst_newcharacter.moc"
