#include "app/toolcommands.h"

#include "app/mainmenus.h"
#include "app/mainwindow.h"
#include "app/qdrawingoptionsbar.h"
#include "settings/settings.h"

#include <QAction>

ToolCommands::ToolCommands(MainWindow& window, ToolState* tools) : m_window(window), m_tools(tools)
{
    qint32 primary = qint32(0xff000000);
    qint32 secondary = qint32(0xffffffff);
    Settings settings;
    settings.get(QStringLiteral("primary"), primary);
    settings.get(QStringLiteral("secondary"), secondary);
    m_tools->primary = QColor::fromRgba(QRgb(primary));
    m_tools->secondary = QColor::fromRgba(QRgb(secondary));
}

void ToolCommands::selectOnlyTool(QAction* keep)
{
    for (QAction* toolAction : m_window.menus()->toolActions()) {
        if (toolAction != keep)
            toolAction->setChecked(false);
    }
}

void ToolCommands::hideDrawingBar()
{
    m_window.drawingBar()->setEnabled(false);
    m_window.drawingBar()->hide();
}

void ToolCommands::setSelectTool(bool)
{
    m_tools->tool = ToolState::Select;
    QAction* select = m_window.action(QStringLiteral("selectTool"));
    select->setChecked(true);
    selectOnlyTool(select);
    hideDrawingBar();
}

void ToolCommands::setMoveTool(bool b)
{
    m_tools->tool = b ? ToolState::Move : ToolState::Select;
    QAction* move = m_window.action(QStringLiteral("moveTool"));
    QAction* select = m_window.action(QStringLiteral("selectTool"));
    selectOnlyTool(move);
    select->setChecked(!b);
    hideDrawingBar();
}

void ToolCommands::setPipetteTool(bool b)
{
    m_tools->tool = b ? ToolState::Pipette : ToolState::Select;
    QAction* pipette = m_window.action(QStringLiteral("pipetteTool"));
    QAction* select = m_window.action(QStringLiteral("selectTool"));
    selectOnlyTool(pipette);
    select->setChecked(!b);
    hideDrawingBar();
}

// The drawing tools: checked, the tool takes its code alone and refills the options
// bar; unchecked, the code goes back to the select tool's while its action stays
// unchecked until it is pressed.
void ToolCommands::setDrawingTool(quint8 tool, const QString& actionName, bool checked)
{
    if (!checked) {
        m_tools->tool = ToolState::Select;
        hideDrawingBar();
        return;
    }
    m_tools->tool = tool;
    selectOnlyTool(m_window.action(actionName));
    m_window.drawingBar()->fill(tool);
}

void ToolCommands::widthChanged(int w)
{
    m_tools->penWidth = w;
}

void ToolCommands::shapeChanged(int s)
{
    m_tools->penShape = s;
}

void ToolCommands::modeRubber(int ii)
{
    m_tools->rubberMode = qint8(ii);
    m_window.drawingBar()->setPenControlsEnabled(ii == 0);
}

void ToolCommands::setPaintMode(int i)
{
    m_tools->paintMode = i;
    m_window.drawingBar()->setGradientPreviewEnabled(i != 0);
}

void ToolCommands::setDrawMode(int mode)
{
    m_tools->drawMode = mode;
    m_window.drawingBar()->showDrawMode(mode);
}

void ToolCommands::changeDrawMode()
{
    // Outline, then filled, then filled with outline, then outline again.
    setDrawMode(m_tools->drawMode == 0 ? 1 : m_tools->drawMode == 1 ? 2 : 0);
}

// The check marks move even with no document open; the stored zone only changes with
// one, so the old value stays until the next choice made on a document.
void ToolCommands::setZone(QAction* chosen, int zone)
{
    const QList<QAction*>& zones = m_window.menus()->zoneActions();
    for (QAction* other : zones)
        other->setChecked(other == chosen);
    if (m_window.activeLayer())
        m_tools->zoneOfEffect = zone;
}
