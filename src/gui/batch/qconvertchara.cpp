#include "batch/qconvertchara.h"

#include "app/prompts.h"
#include "batch/conversionplanner.h"
#include "batch/converter.h"
#include "batch/folderkeys.h"
#include "batch/qprogresswindow.h"
#include "formats/filenames.h"

#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QPushButton* button(const QString& icon, const QString& text, QWidget* parent)
{
    auto* pushButton = new QPushButton(QIcon(icon), text, parent);
    pushButton->setAutoDefault(false);
    return pushButton;
}

QString listed(const QString& heading, const QStringList& paths)
{
    return heading + QStringLiteral("\n- ") + paths.join(QStringLiteral("\n- "));
}

} // namespace

QConvertChara::QConvertChara(QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_fileRadio(new QRadioButton(QStringLiteral("Convertir un ou plusieurs characters."), this)),
      m_folderRadio(new QRadioButton(
          QStringLiteral("Convertir l'ensemble des characters d'un dossier."), this)),
      m_firstNextButton(
          button(QStringLiteral(":/icon/suivant.png"), QStringLiteral("Suivant"), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Convertion de characters - Etape 1"));
    m_fileRadio->setChecked(true);
    auto* picture = new QLabel(this);
    picture->setPixmap(QPixmap(QStringLiteral(":/icon/conversionMode.png")));
    auto* cancel = button(QStringLiteral(":/icon/remove.png"), QStringLiteral("Annuler"), this);
    m_firstNextButton->setDefault(true);

    auto* choices = new QVBoxLayout;
    choices->addWidget(m_fileRadio);
    choices->addWidget(m_folderRadio);
    choices->addStretch();
    auto* top = new QHBoxLayout;
    top->addWidget(picture);
    top->addLayout(choices);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_firstNextButton);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(buttons);

    connect(m_firstNextButton, &QPushButton::clicked, this, &QConvertChara::convertWindow);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);
}

