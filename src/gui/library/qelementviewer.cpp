#include "library/qelementviewer.h"

#include "formats/filenames.h"
#include "library/qkeycolourpanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

QElementViewer::QElementViewer(const QStringList& files, QList<ElementGroup::Record>* output,
                               QWidget* parent)
    : QDialog(parent), m_panel(new QKeyColourPanel(files, this)), m_output(output)
{
    QPushButton* valid =
        new QPushButton(QIcon(QStringLiteral(":/icon/ok.png")), QStringLiteral("Valider"), this);
    QPushButton* cancel = new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")),
                                          QStringLiteral("Annuler"), this);
    QHBoxLayout* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(valid);
    buttons->addWidget(cancel);
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->addWidget(
        new QLabel(QStringLiteral("Sélectionnez les couleurs de transparence."), this));
    layout->addWidget(m_panel, 1);
    layout->addLayout(buttons);
    valid->setDefault(true);
    connect(valid, &QPushButton::clicked, this, &QElementViewer::validModelIndex);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    if (m_panel->showFrom(0))
        showImage();
}

bool QElementViewer::hasImage() const
{
    return m_panel->fileIndex() < m_panel->count();
}

void QElementViewer::showImage()
{
    setWindowTitle(QStringLiteral("Gestion de la transparence ") + m_panel->counter());
}

void QElementViewer::validModelIndex()
{
    m_output->append({m_panel->converted(), baseNameOf(m_panel->currentFile())});
    if (m_panel->showFrom(m_panel->fileIndex() + 1))
        showImage();
    else
        accept();
}

void QElementViewer::updateZoom(int index)
{
    m_panel->updateZoom(index);
}

void QElementViewer::updateColor(const QColor& rgb, int type)
{
    m_panel->updateColor(rgb, type);
}
