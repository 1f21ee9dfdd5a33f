#include "app/mainmenus.h"

#include "app/mainwindow.h"
#include "app/qdrawingoptionsbar.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

MainMenus::MainMenus(MainWindow* window, ToolState* tools) : m_window(window), m_tools(tools) {}

template <typename Slot>
QAction* MainMenus::addAction(QMenu* menu, const QString& name, const QString& text,
                              const char* icon, const QKeySequence& key, const QString& tip,
                              Slot slot)
{
    QAction* action = icon ? new QAction(QIcon(QString::fromUtf8(icon)), text, m_window)
                           : new QAction(text, m_window);
    action->setShortcut(key);
    action->setStatusTip(tip);
    QObject::connect(action, &QAction::triggered, m_window, slot);
    if (menu)
        menu->addAction(action);
    m_actions.insert(name, action);
    return action;
}

QAction* MainMenus::action(const QString& name) const
{
    return m_actions.value(name);
}

void MainMenus::createMenus()
{
    createFileMenu();
    createEditMenu();
    createViewMenu();
    createCharacterMenu();
    createHelpMenu();
}

void MainMenus::createFileMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("&Fichier"));
    addAction(menu, QStringLiteral("newXP"), QStringLiteral("Nouveau character (XP)"),
              ":/icon/newXP.png", QKeySequence(QStringLiteral("Ctrl+N")),
              QStringLiteral("Créer un nouveau character pour RPG Maker XP."),
              &MainWindow::newCharXP);
    addAction(menu, QStringLiteral("newVX"), QStringLiteral("Nouveau character (VX)"),
              ":/icon/newVX.png", QKeySequence(QStringLiteral("Ctrl+Shift+N")),
              QStringLiteral("Créer un nouveau character pour RPG Maker VX."),
              &MainWindow::newCharVX);
    addAction(menu, QStringLiteral("newDefault"),
              QStringLiteral("Nouveau character basé sur celui par défaut"), ":/icon/newCustom.png",
              QKeySequence(QStringLiteral("Ctrl+Alt+N")),
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

void MainMenus::createEditMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("&Edition"));
    addAction(menu, QStringLiteral("undo"), QStringLiteral("Annuler"), ":/icon/Undo2.png",
              QKeySequence(QStringLiteral("Ctrl+Z")), QStringLiteral("Annule l'action précédente."),
              &MainWindow::undo);
    addAction(menu, QStringLiteral("redo"), QStringLiteral("Rétablir"), ":/icon/Redo2.png",
              QKeySequence(QStringLiteral("Ctrl+Y")), QStringLiteral("Rétablit l'action suivante."),
              &MainWindow::redo);
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

void MainMenus::createViewMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("&Affichage"));
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
        QAction* action = new QAction(text, m_window);
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

void MainMenus::createCharacterMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("&Characters"));
    QMenu* selection = menu->addMenu(QIcon(QStringLiteral(":/icon/sélectionCase.png")),
                                     QStringLiteral("Sélection"));
    selection->menuAction()->setStatusTip(QStringLiteral(
        "Sélectionnez, désélectionnez, inversez la sélection des poses du character."));
    addAction(selection, QStringLiteral("selectAll"), QStringLiteral("Sélectionner tout"), nullptr,
              QKeySequence(QStringLiteral("Ctrl+A")),
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
    QAction* select =
        addAction(menu, QStringLiteral("selectTool"), QStringLiteral("Sélection"),
                  ":/icon/selectionCursor.png", QKeySequence(QStringLiteral("Ctrl+P")),
                  QStringLiteral("Sélectionne les différentes poses du character."),
                  &MainWindow::setSelectTool);
    QAction* move =
        addAction(menu, QStringLiteral("moveTool"), QStringLiteral("Déplacement"),
                  ":/icon/moveCursor.png", QKeySequence(QStringLiteral("Ctrl+M")),
                  QStringLiteral("Déplace les éléments sélectionnés."), &MainWindow::setMoveTool);
    addAction(menu, QStringLiteral("hue"), QStringLiteral("Teinte / Saturation"),
              ":/icon/cerclechrom.png", QKeySequence(QStringLiteral("Ctrl+U")),
              QStringLiteral("Modifie la teinte/saturation/luminosité des éléments "
                             "sélectionnés."),
              &MainWindow::colorationCharacter);
    addAction(menu, QStringLiteral("resize"), QStringLiteral("Redimension"),
              ":/icon/redimension.png", QKeySequence(QStringLiteral("Ctrl+T")),
              QStringLiteral("Redimensionne les éléments sélectionnés."), &MainWindow::redimension);
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

void MainMenus::createDrawingActions(QMenu* menu)
{
    const auto tool = [&](const QString& name, const QString& text, const char* icon,
                          const char* key, const QString& tip, void (MainWindow::*slot)(bool)) {
        QAction* action =
            addAction(menu, name, text, icon, QKeySequence(QString::fromLatin1(key)), tip, slot);
        action->setCheckable(true);
        m_toolActions.append(action);
    };
    tool(QStringLiteral("pipetteTool"), QStringLiteral("Pipette"), ":/icon/pipette.png", "Ctrl+F",
         QStringLiteral("Sélectionne une couleur."), &MainWindow::setPipetteTool);
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

    m_zoneMenu = new QMenu(m_window);
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
                                      QStringLiteral("Zone d'effet"), m_window);
    zoneAction->setStatusTip(QStringLiteral("Définit la zone d'effet des fonctions de dessin."));
    zoneAction->setMenu(m_zoneMenu);
    menu->addAction(zoneAction);
    m_actions.insert(QStringLiteral("zone"), zoneAction);
}

