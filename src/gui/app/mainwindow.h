#pragma once

#include "app/toolstate.h"
#include "document/character.h"

#include <QColor>
#include <QMainWindow>

#include <memory>

class ClipBoard;
class DocumentCommands;
class DropHandler;
class EditCommands;
class ElementCommands;
class GradientCommands;
class HelpCommands;
class LibraryCommands;
class RecoveryCommands;
class MainMenus;
class QColorBox;
class QAction;
class QDockWidget;
class QDrawingOptionsBar;
class QLayer;
class QLayerList;
class QLayerRender;
class QLineEdit;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class RetouchCommands;
class ToolCommands;
class ViewCommands;

// The program's main window: the tabbed area of documents, the menus, toolbars and
// docks, and the tool state that all canvases share. It only assembles: each slot
// forwards to the commands of its area, which find the active canvas and call into it.
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
    QColor primaryColor() const;
    QColor secondaryColor() const;
    ToolState* toolState() { return &m_tools; }
    QLineEdit* zoomBox() const;
    QDrawingOptionsBar* drawingBar() const;
    QAction* action(const QString& name) const;
    QMenu* recentMenu() const;
    MainMenus* menus() const { return m_menus.get(); }
    ViewCommands* viewCommands() const { return m_views.get(); }
    QLayerList* layerList() const { return m_layerList; }
    ClipBoard* clipBoard() const { return m_clipBoard.get(); }
    QColorBox* colorBox() const { return m_colorBox; }
    QLayerRender* layerRender() const { return m_render; }
    LibraryCommands* libraryCommands() const { return m_library.get(); }
    RecoveryCommands* recoveryCommands() const { return m_recovery.get(); }
    HelpCommands* helpCommands() const { return m_help.get(); }

    // Opens a new document around a character and returns its canvas.
    QLayer* addDocument(const Character& character, const QString& title);

    // Openers, each reporting its own failures.
    void openCharacterFile(const QString& path, bool reportErrors);
    void openElementFile(const QString& path);
    void openImageFile(const QString& path);
    void addRecentFile(const QString& path);
    void updateRecentMenu();

    // The element list and the preview show the given document, or the empty
    // character when there is none.
    void refreshPanels(Character* character, QLayer* layer);

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
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void createDocks();

    QMdiArea* m_mdiArea = nullptr;
    Character* m_emptyCharacter = nullptr;
    ToolState m_tools;
    std::unique_ptr<MainMenus> m_menus;
    std::unique_ptr<DocumentCommands> m_documents;
    std::unique_ptr<EditCommands> m_edits;
    std::unique_ptr<ToolCommands> m_toolCommands;
    std::unique_ptr<ViewCommands> m_views;
    std::unique_ptr<ClipBoard> m_clipBoard;
    std::unique_ptr<ElementCommands> m_elements;
    std::unique_ptr<RetouchCommands> m_retouches;
    std::unique_ptr<GradientCommands> m_gradients;
    std::unique_ptr<LibraryCommands> m_library;
    std::unique_ptr<DropHandler> m_drops;
    std::unique_ptr<HelpCommands> m_help;
    // Last, so that it goes first: the copies are removed before the documents close.
    std::unique_ptr<RecoveryCommands> m_recovery;
    QLayerList* m_layerList = nullptr;
    QDockWidget* m_elementDock = nullptr;
    QDockWidget* m_renderDock = nullptr;
    QDockWidget* m_colorDock = nullptr;
    QLayerRender* m_render = nullptr;
    QColorBox* m_colorBox = nullptr;
};
