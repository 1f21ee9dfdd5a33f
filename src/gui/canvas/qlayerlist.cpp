#include "canvas/qlayerlist.h"

#include "canvas/elementcommands.h"
#include "canvas/layerlistpainter.h"
#include "canvas/qelementpropertiesbox.h"
#include "canvas/qlayer.h"
#include "document/character.h"
#include "document/clipboard.h"

#include <QApplication>
#include <QCheckBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

namespace {

// The three selection keys are also the window's cell selection shortcuts; while the
// list has the focus they act on the elements.
bool isListShortcut(const QKeyEvent* event)
{
    const int key = event->key();
    return event->modifiers() == Qt::ControlModifier &&
           (key == Qt::Key_A || key == Qt::Key_I || key == Qt::Key_D);
}

} // namespace

QLayerList::QLayerList(Character* character, QWidget* parent)
    : QWidget(parent), m_bar(&m_geometry), m_character(character),
      m_moveIcon(QStringLiteral(":/icon/movingVertical.png"))
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    m_geometry.setRowsVisible(
        LayerListGeometry::rowsForScreen(screen ? screen->geometry().height() : 800));
    setFixedSize(LayerListGeometry::Width, m_geometry.panelHeight());
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);
    updateThumbnails();
}

void QLayerList::setCharacter(Character* character)
{
    m_character = character;
    m_geometry.setCount(elementCount());
}

void QLayerList::setLayer(QLayer* layer)
{
    m_layer = layer;
}

QLayer* QLayerList::layer() const
{
    return m_layer;
}

QPixmap QLayerList::elementThumbnail(int e) const
{
    return LayerListPainter::thumbnail(*m_character, e);
}

bool QLayerList::canEdit() const
{
    return m_layer;
}

void QLayerList::dropSelection(int gap)
{
    if (m_commands)
        m_commands->moveToGap(m_layer, gap);
}

int QLayerList::elementCount() const
{
    return m_character ? m_character->elementCount() : 0;
}

void QLayerList::updateThumbnails()
{
    m_thumbnails.clear();
    if (m_character) {
        for (int e = 0; e < m_character->elementCount(); ++e)
            m_thumbnails.append(elementThumbnail(e));
        m_character->setListDirty(false);
    }
    m_geometry.setCount(elementCount());
}

void QLayerList::scrollTo(int firstRow)
{
    m_geometry.setCount(elementCount());
    m_geometry.scrollTo(firstRow);
    update();
}

void QLayerList::setNbreVertical(int i)
{
    if (i == m_geometry.rowsVisible())
        return;
    m_geometry.setRowsVisible(i);
    setFixedSize(LayerListGeometry::Width, m_geometry.panelHeight());
    m_geometry.scrollTo(m_geometry.firstRow());
    update();
}

// --- Selection ------------------------------------------------------------------------

void QLayerList::selectionChanged()
{
    // A composition of the selection only shows what is selected.
    if (m_layer)
        m_layer->refresh();
    update();
}

// Ctrl and Shift come with the click: a key release taken by a dialog never leaves
// them stuck.
void QLayerList::selectRow(int row, Qt::KeyboardModifiers modifiers)
{
    const bool ctrl = modifiers.testFlag(Qt::ControlModifier);
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    const int count = m_character->selectedElementCount();
    if (!ctrl && !shift) {
        m_character->setSelectedElements({row});
        m_dragArmed = true;
    } else if (ctrl && !shift) {
        m_character->toggleElement(row);
    } else if (count == 0) {
        // Shift alone starts a selection like a plain click; with Ctrl it toggles.
        if (ctrl)
            m_character->toggleElement(row);
        else
            m_character->setSelectedElements({row});
    } else if (row != m_character->selectedElement(0)) {
        selectRange(row, ctrl);
    }
    selectionChanged();
}

// The rows from the first selected one to row. Shift alone makes them the selection;
// with Ctrl they are toggled into it, the first selected one left as it is.
void QLayerList::selectRange(int row, bool keep)
{
    const int first = m_character->selectedElement(0);
    const int step = row > first ? 1 : -1;
    int i = first;
    if (keep) {
        i += step;
    } else {
        m_character->clearElementSelection();
    }
    for (;; i += step) {
        m_character->toggleElement(i);
        if (i == row)
            break;
    }
}

// --- Mouse ------------------------------------------------------------------------------

