#include "app/mainwindow.h"

#include "app/closequestion.h"
#include "app/prompts.h"
#include "app/quitsequence.h"
#include "app/qdrawingoptionsbar.h"
#include "app/qnewcharacter.h"
#include "canvas/qlayer.h"
#include "canvas/qscrolllayer.h"
#include "formats/elementfile.h"
#include "formats/filenames.h"
#include "formats/safefile.h"
#include "settings/recentfiles.h"
#include "settings/settings.h"

#include <QCloseEvent>
#include <QDir>
#include <QPointer>
#include <QGuiApplication>
#include <QScreen>
#include <QDesktopServices>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>

#include <cmath>

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), m_emptyCharacter(new Character)
{
    setWindowTitle(QStringLiteral("Zenkora"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/ZK.png")));
    setAcceptDrops(true);

    qint32 primary = qint32(0xff000000);
    qint32 secondary = qint32(0xffffffff);
    {
        Settings settings;
        settings.get(QStringLiteral("primary"), primary);
        settings.get(QStringLiteral("secondary"), secondary);
    }
    m_primaryColor = QColor::fromRgba(QRgb(primary));
    m_secondaryColor = QColor::fromRgba(QRgb(secondary));

    m_mdiArea = new QMdiArea(this);
    m_mdiArea->setViewMode(QMdiArea::TabbedView);
    m_mdiArea->setTabsClosable(true);
    m_mdiArea->setTabsMovable(true);
    m_mdiArea->setDocumentMode(true);
    setCentralWidget(m_mdiArea);
    connect(m_mdiArea, &QMdiArea::subWindowActivated, this, &MainWindow::updateActiveWindow);

    createMenus();
    createToolBars();
    createDocks();
    statusBar()->addPermanentWidget(new QLabel(QStringLiteral("Prêt")));
    updateRecentMenu();
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        resize(screen->availableGeometry().size() * 0.8);
}

MainWindow::~MainWindow()
{
    // The widgets below close and hide as the window goes; their signals must not
    // reach this half-destroyed object.
    for (QObject* sender : {static_cast<QObject*>(m_mdiArea), static_cast<QObject*>(m_elementDock),
                            static_cast<QObject*>(m_renderDock), static_cast<QObject*>(m_colorDock)})
        sender->disconnect(this);
    delete m_emptyCharacter;
}

template <typename Slot>
QAction* MainWindow::addAction(QMenu* menu, const QString& name, const QString& text,
                               const char* icon, const QKeySequence& key, const QString& tip,
                               Slot slot)
{
    QAction* action = icon ? new QAction(QIcon(QString::fromUtf8(icon)), text, this)
                           : new QAction(text, this);
    action->setShortcut(key);
    action->setStatusTip(tip);
    connect(action, &QAction::triggered, this, slot);
    if (menu)
        menu->addAction(action);
    m_actions.insert(name, action);
    return action;
}

QAction* MainWindow::action(const QString& name) const
{
    return m_actions.value(name);
}

void MainWindow::createMenus()
{
    createFileMenu();
    createEditMenu();
    createViewMenu();
    createCharacterMenu();
    createHelpMenu();
}

void MainWindow::createFileMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Fichier"));
    addAction(menu, QStringLiteral("newXP"), QStringLiteral("Nouveau character (XP)"),
              ":/icon/newXP.png", QKeySequence(QStringLiteral("Ctrl+N")),
              QStringLiteral("Créer un nouveau character pour RPG Maker XP."),
              &MainWindow::newCharXP);
    addAction(menu, QStringLiteral("newVX"), QStringLiteral("Nouveau character (VX)"),
              ":/icon/newVX.png", QKeySequence(QStringLiteral("Ctrl+Shift+N")),
              QStringLiteral("Créer un nouveau character pour RPG Maker VX."),
              &MainWindow::newCharVX);
    addAction(menu, QStringLiteral("newDefault"),
              QStringLiteral("Nouveau character basé sur celui par défaut"),
              ":/icon/newCustom.png", QKeySequence(QStringLiteral("Ctrl+Alt+N")),
              QStringLiteral("Créer un nouveau character basé sur celui par défaut. Voir le "
                             "manuel d'aide pour plus de renseignements."),
              &MainWindow::openDefault);
    addAction(menu, QStringLiteral("conversion"), QStringLiteral("Conversion de character(s)"),
              ":/icon/conversionMode.png", QKeySequence(QStringLiteral("Ctrl+Alt+C")),
              QStringLiteral("Convertit les characters entre les différentes versions de RPG "
                             "Maker."),
              &MainWindow::newConversion);
    addAction(menu, QStringLiteral("fusion"), QStringLiteral("Fusion de tilesets"),
              ":/icon/fusion.png", QKeySequence(QStringLiteral("Ctrl+Alt+F")),
              QStringLiteral("Fusionne des tilesets les uns à la suite des autres."),
              &MainWindow::newFusion);
    menu->addSeparator();
    m_recentMenu = menu->addMenu(QStringLiteral("Fichiers récents"));
    menu->addSeparator();
    addAction(menu, QStringLiteral("open"), QStringLiteral("Ouvrir"), ":/icon/openLittle.png",
              QKeySequence(QStringLiteral("Ctrl+O")),
              QStringLiteral("Ouvre un document (image PNG, Elément Zenkora ou character "
                             "*.zk)."),
              &MainWindow::openZKFile);
    addAction(menu, QStringLiteral("save"), QStringLiteral("Enregistrer"), ":/icon/Save.png",
              QKeySequence(QStringLiteral("Ctrl+S")),
              QStringLiteral("Enregistre le document actif."), &MainWindow::save);
    addAction(menu, QStringLiteral("saveAs"), QStringLiteral("Enregistrer sous..."),
              ":/icon/SaveAs2.png", QKeySequence(QStringLiteral("Ctrl+Shift+S")),
              QStringLiteral("Enregistre le document actif sous un autre nom."),
              &MainWindow::saveAs);
    addAction(menu, QStringLiteral("saveAll"), QStringLiteral("Enregistrer tout"),
              ":/icon/SaveAll.png", QKeySequence(QStringLiteral("Ctrl+Alt+S")),
              QStringLiteral("Enregistre tous les documents ouverts."), &MainWindow::saveAll);
    addAction(menu, QStringLiteral("saveMass"),
              QStringLiteral("Enregistrer sous différentes teintes"), ":/icon/savemass.png",
              QKeySequence(QStringLiteral("Ctrl+Alt+Shift+S")),
              QStringLiteral("Enregistre le document en plusieurs exemplaires en variant la "
                             "teinte de certains éléments."),
              &MainWindow::saveMass);
    menu->addSeparator();
    addAction(menu, QStringLiteral("setDefault"),
              QStringLiteral("Assigner comme character par défaut"), ":/icon/setCustom.png",
              QKeySequence(),
              QStringLiteral("Assigne le character actuel en tant que character par défaut. "
                             "Voir le manuel d'aide pour plus de renseignements."),
              &MainWindow::assignAsDefault);
    menu->addSeparator();
    addAction(menu, QStringLiteral("addLibrary"),
              QStringLiteral("Ajouter des éléments à la bibliothèque"), nullptr,
              QKeySequence(QStringLiteral("Ctrl+Shift+E")),
              QStringLiteral("Ajoute des éléments à la bibliothèque de Zenkora."),
              &MainWindow::addElementLibrary);
    menu->addSeparator();
    addAction(menu, QStringLiteral("quit"), QStringLiteral("Quitter"), ":/icon/Close.png",
              QKeySequence(QStringLiteral("Ctrl+Q")), QStringLiteral("Quitte Zenkora."),
              &MainWindow::close);
}

void MainWindow::createEditMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Edition"));
    addAction(menu, QStringLiteral("undo"), QStringLiteral("Annuler"), ":/icon/Undo2.png",
              QKeySequence(QStringLiteral("Ctrl+Z")),
              QStringLiteral("Annule l'action précédente."), &MainWindow::undo);
    addAction(menu, QStringLiteral("redo"), QStringLiteral("Rétablir"), ":/icon/Redo2.png",
              QKeySequence(QStringLiteral("Ctrl+Y")),
              QStringLiteral("Rétablit l'action suivante."), &MainWindow::redo);
    menu->addSeparator();
    addAction(menu, QStringLiteral("cut"), QStringLiteral("Couper"), ":/icon/cut.png",
              QKeySequence(QStringLiteral("Ctrl+X")),
              QStringLiteral("Supprime la sélection et la copie dans le presse-papier."),
              &MainWindow::couper);
    addAction(menu, QStringLiteral("copy"), QStringLiteral("Copier"), ":/icon/copy.png",
              QKeySequence(QStringLiteral("Ctrl+C")),
              QStringLiteral("Copie la sélection dans le presse-papier."), &MainWindow::copier);
    addAction(menu, QStringLiteral("paste"), QStringLiteral("Coller"), ":/icon/paste.png",
              QKeySequence(QStringLiteral("Ctrl+V")),
              QStringLiteral("Colle le contenu du presse-papier."), &MainWindow::coller);
}

