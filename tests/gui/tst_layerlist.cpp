// The element list in the main window: selection, moves in the stack, keys, scrolling,
// its menu and the element commands with the clipboard, driven through the window so
// that its shortcuts take part.
#include "app/mainwindow.h"
#include "canvas/qelementpropertiesbox.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerlist.h"
#include "document/clipboard.h"
#include "imaging/imagechecks.h"
#include "scriptedprompts.h"
#include "testfiles.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QPushButton>
#include <QTest>

namespace {

// count elements "e0", "e1", ..., each cell a 2 by 3 image of its own colour.
Character named(int count, int kind = Character::XP)
{
    Character character(kind, QSize());
    for (int e = 0; e < count; ++e) {
        QList<QImage> images;
        for (int c = 0; c < character.cellCount(); ++c)
            images.append(solidImage(QSize(2, 3), qRgba(e, c, 9, 255)));
        character.insertElement(e, "e" + QByteArray::number(e), QByteArray(), images,
                                QList<QPoint>(character.cellCount(), QPoint(1, 1)), true);
    }
    return character;
}

// A point in the middle of the row of element i, or in its upper or lower half.
QPoint rowPoint(QLayerList* list, int i, int dy = -34)
{
    return QPoint(75, list->geometry().rowBase(i) + dy);
}
constexpr int Upper = -50;
constexpr int Lower = -15;

QString names(const Character& character)
{
    return QString::fromLatin1(character.elementNames().join(','));
}

// The menu's entries as "A, B | C", with "-" after a disabled entry.
QString entries(QMenu* menu)
{
    QString text;
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator()) {
            text += QStringLiteral(" | ");
            continue;
        }
        if (!text.isEmpty() && !text.endsWith(QLatin1Char(' ')))
            text += QStringLiteral(", ");
        text += action->text() + (action->isEnabled() ? QString() : QStringLiteral("-"));
    }
    delete menu;
    return text;
}

} // namespace

class TestLayerList : public QObject
{
    Q_OBJECT

private:
    SettingsSandbox* m_sandbox = nullptr;
    ScriptedPrompts* m_prompts = nullptr;
    MainWindow* m_window = nullptr;

    QLayer* open(const Character& character)
    {
        return m_window->addDocument(character, QStringLiteral("t"));
    }
    QLayerList* list() const { return m_window->layerList(); }

    void activate()
    {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        list()->setFocus();
    }

private slots:
    void initTestCase() { QApplication::setStartDragDistance(15); }

    void init()
    {
        m_sandbox = new SettingsSandbox;
        m_prompts = new ScriptedPrompts;
        m_window = new MainWindow;
    }

    void cleanup()
    {
        for (QLayer* layer : m_window->layers())
            layer->setAskOnClose(false);
        delete m_window;
        delete m_prompts;
        delete m_sandbox;
    }

    void selection_data()
    {
        QTest::addColumn<QList<int>>("rows");
        QTest::addColumn<QList<int>>("modifiers");
        QTest::addColumn<QList<int>>("selected");
        const int ctrl = Qt::ControlModifier;
        const int shift = Qt::ShiftModifier;
        QTest::newRow("plain") << QList<int>{1, 4} << QList<int>{0, 0} << QList<int>{4};
        QTest::newRow("ctrl toggles")
            << QList<int>{1, 4, 1} << QList<int>{0, ctrl, ctrl} << QList<int>{4};
        QTest::newRow("shift upwards")
            << QList<int>{1, 4} << QList<int>{0, shift} << QList<int>{1, 2, 3, 4};
        QTest::newRow("shift downwards")
            << QList<int>{4, 1} << QList<int>{0, shift} << QList<int>{4, 3, 2, 1};
        QTest::newRow("ctrl shift adds")
            << QList<int>{1, 5, 3} << QList<int>{0, ctrl, ctrl | shift} << QList<int>{1, 5, 2, 3};
        QTest::newRow("shift alone first") << QList<int>{2} << QList<int>{shift} << QList<int>{2};
    }

    void selection()
    {
        QFETCH(QList<int>, rows);
        QFETCH(QList<int>, modifiers);
        QLayer* layer = open(named(6));
        layer->setDrawElementAsked(true);
        for (int i = 0; i < rows.size(); ++i)
            QTest::mouseClick(list(), Qt::LeftButton,
                              Qt::KeyboardModifiers::fromInt(modifiers.at(i)),
                              rowPoint(list(), rows.at(i)));
        QTEST(layer->character()->selectedElements(), "selected");
        QVERIFY(!layer->drawElementAsked());
        QCOMPARE(layer->history()->size(), 1);
    }

