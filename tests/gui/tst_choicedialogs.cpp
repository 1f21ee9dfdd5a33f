#include "app/choicedialogs.h"
#include "app/qcombowidget.h"
#include "app/qoptionwidget.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <memory>

namespace {
QPixmap squareIcon(int side, QColor colour = Qt::darkGreen)
{
    QPixmap pixmap(side, side);
    pixmap.fill(colour);
    return pixmap;
}

QPixmap resourceIcon(const char* name)
{
    return QPixmap(QStringLiteral(":/icon/") + QLatin1String(name) + QStringLiteral(".png"));
}

QRgb pixelOf(const QPixmap& pixmap, int x, int y)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32).pixel(x, y);
}

// A dialog of three rows, the middle one leaving the dialog open.
std::unique_ptr<QComboWidget> threeRowDialog()
{
    auto dialog = std::make_unique<QComboWidget>(QStringLiteral("<h2>Tête</h2>"),
                                                 QStringLiteral("<i>Sous-titre</i>"));
    dialog->addOption(squareIcon(32), QStringLiteral("<h3>Un</h3>"), QStringLiteral("Premier."));
    dialog->addOption(squareIcon(32), QStringLiteral("<h3>Deux</h3>"), QStringLiteral("Reste."),
                      false);
    dialog->addOption(squareIcon(32), QStringLiteral("<h3>Trois</h3>"), QStringLiteral("Fin."));
    dialog->setModal(false);
    return dialog;
}

using Builder = std::function<QComboWidget*()>;
} // namespace

Q_DECLARE_METATYPE(Builder)

class TestChoiceDialogs : public QObject
{
    Q_OBJECT

private slots:
    void clickedRowIsTheAnswer_data();
    void clickedRowIsTheAnswer();
    void rowsReachThroughToCallerSlots();
    void dialogFitsItsRows();
    void optionStatesAndSignals();
    void optionPixmaps();
    void defaultCharacterKeepsOpenOnActions();
    void concreteDialogs_data();
    void concreteDialogs();
    void closeQuestions_data();
    void closeQuestions();
};

void TestChoiceDialogs::clickedRowIsTheAnswer_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("open");
    QTest::newRow("first") << 0 << 0 << false;
    QTest::newRow("non-closing") << 1 << 1 << true;
    QTest::newRow("last") << 2 << 2 << false;
    QTest::newRow("closed without a click") << -1 << -1 << false;
}

void TestChoiceDialogs::clickedRowIsTheAnswer()
{
    QFETCH(int, row);
    QFETCH(int, answer);
    QFETCH(bool, open);
    auto dialog = threeRowDialog();
    QCOMPARE(dialog->chosenIndex(), -1);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    // Hovering is no choice.
    QTest::mouseMove(dialog->row(0));
    if (row < 0)
        QVERIFY(dialog->close());
    else
        QTest::mouseClick(dialog->row(row), Qt::LeftButton);
    QCOMPARE(dialog->chosenIndex(), answer);
    QCOMPARE(dialog->isVisible(), open);
    if (!open)
        QCOMPARE(dialog->result(), int(row < 0 ? QDialog::Rejected : QDialog::Accepted));
}

void TestChoiceDialogs::rowsReachThroughToCallerSlots()
{
    auto dialog = threeRowDialog();
    const QComboWidget::Option* middle = dialog->option(1);
    QCOMPARE(dialog->indexOf(middle), 1);
    QObject receiver;
    int clicks = 0;
    dialog->connect(middle, &QOptionWidget::clicked, &receiver, [&] { ++clicks; });
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    QTest::mouseClick(dialog->row(1), Qt::LeftButton);
    QVERIFY(dialog->disconnect(middle, &QOptionWidget::clicked, &receiver, nullptr));
    QTest::mouseClick(dialog->row(1), Qt::LeftButton);
    QCOMPARE(clicks, 1);
}

void TestChoiceDialogs::dialogFitsItsRows()
{
    auto dialog = threeRowDialog();
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    QCOMPARE(dialog->size(), dialog->sizeHint());
    QCOMPARE(dialog->minimumSize(), dialog->maximumSize());
    // Rows are stretched to one width and their lit frame spans all of it.
    const int width = dialog->row(0)->width();
    for (int i = 0; i < dialog->optionCount(); ++i) {
        QCOMPARE(dialog->row(i)->width(), width);
        QCOMPARE(dialog->row(i)->statePixmap(QOptionWidget::Hovered).deviceIndependentSize(),
                 QSizeF(dialog->row(i)->size()));
    }
    // Texts start on one line whatever the icons' sizes; big icons are scaled down.
    dialog->addOption(squareIcon(64), QStringLiteral("a"), QStringLiteral("b"));
    QCOMPARE(dialog->row(0)->leftPartWidth(), dialog->row(3)->leftPartWidth());
    QCOMPARE(dialog->row(3)->shownIcon().size(), QSize(48, 48));
}