void QLayerList::mousePressEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::RightButton) {
        m_menuPoint = point;
        if (!canEdit() || !m_character || m_moving)
            return;
        const int row = m_geometry.rowAt(point);
        if (row >= 0 && !m_character->isElementSelected(row)) {
            m_character->setSelectedElements({row});
            selectionChanged();
        }
        QMenu* menu = contextMenu(row >= 0);
        if (!menu)
            return;
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(event->globalPosition().toPoint());
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    m_pressPoint = point;
    m_geometry.setCount(elementCount());
    if (m_bar.press(point)) {
        update();
        return;
    }
    if (m_moving || !m_character)
        return;
    m_pressedRow = m_geometry.rowAt(point);
    if (m_pressedRow < 0)
        return;
    // A newly chosen element may get the canvas's question about drawing on it again.
    if (m_layer)
        m_layer->setDrawElementAsked(false);
    selectRow(m_pressedRow, event->modifiers());
}

void QLayerList::updateHover(QPoint point)
{
    if (m_bar.hover(point))
        update();
}

void QLayerList::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    m_mousePoint = point;
    updateHover(point);
    if (m_bar.drag(point)) {
        update();
        return;
    }
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    if (m_dragArmed && !m_moving && elementCount() >= 2 &&
        !modifiers.testAnyFlags(Qt::ControlModifier | Qt::ShiftModifier) &&
        (point - m_pressPoint).manhattanLength() >= QApplication::startDragDistance()) {
        m_moving = true;
        m_dragArmed = false;
    }
    if (m_moving) {
        m_dropRow = m_geometry.gapAt(point);
        update();
    }
}

void QLayerList::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_bar.release();
    m_dragArmed = false;
    if (m_moving) {
        m_moving = false;
        dropSelection(m_dropRow);
    }
    update();
}

void QLayerList::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_character || m_moving)
        return;
    const int row = m_geometry.rowAt(event->position().toPoint());
    if (row < 0)
        return;
    m_character->setSelectedElements({row});
    selectionChanged();
    aProperty();
}

// Each 120 of the wheel's angle is one row; a positive angle shows higher rows.
void QLayerList::wheelEvent(QWheelEvent* event)
{
    m_geometry.setCount(elementCount());
    m_bar.wheel(event->angleDelta().y());
    updateHover(event->position().toPoint());
    update();
    event->accept();
}

void QLayerList::leaveEvent(QEvent*)
{
    if (m_bar.leave())
        update();
}

// --- Keys -----------------------------------------------------------------------------

bool QLayerList::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        isListShortcut(static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void QLayerList::keyPressEvent(QKeyEvent* event)
{
    if (!m_character || !isListShortcut(event)) {
        QWidget::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_A:
        m_character->selectAllElements();
        break;
    case Qt::Key_I:
        m_character->invertElementSelection();
        break;
    default:
        m_character->clearElementSelection();
    }
    selectionChanged();
}

void QLayerList::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete && !event->isAutoRepeat() && m_character &&
        m_character->selectedElementCount() > 0) {
        aSupprimer();
        return;
    }
    QWidget::keyReleaseEvent(event);
}

// --- Painting -------------------------------------------------------------------------

void QLayerList::paintEvent(QPaintEvent*)
{
    if (m_character &&
        (m_character->listDirty() || m_thumbnails.size() != m_character->elementCount()))
        updateThumbnails();
    m_geometry.setCount(elementCount());
    QPainter painter(this);
    LayerListPainter::prepare(painter);
    if (elementCount() == 0) {
        LayerListPainter::paintEmpty(painter);
        return;
    }
    const int last = qMin(firstRow() + rowsVisible(), elementCount());
    for (int i = firstRow(); i < last; ++i) {
        LayerListPainter::paintRow(painter, m_geometry, i, m_thumbnails.at(i),
                                   m_character->elementName(i), m_character->isElementSelected(i),
                                   m_character->isVisible(i));
    }
    if (m_moving)
        painter.drawPixmap(m_geometry.markerCorner(m_dropRow), m_moveIcon);
    m_bar.paint(painter);
}

// --- Context menu and its slots -------------------------------------------------------

