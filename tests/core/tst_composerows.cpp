#include "document/character.h"
#include "document/sheetcomposer.h"

#include <QTest>

#include "imagecompare.h"

namespace {

// A sheet whose every pixel differs, with transparent and half-transparent patches, so
// that a cell cut from the wrong place or blended twice shows.
QImage patterned(QSize size, quint32 seed)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const quint32 v = (quint32(x) * 2654435761u) ^ (quint32(y) * 40503u) ^ seed;
            const uint alpha = (x / 5 + y / 7) % 3 == 0 ? 0 : (x + y) % 2 ? 255 : 128;
            image.setPixel(x, y, (alpha << 24) | (v & 0xffffff));
        }
    }
    return image;
}

} // namespace

// The preview's four cells of a step are those of the composed sheet, whatever the
// overflow and the selection.
class TestComposeRows : public QObject
{
    Q_OBJECT

private slots:
    void walkColumns()
    {
        const QList<int> xp = {0, 1, 2, 3};
        const QList<int> vx = {1, 0, 1, 2};
        for (int step = 0; step < 4; ++step) {
            QCOMPARE(SheetComposer::walkColumn(Character::XP, step), xp.at(step));
            QCOMPARE(SheetComposer::walkColumn(Character::VX, step), vx.at(step));
        }
    }

    void rowsAreCellsOfTheSheet_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("overflow");
        QTest::addColumn<bool>("selectionOnly");
        for (int kind : {Character::XP, Character::VX}) {
            const char* name = kind == Character::XP ? "XP" : "VX";
            QTest::addRow("%s", name) << kind << false << false;
            QTest::addRow("%s overflow", name) << kind << true << false;
            QTest::addRow("%s selection only", name) << kind << false << true;
            QTest::addRow("%s overflow, selection only", name) << kind << true << true;
        }
    }

    void rowsAreCellsOfTheSheet()
    {
        QFETCH(int, kind);
        QFETCH(bool, overflow);
        QFETCH(bool, selectionOnly);
        const QSize size = kind == Character::XP ? QSize(128, 192) : QSize(96, 128);
        Character character(kind, size);
        character.addElement(patterned(size, 0x1234), "bas", 0);
        character.addElement(patterned(size / 2, 0xabcd00), "haut", 1);
        // Images pushed over their cells' borders, into the neighbours of every column.
        for (int c = 0; c < character.cellCount(); ++c)
            character.setCellPosition(1, c, QPoint(c % 3 * 9 - 9, c % 2 * 20 - 6));
        character.setOverflowCells(overflow);
        character.setSelectionOnly(selectionOnly);
        character.setSelectedElements({0});
        character.setSelectedCells({1, 4, 6});

        const QImage sheet = character.compose();
        const QSize cell = character.cellSize();
        for (int step = 0; step < 4; ++step) {
            const std::array<QImage, 4> rows = character.composeRows(step);
            const int column = SheetComposer::walkColumn(kind, step);
            for (int row = 0; row < 4; ++row) {
                const QImage expected =
                    sheet.copy(QRect(QPoint(column * cell.width(), row * cell.height()), cell));
                ZK_COMPARE_IMAGES(rows[size_t(row)], expected);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestComposeRows)
#include "tst_composerows.moc"
