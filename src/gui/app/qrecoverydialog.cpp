#include "app/qrecoverydialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

QString describe(const RecoveryOffer& offer)
{
    const RecoveryEntry& entry = offer.entry;
    QString text = QStringLiteral("<b>%1</b><br />").arg(entry.title.toHtmlEscaped());
    text += entry.originalPath.isEmpty()
                ? QStringLiteral("Nouveau document, jamais enregistré")
                : QDir::toNativeSeparators(entry.originalPath).toHtmlEscaped();
    text += QStringLiteral("<br />Copie du ") +
            QLocale(QLocale::French)
                .toString(entry.copied.toLocalTime(), QStringLiteral("d MMMM yyyy à HH:mm:ss"));
    if (offer.originalNewer)
        text +=
            QStringLiteral("<br /><i>Le fichier d'origine a été enregistré après cette copie.</i>");
    if (!offer.errorText.isEmpty())
        text += QStringLiteral("<br /><font color=\"#b00000\">%1</font>").arg(offer.errorText);
    return text;
}

} // namespace

QRecoveryDialog::QRecoveryDialog(const QList<RecoveryOffer>& offers, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(QStringLiteral("Récupération des documents"));
    auto* layout = new QVBoxLayout(this);
    auto* intro = new QLabel(QStringLiteral(
        "Zenkora ne s'est pas fermé normalement. Ces documents n'avaient pas été enregistrés ; "
        "leurs copies de secours peuvent être récupérées."));
    intro->setWordWrap(true);
    layout->addWidget(intro);

    auto* rows = new QWidget;
    auto* grid = new QGridLayout(rows);
    for (int i = 0; i < offers.size(); ++i) {
        const RecoveryOffer& offer = offers.at(i);
        auto* thumbnail = new QLabel;
        thumbnail->setFixedSize(96, 96);
        thumbnail->setAlignment(Qt::AlignCenter);
        thumbnail->setPixmap(offer.thumbnail);
        auto* text = new QLabel(describe(offer));
        text->setWordWrap(true);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
        auto* box = new QComboBox;
        if (offer.errorText.isEmpty())
            box->addItem(QStringLiteral("Récupérer"), RecoveryOffer::Recover);
        box->addItem(QStringLiteral("Ignorer pour cette fois"), RecoveryOffer::Ignore);
        box->addItem(QStringLiteral("Supprimer"), RecoveryOffer::Delete);
        // A copy that cannot be read can only go; it goes unless the user says so.
        if (!offer.errorText.isEmpty())
            box->setCurrentIndex(1);
        grid->addWidget(thumbnail, i, 0);
        grid->addWidget(text, i, 1);
        grid->addWidget(box, i, 2, Qt::AlignTop);
        m_boxes.append(box);
    }
    grid->setColumnStretch(1, 1);
    auto* scroll = new QScrollArea;
    scroll->setWidget(rows);
    scroll->setWidgetResizable(true);
    scroll->setMinimumSize(560, qMin(3, int(offers.size())) * 110 + 10);
    layout->addWidget(scroll);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
}

QList<RecoveryOffer::Choice> QRecoveryDialog::choices() const
{
    QList<RecoveryOffer::Choice> result;
    for (const QComboBox* box : m_boxes)
        result.append(RecoveryOffer::Choice(box->currentData().toInt()));
    return result;
}

QList<RecoveryOffer::Choice> QRecoveryDialog::ask(QWidget* parent,
                                                  const QList<RecoveryOffer>& offers)
{
    QRecoveryDialog dialog(offers, parent);
    if (dialog.exec() != QDialog::Accepted)
        return QList<RecoveryOffer::Choice>(offers.size(), RecoveryOffer::Ignore);
    return dialog.choices();
}
