#pragma once

#include "document/character.h"
#include "document/history.h"

#include <QLabel>
#include <QPointer>

#include <memory>

class CanvasTools;
class QLayerList;
class QMdiArea;
class QMdiSubWindow;
struct ToolState;

// The canvas of one document: it owns the Character and its History, shows the
// rendered sheet as the label's pixmap, and turns mouse and key input into selection
// changes, moves and strokes. It paints nothing itself: every change is a new pixmap.
class QLayer : public QLabel
{
    Q_OBJECT

public:
    QLayer(const QString& name, QSize size, int kind, QMdiArea* mdiArea, QWidget* parent = nullptr);
    ~QLayer() override;

    void setToolState(ToolState* state) { m_tools = state; }
    ToolState* toolState() const { return m_tools; }
    // The element list, told when the canvas changes the elements' pictures itself.
    void setLayerList(QLayerList* list);
    QLayerList* layerList() const;
    // The elements' pictures changed behind the list's back: it draws its thumbnails
    // again before it next paints.
    void elementsChanged();
    // Whether the question about drawing on an element rather than on a drawing layer
    // was asked already; choosing another element in the list clears it.
    bool drawElementAsked() const { return m_drawElementAsked; }
    void setDrawElementAsked(bool asked) { m_drawElementAsked = asked; }
    Character* character() { return &m_character; }
    const Character* character() const { return &m_character; }
    History* history() { return &m_history; }

    QString title() const { return m_title; }
    void setTitle(const QString& title) { m_title = title; }
    QString filePath() const { return m_filePath; }
    void setFilePath(const QString& path) { m_filePath = path; }
    quint8 fileVersion() const { return m_fileVersion; }
    void setFileVersion(quint8 version) { m_fileVersion = version; }
    bool askOnClose() const { return m_askOnClose; }
    void setAskOnClose(bool ask) { m_askOnClose = ask; }
    bool isModified() const { return m_modified; }
    // Marks the document's own sub-window: its icon, and its title with or without "*".
    void setModified(bool modified);
    QMdiSubWindow* subWindow() const;
    int kind() const { return m_character.kind(); }

    void refresh();
    void resizeToSheet();
    // Zoom steps: 0 in, 1 out. setZoom takes a free value, bounded to 0.5..16.
    void zoomStep(int direction);
    void setZoom(double zoom);

    // Geometry of the displayed pixmap: the centring offset, the sheet point under a
    // widget point, the cell under a pixmap point (-1 outside every cell).
    QPoint pixmapOffset() const;
    QPoint pixelPoint(QPoint widgetPoint) const;
    QPoint sheetPoint(QPoint pixelPoint) const;
    int cellAt(QPoint pixelPoint) const;
    QPoint cellPoint(int cell) const;
    QPoint cellLocal(int cell, QPoint sheetPoint) const;
    void selectCell(int cell, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    // Every change to the document ends here: the mark, then a whole-state step.
    void recordStep(const QByteArray& label);
    const HistoryStep& goToStep(int index);

    // Saving. saveDocument asks for a name when the document has none and gives 0 on
    // failure, 1 on success, 2 when the user cancelled the dialog; saveDocumentAs
    // always asks, and gives 2 for a cancel too (a cancel is no failure).
    int saveDocument();
    int saveDocumentAs();
    static const QString FileFilters;
    static const QString BetaFilter;
    static const QString ImageFilter;

signals:
    // Sent at every mark of the document: each change, undo, redo and save.
    void documentMarked(bool modified);
    // The pipette's colour, for the primary colour.
    void colourPicked(const QColor& colour);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void showTransparencyChecker();
    quint8 tool() const;
    void moveSelection(QPoint delta);
    void selectWithArrow(int key, Qt::KeyboardModifiers modifiers);
    void selectRange(int cell, bool toggleAll);
    QString askSaveName(const QString& title, QString* filter);
    bool exportPng(const QString& path);
    bool writeCharacter(const QString& path, quint8 version);
    void markSaved();
    bool confirmCloseWithChanges();
    bool confirmCloseClean();

    bool m_askOnClose = true;
    bool m_modified = false;
    bool m_drawElementAsked = false;
    QPointer<QLayerList> m_layerList;
    ToolState* m_tools = nullptr;
    std::unique_ptr<CanvasTools> m_canvasTools;
    Character m_character;
    History m_history;
    QString m_title;
    QString m_filePath;
    quint8 m_fileVersion = 1;
};
