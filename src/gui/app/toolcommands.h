#pragma once

#include <QColor>
#include <QString>

class MainWindow;
class QAction;
struct ToolState;

// The choice of tool and its options, shared by every canvas through the tool state:
// the tool actions, the "Dessins" bar's controls, the zone of effect, and the primary
// and secondary colours.
class ToolCommands
{
public:
    ToolCommands(MainWindow& window, ToolState* tools);

    void setSelectTool(bool checked);
    void setMoveTool(bool checked);
    void setPipetteTool(bool checked);
    // The drawing tools: checked, the tool takes its code alone and refills the
    // options bar; unchecked, the code goes back to the select tool's.
    void setDrawingTool(quint8 tool, const QString& actionName, bool checked);
    void widthChanged(int width);
    void shapeChanged(int shape);
    void modeRubber(int mode);
    void setPaintMode(int mode);
    void setDrawMode(int mode);
    void changeDrawMode();
    void setZone(QAction* chosen, int zone);

    QColor primaryColor() const { return m_primary; }
    QColor secondaryColor() const { return m_secondary; }
    // 2 is the primary colour, 3 the secondary; any other type changes nothing.
    void setColor(const QColor& colour, int colorType);

private:
    void selectOnlyTool(QAction* keep);
    void hideDrawingBar();

    MainWindow& m_window;
    ToolState* m_tools;
    QColor m_primary;
    QColor m_secondary;
};
