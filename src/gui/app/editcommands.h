#pragma once

class MainWindow;

// Changes to the active document from the "Edition" and "Characters" menus: the
// history, the cell selection, the conversion and the size of cells.
class EditCommands
{
public:
    explicit EditCommands(MainWindow& window);

    void undo();
    void redo();
    void selectAllCells();
    void invertCellSelection();
    void clearCellSelection();
    void convertCharacter();
    void changeSize();

private:
    MainWindow& m_window;
};