void MainMenus::createHelpMenu()
{
    QMenu* menu = m_window->menuBar()->addMenu(QStringLiteral("?"));
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
              QStringLiteral("Conduit vers le site de Marlowick."), &MainWindow::openMarlowickUrl);
    menu->addSeparator();
    addAction(menu, QStringLiteral("donation"), QStringLiteral("Faire un don"), nullptr,
              QKeySequence(), QStringLiteral("Faire un don à Zenkora."), &MainWindow::donation);
    menu->addSeparator();
    addAction(menu, QStringLiteral("quickHelp"), QStringLiteral("Introduction à Zenkora"), nullptr,
              QKeySequence(Qt::Key_F2),
              QStringLiteral("Ouvre un court manuel présentant les fonctions de base du "
                             "Zenkora."),
              &MainWindow::showQuickHelp);
    addAction(menu, QStringLiteral("help"), QStringLiteral("Manuel d'aide"), ":/icon/helpicon.png",
              QKeySequence(Qt::Key_F1), QStringLiteral("Ouvre le manuel d'aide de Zenkora."),
              qOverload<>(&MainWindow::showHelp));
}

void MainMenus::createToolBars()
{
    const auto bar = [&](const QString& title, const QStringList& names) {
        QToolBar* toolBar = m_window->addToolBar(title);
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
         QStringLiteral("conversion"), QStringLiteral("fusion"), separator, QStringLiteral("open"),
         QStringLiteral("save"), QStringLiteral("saveAs"), QStringLiteral("saveAll"),
         QStringLiteral("saveMass")});
    QToolBar* characters = bar(QStringLiteral("Gestion des characters"),
                               {QStringLiteral("addElement"), separator, QStringLiteral("undo"),
                                QStringLiteral("redo"), separator, QStringLiteral("zoomOut")});
    m_zoomBox = new QLineEdit(QStringLiteral("100 %"), characters);
    m_zoomBox->setMaximumWidth(50);
    QObject::connect(m_zoomBox, &QLineEdit::textEdited, m_window,
                     qOverload<const QString&>(&MainWindow::updateZoom));
    characters->addWidget(m_zoomBox);
    characters->addAction(action(QStringLiteral("zoomIn")));
    // Two rows of tools, so that a window 1024 pixels wide (80 % of a 1280-pixel screen)
    // shows every button without the overflow arrow.
    m_window->addToolBarBreak();
    bar(QStringLiteral("Fonctions de retouches"),
        {QStringLiteral("selectTool"), QStringLiteral("moveTool"), QStringLiteral("hue"),
         QStringLiteral("resize"), QStringLiteral("rotate"), separator, QStringLiteral("rotateP90"),
         QStringLiteral("rotateM90"), separator, QStringLiteral("flipH"), QStringLiteral("flipV"),
         QStringLiteral("restore"), separator, QStringLiteral("cellSize"),
         QStringLiteral("convert")});
    bar(QStringLiteral("Fonctions de dessins"),
        {QStringLiteral("pipetteTool"), QStringLiteral("penTool"), QStringLiteral("rubberTool"),
         QStringLiteral("lineTool"), QStringLiteral("rectTool"), QStringLiteral("circleTool"),
         QStringLiteral("zone")});
    // The tool options get a row of their own, so that they never fall behind the
    // overflow arrow of a crowded toolbar row.
    m_window->addToolBarBreak();
    m_drawingBar = new QDrawingOptionsBar(m_tools, m_window);
    m_window->addToolBar(m_drawingBar);
    m_drawingBar->setEnabled(false);
    m_drawingBar->hide();
}
