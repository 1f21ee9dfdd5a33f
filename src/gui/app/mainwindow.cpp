#include "app/mainwindow.h"

#include "app/documentcommands.h"
#include "app/drophandler.h"
#include "app/editcommands.h"
#include "app/gradientcommands.h"
#include "app/helpcommands.h"
#include "app/mainmenus.h"
#include "app/quitsequence.h"
#include "app/toolcommands.h"
#include "app/viewcommands.h"
#include "batch/batchcommands.h"
#include "canvas/elementcommands.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerlist.h"
#include "canvas/qlayerrender.h"
#include "colour/qcolorbox.h"
#include "canvas/qscrolllayer.h"
#include "canvas/retouchcommands.h"
#include "document/clipboard.h"
#include "library/librarycommands.h"
#include "app/recoverycommands.h"
#include "recovery/recoveryfolder.h"

#include <QAction>
#include <QCloseEvent>
#include <QDockWidget>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QStatusBar>

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), m_emptyCharacter(new Character),
      m_menus(std::make_unique<MainMenus>(this, &m_tools)),
      m_documents(std::make_unique<DocumentCommands>(*this)),
      m_edits(std::make_unique<EditCommands>(*this)),
      m_toolCommands(std::make_unique<ToolCommands>(*this, &m_tools)),
      m_views(std::make_unique<ViewCommands>(*this)),
      m_clipBoard(std::make_unique<ClipBoard>()),
      m_elements(std::make_unique<ElementCommands>(*m_clipBoard, this)),
      m_retouches(std::make_unique<RetouchCommands>()),
      m_gradients(std::make_unique<GradientCommands>(*this, &m_tools)),
      m_library(std::make_unique<LibraryCommands>(*this)),
      m_drops(std::make_unique<DropHandler>(*this)),
      m_recovery(std::make_unique<RecoveryCommands>(*this, RecoveryFolder::defaultPath()))
{
    setWindowTitle(QStringLiteral("Zenkora"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/ZK.png")));
    setAcceptDrops(true);

    m_mdiArea = new QMdiArea(this);
    m_mdiArea->setViewMode(QMdiArea::TabbedView);
    m_mdiArea->setTabsClosable(true);
    m_mdiArea->setTabsMovable(true);
    m_mdiArea->setDocumentMode(true);
    setCentralWidget(m_mdiArea);
    connect(m_mdiArea, &QMdiArea::subWindowActivated, this, &MainWindow::updateActiveWindow);

    m_menus->createMenus();
    m_menus->createToolBars();
    m_help = std::make_unique<HelpCommands>(*this);
    createDocks();
    refreshPanels(m_emptyCharacter, nullptr);
    statusBar()->addPermanentWidget(new QLabel(QStringLiteral("Prêt")));
    updateRecentMenu();
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        resize(screen->availableGeometry().size() * 0.8);
}

MainWindow::~MainWindow()
{
    // The widgets below close and hide as the window goes; their signals must not
    // reach this half-destroyed object.
    for (QObject* sender :
         {static_cast<QObject*>(m_mdiArea), static_cast<QObject*>(m_elementDock),
          static_cast<QObject*>(m_renderDock), static_cast<QObject*>(m_colorDock)})
        sender->disconnect(this);
    // The list outlives this body (the widget tree goes last): it must not reach
    // what goes before it.
    m_layerList->setCharacter(nullptr);
    m_layerList->setLayer(nullptr);
    m_layerList->setCommands(nullptr);
    delete m_emptyCharacter;
}

void MainWindow::createDocks()
{
    m_layerList = new QLayerList(m_emptyCharacter);
    m_layerList->setCommands(m_elements.get());
    m_elements->setList(m_layerList);
    m_retouches->setList(m_layerList);
    const auto dock = [&](const QString& title, Qt::DockWidgetArea area, const QString& name,
                          void (MainWindow::*slot)(), QWidget* content) {
        QDockWidget* widget = new QDockWidget(title, this);
        widget->setObjectName(title);
        widget->setWidget(content);
        addDockWidget(area, widget);
        QAction* toggle = action(name);
        connect(toggle, &QAction::triggered, widget, &QDockWidget::setVisible);
        connect(widget, &QDockWidget::visibilityChanged, this, slot);
        return widget;
    };
    m_render = new QLayerRender(this);
    m_colorBox = new QColorBox(&m_tools.primary, &m_tools.secondary, QColorBox::Panel, this);
    m_elementDock = dock(QStringLiteral("Eléments"), Qt::LeftDockWidgetArea,
                         QStringLiteral("elementsDock"), &MainWindow::setElementChecked,
                         m_layerList);
    m_renderDock = dock(QStringLiteral("Rendu"), Qt::LeftDockWidgetArea,
                        QStringLiteral("renderDock"), &MainWindow::setRenduChecked, m_render);
    m_colorDock = dock(QStringLiteral("Couleurs"), Qt::RightDockWidgetArea,
                       QStringLiteral("colorDock"), &MainWindow::setColorChecked, m_colorBox);
}

// One-line forwarders kept on one line each, as they read.
// clang-format off
// --- Accessors and forwarders used by the start-up, the quit sequence and tests ------

QAction* MainWindow::action(const QString& name) const { return m_menus->action(name); }
QMenu* MainWindow::recentMenu() const { return m_menus->recentMenu(); }
QLineEdit* MainWindow::zoomBox() const { return m_menus->zoomBox(); }
QDrawingOptionsBar* MainWindow::drawingBar() const { return m_menus->drawingBar(); }
QColor MainWindow::primaryColor() const { return m_tools.primary; }
QColor MainWindow::secondaryColor() const { return m_tools.secondary; }
QLayer* MainWindow::activeLayer() const { return m_documents->activeLayer(); }
QList<QLayer*> MainWindow::layers() const { return m_documents->layers(); }
QMdiSubWindow* MainWindow::windowOf(const QLayer* layer) const
{
    return m_documents->windowOf(layer);
}

QLayer* MainWindow::addDocument(const Character& character, const QString& title)
{
    return m_documents->addDocument(character, title);
}

void MainWindow::openCharacterFile(const QString& path, bool reportErrors)
{
    m_documents->openCharacterFile(path, reportErrors);
}

void MainWindow::openElementFile(const QString& path) { m_documents->openElementFile(path); }
void MainWindow::openImageFile(const QString& path) { m_documents->openImageFile(path); }
void MainWindow::addRecentFile(const QString& path) { m_documents->addRecentFile(path); }
void MainWindow::updateRecentMenu() { m_documents->updateRecentMenu(); }

// --- The active document -----------------------------------------------------------

void MainWindow::updateActiveWindow(QMdiSubWindow* window)
{
    if (!window) {
        refreshPanels(m_emptyCharacter, nullptr);
        zoomBox()->clear();
        return;
    }
    QScrollLayer* scroll = qobject_cast<QScrollLayer*>(window->widget());
    if (!scroll)
        return;
    QLayer* layer = scroll->layer();
    refreshPanels(layer->character(), layer);
    m_views->writeZoom(layer->character());
    layer->character()->setShowGrid(action(QStringLiteral("grid"))->isChecked());
    layer->refresh();
}

// The layer, when given, owns the character: the preview stops reading it once the
// document is closed. The list keeps its scroll position as far as the new count allows.
void MainWindow::refreshPanels(Character* character, QLayer* layer)
{
    m_layerList->setCharacter(character);
    m_layerList->setLayer(layer);
    m_layerList->updateThumbnails();
    m_layerList->scrollTo(m_layerList->firstRow());
    m_render->setCharacter(character, layer);
    m_render->refresh();
}

void MainWindow::setElementChecked()
{
    action(QStringLiteral("elementsDock"))->setChecked(m_elementDock->isVisible());
}

void MainWindow::setRenduChecked()
{
    action(QStringLiteral("renderDock"))->setChecked(m_renderDock->isVisible());
}

void MainWindow::setColorChecked()
{
    action(QStringLiteral("colorDock"))->setChecked(m_colorDock->isVisible());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    QuitSequence quit(*this);
    event->setAccepted(quit.run());
}

// --- Slots: documents -----------------------------------------------------------------

void MainWindow::newCharXP() { m_documents->newCharacter(Character::XP); }
void MainWindow::newCharVX() { m_documents->newCharacter(Character::VX); }
void MainWindow::addCharacter(const QString& str, int largeur, int hauteur, int type)
{
    m_documents->addCharacter(str, largeur, hauteur, type);
}
void MainWindow::openZKFile() { m_documents->openZKFile(); }
void MainWindow::openDefault() { m_documents->openDefault(); }
void MainWindow::assignAsDefault() { m_documents->assignAsDefault(); }
void MainWindow::save() { m_documents->save(); }
void MainWindow::saveAs() { m_documents->saveAs(); }
void MainWindow::saveAll() { m_documents->saveAll(); }

void MainWindow::openRecent()
{
    if (const QAction* recent = qobject_cast<const QAction*>(sender()))
        m_documents->openRecent(recent->data().toString());
}

// --- Slots: editing and view ----------------------------------------------------------

void MainWindow::undo() { m_edits->undo(); }
void MainWindow::redo() { m_edits->redo(); }
void MainWindow::couper() { m_elements->cut(activeLayer()); }
void MainWindow::copier() { m_elements->copy(activeLayer()); }
void MainWindow::coller() { m_elements->paste(activeLayer()); }
void MainWindow::selectAllCellule() { m_edits->selectAllCells(); }
void MainWindow::selectReverseCellule() { m_edits->invertCellSelection(); }
void MainWindow::selectVoidCellule() { m_edits->clearCellSelection(); }
void MainWindow::convertCharacter() { m_edits->convertCharacter(); }
void MainWindow::changeSize() { m_edits->changeSize(); }
void MainWindow::updateGrid() { m_views->updateGrid(); }
void MainWindow::updateZoomP() { m_views->zoomStep(0); }
void MainWindow::updateZoomM() { m_views->zoomStep(1); }
void MainWindow::updateZoom() { m_views->setZoomText(zoomBox()->text()); }
void MainWindow::updateZoom(const QString& str) { m_views->setZoomText(str); }
void MainWindow::changeBg() { m_views->changeBg(); }

// --- Slots: tools and colours -----------------------------------------------------------

void MainWindow::setSelectTool(bool b) { m_toolCommands->setSelectTool(b); }
void MainWindow::setMoveTool(bool b) { m_toolCommands->setMoveTool(b); }
void MainWindow::setPipetteTool(bool b) { m_toolCommands->setPipetteTool(b); }
void MainWindow::setPenTool(bool b)
{
    m_toolCommands->setDrawingTool(ToolState::Pen, QStringLiteral("penTool"), b);
}
void MainWindow::setCircleTool(bool b)
{
    m_toolCommands->setDrawingTool(ToolState::Circle, QStringLiteral("circleTool"), b);
}
void MainWindow::setLineTool(bool b)
{
    m_toolCommands->setDrawingTool(ToolState::Line, QStringLiteral("lineTool"), b);
}
void MainWindow::setRectTool(bool b)
{
    m_toolCommands->setDrawingTool(ToolState::Rectangle, QStringLiteral("rectTool"), b);
}
void MainWindow::setRubberTool(bool b)
{
    m_toolCommands->setDrawingTool(ToolState::Rubber, QStringLiteral("rubberTool"), b);
}
void MainWindow::widthChanged(int w) { m_toolCommands->widthChanged(w); }
void MainWindow::shapeChanged(int s) { m_toolCommands->shapeChanged(s); }
void MainWindow::modeRubber(int ii) { m_toolCommands->modeRubber(ii); }
void MainWindow::setPaintMode(int i) { m_toolCommands->setPaintMode(i); }
void MainWindow::setPleinContourMode() { m_toolCommands->setDrawMode(2); }
void MainWindow::setPleinMode() { m_toolCommands->setDrawMode(1); }
void MainWindow::setContourMode() { m_toolCommands->setDrawMode(0); }
void MainWindow::changeDrawMode() { m_toolCommands->changeDrawMode(); }
void MainWindow::showGradientEditor() { m_gradients->showGradientEditor(); }
void MainWindow::setTargetDrawing(bool)
{
    m_toolCommands->setZone(m_menus->zoneActions().at(0), 0);
}
void MainWindow::setSelectedDrawing(bool)
{
    m_toolCommands->setZone(m_menus->zoneActions().at(1), 1);
}
void MainWindow::setAllDrawing(bool) { m_toolCommands->setZone(m_menus->zoneActions().at(2), 2); }
void MainWindow::setPrimaryColor(const QColor& c) { m_colorBox->setColor(c, 2); }
void MainWindow::setSecondaryColor(const QColor& c) { m_colorBox->setColor(c, 3); }
void MainWindow::setColor(const QColor& c, int color_type) { m_colorBox->setColor(c, color_type); }
void MainWindow::setColor(const QColor& c) { m_colorBox->setColor(c, 2); }

// --- Slots: retouching ------------------------------------------------------------------

void MainWindow::flipCharH() { m_retouches->flip(activeLayer(), true, false); }
void MainWindow::flipCharV() { m_retouches->flip(activeLayer(), false, true); }
void MainWindow::rotateCharacterP90() { m_retouches->rotateQuarter(activeLayer(), true); }
void MainWindow::rotateCharacterM90() { m_retouches->rotateQuarter(activeLayer(), false); }
void MainWindow::redimension() { m_retouches->openResizeBox(activeLayer()); }
void MainWindow::rotateCharacter() { m_retouches->openRotateBox(activeLayer()); }
void MainWindow::colorationCharacter() { m_retouches->openColorationBox(activeLayer()); }

// --- Slots of later parts: library, batch jobs, gradients, help --------------------------

void MainWindow::reLoadElement() { m_library->restoreElements(); }
void MainWindow::addCharacterElement() { m_library->openAddBox(); }
void MainWindow::addElementLibrary() { m_library->addElementLibrary(); }
void MainWindow::newConversion() { BatchCommands::openConversion(this); }
void MainWindow::newFusion() { BatchCommands::openFusion(this); }
void MainWindow::saveMass() { BatchCommands::openMassSave(this, activeLayer()); }

// --- Slots: drops and help ----------------------------------------------------------------

void MainWindow::dragEnterEvent(QDragEnterEvent* event) { m_drops->dragEnter(event); }
void MainWindow::dropEvent(QDropEvent* event) { m_drops->drop(event); }
void MainWindow::showHelp() { m_help->showHelp(QStringLiteral("help/introduction.html")); }
void MainWindow::showHelp(const QString& url) { m_help->showHelp(url); }
void MainWindow::showHelp_Create_Character() { m_help->showHelp(QStringLiteral("help/créer_un_character.html#id_1")); }
void MainWindow::showQuickHelp() { m_help->showQuickHelp(); }
void MainWindow::aboutZK() { m_help->aboutZK(); }
void MainWindow::aboutThanks() { m_help->aboutThanks(); }
void MainWindow::welcome() { m_help->welcome(); }
void MainWindow::doYouNeedHelp() { m_help->doYouNeedHelp(); }
void MainWindow::donation() { m_help->donation(); }
void MainWindow::openMarlowickUrl() { m_help->openForum(); }
// clang-format on
