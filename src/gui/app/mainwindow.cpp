#include "app/mainwindow.h"

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStatusBar>

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), m_emptyCharacter(new Character)
{
    setWindowTitle(QStringLiteral("Zenkora"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/ZK.png")));
    m_mdiArea = new QMdiArea(this);
    m_mdiArea->setViewMode(QMdiArea::TabbedView);
    setCentralWidget(m_mdiArea);
    connect(m_mdiArea, &QMdiArea::subWindowActivated, this, &MainWindow::updateActiveWindow);
    statusBar()->addPermanentWidget(new QLabel(QStringLiteral("Prêt")));
}

MainWindow::~MainWindow()
{
    delete m_emptyCharacter;
}

void MainWindow::updateActiveWindow(QMdiSubWindow*) {}
