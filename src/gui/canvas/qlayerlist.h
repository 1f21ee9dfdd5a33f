#pragma once

#include "canvas/layerlistbar.h"
#include "canvas/layerlistgeometry.h"

#include <QList>
#include <QPixmap>
#include <QPointer>
#include <QWidget>

class Character;
class ElementCommands;
class QElementPropertiesBox;
class QLayer;
class QMenu;

// The panel beside the canvas that lists the active document's elements, topmost
// first: a thumbnail, the name, the selection and the visibility of each. It draws
// everything itself, its scroll bar included, and turns clicks, drags, keys and its
// context menu into selections and into the element commands.
class QLayerList : public QWidget
{
    Q_OBJECT

public:
    QLayerList(Character* character, QWidget* parent = nullptr);

    void setCharacter(Character* character);
    void setLayer(QLayer* layer);
    Character* character() const { return m_character; }
    QLayer* layer() const;
    void setCommands(ElementCommands* commands) { m_commands = commands; }
    ElementCommands* commands() const { return m_commands; }

    void updateThumbnails();
    const QList<QPixmap>& thumbnails() const { return m_thumbnails; }
    void scrollTo(int firstRow);
    int firstRow() const { return m_geometry.firstRow(); }
    int rowsVisible() const { return m_geometry.rowsVisible(); }
    const LayerListGeometry& geometry() const { return m_geometry; }
    bool isMoving() const { return m_moving; }
    int dropRow() const { return m_dropRow; }

    // The menu of a right press, on a row or beside the rows; the caller owns it. Null
    // when there is nothing to offer.
    virtual QMenu* contextMenu(bool onRow);
    // The properties box while it is open, or null.
    QElementPropertiesBox* propertiesBox() const;

public slots:
    void aCut();
    void aCopier();
    void aColler();
    void aDoubler();
    void aDeselect();
    void aMove();
    virtual void aSupprimer();
    void aCacher();
    void changeProperties();
    void aProperty();
    void aFusion();
    void aFusionSelection();
    void aAddElement();
    void updateButtonEnable(const QString& str);
    void setNbreVertical(int i);

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    // What a list of another stack changes: where its pictures come from, whether it
    // offers its menu, and how it moves the selected element to a gap.
    virtual QPixmap elementThumbnail(int e) const;
    virtual bool canEdit() const;
    virtual void dropSelection(int gap);

private:
    int elementCount() const;
    void selectRow(int row, Qt::KeyboardModifiers modifiers);
    void selectRange(int row, bool keep);
    void updateHover(QPoint point);
    void selectionChanged();

    LayerListGeometry m_geometry;
    LayerListBar m_bar;
    Character* m_character = nullptr;
    QPointer<QLayer> m_layer;
    ElementCommands* m_commands = nullptr;
    QList<QPixmap> m_thumbnails;
    QPixmap m_moveIcon;
    int m_dropRow = -1;
    int m_pressedRow = -1;
    bool m_moving = false;
    bool m_dragArmed = false;
    QPoint m_pressPoint;
    QPoint m_menuPoint;
    QPoint m_mousePoint;
    QPointer<QElementPropertiesBox> m_propertiesBox;
};
