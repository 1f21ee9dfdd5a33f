#pragma once

#include "canvas/qlayerlist.h"

class ElementGroup;

// The stack of a group element being made, in the element list's look: the simple
// elements and the placeholder of the element the group will wrap, which the user
// moves among them. It has no canvas and no history; its menu only moves and deletes,
// and the placeholder stays.
class QLayerListELZK : public QLayerList
{
    Q_OBJECT

public:
    QLayerListELZK(ElementGroup* group, QWidget* parent = nullptr);

    QMenu* contextMenu(bool onRow) override;

signals:
    // A simple element left the stack: index is its record's number.
    void deleteElement(int index);

public slots:
    void aSupprimer() override;

protected:
    QPixmap elementThumbnail(int e) const override;
    bool canEdit() const override { return true; }
    void dropSelection(int gap) override;

private:
    ElementGroup* m_group;
};