void MainWindow::createViewMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Affichage"));
    QAction* grid = addAction(menu, QStringLiteral("grid"), QStringLiteral("Afficher la grille"),
                              ":/icon/grid.png", QKeySequence(QStringLiteral("Ctrl+W")),
                              QStringLiteral("Affiche ou enlève la grille du character."),
                              &MainWindow::updateGrid);
    grid->setCheckable(true);
    grid->setChecked(true);
    addAction(menu, QStringLiteral("zoomIn"), QStringLiteral("Zoom +"), ":/icon/zoom-in-32.png",
              QKeySequence(Qt::CTRL | Qt::Key_Plus),
              QStringLiteral("Augmente le zoom du character."), &MainWindow::updateZoomP);
    addAction(menu, QStringLiteral("zoomOut"), QStringLiteral("Zoom -"), ":/icon/zoom-out-32.png",
              QKeySequence(Qt::CTRL | Qt::Key_Minus),
              QStringLiteral("Diminue le zoom du character."), &MainWindow::updateZoomM);
    menu->addSeparator();
    const auto dockAction = [&](const QString& name, const QString& text, Qt::Key key,
                                const QString& tip) {
        QAction* action = new QAction(text, this);
        action->setCheckable(true);
        action->setChecked(true);
        action->setShortcut(QKeySequence(key));
        action->setStatusTip(tip);
        menu->addAction(action);
        m_actions.insert(name, action);
    };
    dockAction(QStringLiteral("elementsDock"), QStringLiteral("Eléments"), Qt::Key_F5,
               QStringLiteral("Affiche ou cache la fenêtre des éléments."));
    dockAction(QStringLiteral("renderDock"), QStringLiteral("Rendu"), Qt::Key_F6,
               QStringLiteral("Affiche ou cache la fenêtre du rendu."));
    dockAction(QStringLiteral("colorDock"), QStringLiteral("Couleurs"), Qt::Key_F7,
               QStringLiteral("Affiche ou cache la fenêtre des couleurs."));
    menu->addSeparator();
    addAction(menu, QStringLiteral("background"), QStringLiteral("Couleur d'arrière plan"),
              ":/icon/bg.png", QKeySequence(),
              QStringLiteral("Change la couleur d'arrière plan du character."),
              &MainWindow::changeBg);
}