    // Ctrl held for a shortcut whose dialog took the key's release: the next click
    // carries no Ctrl and replaces the selection.
    void plainClickAfterShortcutDialog()
    {
        activate();
        QLayer* layer = open(named(4));
        list()->setFocus();
        QTest::mouseClick(list(), Qt::LeftButton, Qt::NoModifier, rowPoint(list(), 1));
        QTest::keyPress(list(), Qt::Key_Control);
        QTest::keyClick(list(), Qt::Key_N, Qt::ControlModifier);
        QDialog* dialog = m_window->findChild<QDialog*>();
        QVERIFY(dialog && dialog->isVisible());
        QTest::keyRelease(dialog, Qt::Key_Control);
        dialog->close();
        QTest::mouseClick(list(), Qt::LeftButton, Qt::NoModifier, rowPoint(list(), 3));
        QCOMPARE(layer->character()->selectedElements(), QList<int>({3}));
    }

    void listShortcutsWinWhileFocused()
    {
        activate();
        QLayer* layer = open(named(3));
        list()->setFocus();
        QTest::keyClick(list(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(layer->character()->selectedElements(), QList<int>({0, 1, 2}));
        QVERIFY(layer->character()->selectedCells().isEmpty());
        QTest::keyClick(list(), Qt::Key_D, Qt::ControlModifier);
        QVERIFY(layer->character()->selectedElements().isEmpty());
        QTest::keyClick(list(), Qt::Key_I, Qt::ControlModifier);
        QCOMPARE(layer->character()->selectedElements().size(), 3);
        // Elsewhere the window's action selects the cells.
        layer->setFocus();
        QTest::keyClick(layer, Qt::Key_D, Qt::ControlModifier);
        QTest::keyClick(layer, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(layer->character()->selectedCellCount(), 16);
        QCOMPARE(layer->character()->selectedElements().size(), 3);
    }

    void dragThreshold_data()
    {
        QTest::addColumn<QPoint>("offset");
        QTest::addColumn<bool>("moving");
        QTest::newRow("14") << QPoint(7, -7) << false;
        QTest::newRow("15") << QPoint(8, -7) << true;
    }

    void dragThreshold()
    {
        QFETCH(QPoint, offset);
        open(named(3));
        const QPoint start = rowPoint(list(), 1);
        QTest::mousePress(list(), Qt::LeftButton, Qt::NoModifier, start);
        QTest::mouseMove(list(), start + offset);
        QTEST(list()->isMoving(), "moving");
        QTest::mouseRelease(list(), Qt::LeftButton, Qt::NoModifier, start + offset);
        QVERIFY(!list()->isMoving());
    }

    void drop_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("overRow");
        QTest::addColumn<int>("half");
        QTest::addColumn<int>("gap");
        QTest::addColumn<QString>("order");
        QTest::newRow("0 over the top") << 0 << 2 << Upper << 3 << QStringLiteral("e1,e2,e0");
        QTest::newRow("0 to gap 2") << 0 << 1 << Upper << 2 << QStringLiteral("e1,e0,e2");
        QTest::newRow("0 to gap 2, from above")
            << 0 << 2 << Lower << 2 << QStringLiteral("e1,e0,e2");
        QTest::newRow("2 to the bottom") << 2 << 0 << Lower << 0 << QStringLiteral("e2,e0,e1");
        QTest::newRow("own place") << 1 << 1 << Lower << 1 << QStringLiteral("e0,e1,e2");
        QTest::newRow("just above itself") << 1 << 1 << Upper << 2 << QStringLiteral("e0,e1,e2");
    }

    void drop()
    {
        QFETCH(int, from);
        QFETCH(int, overRow);
        QFETCH(int, half);
        QFETCH(QString, order);
        QLayer* layer = open(named(3));
        QTest::mousePress(list(), Qt::LeftButton, Qt::NoModifier, rowPoint(list(), from));
        QTest::mouseMove(list(), rowPoint(list(), overRow, half));
        QTEST(list()->dropRow(), "gap");
        QTest::mouseRelease(list(), Qt::LeftButton, Qt::NoModifier,
                            rowPoint(list(), overRow, half));
        QCOMPARE(names(*layer->character()), order);
        const bool moved = order != QStringLiteral("e0,e1,e2");
        QCOMPARE(layer->history()->size(), moved ? 2 : 1);
        QCOMPARE(layer->isModified(), moved);
        if (moved)
            QCOMPARE(layer->history()->labelAt(1), QByteArray("D\xe9placement d'un \xe9l\xe9ment"));
    }

    void deleteQuestion()
    {
        QLayer* layer = open(named(4));
        QTest::mouseClick(list(), Qt::LeftButton, Qt::NoModifier, rowPoint(list(), 3));
        m_prompts->answers << Prompts::Answer{QMessageBox::No, true};
        QTest::keyClick(list(), Qt::Key_Delete);
        QCOMPARE(layer->character()->elementCount(), 4);
        QCOMPARE(m_prompts->messages.last().title, QStringLiteral("Suppression"));
        QCOMPARE(m_prompts->messages.last().checkBoxText,
                 QStringLiteral("Ne plus afficher ce message"));
        QVERIFY(!m_sandbox->ini().contains("showDeleteElement"));

        m_prompts->answers << Prompts::Answer{QMessageBox::Yes, true};
        list()->aSupprimer();
        QCOMPARE(names(*layer->character()), QStringLiteral("e0,e1,e2"));
        QVERIFY(m_sandbox->ini().contains("showDeleteElement=0\n"));
        QCOMPARE(layer->history()->labelAt(1),
                 QByteArray("Suppression d'un ou plusieurs \xe9l\xe9ments"));

        // Ticked: no more question.
        m_prompts->messages.clear();
        layer->character()->setSelectedElements({0});
        list()->aSupprimer();
        QCOMPARE(names(*layer->character()), QStringLiteral("e1,e2"));
        QVERIFY(m_prompts->messages.isEmpty());
    }

    void menus_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QList<int>>("selected");
        QTest::addColumn<bool>("onRow");
        QTest::addColumn<QString>("menu");
        QTest::newRow("no row") << 2 << QList<int>{} << false
                                << QStringLiteral("Ajouter un calque de dessin, Coller-");
        QTest::newRow("no row, full") << 255 << QList<int>{} << false << QStringLiteral("Coller-");
        QTest::newRow("one") << 3 << QList<int>{1} << true
                             << QStringLiteral("Ajouter un calque de dessin | Couper, Copier, "
                                               "Coller- | Dupliquer, Déplacer, Désélectionner, "
                                               "Cacher, Supprimer | Fusionner avec l'élément "
                                               "inférieur | Propriétés");
        QTest::newRow("element 0, hidden")
            << 3 << QList<int>{0} << true
            << QStringLiteral("Ajouter un calque de dessin | Couper, Copier, Coller- | Dupliquer, "
                              "Déplacer, Désélectionner, Afficher, Supprimer | Fusionner avec "
                              "l'élément inférieur- | Propriétés");
        QTest::newRow("two") << 3 << QList<int>{0, 2} << true
                             << QStringLiteral("Couper, Copier | Désélectionner, Cacher/Afficher, "
                                               "Supprimer | Fusionner la sélection");
    }

    void menus()
    {
        QFETCH(int, count);
        QFETCH(QList<int>, selected);
        QFETCH(bool, onRow);
        QLayer* layer = open(named(count));
        layer->character()->setVisible(0, false);
        layer->character()->setSelectedElements(selected);
        QTEST(entries(list()->contextMenu(onRow)), "menu");
        // With something to paste, "Coller" is enabled.
        m_window->clipBoard()->copyCell(QImage(), QPoint());
        QVERIFY(!entries(list()->contextMenu(onRow)).contains(QStringLiteral("Coller-")));
    }

    // The offscreen screen is 800 pixels high: 9 rows, a panel of 532 pixels.
    void scrollingLimits_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("bar");
        QTest::addColumn<int>("highest");
        QTest::addColumn<QRect>("thumbAtHighest");
        QTest::newRow("rowsVisible") << 9 << false << 0 << QRect();
        QTest::newRow("one more") << 10 << true << 1 << QRect(157, 32, 15, 424);
        QTest::newRow("thirty") << 30 << true << 21 << QRect(157, 32, 15, 141);
    }

