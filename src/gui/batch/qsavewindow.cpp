#include "batch/qsavewindow.h"

#include "app/prompts.h"
#include "batch/folderkeys.h"
#include "batch/masssaveplan.h"
#include "batch/qprogresswindow.h"
#include "batch/savemasssystem.h"
#include "canvas/qlayerlistselectable.h"
#include "formats/filenames.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QDir>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

QPushButton* button(const QString& icon, const QString& text, QWidget* parent)
{
    auto* pushButton = new QPushButton(icon.isEmpty() ? QIcon() : QIcon(icon), text, parent);
    pushButton->setAutoDefault(false);
    return pushButton;
}

} // namespace

QSaveWindow::QSaveWindow(const Character& character, const QString& folder, const QString& prefix,
                         QWidget* parent)
    : QDialog(parent), m_character(character), m_controls(new QWidget(this)),
      m_folderEdit(new QLineEdit(m_controls)), m_prefixEdit(new QLineEdit(prefix, m_controls)),
      m_redefineBox(new QCheckBox(QStringLiteral("Redéfinir"), m_controls)),
      m_stepBox(new QSpinBox(m_controls)),
      m_addButton(
          button(QStringLiteral(":/icon/add_dessin.png"), QStringLiteral("Ajouter"), m_controls)),
      m_subButton(
          button(QStringLiteral(":/icon/sub_dessin.png"), QStringLiteral("Enlever"), m_controls)),
      m_saveButton(
          button(QStringLiteral(":/icon/savemass.png"), QStringLiteral("Enregistrer"), m_controls)),
      m_groupButton(button(QString(), QStringLiteral("Dégrouper les éléments ELZK"), m_controls)),
      m_leftList(new QLayerListSelectable(&m_character, 0, m_controls)),
      m_rightList(new QLayerListSelectable(&m_character, 1, m_controls))
{
    m_character.clearElementSelection();
    setWindowTitle(QStringLiteral("Enregistrer sous différentes teintes..."));
    setWindowIcon(QIcon(QStringLiteral(":/icon/savemass.png")));

    // The folder chosen last time, while it exists; else the document's own.
    QString start;
    if (!Settings().get(QStringLiteral("pathSaveMassZKChar"), start) || start.isEmpty() ||
        !QDir(start).exists())
        start = folder;
    m_folderEdit->setReadOnly(true);
    m_folderEdit->setMinimumWidth(300);
    m_folderEdit->setText(start);
    m_stepBox->setRange(5, 120);
    m_stepBox->setValue(20);
    m_stepBox->setSuffix(QStringLiteral("°"));
    m_addButton->setEnabled(false);
    m_subButton->setEnabled(false);
    m_saveButton->setEnabled(false);
    auto* browse = button(QString(), QStringLiteral("Parcourir"), m_controls);
    auto* cancel =
        button(QStringLiteral(":/icon/remove.png"), QStringLiteral("Annuler"), m_controls);

    auto* lists = new QGridLayout;
    lists->addWidget(new QLabel(QStringLiteral("<strong>Liste des éléments</strong>"), m_controls),
                     0, 0);
    lists->addWidget(
        new QLabel(QStringLiteral("<strong>Eléments dont la teinte est <br />à modifier</strong>"),
                   m_controls),
        0, 2);
    lists->addWidget(m_leftList, 1, 0);
    auto* moves = new QVBoxLayout;
    moves->addStretch();
    moves->addWidget(m_addButton);
    moves->addWidget(m_subButton);
    moves->addStretch();
    lists->addLayout(moves, 1, 1);
    lists->addWidget(m_rightList, 1, 2);
    auto* folderRow = new QHBoxLayout;
    folderRow->addWidget(m_folderEdit);
    folderRow->addWidget(browse);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Dossier de destination"), folderRow);
    form->addRow(QStringLiteral("Préfixe du nom"), m_prefixEdit);
    form->addRow(QStringLiteral("Variation de la teinte entre chaque enregistrement"), m_stepBox);
    form->addRow(m_redefineBox);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_saveButton);
    buttons->addWidget(cancel);
    auto* inner = new QVBoxLayout(m_controls);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->addWidget(m_groupButton);
    inner->addLayout(lists);
    inner->addLayout(form);
    inner->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_controls);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(m_leftList, &QLayerListSelectable::selected, this, &QSaveWindow::updateAddEnable);
    connect(m_rightList, &QLayerListSelectable::selected, this, &QSaveWindow::updateSubEnable);
    connect(m_addButton, &QPushButton::clicked, this, &QSaveWindow::addElement);
    connect(m_subButton, &QPushButton::clicked, this, &QSaveWindow::subElement);
    connect(browse, &QPushButton::clicked, this, &QSaveWindow::searchDir);
    connect(m_groupButton, &QPushButton::clicked, this, &QSaveWindow::changeELZK);
    connect(m_saveButton, &QPushButton::clicked, this, &QSaveWindow::beginSave);
    connect(cancel, &QPushButton::clicked, this, &QDialog::close);
    connect(m_prefixEdit, &QLineEdit::textChanged, this, &QSaveWindow::updateSaveEnable);
    rebuildLists();
}

