#pragma once

#include <QToolBar>

class MainWindow;
class QLabel;
struct ToolState;

// The "Dessins" toolbar: the options of the drawing tool in use, emptied and refilled
// at each change of tool from the shared tool state. Its controls talk to the main
// window's slots, which store what they change.
class QDrawingOptionsBar : public QToolBar
{
    Q_OBJECT

public:
    QDrawingOptionsBar(ToolState* tools, MainWindow* window);

    void fill(quint8 tool);
    // Width and shape are disabled while the rubber erases a selection.
    void setPenControlsEnabled(bool enabled);
    void setGradientPreviewEnabled(bool enabled);
    // Redraws the gradient preview from the shared drawing gradient.
    void updateGradientPreview();
    // Checks the draw mode's menu entry alone and shows its icon on the menu's action.
    void showDrawMode(int mode);

private:
    void addRubberMode();
    void addWidthControls();
    void addShapeControls();
    void addDrawModeControls();
    void addPaintControls();
    QLabel* label(const QString& text);

    ToolState* m_tools;
    MainWindow* m_window;
    QList<QWidget*> m_penControls;
    QList<QAction*> m_drawModeActions;
    QAction* m_drawModeAction = nullptr;
    QLabel* m_gradientPreview = nullptr;
};
