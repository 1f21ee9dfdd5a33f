#include "app/qdropwidget.h"

#include "formats/filenames.h"
#include "formats/safefile.h"

namespace {

constexpr int PreviewSide = 192;

QPixmap icon(const QString& name)
{
    return QPixmap(QStringLiteral(":/icon/") + name + QStringLiteral(".png"));
}

QPixmap previewOf(const QString& path)
{
    if (!hasExtension(path, QStringLiteral("png")))
        return QPixmap();
    const QImage image = SafeFile::readImage(path);
    return image.isNull() ? QPixmap() : QPixmap::fromImage(QDropWidget::preview(image));
}

} // namespace

QDropWidget::QDropWidget(const QString& path, QWidget* parent)
    : QComboWidget(previewOf(path), QStringLiteral("<h2>Glisser-Déplacer</h2>"),
                   QStringLiteral("Que souhaitez-vous faire avec ce fichier :<br /><i>") +
                       fileNameOf(path).toHtmlEscaped() + QStringLiteral("</i> ?"),
                   parent)
{
    setWindowTitle(QStringLiteral("Glisser-Déplacer"));
    const auto row = [this](const QString& iconName, const QString& caption, const QString& text,
                            void (QDropWidget::*slot)()) {
        const Option* option = addOption(icon(iconName), caption, text);
        connect(option, &QOptionWidget::clicked, this, slot);
    };
    row(QStringLiteral("add_dessin"), QStringLiteral("<h3>Ajouter</h3>"),
        QStringLiteral("Ajouter dans le character ouvert."), &QDropWidget::addAction);
    row(QStringLiteral("openLittle"), QStringLiteral("<h3>Ouvrir</h3>"),
        QStringLiteral("Ouvrir dans un nouveau character."), &QDropWidget::openAction);
    row(QStringLiteral("suivant"), QStringLiteral("<h3>Ignorer</h3>"),
        QStringLiteral("Ignorer ce fichier."), &QDropWidget::skipAction);
    row(QStringLiteral("remove"), QStringLiteral("<h3>Annuler</h3>"),
        QStringLiteral("Ne rien faire pour tous les fichiers déposés."),
        &QDropWidget::cancelAction);
}

QImage QDropWidget::preview(const QImage& image)
{
    if (image.width() <= PreviewSide && image.height() <= PreviewSide)
        return image;
    return image.scaled(PreviewSide, PreviewSide, Qt::KeepAspectRatio, Qt::FastTransformation);
}

void QDropWidget::addAction()
{
    choose(Add);
}

void QDropWidget::openAction()
{
    choose(Open);
}

void QDropWidget::skipAction()
{
    choose(Skip);
}

void QDropWidget::cancelAction()
{
    choose(Cancel);
}

void QDropWidget::choose(Action action)
{
    m_action = action;
    accept();
}