void MainWindow::createCharacterMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Characters"));
    QMenu* selection = menu->addMenu(QIcon(QStringLiteral(":/icon/sélectionCase.png")),
                                     QStringLiteral("Sélection"));
    selection->menuAction()->setStatusTip(QStringLiteral(
        "Sélectionnez, désélectionnez, inversez la sélection des poses du character."));
    addAction(selection, QStringLiteral("selectAll"), QStringLiteral("Sélectionner tout"),
              nullptr, QKeySequence(QStringLiteral("Ctrl+A")),
              QStringLiteral("Sélectionne toutes les poses de character."),
              &MainWindow::selectAllCellule);
    addAction(selection, QStringLiteral("selectNone"), QStringLiteral("Désélectionner"), nullptr,
              QKeySequence(QStringLiteral("Ctrl+D")),
              QStringLiteral("Désélectionne toutes les poses du character."),
              &MainWindow::selectVoidCellule);
    addAction(selection, QStringLiteral("selectInvert"), QStringLiteral("Inverser la sélection"),
              nullptr, QKeySequence(QStringLiteral("Ctrl+I")),
              QStringLiteral("Inverse la sélection des poses du character."),
              &MainWindow::selectReverseCellule);
    addAction(menu, QStringLiteral("addElement"),
              QStringLiteral("Ajout d'un élément ou d'un calque de dessin"), ":/icon/Add.png",
              QKeySequence(QStringLiteral("Ctrl+E")),
              QStringLiteral("Ajoute un élément ou un calque de dessin."),
              &MainWindow::addCharacterElement);
    QAction* select = addAction(menu, QStringLiteral("selectTool"), QStringLiteral("Sélection"),
                                ":/icon/selectionCursor.png",
                                QKeySequence(QStringLiteral("Ctrl+P")),
                                QStringLiteral("Sélectionne les différentes poses du character."),
                                &MainWindow::setSelectTool);
    QAction* move = addAction(menu, QStringLiteral("moveTool"), QStringLiteral("Déplacement"),
                              ":/icon/moveCursor.png", QKeySequence(QStringLiteral("Ctrl+M")),
                              QStringLiteral("Déplace les éléments sélectionnés."),
                              &MainWindow::setMoveTool);
    addAction(menu, QStringLiteral("hue"), QStringLiteral("Teinte / Saturation"),
              ":/icon/cerclechrom.png", QKeySequence(QStringLiteral("Ctrl+U")),
              QStringLiteral("Modifie la teinte/saturation/luminosité des éléments "
                             "sélectionnés."),
              &MainWindow::colorationCharacter);
    addAction(menu, QStringLiteral("resize"), QStringLiteral("Redimension"),
              ":/icon/redimension.png", QKeySequence(QStringLiteral("Ctrl+T")),
              QStringLiteral("Redimensionne les éléments sélectionnés."),
              &MainWindow::redimension);
    menu->addSeparator();
    addAction(menu, QStringLiteral("rotate"), QStringLiteral("Rotation"), ":/icon/rotation.png",
              QKeySequence(QStringLiteral("Ctrl+R")),
              QStringLiteral("Pivote les éléments sélectionnés."), &MainWindow::rotateCharacter);
    addAction(menu, QStringLiteral("rotateP90"), QStringLiteral("Rotation de 90° horaire"),
              ":/icon/rotationP90.png", QKeySequence(),
              QStringLiteral("Pivote les éléments sélectionnés de 90° dans le sens des "
                             "aiguilles d'une montre."),
              &MainWindow::rotateCharacterP90);
    addAction(menu, QStringLiteral("rotateM90"), QStringLiteral("Rotation de 90° antihoraire"),
              ":/icon/rotationM90.png", QKeySequence(),
              QStringLiteral("Pivote les éléments sélectionnés de 90° dans le sens inverse des "
                             "aiguilles d'une montre."),
              &MainWindow::rotateCharacterM90);
    menu->addSeparator();
    addAction(menu, QStringLiteral("flipH"), QStringLiteral("Retournement horizontal"),
              ":/icon/flipH.png", QKeySequence(),
              QStringLiteral("Retourne horizontalement les éléments sélectionnés."),
              &MainWindow::flipCharH);
    addAction(menu, QStringLiteral("flipV"), QStringLiteral("Retournement vertical"),
              ":/icon/flipV.png", QKeySequence(),
              QStringLiteral("Retourne verticalement les éléments sélectionnés."),
              &MainWindow::flipCharV);
    addAction(menu, QStringLiteral("restore"), QStringLiteral("Restauration"),
              ":/icon/restauration.png", QKeySequence(),
              QStringLiteral("Restaure les éléments sélectionnés."), &MainWindow::reLoadElement);
    menu->addSeparator();
    addAction(menu, QStringLiteral("cellSize"), QStringLiteral("Taille des cellules"),
              ":/icon/taille.png", QKeySequence(),
              QStringLiteral("Modifie la taille des cellules du character."),
              &MainWindow::changeSize);
    addAction(menu, QStringLiteral("convert"), QStringLiteral("Convertion du character"),
              ":/icon/conversion.png", QKeySequence(),
              QStringLiteral("Convertit le character en création de XP vers VX ou "
                             "inversement."),
              &MainWindow::convertCharacter);
    menu->addSeparator();
    select->setCheckable(true);
    select->setChecked(true);
    move->setCheckable(true);
    m_toolActions = {select, move};
    createDrawingActions(menu);
}