QSaveWindow::~QSaveWindow() = default;

int QSaveWindow::rowOf(int e) const
{
    int group = 0;
    if (!m_grouped || !m_character.elementSource(e).contains('?') ||
        !MassSavePlan::groupNumber(m_character.elementSource(e), &group))
        return e;
    int last = e;
    for (int other = e + 1; other < m_character.elementCount(); ++other) {
        int number = 0;
        const QByteArray& source = m_character.elementSource(other);
        if (source.contains('?') && MassSavePlan::groupNumber(source, &number) && number == group)
            last = other;
    }
    return last;
}

// Every row goes back to the left.
void QSaveWindow::rebuildLists()
{
    m_sides.clear();
    for (int e = 0; e < m_character.elementCount(); ++e)
        m_sides.append(rowOf(e) == e ? 0 : -1);
    m_leftList->setKinds(m_sides);
    m_rightList->setKinds(m_sides);
    m_addButton->setEnabled(false);
    m_subButton->setEnabled(false);
    updateSaveEnable();
}

void QSaveWindow::updateAddEnable(int i)
{
    m_addButton->setEnabled(i != -1);
}

void QSaveWindow::updateSubEnable(int i)
{
    m_subButton->setEnabled(i != -1);
}

void QSaveWindow::moveCurrent(QLayerListSelectable* from, int side)
{
    const int e = from->current();
    if (e < 0)
        return;
    m_sides[e] = side;
    m_leftList->setKinds(m_sides);
    m_rightList->setKinds(m_sides);
    updateSaveEnable();
}

void QSaveWindow::addElement()
{
    moveCurrent(m_leftList, 1);
}

void QSaveWindow::subElement()
{
    moveCurrent(m_rightList, 0);
}

void QSaveWindow::updateSaveEnable()
{
    const QString prefix = m_prefixEdit->text();
    m_saveButton->setEnabled(!m_rightList->rows().isEmpty() &&
                             (prefix.isEmpty() || isValidFileName(prefix)));
}

void QSaveWindow::searchDir()
{
    const QString folder = Prompts::instance()->existingDirectory(
        this, QStringLiteral("Choisir un dossier"), m_folderEdit->text());
    if (folder.isEmpty())
        return;
    m_folderEdit->setText(folder);
    FolderKeys::store(QStringLiteral("pathSaveMassZKChar"), folder);
}

void QSaveWindow::changeELZK()
{
    m_grouped = !m_grouped;
    m_groupButton->setText(m_grouped ? QStringLiteral("Dégrouper les éléments ELZK")
                                     : QStringLiteral("Grouper les éléments ELZK"));
    rebuildLists();
}