void QConvertChara::convertWindow()
{
    // Sources chosen in one mode mean nothing in the other.
    if (m_fileRadio->isChecked() != m_pathsAreFiles) {
        m_paths.clear();
        m_pathsAreFiles = m_fileRadio->isChecked();
    }
    auto* dialog = new QDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->setWindowTitle(QStringLiteral("Convertion de characters - Etape 2"));
    m_stepDialog = dialog;

    m_directionBox = new QComboBox(dialog);
    m_directionBox->addItems({QStringLiteral("RPG Maker 2003 -> RPG Maker XP"),
                              QStringLiteral("RPG Maker 2003 -> RPG Maker VX"),
                              QStringLiteral("RPG Maker XP -> RPG Maker 2003"),
                              QStringLiteral("RPG Maker XP -> RPG Maker VX"),
                              QStringLiteral("RPG Maker VX -> RPG Maker 2003"),
                              QStringLiteral("RPG Maker VX -> RPG Maker XP")});
    m_directionBox->setCurrentIndex(m_direction);
    connect(m_directionBox, &QComboBox::currentIndexChanged, this,
            [this](int index) { m_direction = index; });
    m_pathEdit = new QLineEdit(dialog);
    m_pathEdit->setReadOnly(true);
    m_pathEdit->setMinimumWidth(300);
    auto* browse = button(QString(), QStringLiteral("Parcourir"), dialog);
    m_nextButton = button(QStringLiteral(":/icon/suivant.png"), QStringLiteral("Suivant"), dialog);
    m_nextButton->setEnabled(false);
    m_nextButton->setDefault(true);
    auto* previous =
        button(QStringLiteral(":/icon/previous.png"), QStringLiteral("Précédent"), dialog);
    auto* cancel = button(QStringLiteral(":/icon/remove.png"), QStringLiteral("Annuler"), dialog);

    auto* form = new QGridLayout;
    form->addWidget(new QLabel(QStringLiteral("Sens de conversion :"), dialog), 0, 0);
    form->addWidget(m_directionBox, 0, 1, 1, 2);
    form->addWidget(new QLabel(m_pathsAreFiles ? QStringLiteral("Character(s) à convertir :")
                                               : QStringLiteral("Dossier à convertir :"),
                               dialog),
                    1, 0);
    form->addWidget(m_pathEdit, 1, 1);
    form->addWidget(browse, 1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(previous);
    buttons->addStretch();
    buttons->addWidget(m_nextButton);
    buttons->addWidget(cancel);
    auto* layout = new QVBoxLayout(dialog);
    layout->addLayout(form);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(browse, &QPushButton::clicked, this, &QConvertChara::searchFileNames);
    connect(m_nextButton, &QPushButton::clicked, this, &QConvertChara::convert);
    connect(previous, &QPushButton::clicked, dialog, &QDialog::close);
    connect(cancel, &QPushButton::clicked, this, &QConvertChara::closeAll);
    connect(dialog, &QDialog::finished, this, &QConvertChara::stepTwoClosed);
    showPaths();
    hide();
    dialog->show();
}

// Step 2 closed by "Précédent", Escape or its frame brings step 1 back.
void QConvertChara::stepTwoClosed()
{
    if (!m_leavingStepTwo)
        show();
}

void QConvertChara::showPaths()
{
    if (!m_pathEdit)
        return;
    if (m_pathsAreFiles) {
        QStringList names;
        for (const QString& path : std::as_const(m_paths))
            names.append(fileNameOf(path));
        m_pathEdit->setText(names.join(QStringLiteral(", ")));
    } else {
        m_pathEdit->setText(m_paths.value(0));
    }
    m_nextButton->setEnabled(!m_paths.isEmpty());
}

void QConvertChara::searchFileNames()
{
    if (m_pathsAreFiles) {
        const QString key = QStringLiteral("pathSelectCharactersConvert");
        const QStringList files = Prompts::instance()->openFileNames(
            m_stepDialog, QStringLiteral("Choisir les fichiers à convertir"), FolderKeys::read(key),
            QStringLiteral("Images (*.png)"), nullptr);
        if (files.isEmpty())
            return;
        m_paths = files;
        FolderKeys::store(key, directoryOf(files.first()));
    } else {
        const QString key = QStringLiteral("pathSelectDirectoryCharacterConvert");
        const QString folder = Prompts::instance()->existingDirectory(
            m_stepDialog, QStringLiteral("Choisir le dossier à convertir"), FolderKeys::read(key));
        if (folder.isEmpty())
            return;
        m_paths = QStringList{folder};
        FolderKeys::store(key, folder);
    }
    showPaths();
}

void QConvertChara::convert()
{
    const uchar direction = uchar(m_directionBox->currentIndex());
    int count = 0;
    if (direction == 4 || direction == 5) {
        count = Prompts::instance()->vxCharacterCount(m_stepDialog);
        if (count < 0)
            return;
    }
    const QStringList replaced =
        ConversionPlanner::replacedFiles(m_paths, m_pathsAreFiles, direction, uchar(count));
    if (!replaced.isEmpty()) {
        Prompts::Message message;
        message.icon = QMessageBox::Warning;
        message.title = QStringLiteral("Fichiers remplacés");
        message.text = QStringLiteral("Plusieurs fichiers seront remplacés (et ainsi supprimés "
                                      "définitivement) par les nouveaux characters convertis.");
        message.buttons = QMessageBox::Apply | QMessageBox::Cancel;
        message.detailedText = listed(
            QStringLiteral("Liste des fichiers qui seront remplacés après l'enregistrement :"),
            replaced);
        if (Prompts::instance()->message(m_stepDialog, message).button != QMessageBox::Apply)
            return;
    }
    startConversion(direction, uchar(count));
}

void QConvertChara::startConversion(uchar direction, uchar characterCount)
{
    m_leavingStepTwo = true;
    if (m_stepDialog)
        m_stepDialog->close();
    m_leavingStepTwo = false;
    auto* window = new QProgressWindow(QStringLiteral("Convertion de characters - Etape 3"), this);
    window->move(pos() + QPoint(30, 30));
    m_stepDialog = window;
    auto* converter = new Converter(m_paths, m_pathsAreFiles, direction, window, characterCount);
    m_converter = converter;
    connect(converter, &Converter::changeProgress, this, &QConvertChara::setAvancement);
    connect(converter, &Converter::finishThread, this, &QConvertChara::setConclusion);
    connect(converter, &Converter::fatalError, this, &QConvertChara::fatalError);
    connect(window, &QProgressWindow::starting, this, &QConvertChara::workerStarting);
    window->show();
    window->start(converter);
}

QProgressWindow* QConvertChara::progressWindow() const
{
    return qobject_cast<QProgressWindow*>(m_stepDialog.data());
}

bool QConvertChara::stopped() const
{
    return m_stopped;
}

void QConvertChara::setAvancement(uint value, const QString& info)
{
    if (QProgressWindow* window = progressWindow())
        window->setProgress(int(value), info);
}

void QConvertChara::setConclusion(const QStringList& info, const QString& infoDir)
{
    QProgressWindow* window = progressWindow();
    if (window)
        window->setProgress(100, QStringLiteral("Conversion(s) finie(s)"));
    Prompts* prompts = Prompts::instance();
    if (!info.isEmpty()) {
        Prompts::Message message;
        message.icon = QMessageBox::Warning;
        message.title = QStringLiteral("Conversion");
        message.text = QStringLiteral("Certains fichiers n'ont pas pu être ouverts");
        message.detailedText =
            listed(QStringLiteral("Fichiers qui n'ont pas pu être ouverts :"), info);
        prompts->message(window, message);
    }
    // The lists are complete once finishThread has come; the thread only resets its
    // sheet state after it.
    if (m_converter && !m_converter->failedWrites().isEmpty()) {
        Prompts::Message message;
        message.icon = QMessageBox::Warning;
        message.title = QStringLiteral("Conversion");
        message.text = QStringLiteral("Certains fichiers n'ont pas pu être enregistrés");
        message.detailedText =
            listed(QStringLiteral("Fichiers qui n'ont pas pu être enregistrés :"),
                   m_converter->failedWrites());
        prompts->message(window, message);
    }
    m_stopped = m_converter && m_converter->stopped();
    prompts->information(
        window, QStringLiteral("Conversion"),
        m_stopped
            ? QStringLiteral("Conversion interrompue. Les characters déjà convertis sont dans : ") +
                  infoDir
            : QStringLiteral("Conversion effectuée. Les characters convertis sont dans : ") +
                  infoDir);
    finishRun();
}

void QConvertChara::fatalError(const QString& error)
{
    Prompts::instance()->critical(progressWindow(), QStringLiteral("Conversion"), error);
    finishRun();
}

// The wizard closes once the thread has ended, with the progress window that owns it.
void QConvertChara::finishRun()
{
    if (QProgressWindow* window = progressWindow())
        window->closeWhenFinished(this);
    else
        close();
}

void QConvertChara::closeAll()
{
    m_leavingStepTwo = true;
    if (m_stepDialog)
        m_stepDialog->close();
    m_leavingStepTwo = false;
    close();
}