void MainWindow::createDrawingActions(QMenu* menu)
{
    const auto tool = [&](const QString& name, const QString& text, const char* icon,
                          const char* key, const QString& tip, void (MainWindow::*slot)(bool)) {
        QAction* action = addAction(menu, name, text, icon,
                                    QKeySequence(QString::fromLatin1(key)), tip, slot);
        action->setCheckable(true);
        m_toolActions.append(action);
    };
    tool(QStringLiteral("pipetteTool"), QStringLiteral("Pipette"), ":/icon/pipette.png",
         "Ctrl+F", QStringLiteral("Sélectionne une couleur."), &MainWindow::setPipetteTool);
    tool(QStringLiteral("penTool"), QStringLiteral("Pinceau"), ":/icon/Pen.png", "Ctrl+G",
         QStringLiteral("Dessine avec un pinceau."), &MainWindow::setPenTool);
    tool(QStringLiteral("rubberTool"), QStringLiteral("Gomme"), ":/icon/gomme.png", "Ctrl+H",
         QStringLiteral("Efface une partie du character."), &MainWindow::setRubberTool);
    tool(QStringLiteral("lineTool"), QStringLiteral("Ligne"), ":/icon/line.png", "Ctrl+J",
         QStringLiteral("Trace une ligne."), &MainWindow::setLineTool);
    tool(QStringLiteral("rectTool"), QStringLiteral("Rectangle"), ":/icon/rect.png", "Ctrl+K",
         QStringLiteral("Trace un rectangle."), &MainWindow::setRectTool);
    tool(QStringLiteral("circleTool"), QStringLiteral("Cercle"), ":/icon/circle.png", "Ctrl+L",
         QStringLiteral("Trace un cercle."), &MainWindow::setCircleTool);

    m_zoneMenu = new QMenu(this);
    const auto zone = [&](const QString& name, const QString& text, const QString& tip,
                          void (MainWindow::*slot)(bool)) {
        QAction* action = addAction(m_zoneMenu, name, text, nullptr, QKeySequence(), tip, slot);
        action->setCheckable(true);
        m_zoneActions.append(action);
    };
    zone(QStringLiteral("zoneTarget"), QStringLiteral("Cellule ciblée"),
         QStringLiteral("Seule la cellule ciblée sera affectée par les fonctions de dessin."),
         &MainWindow::setTargetDrawing);
    zone(QStringLiteral("zoneSelected"), QStringLiteral("Cellules sélectionnées"),
         QStringLiteral("Seules les cellules sélectionnées seront affectées par les fonctions "
                        "de dessin."),
         &MainWindow::setSelectedDrawing);
    zone(QStringLiteral("zoneAll"), QStringLiteral("Toutes les cellules"),
         QStringLiteral("Toutes les cellules seront affectées par les fonctions de dessin."),
         &MainWindow::setAllDrawing);
    m_zoneActions.first()->setChecked(true);
    QAction* zoneAction = new QAction(QIcon(QStringLiteral(":/icon/zeffet.png")),
                                      QStringLiteral("Zone d'effet"), this);
    zoneAction->setStatusTip(
        QStringLiteral("Définit la zone d'effet des fonctions de dessin."));
    zoneAction->setMenu(m_zoneMenu);
    menu->addAction(zoneAction);
    m_actions.insert(QStringLiteral("zone"), zoneAction);
}

void MainWindow::createHelpMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("?"));
    addAction(menu, QStringLiteral("about"), QStringLiteral("A propos de Zenkora"), nullptr,
              QKeySequence(), QStringLiteral("Affiche des informations à propos de Zenkora."),
              &MainWindow::aboutZK);
    addAction(menu, QStringLiteral("thanks"), QStringLiteral("Remerciement"), nullptr,
              QKeySequence(),
              QStringLiteral("Remercie les personnes ayant participées à la création de "
                             "Zenkora."),
              &MainWindow::aboutThanks);
    menu->addSeparator();
    addAction(menu, QStringLiteral("forum"), QStringLiteral("Marlowick"), nullptr, QKeySequence(),
              QStringLiteral("Conduit vers le site de Marlowick."),
              &MainWindow::openMarlowickUrl);
    menu->addSeparator();
    addAction(menu, QStringLiteral("donation"), QStringLiteral("Faire un don"), nullptr,
              QKeySequence(), QStringLiteral("Faire un don à Zenkora."), &MainWindow::donation);
    menu->addSeparator();
    addAction(menu, QStringLiteral("quickHelp"), QStringLiteral("Introduction à Zenkora"),
              nullptr, QKeySequence(Qt::Key_F2),
              QStringLiteral("Ouvre un court manuel présentant les fonctions de base du "
                             "Zenkora."),
              &MainWindow::showQuickHelp);
    addAction(menu, QStringLiteral("help"), QStringLiteral("Manuel d'aide"),
              ":/icon/helpicon.png", QKeySequence(Qt::Key_F1),
              QStringLiteral("Ouvre le manuel d'aide de Zenkora."),
              qOverload<>(&MainWindow::showHelp));
}

void MainWindow::createToolBars()
{
    const auto bar = [&](const QString& title, const QStringList& names) {
        QToolBar* toolBar = addToolBar(title);
        toolBar->setObjectName(title);
        for (const QString& name : names) {
            if (name.isEmpty())
                toolBar->addSeparator();
            else
                toolBar->addAction(action(name));
        }
        return toolBar;
    };
    const QString separator;
    bar(QStringLiteral("Gestion du document"),
        {QStringLiteral("newXP"), QStringLiteral("newVX"), QStringLiteral("newDefault"),
         QStringLiteral("conversion"), QStringLiteral("fusion"), separator,
         QStringLiteral("open"), QStringLiteral("save"), QStringLiteral("saveAs"),
         QStringLiteral("saveAll"), QStringLiteral("saveMass")});
    QToolBar* characters = bar(QStringLiteral("Gestion des characters"),
                               {QStringLiteral("addElement"), separator, QStringLiteral("undo"),
                                QStringLiteral("redo"), separator, QStringLiteral("zoomOut")});
    m_zoomBox = new QLineEdit(QStringLiteral("100 %"), characters);
    m_zoomBox->setMaximumWidth(50);
    connect(m_zoomBox, &QLineEdit::textEdited, this,
            qOverload<const QString&>(&MainWindow::updateZoom));
    characters->addWidget(m_zoomBox);
    characters->addAction(action(QStringLiteral("zoomIn")));
    // Two rows of tools, so that a window 1024 pixels wide (80 % of a 1280-pixel screen)
    // shows every button without the overflow arrow.
    addToolBarBreak();
    bar(QStringLiteral("Fonctions de retouches"),
        {QStringLiteral("selectTool"), QStringLiteral("moveTool"), QStringLiteral("hue"),
         QStringLiteral("resize"), QStringLiteral("rotate"), separator,
         QStringLiteral("rotateP90"), QStringLiteral("rotateM90"), separator,
         QStringLiteral("flipH"), QStringLiteral("flipV"), QStringLiteral("restore"), separator,
         QStringLiteral("cellSize"), QStringLiteral("convert")});
    bar(QStringLiteral("Fonctions de dessins"),
        {QStringLiteral("pipetteTool"), QStringLiteral("penTool"), QStringLiteral("rubberTool"),
         QStringLiteral("lineTool"), QStringLiteral("rectTool"), QStringLiteral("circleTool"),
         QStringLiteral("zone")});
    // The tool options get a row of their own, so that they never fall behind the
    // overflow arrow of a crowded toolbar row.
    addToolBarBreak();
    m_drawingBar = new QDrawingOptionsBar(&m_tools, this);
    addToolBar(m_drawingBar);
    hideDrawingBar();
}

