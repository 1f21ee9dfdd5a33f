#pragma once

#include "library/elementgroup.h"

#include <QDialog>

class QKeyColourPanel;

// The key colours of the images that go into a group element: each chosen image is
// shown in turn, and "Valider" adds it to the output, with its colours applied and
// named after its file.
class QElementViewer : public QDialog
{
    Q_OBJECT

public:
    QElementViewer(const QStringList& files, QList<ElementGroup::Record>* output,
                   QWidget* parent = nullptr);

    // False when none of the files could be read.
    bool hasImage() const;
    QKeyColourPanel* panel() const { return m_panel; }

public slots:
    void updateZoom(int index);
    void validModelIndex();
    void updateColor(const QColor& rgb, int type);

private:
    void showImage();

    QKeyColourPanel* m_panel;
    QList<ElementGroup::Record>* m_output;
};
