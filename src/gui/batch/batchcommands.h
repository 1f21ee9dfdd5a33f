#pragma once

class QLayer;
class QWidget;

// Opens the three batch windows from the main window. Each window lives on its own and
// deletes itself when closed.
class BatchCommands
{
public:
    static void openConversion(QWidget* parent);
    static void openFusion(QWidget* parent);
    // The mass save of the document of layer, if there is one: its folder and its base
    // name start the destination and the prefix (the home folder and nothing for a
    // document without a file).
    static void openMassSave(QWidget* parent, const QLayer* layer);
};