void TestChoiceDialogs::optionStatesAndSignals()
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* row = new QOptionWidget(squareIcon(32), QStringLiteral("<h3>Titre</h3>"),
                                  QStringLiteral("Texte."));
    layout->addWidget(row);
    layout->addSpacing(40);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    QStringList log;
    connect(row, &QOptionWidget::hovered, this, [&] { log << QStringLiteral("hovered"); });
    connect(row, &QOptionWidget::left, this, [&] { log << QStringLiteral("left"); });
    connect(row, &QOptionWidget::clicked, this, [&] { log << QStringLiteral("clicked"); });
    connect(row, &QOptionWidget::release, this, [&] { log << QStringLiteral("release"); });
    QCOMPARE(row->state(), QOptionWidget::Rest);

    const QPoint inside = row->rect().center();
    QTest::mouseMove(row, inside);
    QTRY_COMPARE(row->state(), QOptionWidget::Hovered);
    QTest::mousePress(row, Qt::LeftButton, {}, inside);
    QCOMPARE(row->state(), QOptionWidget::Pressed);
    QTest::mouseRelease(row, Qt::LeftButton, {}, inside);
    QCOMPARE(row->state(), QOptionWidget::Hovered);
    QTest::mouseMove(&window, QPoint(5, window.height() - 5));
    QTRY_COMPARE(row->state(), QOptionWidget::Rest);
    QCOMPARE(log, (QStringList{QStringLiteral("hovered"), QStringLiteral("clicked"),
                               QStringLiteral("release"), QStringLiteral("left")}));
}

void TestChoiceDialogs::optionPixmaps()
{
    QOptionWidget row(squareIcon(32), QStringLiteral("<h1>MMMM</h1>"), QStringLiteral("Texte."));
    QPalette palette = row.palette();
    palette.setColor(QPalette::Highlight, QColor(0, 0, 255));
    row.setPalette(palette);
    const QPixmap rest = row.statePixmap(QOptionWidget::Rest);
    const QPixmap hovered = row.statePixmap(QOptionWidget::Hovered);
    const QPixmap pressed = row.statePixmap(QOptionWidget::Pressed);

    // At the right end of the row, behind no text: only the lit states are tinted, in
    // the highlight tone, light above and denser below, upside down when pressed.
    const int x = rest.width() - 4;
    const int top = 3;
    const int bottom = rest.height() - 4;
    QCOMPARE(qAlpha(pixelOf(rest, x, bottom)), 0);
    QCOMPARE(pixelOf(hovered, x, bottom) & 0xffffff, 0x0000ffu);
    QVERIFY(qAlpha(pixelOf(hovered, x, top)) < qAlpha(pixelOf(hovered, x, bottom)));
    QVERIFY(qAlpha(pixelOf(pressed, x, top)) > qAlpha(pixelOf(pressed, x, bottom)));
    QCOMPARE(qAlpha(pixelOf(hovered, 0, 0)), 0); // the rounded corner

    // The gradient lies beneath the caption's ink, or over it.
    const QImage image = rest.toImage().convertToFormat(QImage::Format_ARGB32);
    QPoint ink;
    int darkest = 256;
    for (int y = 0; y < image.height(); ++y) {
        for (int i = row.leftPartWidth(); i < image.width(); ++i) {
            const QRgb pixel = image.pixel(i, y);
            if (qAlpha(pixel) == 255 && qGray(pixel) < darkest) {
                darkest = qGray(pixel);
                ink = QPoint(i, y);
            }
        }
    }
    QVERIFY(darkest < 100);
    QCOMPARE(pixelOf(hovered, ink.x(), ink.y()), image.pixel(ink));
    row.setDrawGradientBeforeText(false);
    QVERIFY(pixelOf(row.statePixmap(QOptionWidget::Hovered), ink.x(), ink.y()) != image.pixel(ink));

    // A setter renders again.
    row.setCaption(QStringLiteral("<h1>MMMMMMMM</h1>"));
    QVERIFY(row.statePixmap(QOptionWidget::Rest).width() > rest.width());
}

void TestChoiceDialogs::defaultCharacterKeepsOpenOnActions()
{
    // The dialog's own answer is stored before the caller's action runs.
    QList<int> helps;
    QList<int> assigns;
    QComboWidget* shown = nullptr;
    std::unique_ptr<QComboWidget> dialog(ChoiceDialogs::defaultCharacter(
        [&] { helps << shown->chosenIndex(); }, [&] { assigns << shown->chosenIndex(); }));
    shown = dialog.get();
    dialog->setModal(false);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Character par défaut"));
    QVERIFY(!dialog->headPixmap().isNull());

    QTest::mouseClick(dialog->row(1), Qt::LeftButton);
    QTest::mouseClick(dialog->row(0), Qt::LeftButton);
    QTest::mouseClick(dialog->row(1), Qt::LeftButton);
    QCOMPARE(helps, QList<int>{0});
    QCOMPARE(assigns, (QList<int>{1, 1}));
    QVERIFY(dialog->isVisible());

    QTest::mouseClick(dialog->row(2), Qt::LeftButton);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(dialog->chosenIndex(), 2);
    QCOMPARE(helps.size() + assigns.size(), 3);
}

