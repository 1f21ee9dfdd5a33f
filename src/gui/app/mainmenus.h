#pragma once

#include <QHash>
#include <QKeySequence>
#include <QList>
#include <QString>

class MainWindow;
class QAction;
class QDrawingOptionsBar;
class QLineEdit;
class QMenu;
struct ToolState;

// The main window's menus and toolbars, and the map from each action's name to the
// action: built once, each action connected to the window's slot of its name.
class MainMenus
{
public:
    MainMenus(MainWindow* window, ToolState* tools);

    void createMenus();
    void createToolBars();

    QAction* action(const QString& name) const;
    const QList<QAction*>& toolActions() const { return m_toolActions; }
    const QList<QAction*>& zoneActions() const { return m_zoneActions; }
    QMenu* recentMenu() const { return m_recentMenu; }
    QLineEdit* zoomBox() const { return m_zoomBox; }
    QDrawingOptionsBar* drawingBar() const { return m_drawingBar; }

private:
    void createFileMenu();
    void createEditMenu();
    void createViewMenu();
    void createCharacterMenu();
    void createDrawingActions(QMenu* menu);
    void createHelpMenu();
    template <typename Slot>
    QAction* addAction(QMenu* menu, const QString& name, const QString& text, const char* icon,
                       const QKeySequence& key, const QString& tip, Slot slot);

    MainWindow* m_window;
    ToolState* m_tools;
    QHash<QString, QAction*> m_actions;
    QList<QAction*> m_toolActions;
    QList<QAction*> m_zoneActions;
    QMenu* m_recentMenu = nullptr;
    QMenu* m_zoneMenu = nullptr;
    QLineEdit* m_zoomBox = nullptr;
    QDrawingOptionsBar* m_drawingBar = nullptr;
};
