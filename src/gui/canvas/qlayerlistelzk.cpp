#include "canvas/qlayerlistelzk.h"

#include "canvas/layerlistpainter.h"
#include "imaging/cellcutter.h"
#include "library/elementgroup.h"

#include <QMenu>

#include <algorithm>

QLayerListELZK::QLayerListELZK(ElementGroup* group, QWidget* parent)
    : QLayerList(&group->stack(), parent), m_group(group)
{
    updateThumbnails();
}

// A simple element shows its sheet as the element list would once it is added; the
// placeholder, which has no picture, shows the program's icon.
QPixmap QLayerListELZK::elementThumbnail(int e) const
{
    const int record = m_group->recordOf(e);
    if (record < 0 || record >= m_group->records().size())
        return LayerListPainter::thumbnail({QImage(QStringLiteral(":/icon/ZK.png"))});
    const QImage sheet = m_group->records().at(record).image.convertToFormat(QImage::Format_ARGB32);
    return LayerListPainter::thumbnail(CellCutter::cut(sheet, sheet.size(), m_group->kind()).images);
}

QMenu* QLayerListELZK::contextMenu(bool onRow)
{
    if (!onRow)
        return nullptr;
    const Character& stack = m_group->stack();
    QMenu* menu = new QMenu(QStringLiteral("Actions"), this);
    QAction* move =
        menu->addAction(QIcon(QStringLiteral(":/icon/move.png")), QStringLiteral("Déplacer"));
    connect(move, &QAction::triggered, this, &QLayerListELZK::aMove);
    move->setEnabled(stack.selectedElementCount() == 1);
    QAction* remove =
        menu->addAction(QIcon(QStringLiteral(":/icon/remove.png")), QStringLiteral("Supprimer"));
    connect(remove, &QAction::triggered, this, &QLayerListELZK::aSupprimer);
    remove->setEnabled(
        stack.selectedElementCount() > 1 ||
        (stack.selectedElementCount() == 1 && !m_group->isPlaceholder(stack.selectedElement(0))));
    return menu;
}

// The rows leave from the highest record number down, so that the renumbering that
// follows each removal never touches a record still to go.
void QLayerListELZK::aSupprimer()
{
    Character& stack = m_group->stack();
    QList<int> records;
    for (int e : stack.selectedElements()) {
        if (!m_group->isPlaceholder(e))
            records.append(m_group->recordOf(e));
    }
    std::sort(records.begin(), records.end(), std::greater<int>());
    stack.clearElementSelection();
    for (int record : records) {
        const int e = int(stack.elementSources().indexOf(QByteArray::number(record)));
        stack.deleteElements({e});
        emit deleteElement(record);
    }
    updateThumbnails();
    update();
}

void QLayerListELZK::dropSelection(int gap)
{
    Character& stack = m_group->stack();
    if (stack.selectedElementCount() != 1)
        return;
    const int s = stack.selectedElement(0);
    if (gap == s || gap == s + 1)
        return;
    stack.moveElement(gap < s ? gap : gap - 1);
    updateThumbnails();
}
