#include "app/editcommands.h"

#include "app/mainwindow.h"
#include "app/qnewcharacter.h"
#include "canvas/qlayer.h"
#include "canvas/qscrolllayer.h"

#include <QMdiArea>
#include <QMdiSubWindow>

EditCommands::EditCommands(MainWindow& window) : m_window(window) {}

void EditCommands::undo()
{
    QLayer* layer = m_window.activeLayer();
    if (!layer || !layer->history()->canUndo())
        return;
    layer->character()->restore(layer->goToStep(layer->history()->undoOffset()));
    m_window.refreshPanels(layer->character(), layer);
    // A step may bring back another sheet size (cell size, conversion).
    layer->resizeToSheet();
}

void EditCommands::redo()
{
    QLayer* layer = m_window.activeLayer();
    if (!layer || !layer->history()->canRedo())
        return;
    layer->character()->restore(layer->goToStep(layer->history()->currentIndex() + 1));
    m_window.refreshPanels(layer->character(), layer);
    layer->resizeToSheet();
}

void EditCommands::selectAllCells()
{
    if (QLayer* layer = m_window.activeLayer()) {
        layer->character()->selectAllCells();
        layer->refresh();
    }
}

void EditCommands::invertCellSelection()
{
    if (QLayer* layer = m_window.activeLayer()) {
        layer->character()->invertCellSelection();
        layer->refresh();
    }
}

void EditCommands::clearCellSelection()
{
    if (QLayer* layer = m_window.activeLayer()) {
        layer->character()->clearCellSelection();
        layer->refresh();
    }
}

void EditCommands::convertCharacter()
{
    QLayer* layer = m_window.activeLayer();
    if (!layer)
        return;
    Character* character = layer->character();
    if (character->kind() == Character::XP)
        character->convertToVX();
    else
        character->convertToXP();
    layer->recordStep("Convertion du character");
    layer->resizeToSheet();
    m_window.refreshPanels(character, layer);
}

void EditCommands::changeSize()
{
    QMdiSubWindow* window = m_window.mdiArea()->currentSubWindow();
    QLayer* layer = m_window.activeLayer();
    if (!window || !layer)
        return;
    const QSize sheet = layer->character()->sheetSize();
    QNewCharacter* dialog = new QNewCharacter(layer->kind(), layer->title(), true,
                                              qobject_cast<QScrollLayer*>(window->widget()),
                                              sheet.width(), sheet.height(), &m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}
