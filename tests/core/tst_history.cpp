#include "document/character.h"
#include "document/history.h"
#include "document/historystep.h"

#include <QTest>

// Drives a History the way the canvas and the window do: record after each change,
// undo and redo by the History's own rules, and the saved mark.
class Document
{
public:
    Document() { record("Etat d'origine"); }

    void change(const QByteArray& name)
    {
        character.addDrawingLayer(character.elementCount());
        character.setElementName(character.elementCount() - 1, name);
        record("Ajout de " + name);
    }

    void record(const QByteArray& label) { history.push(HistoryStep::capture(character), label); }

    bool undo()
    {
        if (!history.canUndo())
            return false;
        character.restore(history.goTo(history.undoOffset()));
        return true;
    }

    bool redo()
    {
        if (!history.canRedo())
            return false;
        character.restore(history.goTo(history.currentIndex() + 1));
        return true;
    }

    QList<QByteArray> names() const { return character.elementNames(); }

    Character character;
    History history;
};

class TestHistory : public QObject
{
    Q_OBJECT

private slots:
    void newDocumentCannotUndo()
    {
        Document doc;
        QCOMPARE(doc.history.size(), 1);
        QCOMPARE(doc.history.currentIndex(), 1);
        QVERIFY(!doc.undo());
        QVERIFY(!doc.redo());
        QCOMPARE(doc.history.labelAt(0), QByteArray("Etat d'origine"));
    }

    void oneChangeUndoRedo()
    {
        Document doc;
        doc.change("a");
        QCOMPARE(doc.history.size(), 2);
        QCOMPARE(doc.history.currentIndex(), 2);
        QCOMPARE(doc.history.undoOffset(), -2);
        QVERIFY(doc.undo());
        QCOMPARE(doc.history.currentIndex(), 0);
        QVERIFY(doc.names().isEmpty());
        QVERIFY(doc.history.isAtSavedState());
        QVERIFY(!doc.undo());
        QVERIFY(doc.redo());
        QCOMPARE(doc.history.currentIndex(), 1);
        QCOMPARE(doc.names(), QList<QByteArray>({"a"}));
        QVERIFY(!doc.redo());
        QVERIFY(!doc.history.isAtSavedState());
    }

    void changeAfterUndoDiscardsRedo()
    {
        Document doc;
        doc.change("a");
        doc.change("b");
        QVERIFY(doc.undo());
        QCOMPARE(doc.history.currentIndex(), 1);
        doc.change("c");
        QCOMPARE(doc.history.size(), 3);
        // Now the index is the last one, not one past it: undo steps back by 1.
        QCOMPARE(doc.history.currentIndex(), 2);
        QCOMPARE(doc.history.undoOffset(), -1);
        QCOMPARE(doc.history.labelAt(2), QByteArray("Ajout de c"));
        QVERIFY(doc.undo());
        QCOMPARE(doc.names(), QList<QByteArray>({"a"}));
        QVERIFY(doc.redo());
        QCOMPARE(doc.names(), QList<QByteArray>({"a", "c"}));
    }

    void capDropsOldest()
    {
        Document doc;
        for (int i = 1; i < History::DefaultMaxSteps; ++i)
            doc.record("step " + QByteArray::number(i));
        QCOMPARE(doc.history.size(), 271);
        QCOMPARE(doc.history.currentIndex(), 271);
        doc.record("step 271");
        QCOMPARE(doc.history.size(), 271);
        QCOMPARE(doc.history.currentIndex(), 271);
        QCOMPARE(doc.history.labelAt(0), QByteArray("step 1"));
        QCOMPARE(doc.history.labelAt(270), QByteArray("step 271"));
        // The saved index is not adjusted: going back to 0 now shows as clean
        // although the state on disk was dropped.
        QCOMPARE(doc.history.savedIndex(), 0);
    }

    void maxStepsValues()
    {
        History history;
        history.setMaxSteps(3);
        QCOMPARE(history.maxSteps(), 3);
        history.setMaxSteps(0);
        QCOMPARE(history.maxSteps(), 3);
        history.setMaxSteps(-7);
        QCOMPARE(history.maxSteps(), 3);
        history.setMaxSteps(-2);
        QCOMPARE(history.maxSteps(), History::Unlimited);
        history.setMaxSteps(-1);
        QCOMPARE(history.maxSteps(), 271);

        // Beyond the limit (lowered after pushes) nothing is added at all.
        History full;
        Character character;
        for (int i = 0; i < 5; ++i)
            full.push(HistoryStep::capture(character), "x");
        full.setMaxSteps(3);
        full.push(HistoryStep::capture(character), "y");
        QCOMPARE(full.size(), 5);
        QCOMPARE(full.labelAt(4), QByteArray("x"));
    }

    void saveChangeUndoIsClean()
    {
        Document doc;
        doc.change("a");
        doc.history.markSaved();
        QCOMPARE(doc.history.savedIndex(), 1);
        QVERIFY(doc.history.hasSaved());
        doc.change("b");
        QVERIFY(doc.undo());
        QVERIFY(doc.history.isAtSavedState());
        QVERIFY(doc.undo());
        QVERIFY(!doc.history.isAtSavedState());
        QVERIFY(doc.redo());
        QVERIFY(doc.history.isAtSavedState());
        // Saved while standing on an undone state: that state is the saved one.
        QVERIFY(doc.undo());
        doc.history.markSaved();
        QCOMPARE(doc.history.savedIndex(), 0);
    }

    void undoLeavesViewStateAlone()
    {
        Document doc;
        doc.change("a");
        doc.character.setSelectedCells({3});
        doc.character.setSelectedElements({0});
        doc.character.setZoom(4);
        doc.character.setShowGrid(false);
        QVERIFY(doc.undo());
        QCOMPARE(doc.character.selectedCells(), QList<int>({3}));
        QCOMPARE(doc.character.zoom(), 4.0);
        QVERIFY(!doc.character.showGrid());
        // The element selection is part of a step.
        QVERIFY(doc.character.selectedElements().isEmpty());
    }

    void stepsShareImages()
    {
        Document doc;
        doc.change("a");
        const HistoryStep& step = doc.history.stepAt(1);
        QCOMPARE(step.cellImages.at(0).at(0).constBits(),
                 doc.character.cellImage(0, 0).constBits());
        // Changing the document afterwards detaches it, and the step keeps its pixels.
        QImage image = doc.character.cellImage(0, 0);
        image.fill(0xff112233);
        doc.character.setCellImage(0, 0, image);
        QCOMPARE(step.cellImages.at(0).at(0).pixel(0, 0), 19u);
        doc.character.setSheetSize(QSize(64, 64));
        doc.character.restore(step);
        QCOMPARE(doc.character.sheetSize(), QSize(128, 192));
        QCOMPARE(doc.character.cellImage(0, 0).pixel(0, 0), 19u);
    }
};

QTEST_GUILESS_MAIN(TestHistory)
#include "tst_history.moc"
