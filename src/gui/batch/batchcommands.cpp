#include "batch/batchcommands.h"

#include "batch/qconvertchara.h"
#include "batch/qfusiontileset.h"
#include "batch/qsavewindow.h"
#include "canvas/qlayer.h"
#include "formats/filenames.h"

#include <QDir>

void BatchCommands::openConversion(QWidget* parent)
{
    (new QConvertChara(parent))->show();
}

void BatchCommands::openFusion(QWidget* parent)
{
    (new QFusionTileset(parent))->show();
}

void BatchCommands::openMassSave(QWidget* parent, const QLayer* layer)
{
    if (!layer)
        return;
    const QString path = layer->filePath();
    const QString folder = path.isEmpty() ? QDir::homePath() : directoryOf(path);
    const QString prefix = path.isEmpty() ? QString() : baseNameOf(path) + QLatin1Char('_');
    auto* window = new QSaveWindow(*layer->character(), folder, prefix, parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowModality(Qt::ApplicationModal);
    window->show();
}
