#pragma once

class MainWindow;
struct ToolState;

// The drawing gradient: read at start-up from the file last saved or opened in the
// editor, and edited through the gradient editor from the "Dessins" bar.
class GradientCommands
{
public:
    // Reads the file named by the setting "degrade" without a word; the default
    // gradient stays when there is none or it cannot be read whole.
    GradientCommands(MainWindow& window, ToolState* tools);

    // "Valider" replaces the drawing gradient and redraws the bar's preview; "Annuler"
    // keeps it.
    void showGradientEditor();

private:
    MainWindow& m_window;
    ToolState* m_tools;
};