QMenu* QLayerList::contextMenu(bool onRow)
{
    QMenu* menu = new QMenu(QStringLiteral("Actions"), this);
    const auto add = [&](const char* icon, const QString& text, void (QLayerList::*slot)()) {
        QAction* action = menu->addAction(QIcon(QString::fromLatin1(icon)), text);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    const bool clipBoardEmpty =
        !m_commands || m_commands->clipBoard().contentKind() == ClipBoard::Empty;
    const QString addText = QStringLiteral("Ajouter un calque de dessin");
    if (!onRow || !m_character) {
        if (elementCount() < Character::MaxElements)
            add(":/icon/add_dessin.png", addText, &QLayerList::aAddElement);
        add(":/icon/paste.png", QStringLiteral("Coller"), &QLayerList::aColler)
            ->setEnabled(!clipBoardEmpty);
        return menu;
    }
    const bool one = m_character->selectedElementCount() == 1;
    if (one) {
        add(":/icon/add_dessin.png", addText, &QLayerList::aAddElement);
        menu->addSeparator();
    }
    add(":/icon/cut.png", QStringLiteral("Couper"), &QLayerList::aCut);
    add(":/icon/copy.png", QStringLiteral("Copier"), &QLayerList::aCopier);
    if (one)
        add(":/icon/paste.png", QStringLiteral("Coller"), &QLayerList::aColler)
            ->setEnabled(!clipBoardEmpty);
    menu->addSeparator();
    if (one) {
        add(":/icon/dupliquer.png", QStringLiteral("Dupliquer"), &QLayerList::aDoubler);
        add(":/icon/move.png", QStringLiteral("Déplacer"), &QLayerList::aMove);
    }
    add(":/icon/deselection.png", QStringLiteral("Désélectionner"), &QLayerList::aDeselect);
    if (!one)
        add(":/icon/hideshow.png", QStringLiteral("Cacher/Afficher"), &QLayerList::aCacher);
    else if (m_character->isVisible(m_character->selectedElement(0)))
        add(":/icon/hide.png", QStringLiteral("Cacher"), &QLayerList::aCacher);
    else
        add(":/icon/show.png", QStringLiteral("Afficher"), &QLayerList::aCacher);
    add(":/icon/remove.png", QStringLiteral("Supprimer"), &QLayerList::aSupprimer);
    menu->addSeparator();
    if (one) {
        // Element 0 has nothing below it; a step that changes nothing would still mark
        // the document as modified.
        add(":/icon/fusionElement.png", QStringLiteral("Fusionner avec l'élément inférieur"),
            &QLayerList::aFusion)
            ->setEnabled(m_character->selectedElement(0) > 0);
        menu->addSeparator();
        add(":/icon/book.png", QStringLiteral("Propriétés"), &QLayerList::aProperty);
    } else {
        add(":/icon/fusionElement.png", QStringLiteral("Fusionner la sélection"),
            &QLayerList::aFusionSelection);
    }
    return menu;
}

void QLayerList::aCut()
{
    if (m_commands)
        m_commands->cutElements(m_layer);
}

void QLayerList::aCopier()
{
    if (m_commands)
        m_commands->copyElements(m_layer);
}

void QLayerList::aColler()
{
    if (m_commands)
        m_commands->paste(m_layer);
}

void QLayerList::aDoubler()
{
    if (m_commands)
        m_commands->duplicate(m_layer);
}

void QLayerList::aDeselect()
{
    if (!m_character)
        return;
    m_character->clearElementSelection();
    selectionChanged();
}

// The move gesture without a drag: the marker follows the pointer until the next
// left release.
void QLayerList::aMove()
{
    m_moving = true;
    m_bar.release();
    m_dragArmed = false;
    m_dropRow = m_geometry.gapAt(mapFromGlobal(QCursor::pos()));
    update();
}

void QLayerList::aSupprimer()
{
    if (m_commands)
        m_commands->remove(m_layer);
}

void QLayerList::aCacher()
{
    if (m_commands)
        m_commands->toggleVisibility(m_layer);
}

void QLayerList::aFusion()
{
    if (m_commands)
        m_commands->mergeWithLower(m_layer);
}

void QLayerList::aFusionSelection()
{
    if (m_commands)
        m_commands->mergeSelection(m_layer);
}

void QLayerList::aAddElement()
{
    if (m_commands)
        m_commands->addDrawingLayer(m_layer);
}

// --- Properties box -------------------------------------------------------------------

void QLayerList::aProperty()
{
    if (!m_layer || !m_character || m_character->selectedElementCount() == 0 || m_propertiesBox)
        return;
    const int e = m_character->selectedElement(0);
    QElementPropertiesBox* box = new QElementPropertiesBox(
        QString::fromLatin1(m_character->elementName(e)), !m_character->isVisible(e), this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box->nameEdit(), &QLineEdit::textChanged, this, &QLayerList::updateButtonEnable);
    connect(box->validButton(), &QPushButton::clicked, this, &QLayerList::changeProperties);
    m_propertiesBox = box;
    updateButtonEnable(box->nameEdit()->text());
    box->open();
}

void QLayerList::updateButtonEnable(const QString& str)
{
    if (m_propertiesBox)
        m_propertiesBox->validButton()->setEnabled(!str.isEmpty());
}

void QLayerList::changeProperties()
{
    if (!m_propertiesBox)
        return;
    if (m_commands)
        m_commands->setProperties(m_layer, m_propertiesBox->nameEdit()->text(),
                                  m_propertiesBox->hideBox()->isChecked());
    m_propertiesBox->close();
}

QElementPropertiesBox* QLayerList::propertiesBox() const
{
    return m_propertiesBox;
}
