#pragma once

#include <QPixmap>
#include <QString>

#include <functional>

class QComboWidget;
class QMessageBox;
class QWidget;

// Builds the program's fixed questions, configured and not yet shown. The caller owns
// what it gets (the parent deletes it otherwise), shows it and reads the answer:
// chosenIndex() for a QComboWidget, the standard button for a QMessageBox.
class ChoiceDialogs
{
public:
    // Rows of closeWithChanges() in its four-way form; the three-way form has no
    // SaveAll row, so Discard and Cancel come one index earlier.
    enum CloseRow
    {
        CloseSave = 0,
        CloseSaveAll = 1,
        CloseDiscard = 2,
        CloseCancel = 3
    };

    // Rows: 0 XP, 1 VX.
    static QComboWidget* elementType(QWidget* parent = nullptr);
    // Rows: 0 search the count in the file name, 1 a single character, 2 eight.
    static QComboWidget* vxCharacterCount(QWidget* parent = nullptr);
    // Shown when the default character cannot be read. Rows 0 and 1 run the given
    // actions and leave the dialog open; row 2 closes it.
    static QComboWidget* defaultCharacter(const std::function<void()>& showHelp,
                                          const std::function<void()>& assignAsDefault,
                                          QWidget* parent = nullptr);
    // The question about a document with unsaved changes; name is a path or a title.
    static QComboWidget* closeWithChanges(const QString& name, const QPixmap& thumbnail,
                                          bool withSaveAll, QWidget* parent = nullptr);
    // Maps a row of closeWithChanges() to a CloseRow, -1 staying -1.
    static int closeRowOf(int index, bool withSaveAll);
    // The first-run help offer. Rows: 0 the quick guide, 1 the manual, 2 nothing; the
    // caller connects rows 0 and 1. Every row closes the dialog.
    static QComboWidget* doYouNeedHelp(QWidget* parent = nullptr);

    // The message box form of the unsaved-changes question, which the close handlers
    // use: Save, Save All (withSaveAll only), Discard and Cancel.
    static QMessageBox* closeMessage(const QString& name, const QPixmap& thumbnail,
                                     bool withSaveAll, QWidget* parent = nullptr);
};