void MainWindow::createDocks()
{
    const auto dock = [&](const QString& title, Qt::DockWidgetArea area, const QString& name,
                          void (MainWindow::*slot)()) {
        QDockWidget* widget = new QDockWidget(title, this);
        widget->setObjectName(title);
        QLabel* placeholder = new QLabel(widget);
        placeholder->setMinimumSize(200, 120);
        widget->setWidget(placeholder);
        addDockWidget(area, widget);
        QAction* toggle = action(name);
        connect(toggle, &QAction::triggered, widget, &QDockWidget::setVisible);
        connect(widget, &QDockWidget::visibilityChanged, this, slot);
        return widget;
    };
    m_elementDock = dock(QStringLiteral("Eléments"), Qt::LeftDockWidgetArea,
                         QStringLiteral("elementsDock"), &MainWindow::setElementChecked);
    m_renderDock = dock(QStringLiteral("Rendu"), Qt::LeftDockWidgetArea,
                        QStringLiteral("renderDock"), &MainWindow::setRenduChecked);
    m_colorDock = dock(QStringLiteral("Couleurs"), Qt::RightDockWidgetArea,
                       QStringLiteral("colorDock"), &MainWindow::setColorChecked);
}

QLayer* MainWindow::activeLayer() const
{
    QMdiSubWindow* window = m_mdiArea->currentSubWindow();
    if (!window)
        return nullptr;
    QScrollLayer* scroll = qobject_cast<QScrollLayer*>(window->widget());
    return scroll ? scroll->layer() : nullptr;
}

QList<QLayer*> MainWindow::layers() const
{
    QList<QLayer*> result;
    for (QMdiSubWindow* window : m_mdiArea->subWindowList(QMdiArea::CreationOrder)) {
        if (QScrollLayer* scroll = qobject_cast<QScrollLayer*>(window->widget()))
            result.append(scroll->layer());
    }
    return result;
}

QLayer* MainWindow::addDocument(const Character& character, const QString& title)
{
    QLayer* layer = new QLayer(title, character.sheetSize(), character.kind(), m_mdiArea);
    *layer->character() = character;
    layer->setToolState(&m_tools);
    QScrollLayer* scroll = new QScrollLayer(layer);
    QMdiSubWindow* window = m_mdiArea->addSubWindow(scroll);
    window->setWindowTitle(title);
    window->setWindowIcon(QIcon(QStringLiteral(":/icon/Save.png")));
    // No minimum size: a sheet taller than the area scrolls instead of being cut.
    // The sub-window's Close also claims Ctrl+W, which belongs to the grid here.
    for (QAction* systemAction : window->systemMenu()->actions()) {
        if (systemAction->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_W)))
            systemAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F4));
    }
    window->show();
    m_mdiArea->setActiveSubWindow(window);
    layer->resizeToSheet();
    layer->recordStep("Etat d'origine");
    layer->setModified(false);
    refreshPanels(layer->character(), layer);
    writeZoom(layer->character());
    return layer;
}

void MainWindow::newConversion() {}

void MainWindow::newFusion() {}

void MainWindow::newCharXP()
{
    QNewCharacter* dialog = new QNewCharacter(Character::XP, QString(), false, nullptr, 0, 0, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QNewCharacter::validNewChar, this, &MainWindow::addCharacter);
    dialog->open();
}

void MainWindow::newCharVX()
{
    QNewCharacter* dialog = new QNewCharacter(Character::VX, QString(), false, nullptr, 0, 0, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QNewCharacter::validNewChar, this, &MainWindow::addCharacter);
    dialog->open();
}

void MainWindow::addCharacter(const QString& str, int largeur, int hauteur, int type)
{
    addDocument(Character(type, QSize(largeur, hauteur)), str);
}


void MainWindow::updateActiveWindow(QMdiSubWindow* window)
{
    if (!window) {
        refreshPanels(m_emptyCharacter, nullptr);
        m_zoomBox->clear();
        return;
    }
    QScrollLayer* scroll = qobject_cast<QScrollLayer*>(window->widget());
    if (!scroll)
        return;
    QLayer* layer = scroll->layer();
    refreshPanels(layer->character(), layer);
    writeZoom(layer->character());
    layer->character()->setShowGrid(action(QStringLiteral("grid"))->isChecked());
    layer->refresh();
}

// The element list and the preview show the active document, or the empty character.
// Their panels land with their own widgets; until then the docks hold placeholders.
void MainWindow::refreshPanels(Character*, QLayer*) {}

