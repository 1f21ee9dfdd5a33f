#pragma once

#include "document/character.h"

#include <QMainWindow>

class QMdiArea;
class QMdiSubWindow;

// The program's main window: the tabbed area of documents, the menus, toolbars and
// docks, and the tool state that all canvases share.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    QMdiArea* mdiArea() const { return m_mdiArea; }

public slots:
    void updateActiveWindow(QMdiSubWindow* window);

private:
    QMdiArea* m_mdiArea = nullptr;
    Character* m_emptyCharacter = nullptr;
};
