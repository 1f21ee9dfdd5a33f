#include "batch/qfusiontileset.h"

#include "app/prompts.h"
#include "batch/folderkeys.h"
#include "batch/fusioner.h"
#include "batch/qprogresswindow.h"
#include "batch/qtilesetview.h"
#include "formats/filenames.h"
#include "formats/safefile.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

QFusionTileset::QFusionTileset(QWidget* parent)
    : QWidget(parent, Qt::Window), m_tilesetView(new QTilesetView(this)),
      m_preview(new QLabel(this)), m_previewArea(new QScrollArea(this)),
      m_fusionButton(new QPushButton(QIcon(QStringLiteral(":/icon/suivant.png")),
                                     QStringLiteral("Fusionner >"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Fusion de tilesets - Etape 1"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/fusion.png")));
    m_preview->setMinimumSize(256, 502);
    m_preview->setPixmap(emptyPreview());
    m_preview->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_previewArea->setWidget(m_preview);
    m_previewArea->setMinimumWidth(256 + 20);
    m_fusionButton->setEnabled(false);
    auto* add = new QPushButton(QIcon(QStringLiteral(":/icon/add_qt.png")),
                                QStringLiteral("Ajouter un tileset"), this);
    auto* cancel = new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")),
                                   QStringLiteral("Annuler"), this);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(add);
    buttons->addStretch();
    buttons->addWidget(m_fusionButton);
    buttons->addWidget(cancel);
    auto* left = new QVBoxLayout;
    left->addWidget(m_tilesetView);
    left->addLayout(buttons);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(left);
    layout->addWidget(m_previewArea);

    connect(add, &QPushButton::clicked, this, &QFusionTileset::addFiles);
    connect(m_fusionButton, &QPushButton::clicked, this, &QFusionTileset::fusionInterface);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
    connect(m_tilesetView, &QTilesetView::changeFileName, this, &QFusionTileset::updateFileName);
    connect(m_tilesetView, &QTilesetView::changeFileList, this, &QFusionTileset::setEnabledButton);
}

QPixmap QFusionTileset::emptyPreview()
{
    QPixmap pixmap(256, 502);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.setPen(Qt::black);
    painter.setFont(QFont(QStringLiteral("Arial"), 10));
    painter.drawText(pixmap.rect(), Qt::AlignCenter, QStringLiteral("Aucun aperçu disponible."));
    return pixmap;
}

void QFusionTileset::addFiles()
{
    const QString key = QStringLiteral("pathSelectTilesetFusion");
    const QStringList files = Prompts::instance()->openFileNames(
        this, QStringLiteral("Choisir les tilesets à fusionner"), FolderKeys::read(key),
        QStringLiteral("Images (*.png *.gif *.jpg *.jpeg)"), nullptr);
    if (files.isEmpty())
        return;
    FolderKeys::store(key, directoryOf(files.first()));
    m_tilesetView->addPaths(files);
}

void QFusionTileset::updateFileName(const QString& str)
{
    const QImage image = SafeFile::readImage(str);
    const QPixmap pixmap = image.isNull() ? emptyPreview() : QPixmap::fromImage(image);
    m_preview->setPixmap(pixmap);
    m_preview->resize(pixmap.size().expandedTo(QSize(256, 502)));
}

void QFusionTileset::setEnabledButton(bool b)
{
    m_fusionButton->setEnabled(b);
}

void QFusionTileset::fusionInterface()
{
    // The start folder is read from one key and the choice stored under another.
    const QString answer = Prompts::instance()->saveFileName(
        this, QStringLiteral("Choisir l'emplacement du nouveau tileset"),
        FolderKeys::read(QStringLiteral("pathSaveLoadTilesetFusion")),
        QStringLiteral("Images (*.png)"), nullptr, QStringLiteral("png"));
    if (answer.isEmpty())
        return;
    FolderKeys::store(QStringLiteral("pathSaveTilesetFusion"), directoryOf(answer));
    m_stopped = false;
    m_progressWindow = new QProgressWindow(QStringLiteral("Fusion en cours..."), this);
    m_progressWindow->move(pos() + QPoint(30, 30));
    m_fusioner = new Fusioner(m_tilesetView->paths(), answer, m_progressWindow);
    connect(m_fusioner, &Fusioner::changeProgress, this, &QFusionTileset::setAvancement);
    connect(m_fusioner, &Fusioner::finishThread, this, &QFusionTileset::setConclusion);
    connect(m_progressWindow, &QProgressWindow::starting, this, &QFusionTileset::workerStarting);
    m_progressWindow->show();
    m_progressWindow->start(m_fusioner);
}

void QFusionTileset::setAvancement(uint value, const QString& info)
{
    if (m_progressWindow)
        m_progressWindow->setProgress(int(value), info);
}

void QFusionTileset::setConclusion(const QStringList& info)
{
    Prompts* prompts = Prompts::instance();
    m_stopped = m_fusioner && m_fusioner->stopped();
    if (m_progressWindow) {
        m_progressWindow->setProgress(100, m_stopped ? QStringLiteral("Fusion annulée")
                                                     : QStringLiteral("Fusion finie"));
    }
    if (!info.isEmpty()) {
        Prompts::Message message;
        message.icon = QMessageBox::Warning;
        message.title = QStringLiteral("Fusion");
        message.text = QStringLiteral("Certains fichiers n'ont pas pu être ouverts.");
        message.detailedText = QStringLiteral("Liste des fichiers n'ayant pu être ouverts :");
        for (const QString& path : info)
            message.detailedText += QStringLiteral("\n- ") + path;
        prompts->message(m_progressWindow, message);
    }
    const QStringList failed = m_fusioner ? m_fusioner->failedWrites() : QStringList();
    if (!failed.isEmpty()) {
        prompts->critical(m_progressWindow, QStringLiteral("Fusion"),
                          QStringLiteral("Impossible d'enregistrer le fichier :<br />") +
                              failed.first() + QLatin1Char('.'));
    } else if (!m_stopped) {
        prompts->information(m_progressWindow, QStringLiteral("Fusion"),
                             QStringLiteral("Fusion effectuée !"));
    }
    // A stopped merge leaves the window open with its list, to be started again.
    if (m_progressWindow)
        m_progressWindow->closeWhenFinished(m_stopped ? nullptr : this);
}