void MainWindow::writeZoom(const Character* character)
{
    m_zoomBox->setText(QString::number(std::lround(100 * character->zoom())) +
                       QStringLiteral(" %"));
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

void MainWindow::openMarlowickUrl()
{
    QDesktopServices::openUrl(QUrl(QStringLiteral("https://www.marlowick.fr/")));
}

void MainWindow::changeBg()
{
    QLayer* layer = activeLayer();
    if (!layer)
        return;
    const QString title = QStringLiteral("Couleur d'arrière plan");
    Character* character = layer->character();
    std::optional<QColor> colour =
        Prompts::instance()->colour(this, title, QColor::fromRgba(QRgb(character->fillPixel())));
    if (!colour)
        return;
    Settings settings;
    bool showAlpha = true;
    settings.get(QStringLiteral("showAlpha"), showAlpha);
    bool asked = false;
    bool ticked = false;
    while (showAlpha && colour->alpha() == 0) {
        asked = true;
        Prompts::Message question;
        question.icon = QMessageBox::Question;
        question.title = QStringLiteral("Couleur d'arrière-plan");
        question.text = QStringLiteral("<h3>Changer la couleur d'arrière-plan</h3>");
        question.informativeText = QStringLiteral(
            "Vous avez sélectionné une couleur d'arrière-plan entièrement transparente.\n"
            "Le character n'aura donc pas d'arrière-plan visible. Pour résoudre ce problème,\n"
            "vous pouvez resélectionner une couleur en augmentant son opacité (canal alpha).\n"
            "Voulez-vous choisir une autre couleur ?");
        question.buttons = QMessageBox::Yes | QMessageBox::No;
        question.checkBoxText = QStringLiteral("Ne plus afficher ce message");
        const Prompts::Answer answer = Prompts::instance()->message(this, question);
        ticked = answer.checked;
        if (answer.button != QMessageBox::Yes || ticked)
            break;
        colour = Prompts::instance()->colour(this, title, *colour);
        if (!colour)
            break;
    }
    // Only an answer given in the box is remembered.
    if (asked)
        settings.set(QStringLiteral("showAgain"), QStringLiteral("showAlpha"), !ticked);
    if (!colour)
        return;
    character->setFillPixel(qint32(colour->rgba()));
    layer->refresh();
}

void MainWindow::showHelp() {}

void MainWindow::showHelp(const QString&) {}

void MainWindow::showHelp_Create_Character() {}

void MainWindow::showQuickHelp() {}






void MainWindow::saveMass() {}

void MainWindow::updateGrid()
{
    QLayer* layer = activeLayer();
    if (!layer)
        return;
    layer->character()->setShowGrid(!layer->character()->showGrid());
    layer->refresh();
}

void MainWindow::updateZoomP()
{
    QLayer* layer = activeLayer();
    if (!layer)
        return;
    const double before = layer->character()->zoom();
    layer->zoomStep(0);
    if (layer->character()->zoom() != before)
        writeZoom(layer->character());
}

void MainWindow::updateZoomM()
{
    QLayer* layer = activeLayer();
    if (!layer)
        return;
    const double before = layer->character()->zoom();
    layer->zoomStep(1);
    if (layer->character()->zoom() != before)
        writeZoom(layer->character());
}

void MainWindow::updateZoom()
{
    updateZoom(m_zoomBox->text());
}

void MainWindow::updateZoom(const QString& str)
{
    QLayer* layer = activeLayer();
    if (!layer)
        return;
    QString text = str;
    text.remove(QLatin1Char(' '));
    text.remove(QLatin1Char('%'));
    layer->setZoom(text.toDouble() / 100);
}

void MainWindow::addElementLibrary() {}

void MainWindow::undo()
{
    QLayer* layer = activeLayer();
    if (!layer || !layer->history()->canUndo())
        return;
    layer->character()->restore(layer->goToStep(layer->history()->undoOffset()));
    refreshPanels(layer->character(), layer);
    // A step may bring back another sheet size (cell size, conversion).
    layer->resizeToSheet();
}

void MainWindow::redo()
{
    QLayer* layer = activeLayer();
    if (!layer || !layer->history()->canRedo())
        return;
    layer->character()->restore(layer->goToStep(layer->history()->currentIndex() + 1));
    refreshPanels(layer->character(), layer);
    layer->resizeToSheet();
}

void MainWindow::couper() {}

void MainWindow::copier() {}

void MainWindow::coller() {}

void MainWindow::selectAllCellule()
{
    if (QLayer* layer = activeLayer()) {
        layer->character()->selectAllCells();
        layer->refresh();
    }
}

void MainWindow::selectReverseCellule()
{
    if (QLayer* layer = activeLayer()) {
        layer->character()->invertCellSelection();
        layer->refresh();
    }
}

void MainWindow::selectVoidCellule()
{
    if (QLayer* layer = activeLayer()) {
        layer->character()->clearCellSelection();
        layer->refresh();
    }
}

void MainWindow::addCharacterElement() {}

void MainWindow::convertCharacter()
{
    QLayer* layer = activeLayer();
    if (!layer)
        return;
    Character* character = layer->character();
    if (character->kind() == Character::XP)
        character->convertToVX();
    else
        character->convertToXP();
    layer->recordStep("Convertion du character");
    layer->resizeToSheet();
    refreshPanels(character, layer);
}

void MainWindow::flipCharH() {}

void MainWindow::flipCharV() {}

void MainWindow::rotateCharacterP90() {}

void MainWindow::rotateCharacterM90() {}

void MainWindow::reLoadElement() {}

void MainWindow::changeSize()
{
    QMdiSubWindow* window = m_mdiArea->currentSubWindow();
    QLayer* layer = activeLayer();
    if (!window || !layer)
        return;
    const QSize sheet = layer->character()->sheetSize();
    QNewCharacter* dialog =
        new QNewCharacter(layer->kind(), layer->title(), true,
                          qobject_cast<QScrollLayer*>(window->widget()), sheet.width(),
                          sheet.height(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void MainWindow::redimension() {}

void MainWindow::rotateCharacter() {}

void MainWindow::colorationCharacter() {}

void MainWindow::selectOnlyTool(QAction* keep)
{
    for (QAction* toolAction : std::as_const(m_toolActions)) {
        if (toolAction != keep)
            toolAction->setChecked(false);
    }
}

void MainWindow::hideDrawingBar()
{
    m_drawingBar->setEnabled(false);
    m_drawingBar->hide();
}

void MainWindow::showDrawingBar(quint8 tool)
{
    m_drawingBar->fill(tool);
}

void MainWindow::setSelectTool(bool)
{
    m_tools.tool = ToolState::Select;
    QAction* select = action(QStringLiteral("selectTool"));
    select->setChecked(true);
    selectOnlyTool(select);
    hideDrawingBar();
}

void MainWindow::setMoveTool(bool b)
{
    m_tools.tool = b ? ToolState::Move : ToolState::Select;
    QAction* move = action(QStringLiteral("moveTool"));
    QAction* select = action(QStringLiteral("selectTool"));
    selectOnlyTool(move);
    select->setChecked(!b);
    hideDrawingBar();
}

void MainWindow::setPipetteTool(bool b)
{
    m_tools.tool = b ? ToolState::Pipette : ToolState::Select;
    QAction* pipette = action(QStringLiteral("pipetteTool"));
    QAction* select = action(QStringLiteral("selectTool"));
    selectOnlyTool(pipette);
    select->setChecked(!b);
    hideDrawingBar();
}

// The drawing tools: checked, the tool takes its code alone and refills the options
// bar; unchecked, the code goes back to the select tool's while its action stays
// unchecked until it is pressed.
void MainWindow::setDrawingTool(quint8 tool, const QString& actionName, bool checked)
{
    if (!checked) {
        m_tools.tool = ToolState::Select;
        hideDrawingBar();
        return;
    }
    m_tools.tool = tool;
    selectOnlyTool(action(actionName));
    showDrawingBar(tool);
}

void MainWindow::setPenTool(bool b)
{
    setDrawingTool(ToolState::Pen, QStringLiteral("penTool"), b);
}

void MainWindow::setCircleTool(bool b)
{
    setDrawingTool(ToolState::Circle, QStringLiteral("circleTool"), b);
}

void MainWindow::setLineTool(bool b)
{
    setDrawingTool(ToolState::Line, QStringLiteral("lineTool"), b);
}

void MainWindow::setRectTool(bool b)
{
    setDrawingTool(ToolState::Rectangle, QStringLiteral("rectTool"), b);
}

void MainWindow::setRubberTool(bool b)
{
    setDrawingTool(ToolState::Rubber, QStringLiteral("rubberTool"), b);
}

void MainWindow::widthChanged(int w)
{
    m_tools.penWidth = w;
}

void MainWindow::shapeChanged(int s)
{
    m_tools.penShape = s;
}

void MainWindow::modeRubber(int ii)
{
    m_tools.rubberMode = qint8(ii);
    m_drawingBar->setPenControlsEnabled(ii == 0);
}

void MainWindow::setPaintMode(int i)
{
    m_tools.paintMode = i;
    m_drawingBar->setGradientPreviewEnabled(i != 0);
}

void MainWindow::setDrawMode(int mode)
{
    m_tools.drawMode = mode;
    m_drawingBar->showDrawMode(mode);
}

void MainWindow::checkOnly(QAction* action, const QList<QAction*>& group)
{
    for (QAction* other : group)
        other->setChecked(other == action);
}

void MainWindow::setPleinContourMode()
{
    setDrawMode(2);
}

void MainWindow::setPleinMode()
{
    setDrawMode(1);
}

void MainWindow::setContourMode()
{
    setDrawMode(0);
}

void MainWindow::changeDrawMode()
{
    // Outline, then filled, then filled with outline, then outline again.
    setDrawMode(m_tools.drawMode == 0 ? 1 : m_tools.drawMode == 1 ? 2 : 0);
}

void MainWindow::showGradientEditor() {}

// The check marks move even with no document open; the stored zone only changes with
// one, so the old value stays until the next choice made on a document.
void MainWindow::setZone(QAction* chosen, int zone)
{
    checkOnly(chosen, m_zoneActions);
    if (m_mdiArea->currentSubWindow())
        m_tools.zoneOfEffect = zone;
}

void MainWindow::setTargetDrawing(bool)
{
    setZone(m_zoneActions.at(0), 0);
}

void MainWindow::setSelectedDrawing(bool)
{
    setZone(m_zoneActions.at(1), 1);
}

void MainWindow::setAllDrawing(bool)
{
    setZone(m_zoneActions.at(2), 2);
}

void MainWindow::setPrimaryColor(const QColor& c)
{
    m_primaryColor = c;
}

void MainWindow::setSecondaryColor(const QColor& c)
{
    m_secondaryColor = c;
}

void MainWindow::setColor(const QColor& c, int color_type)
{
    if (color_type == 2)
        m_primaryColor = c;
    else if (color_type == 3)
        m_secondaryColor = c;
}

void MainWindow::setColor(const QColor& c)
{
    setColor(c, 2);
}

void MainWindow::aboutZK() {}

void MainWindow::aboutThanks() {}

void MainWindow::welcome() {}

void MainWindow::doYouNeedHelp() {}

void MainWindow::donation() {}


// --- Documents: opening ---------------------------------------------------------------

void MainWindow::openZKFile()
{
    Settings settings;
    QString folder = QDir::homePath();
    settings.get(QStringLiteral("pathLoadZKFile"), folder);
    QString filter;
    const QStringList files = Prompts::instance()->openFileNames(
        this, QStringLiteral("Ouvrir un fichier"), folder,
        QStringLiteral("Fichier Zenkora (*.zk);;Elément Zenkora (*.elzk);;Image (*.png)"),
        &filter);
    if (files.isEmpty())
        return;
    const QString directory = directoryOf(files.first());
    if (!directory.contains(QLatin1Char('?'))) {
        settings.set(QStringLiteral("Path"), QStringLiteral("pathLoadZKFile"), directory);
        settings.save();
    }
    // The chosen filter decides how the files are read, not their extensions.
    for (const QString& file : files) {
        if (filter == QStringLiteral("Fichier Zenkora (*.zk)"))
            openCharacterFile(file, true);
        else if (filter == QLayer::ImageFilter)
            openImageFile(file);
        else
            openElementFile(file);
    }
}

void MainWindow::openDocument(const Character& character, const QString& path)
{
    addDocument(character, baseNameOf(path));
    addRecentFile(path);
    updateRecentMenu();
}

void MainWindow::openCharacterFile(const QString& path, bool reportErrors)
{
    Character character;
    quint8 version = 1;
    if (!character.loadCharacter(path, &version)) {
        if (reportErrors) {
            Prompts::instance()->critical(this, QStringLiteral("Erreur"),
                                          QStringLiteral("Erreur : ") + character.errorText());
        }
        return;
    }
    QLayer* layer = addDocument(character, baseNameOf(path));
    layer->setFileVersion(version);
    layer->setFilePath(path);
    addRecentFile(path);
    updateRecentMenu();
}

void MainWindow::openElementFile(const QString& path)
{
    QString error;
    const std::optional<ElementFile::Pair> pair = ElementFile::load(path, &error);
    if (!pair) {
        Prompts::instance()->critical(this, QStringLiteral("Erreur"),
                                      error.isEmpty() ? QStringLiteral("Impossible d'ouvrir : ") + path
                                                      : error);
        return;
    }
    openDocument(ElementFile::merged(*pair), path);
}

void MainWindow::openImageFile(const QString& path)
{
    const QString failure = QStringLiteral("Impossible d'ouvrir : ") + path;
    const QImage image = SafeFile::readImage(path);
    if (image.isNull()) {
        Prompts::instance()->critical(this, QStringLiteral("Erreur"), failure);
        return;
    }
    const int kind = Prompts::instance()->elementType(this);
    if (kind < 0)
        return;
    Character character(kind, image.size());
    if (!character.addElement(path)) {
        Prompts::instance()->critical(this, QStringLiteral("Erreur"), failure);
        return;
    }
    openDocument(character, path);
}

void MainWindow::openRecent()
{
    const QAction* recent = qobject_cast<const QAction*>(sender());
    if (!recent)
        return;
    const QString path = recent->data().toString();
    if (hasExtension(path, QStringLiteral("zk")))
        openCharacterFile(path, true);
    else if (hasExtension(path, QStringLiteral("png")))
        openImageFile(path);
    else
        openElementFile(path);
}

void MainWindow::addRecentFile(const QString& path)
{
    RecentFiles::add(path);
}

void MainWindow::updateRecentMenu()
{
    for (QAction* old : m_recentMenu->actions()) {
        m_recentMenu->removeAction(old);
        old->deleteLater();
    }
    const QStringList entries = RecentFiles::newestFirst();
    for (const QString& entry : entries) {
        QAction* recent = m_recentMenu->addAction(fileNameOf(entry));
        const QString tip = QStringLiteral("Ouvre le fichier : ") + entry;
        recent->setStatusTip(tip);
        recent->setToolTip(tip);
        recent->setData(entry);
        connect(recent, &QAction::triggered, this, &MainWindow::openRecent);
    }
    if (entries.isEmpty()) {
        QAction* none = m_recentMenu->addAction(QStringLiteral("Aucun"));
        none->setData(QStringLiteral("?NoRecent?"));
        none->setEnabled(false);
    }
}

// --- Documents: the default character -------------------------------------------------

static QString defaultCharacterPath()
{
    return QStringLiteral("default.zk");
}

void MainWindow::openDefault()
{
    Character character;
    if (!character.loadCharacter(defaultCharacterPath())) {
        Prompts::instance()->defaultCharacter(
            this, [this] { showHelp_Create_Character(); }, [this] { assignAsDefault(); });
        return;
    }
    // A document based on the default is new work: it starts marked as modified.
    QLayer* layer = addDocument(character, QStringLiteral("Sans titre"));
    layer->setModified(true);
}

void MainWindow::assignAsDefault()
{
    if (QLayer* layer = activeLayer())
        layer->character()->saveCharacter(defaultCharacterPath(), 1);
}

// --- Documents: saving ----------------------------------------------------------------

QMdiSubWindow* MainWindow::windowOf(const QLayer* layer) const
{
    for (QMdiSubWindow* window : m_mdiArea->subWindowList()) {
        QScrollLayer* scroll = qobject_cast<QScrollLayer*>(window->widget());
        if (scroll && scroll->layer() == layer)
            return window;
    }
    return nullptr;
}

void MainWindow::warnSaveFailed(const QString& title)
{
    Prompts::instance()->critical(this, title,
                                  QStringLiteral("Impossible de sauvegarder le fichier."));
}

void MainWindow::save()
{
    QLayer* layer = activeLayer();
    if (layer && layer->saveDocument() == 0)
        warnSaveFailed(QStringLiteral("Sauvegarde"));
}

void MainWindow::saveAs()
{
    QLayer* layer = activeLayer();
    if (layer && layer->saveDocumentAs() == 0)
        warnSaveFailed(QStringLiteral("Sauvegarde"));
}

void MainWindow::saveAll()
{
    for (QMdiSubWindow* window : m_mdiArea->subWindowList(QMdiArea::CreationOrder)) {
        m_mdiArea->setActiveSubWindow(window);
        QLayer* layer = activeLayer();
        if (layer && layer->saveDocument() == 0)
            warnSaveFailed(QStringLiteral("Sauvegarde"));
    }
}

// --- Closing the program --------------------------------------------------------------

void MainWindow::closeEvent(QCloseEvent* event)
{
    QuitSequence quit(*this);
    event->setAccepted(quit.run());
}