    void scrollingLimits()
    {
        QFETCH(int, count);
        QFETCH(int, highest);
        QLayer* layer = open(named(count));
        QCOMPARE(list()->rowsVisible(), 9);
        QCOMPARE(list()->height(), 532);
        QTEST(list()->geometry().hasBar(), "bar");
        const QPoint inside(75, 200);
        QWheelEvent down(inside, list()->mapToGlobal(inside), QPoint(), QPoint(0, -120),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(list(), &down);
        QCOMPARE(list()->firstRow(), 0);
        // Half steps add up; 30 rows of wheel stop at the highest position.
        for (int i = 0; i < 60; ++i) {
            QWheelEvent up(inside, list()->mapToGlobal(inside), QPoint(), QPoint(0, 60),
                           Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(list(), &up);
        }
        QCOMPARE(list()->firstRow(), highest);
        if (highest > 0) {
            QTEST(list()->geometry().thumbRect(), "thumbAtHighest");
            // The top row shown is the last element.
            QCOMPARE(list()->geometry().rowAt(QPoint(75, 10)), count - 1);
            QTest::mouseClick(list(), Qt::LeftButton, Qt::NoModifier, QPoint(160, 520));
            QCOMPARE(list()->firstRow(), highest - 1);
            QTest::mouseClick(list(), Qt::LeftButton, Qt::NoModifier, QPoint(160, 10));
            QCOMPARE(list()->firstRow(), highest);
            // Deleting keeps the position as far as it stays possible.
            layer->character()->setSelectedElements({0, 1, 2});
            m_prompts->answers << Prompts::Answer{QMessageBox::Yes, false};
            list()->aSupprimer();
            QCOMPARE(list()->firstRow(), qMax(0, count - 3 - 9));
        }
    }

    void thumbnails()
    {
        Character character = named(4);
        for (int c = 0; c < 16; ++c) {
            character.setCellImage(0, c, solidImage(QSize(32, 48), c == 15 ? 0xff00ff00 : 19));
            character.setCellImage(1, c, QImage());
            character.setCellImage(2, c, solidImage(QSize(64, 40), 0xff0000ff));
            character.setCellImage(3, c, solidImage(QSize(10, 100), 0xff0000ff));
        }
        QLayer* layer = open(character);
        const QList<QPixmap>& shown = list()->thumbnails();
        QCOMPARE(shown.at(0).size(), QSize(32, 48));
        QCOMPARE(shown.at(0).toImage().pixel(5, 5), 0xff00ff00);
        QVERIFY(shown.at(1).isNull());
        QCOMPARE(shown.at(2).size(), QSize(32, 20));
        QCOMPARE(shown.at(3).height(), 48);

        // The canvas's Delete empties the cells and the list draws them again.
        layer->character()->selectAllElements();
        QTest::keyClick(layer, Qt::Key_Delete);
        QVERIFY(layer->character()->listDirty());
        list()->grab();
        QVERIFY(!layer->character()->listDirty());
        QVERIFY(isTransparent(list()->thumbnails().at(0).toImage()));
    }

    void undoAfterMergeShowsTheListAsItWas()
    {
        QLayer* layer = open(named(12));
        list()->scrollTo(2);
        QTest::mouseClick(list(), Qt::LeftButton, Qt::NoModifier, rowPoint(list(), 5));
        list()->aFusion();
        QCOMPARE(layer->history()->labelAt(1),
                 QByteArray("Fusion avec l'\xe9l\xe9ment inf\xe9rieur"));
        QCOMPARE(layer->character()->selectedElements(), QList<int>({4}));
        QCOMPARE(list()->thumbnails().size(), 11);
        QCOMPARE(list()->thumbnails().at(4).size(), QSize(2, 3));
        m_window->undo();
        QCOMPARE(list()->thumbnails().size(), 12);
        QCOMPARE(names(*layer->character()).count(QLatin1Char(',')), 11);
        QCOMPARE(list()->firstRow(), 2);
        QCOMPARE(list()->character(), layer->character());
    }

    void properties()
    {
        QLayer* layer = open(named(2));
        QTest::mouseDClick(list(), Qt::LeftButton, Qt::NoModifier, rowPoint(list(), 1));
        QElementPropertiesBox* box = list()->propertiesBox();
        QVERIFY(box && box->isVisible());
        QCOMPARE(box->nameEdit()->text(), QStringLiteral("e1"));
        box->nameEdit()->clear();
        QVERIFY(!box->validButton()->isEnabled());
        box->nameEdit()->setText(QStringLiteral("Chapeau é "));
        box->hideBox()->setChecked(true);
        box->validButton()->click();
        QCOMPARE(layer->character()->elementName(1), QByteArray("Chapeau \xe9 "));
        QVERIFY(!layer->character()->isVisible(1));
        QCOMPARE(layer->history()->labelAt(1), QByteArray("Changement de propri\xe9t\xe9"));
        QTRY_VERIFY(!list()->propertiesBox());
    }

    void pasteLimits_data()
    {
        QTest::addColumn<int>("copied");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("250 + 6") << 6 << false;
        QTest::newRow("250 + 5") << 5 << true;
    }

    void pasteLimits()
    {
        QFETCH(int, copied);
        QFETCH(bool, accepted);
        QLayer* source = open(named(copied));
        source->character()->selectAllElements();
        m_window->copier();
        QLayer* target = open(named(250));
        m_window->coller();
        QCOMPARE(target->character()->elementCount(), accepted ? 250 + copied : 250);
        QCOMPARE(m_prompts->asked.isEmpty(), accepted);
        if (!accepted)
            QCOMPARE(
                m_prompts->asked.last(),
                QStringLiteral("message:Avertissement:Impossible de créer plus de 255 éléments !"));
    }

    void oneMoreAtTheLimit()
    {
        QLayer* layer = open(named(255));
        layer->character()->setSelectedElements({3});
        list()->aDoubler();
        list()->aAddElement();
        QCOMPARE(layer->character()->elementCount(), 255);
        const QString refused =
            QStringLiteral("message:Erreur:Impossible de créer plus de 255 éléments !");
        QCOMPARE(m_prompts->asked, QStringList({refused, refused}));
        QCOMPARE(layer->history()->size(), 1);

        layer->character()->deleteElements({0, 1});
        layer->character()->setSelectedElements({2});
        list()->aDoubler();
        QCOMPARE(layer->character()->elementName(3), QByteArray("e4 copie"));
        QCOMPARE(layer->history()->labelAt(1), QByteArray("Duplication de l'\xe9l\xe9ment : e4"));
        // A drawing layer goes above the one selected element and becomes the selection.
        layer->character()->setSelectedElements({1});
        list()->aAddElement();
        QCOMPARE(layer->character()->elementName(2), QByteArray("El\xe9ment 1"));
        QCOMPARE(layer->character()->selectedElements(), QList<int>({2}));
        QCOMPARE(layer->character()->elementCount(), 255);
    }

    void pasteElements()
    {
        QLayer* xp = open(named(3, Character::XP));
        xp->character()->setSelectedElements({2, 0});
        list()->aCopier();
        m_window->mdiArea()->closeAllSubWindows();
        QLayer* vx = open(named(2, Character::VX));
        vx->character()->setSelectedElements({0});
        list()->aColler();
        // Above the selected one, converted, renamed.
        const Character& pasted = *vx->character();
        QCOMPARE(names(pasted), QString::fromLatin1("e0,El\xe9ment 1,El\xe9ment 2,e1"));
        QCOMPARE(pasted.cellImages().at(1).size(), 12);
        QCOMPARE(pasted.cellImage(2, 0).pixel(0, 0), qRgba(2, 1, 9, 255));
        QCOMPARE(vx->history()->labelAt(1), QByteArray("Coller"));
        // With two selected, at the top.
        vx->character()->setSelectedElements({0, 1});
        m_window->coller();
        QCOMPARE(names(pasted),
                 QString::fromLatin1("e0,El\xe9ment 1,El\xe9ment 2,e1,El\xe9ment 3,El\xe9ment 4"));
    }

    void oneCell()
    {
        QLayer* layer = open(named(3));
        m_window->coller();
        QCOMPARE(m_prompts->asked.last(),
                 QStringLiteral("message:Coller:Le presse-papier est vide."));
        Character* character = layer->character();
        character->setSelectedElements({1});
        character->setSelectedCells({5});
        character->setCellPosition(1, 5, QPoint(-3, 4));
        m_window->couper();
        QCOMPARE(m_window->clipBoard()->contentKind(), quint8(ClipBoard::OneCell));
        QVERIFY(isFilledWith(character->cellImage(1, 5), 19));
        QCOMPARE(character->cellImage(1, 5).size(), QSize(2, 3));
        QCOMPARE(character->elementCount(), 3);
        QCOMPARE(layer->history()->labelAt(1), QByteArray("Couper"));

        // Pasting a cell wants one element and one cell.
        character->setSelectedCells({5, 6});
        m_window->coller();
        QCOMPARE(
            m_prompts->asked.last(),
            QStringLiteral("message:Information:Veuillez sélectionner un élément et une cellule."));
        character->setSelectedElements({2});
        character->setSelectedCells({0});
        m_window->coller();
        QCOMPARE(character->cellImage(2, 0).pixel(0, 0), qRgba(1, 5, 9, 255));
        QCOMPARE(character->cellPosition(2, 0), QPoint(-3, 4));
        QCOMPARE(layer->history()->size(), 3);

        // Two elements: the element form, and a cut deletes them; nothing selected: no step.
        character->setSelectedElements({0, 2});
        m_window->couper();
        QCOMPARE(m_window->clipBoard()->contentKind(), quint8(ClipBoard::Elements));
        QCOMPARE(names(*character), QStringLiteral("e1"));
        m_window->couper();
        QCOMPARE(layer->history()->size(), 4);
    }
};

QTEST_MAIN(TestLayerList)
#include "tst_layerlist.moc"