void TestChoiceDialogs::concreteDialogs_data()
{
    QTest::addColumn<Builder>("build");
    QTest::addColumn<QString>("windowTitle");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("icon");

    QTest::newRow("element type") << Builder([] { return ChoiceDialogs::elementType(); })
                                  << QStringLiteral("Type de l'élément") << 2 << 1
                                  << QStringLiteral("<h3>RPG Maker VX</h3>")
                                  << QStringLiteral("icon_vx");
    QTest::newRow("VX count") << Builder([] { return ChoiceDialogs::vxCharacterCount(); })
                              << QStringLiteral("Convertir un character de RPG Maker VX") << 3 << 2
                              << QStringLiteral("<h3>Huit characters</h3>")
                              << QStringLiteral("all");
    QTest::newRow("help offer") << Builder([] { return ChoiceDialogs::doYouNeedHelp(); })
                                << QStringLiteral("Aide à propos de Zenkora") << 3 << 0
                                << QStringLiteral("<h3>Lire <em>Introduction à Zenkora</em></h3>")
                                << QStringLiteral("ZK");
    QTest::newRow("close, three ways")
        << Builder([] { return ChoiceDialogs::closeWithChanges(QStringLiteral("a"), {}, false); })
        << QStringLiteral("Fermer un fichier") << 3 << 1
        << QStringLiteral("<h3>Ne pas enregistrer</h3>") << QStringLiteral("dontSaveDialog");
    QTest::newRow("close, four ways")
        << Builder([] { return ChoiceDialogs::closeWithChanges(QStringLiteral("a"), {}, true); })
        << QStringLiteral("Fermer un fichier") << 4 << 1
        << QStringLiteral("<h3>Enregistrer tout</h3>") << QStringLiteral("saveAllDialog");
}

void TestChoiceDialogs::concreteDialogs()
{
    QFETCH(Builder, build);
    QFETCH(QString, windowTitle);
    QFETCH(int, rows);
    QFETCH(int, row);
    QFETCH(QString, caption);
    QFETCH(QString, icon);

    std::unique_ptr<QComboWidget> dialog(build());
    QCOMPARE(dialog->windowTitle(), windowTitle);
    QVERIFY(dialog->isModal());
    QCOMPARE(dialog->optionCount(), rows);
    QCOMPARE(dialog->option(row)->caption, caption);
    const QImage expected = resourceIcon(icon.toLatin1().constData()).toImage();
    QVERIFY2(!expected.isNull(), qPrintable(icon));
    QCOMPARE(dialog->option(row)->pixmap.toImage(), expected);
    for (int i = 0; i < rows; ++i)
        QVERIFY(dialog->option(i)->closes);
}

void TestChoiceDialogs::closeQuestions_data()
{
    QTest::addColumn<bool>("withSaveAll");
    QTest::addColumn<QString>("head");
    QTest::newRow("three ways") << false << QStringLiteral("<h2>Fermer un character</h2>");
    QTest::newRow("four ways") << true << QStringLiteral("<h3>Fermer un character</h3>");
}

void TestChoiceDialogs::closeQuestions()
{
    QFETCH(bool, withSaveAll);
    QFETCH(QString, head);
    const QPixmap thumbnail = squareIcon(64, Qt::blue);
    const QString path = QStringLiteral("C:\\Jeux\\<Héros> & co.zk");
    const QString name = QStringLiteral("&lt;Héros&gt; &amp; co.zk");
    const QString file = QStringLiteral("<b>Le fichier suivant a des modifications non "
                                        "enregistrées :</b><br />") +
                         name;
    std::unique_ptr<QComboWidget> dialog(
        ChoiceDialogs::closeWithChanges(path, thumbnail, withSaveAll));
    QCOMPARE(dialog->titleText(), file);
    QCOMPARE(dialog->headPixmap().toImage(), thumbnail.toImage());
    QCOMPARE(ChoiceDialogs::closeRowOf(dialog->optionCount() - 1, withSaveAll),
             int(ChoiceDialogs::CloseCancel));
    QCOMPARE(ChoiceDialogs::closeRowOf(dialog->optionCount() - 2, withSaveAll),
             int(ChoiceDialogs::CloseDiscard));

    std::unique_ptr<QMessageBox> box(ChoiceDialogs::closeMessage(path, thumbnail, withSaveAll));

    QCOMPARE(box->windowTitle(), QStringLiteral("Fermeture"));
    QCOMPARE(box->text(), head + QStringLiteral("<br />") + file);
    QCOMPARE(box->informativeText(), QStringLiteral("<i>Que souhaitez-vous faire ?</i>"));
    QCOMPARE(box->iconPixmap().toImage(), thumbnail.toImage());
    QCOMPARE(box->standardButtons(),
             QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel |
                 (withSaveAll ? QMessageBox::SaveAll : QMessageBox::NoButton));
    const QImage saveIcon = resourceIcon("Save").toImage();
    QCOMPARE(box->button(QMessageBox::Save)->icon().pixmap(saveIcon.size()).toImage(),
             saveIcon.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

QTEST_MAIN(TestChoiceDialogs)
#include "tst_choicedialogs.moc"
