#pragma once

#include <QString>

class MainWindow;
class QAction;
struct ToolState;

// The choice of tool and its options, shared by every canvas through the tool state:
// the tool actions, the "Dessins" bar's controls and the zone of effect. The primary
// and secondary colours start from the settings.
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

private:
    void selectOnlyTool(QAction* keep);
    void hideDrawingBar();

    MainWindow& m_window;
    ToolState* m_tools;
};
