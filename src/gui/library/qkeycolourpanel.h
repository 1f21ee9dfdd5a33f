#pragma once

#include <QColor>
#include <QStringList>
#include <QWidget>

class QComboBox;
class QElementView;
class QLabel;
class QScrollArea;

// The picture side of the dialogs that bring images into the library: the images
// chosen, shown one at a time in a zoomable view, and the two key colours picked on
// them with their swatches. The dialogs add what is done with each image.
class QKeyColourPanel : public QWidget
{
    Q_OBJECT

public:
    QKeyColourPanel(const QStringList& files, QWidget* parent = nullptr);

    // Shows the first readable image from index on, each unreadable one reported by
    // its box on the way; false when none remains. The zoom and the colours start over.
    bool showFrom(int index);
    int fileIndex() const { return m_fileIndex; }
    int count() const { return int(m_files.size()); }
    QString currentFile() const { return m_files.value(m_fileIndex); }
    // The window title's count: the position of the image in the chosen list.
    QString counter() const;

    QElementView* view() const { return m_view; }
    QComboBox* zoomBox() const { return m_zoomBox; }
    QLabel* swatch(int type) const { return type == 0 ? m_transparentSwatch : m_translucentSwatch; }
    QColor transparentColor() const { return m_transparentColor; }
    QColor translucentColor() const { return m_translucentColor; }
    // The image shown with its key colours applied.
    QImage converted() const;

public slots:
    void updateZoom(int index);
    void updateColor(const QColor& rgb, int type);

private:
    QStringList m_files;
    int m_fileIndex = -1;
    QElementView* m_view;
    QScrollArea* m_scrollArea;
    QComboBox* m_zoomBox;
    QLabel* m_transparentSwatch;
    QLabel* m_translucentSwatch;
    QImage m_checker;
    QColor m_transparentColor = Qt::transparent;
    QColor m_translucentColor = Qt::transparent;
};
