#pragma once

#include <QList>
#include <QString>

class Character;
class MainWindow;
class QLayer;
class QMdiSubWindow;

// The life of documents in the main window: new ones, opening files, the recent list,
// the default character, and saving.
class DocumentCommands
{
public:
    explicit DocumentCommands(MainWindow& window);

    // The active document's canvas, or null when no document is open.
    QLayer* activeLayer() const;
    QList<QLayer*> layers() const;
    QMdiSubWindow* windowOf(const QLayer* layer) const;
    // Opens a new document around a character and returns its canvas.
    QLayer* addDocument(const Character& character, const QString& title);

    void newCharacter(int kind);
    void addCharacter(const QString& name, int width, int height, int kind);

    // Openers, each reporting its own failures.
    void openZKFile();
    void openCharacterFile(const QString& path, bool reportErrors);
    void openElementFile(const QString& path);
    void openImageFile(const QString& path);
    void openRecent(const QString& path);
    void addRecentFile(const QString& path);
    void updateRecentMenu();

    void openDefault();
    void assignAsDefault();

    void save();
    void saveAs();
    void saveAll();

private:
    void openDocument(const Character& character, const QString& path);
    void warnSaveFailed(const QString& title);

    MainWindow& m_window;
};
