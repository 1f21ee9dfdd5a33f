#include "library/qnewcategorydialog.h"

#include "app/prompts.h"
#include "library/libraryfolder.h"

#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

QNewCategoryDialog::QNewCategoryDialog(const QString& folder, QWidget* parent)
    : QDialog(parent), m_folder(folder), m_name(new QLineEdit(this)), m_message(new QLabel(this)),
      m_valid(
          new QPushButton(QIcon(QStringLiteral(":/icon/ok.png")), QStringLiteral("Valider"), this))
{
    setWindowTitle(QStringLiteral("Nouvelle catégorie"));
    QPushButton* cancel = new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")),
                                          QStringLiteral("Annuler"), this);
    QFormLayout* form = new QFormLayout;
    form->addRow(QStringLiteral("Nom"), m_name);
    QHBoxLayout* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_valid);
    buttons->addWidget(cancel);
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("<h3>Créer une nouvelle catégorie</h3>"), this));
    layout->addLayout(form);
    layout->addWidget(m_message);
    layout->addLayout(buttons);

    m_valid->setDefault(true);
    connect(m_name, &QLineEdit::textChanged, this, &QNewCategoryDialog::dirNameChanged);
    connect(m_valid, &QPushButton::clicked, this, &QNewCategoryDialog::validMkDir);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);
    dirNameChanged(QString());
}

void QNewCategoryDialog::dirNameChanged(const QString& str)
{
    QString message;
    if (str.isEmpty())
        message = QStringLiteral("<font color=\"#FF0000\">Le nom ne doit pas être vide.</font>");
    else if (!LibraryFolder::isValidName(str))
        message = QStringLiteral("<font color=\"#FF0000\">La synthaxe du nom est mauvaise.</font>");
    else if (QFileInfo(QDir(m_folder).filePath(str)).isDir())
        message = QStringLiteral(
            "<font color=\"#FF0000\">Une catégorie portant le même nom existe déjà.</font>");
    m_valid->setEnabled(message.isEmpty());
    if (message.isEmpty())
        message = QStringLiteral(
            "<font color=\"#009900\">Valider pour créer une nouvelle catégorie.</font>");
    m_message->setText(message);
}

void QNewCategoryDialog::validMkDir()
{
    const QString name = m_name->text();
    if (!QDir(m_folder).mkdir(name))
        Prompts::instance()->critical(
            this, QStringLiteral("Erreur"),
            QStringLiteral("Impossible de créer la nouvelle catégorie : ") + name);
    emit folderMade();
    close();
}
