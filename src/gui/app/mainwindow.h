#pragma once

#include "app/toolstate.h"
#include "document/character.h"

#include <QColor>
#include <QMainWindow>

class QAction;
class QActionGroup;
class QComboBox;
class QDockWidget;
class QDrawingOptionsBar;
class QLabel;
class QLayer;
class QLineEdit;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QSpinBox;
class QToolBar;

// The program's main window: the tabbed area of documents, the menus, toolbars and
// docks, and the tool state that all canvases share. Nothing of the editing lives
// here: each action finds the active canvas and calls into it.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    QMdiArea* mdiArea() const { return m_mdiArea; }
    // The active document's canvas, or null when no document is open.
    QLayer* activeLayer() const;
    QList<QLayer*> layers() const;
    QMdiSubWindow* windowOf(const QLayer* layer) const;
    QColor primaryColor() const { return m_primaryColor; }
    QColor secondaryColor() const { return m_secondaryColor; }
    ToolState* toolState() { return &m_tools; }
    QLineEdit* zoomBox() const { return m_zoomBox; }
    QDrawingOptionsBar* drawingBar() const { return m_drawingBar; }
    QAction* action(const QString& name) const;

    // Opens a new document around a character and returns its canvas.
    QLayer* addDocument(const Character& character, const QString& title);

    // Openers, each reporting its own failures.
    void openCharacterFile(const QString& path, bool reportErrors);
    void openElementFile(const QString& path);
    void openImageFile(const QString& path);
    void addRecentFile(const QString& path);
    void updateRecentMenu();
    QMenu* recentMenu() const { return m_recentMenu; }

public slots:
    void newConversion();
    void newFusion();
    void newCharXP();
    void newCharVX();
    void addCharacter(const QString& str, int largeur, int hauteur, int type);
    void openZKFile();
    void updateActiveWindow(QMdiSubWindow* window);
    void setElementChecked();
    void setRenduChecked();
    void setColorChecked();
    void openMarlowickUrl();
    void changeBg();
    void showHelp();
    void showHelp(const QString& url);
    void showHelp_Create_Character();
    void showQuickHelp();
    void openDefault();
    void assignAsDefault();
    void save();
    void saveAs();
    void saveAll();
    void saveMass();
    void updateGrid();
    void updateZoomP();
    void updateZoomM();
    void updateZoom();
    void updateZoom(const QString& str);
    void addElementLibrary();
    void undo();
    void redo();
    void couper();
    void copier();
    void coller();
    void selectAllCellule();
    void selectReverseCellule();
    void selectVoidCellule();
    void addCharacterElement();
    void convertCharacter();
    void flipCharH();
    void flipCharV();
    void rotateCharacterP90();
    void rotateCharacterM90();
    void reLoadElement();
    void changeSize();
    void redimension();
    void rotateCharacter();
    void colorationCharacter();
    void setMoveTool(bool b);
    void setSelectTool(bool b);
    void setPipetteTool(bool b);
    void setPenTool(bool b);
    void setCircleTool(bool b);
    void setLineTool(bool b);
    void setRectTool(bool b);
    void setRubberTool(bool b);
    void widthChanged(int w);
    void shapeChanged(int s);
    void modeRubber(int ii);
    void setPaintMode(int i);
    void setPleinContourMode();
    void setPleinMode();
    void setContourMode();
    void changeDrawMode();
    void showGradientEditor();
    void setTargetDrawing(bool b);
    void setSelectedDrawing(bool b);
    void setAllDrawing(bool b);
    void setPrimaryColor(const QColor& c);
    void setSecondaryColor(const QColor& c);
    void setColor(const QColor& c, int color_type);
    void setColor(const QColor& c);
    void aboutZK();
    void aboutThanks();
    void welcome();
    void doYouNeedHelp();
    void donation();
    void openRecent();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void warnSaveFailed(const QString& title);
    void openDocument(const Character& character, const QString& path);
    void createMenus();
    void createFileMenu();
    void createEditMenu();
    void createViewMenu();
    void createCharacterMenu();
    void createDrawingActions(QMenu* menu);
    void createHelpMenu();
    void createToolBars();
    void createDocks();
    template <typename Slot>
    QAction* addAction(QMenu* menu, const QString& name, const QString& text, const char* icon,
                       const QKeySequence& key, const QString& tip, Slot slot);

    void selectOnlyTool(QAction* keep);
    void setDrawingTool(quint8 tool, const QString& actionName, bool checked);
    void hideDrawingBar();
    void showDrawingBar(quint8 tool);
    void checkOnly(QAction* action, const QList<QAction*>& group);
    void setDrawMode(int mode);
    void setZone(QAction* action, int zone);
    void refreshPanels(Character* character, QLayer* layer);
    void writeZoom(const Character* character);
    void finishRetouch(QLayer* layer, const QByteArray& label);

    QMdiArea* m_mdiArea = nullptr;
    Character* m_emptyCharacter = nullptr;
    ToolState m_tools;
    QColor m_primaryColor;
    QColor m_secondaryColor;

    QHash<QString, QAction*> m_actions;
    QList<QAction*> m_toolActions;
    QList<QAction*> m_zoneActions;
    QMenu* m_recentMenu = nullptr;
    QMenu* m_zoneMenu = nullptr;
    QLineEdit* m_zoomBox = nullptr;
    QDrawingOptionsBar* m_drawingBar = nullptr;
    QDockWidget* m_elementDock = nullptr;
    QDockWidget* m_renderDock = nullptr;
    QDockWidget* m_colorDock = nullptr;
};