void QSaveWindow::beginSave()
{
    const QList<int> chosen = m_rightList->rows();
    if (chosen.isEmpty() || running())
        return;
    const QString folder = m_folderEdit->text();
    const QString prefix = m_prefixEdit->text();
    const uint step = uint(m_stepBox->value());
    // The worker's own copy, which it changes while the lists go on reading theirs.
    auto copy = std::make_unique<Character>(m_character);
    MassSavePlan::Grouping grouping;
    QList<MassSavePlan::Entry> entries;
    if (m_grouped) {
        MassSavePlan::tagSources(*copy);
        grouping = MassSavePlan::grouping(*copy, chosen);
        entries =
            MassSavePlan::groupedEntries(*copy, grouping.simpleElements, grouping.groupElements);
    } else {
        entries = MassSavePlan::plainEntries(chosen);
    }
    QStringList replaced;
    for (const QString& name : MassSavePlan::fileNames(entries, prefix, step)) {
        if (QDir(folder).exists(name) && !replaced.contains(name))
            replaced.append(name);
    }
    if (!replaced.isEmpty()) {
        Prompts::Message message;
        message.icon = QMessageBox::Warning;
        message.title = QStringLiteral("Fichiers remplacés");
        message.text = QStringLiteral(
            "Plusieurs fichiers seront remplacés (et ainsi supprimés définitivement) par les "
            "nouveaux characters créés. Pour palier à ce problème, vous pouvez changer le "
            "dossier de destination ou le prefixe du nom.");
        message.buttons = QMessageBox::Apply | QMessageBox::Cancel;
        message.detailedText =
            QStringLiteral("Liste des fichiers qui seront remplacés après l'enregistrement :\n");
        for (const QString& name : std::as_const(replaced))
            message.detailedText += QStringLiteral("- ") + name + QLatin1Char('\n');
        if (Prompts::instance()->message(this, message).button != QMessageBox::Apply)
            return;
    }

    m_workCopy = std::move(copy);
    m_stopped = false;
    m_saveEnded = false;
    // The progress window is this window's child, not the controls': disabling them
    // must leave it working.
    m_controls->setEnabled(false);
    m_progressWindow = new QProgressWindow(QStringLiteral("Enregistrement en cours..."), this);
    m_worker = m_grouped ? new SaveMassSystem(m_workCopy.get(), grouping.simpleElements,
                                              grouping.groupElements, folder, prefix, step,
                                              m_redefineBox->isChecked(), m_progressWindow)
                         : new SaveMassSystem(m_workCopy.get(), chosen, folder, prefix, step,
                                              m_redefineBox->isChecked(), m_progressWindow);
    connect(m_worker, &SaveMassSystem::changeProgess, this, &QSaveWindow::setProgress);
    connect(m_worker, &SaveMassSystem::finish, this, &QSaveWindow::saveFinished);
    connect(m_progressWindow, &QProgressWindow::starting, this, &QSaveWindow::workerStarting);
    m_progressWindow->show();
    m_progressWindow->start(m_worker);
}

void QSaveWindow::setProgress(uchar percent, const QString& info)
{
    if (m_progressWindow)
        m_progressWindow->setProgress(percent, info);
}

void QSaveWindow::saveFinished()
{
    m_saveEnded = true;
    m_stopped = m_worker && m_worker->stopped();
    if (m_worker && !m_worker->failedWrites().isEmpty()) {
        Prompts::Message message;
        message.icon = QMessageBox::Warning;
        message.title = QStringLiteral("Enregistrer sous différentes teintes...");
        message.text = QStringLiteral("Certains fichiers n'ont pas pu être enregistrés.");
        for (const QString& path : m_worker->failedWrites())
            message.detailedText += QStringLiteral("- ") + fileNameOf(path) + QLatin1Char('\n');
        Prompts::instance()->message(m_progressWindow, message);
    }
    if (m_progressWindow)
        m_progressWindow->closeWhenFinished(this);
}

bool QSaveWindow::running() const
{
    return m_progressWindow && !m_saveEnded;
}

// The worker works on a copy this window holds: the window stays until it has reported;
// the progress window then closes it once the thread has ended.
void QSaveWindow::reject()
{
    if (!running())
        QDialog::reject();
}
