#pragma once

#include <QDialog>
#include <QPointer>

class QCheckBox;
class QLabel;
class QLayer;
class QLayerList;
class QLibraryBrowser;
class QMdiArea;
class QMdiSubWindow;
class QPushButton;
class QScrollArea;

// The library browser with which the user stacks elements on the active document. It
// stays open beside the main window, follows the document that becomes active, and
// adds one element after another: sheets (converted from the other engine if asked),
// group elements wrapped around the selected element, and drawing layers.
class QAddCharacterElementBox : public QDialog
{
    Q_OBJECT

public:
    QAddCharacterElementBox(QMdiArea* mdiArea, QLayerList* list, QWidget* parent = nullptr);

    QLibraryBrowser* browser() const { return m_browser; }
    QLabel* previewLabel() const { return m_preview; }
    QPushButton* validButton() const { return m_valid; }
    QPushButton* drawingLayerButton() const { return m_drawingLayer; }
    QCheckBox* convertBox() const { return m_convert; }
    QCheckBox* closeBox() const { return m_closeAfterAdding; }
    // The document additions go to, or null.
    QLayer* layer() const { return m_noDocument ? nullptr : m_layer.data(); }

public slots:
    void showElement(const QModelIndex& modelIndex);
    void validModelIndex(const QModelIndex& modelIndex);
    void validModelIndex();
    void backElement();
    void addDessinLayer();
    void updateActiveWindow(QMdiSubWindow* window);
    void updateInfo();

private:
    void followDocument(QMdiSubWindow* window);
    void finish(const QByteArray& label);
    void refuseFull();

    QLibraryBrowser* m_browser;
    QLabel* m_preview;
    QScrollArea* m_previewArea;
    QPushButton* m_valid;
    QPushButton* m_drawingLayer;
    QCheckBox* m_convert;
    QCheckBox* m_closeAfterAdding;
    // The canvas goes with its document; the pointer tells when it has gone.
    QPointer<QLayer> m_layer;
    QPointer<QLayerList> m_list;
    QMdiArea* m_mdiArea;
    bool m_noDocument = true;
};
