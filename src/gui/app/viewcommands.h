#pragma once

class Character;
class MainWindow;
class QString;

// How the active document is shown: grid, zoom and the background colour.
class ViewCommands
{
public:
    explicit ViewCommands(MainWindow& window);

    void updateGrid();
    // 0 zooms in, 1 out, by the canvas's steps.
    void zoomStep(int direction);
    // A zoom typed in the box, "150 %" or "150".
    void setZoomText(const QString& text);
    void writeZoom(const Character* character);
    void changeBg();

private:
    MainWindow& m_window;
};
