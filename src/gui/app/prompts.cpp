#include "app/prompts.h"

#include "app/choicedialogs.h"
#include "app/qcombowidget.h"
#include "app/qdropwidget.h"
#include "colour/qcolorbox.h"
#include "app/qrecoverydialog.h"
#include "colour/qgradienteditor.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QPushButton>

#include <memory>

namespace {

Prompts* installed = nullptr;

} // namespace

Prompts* Prompts::instance()
{
    static Prompts toolkit;
    return installed ? installed : &toolkit;
}

void Prompts::install(Prompts* prompts)
{
    installed = prompts;
}

QStringList Prompts::openFileNames(QWidget* parent, const QString& title, const QString& folder,
                                   const QString& filter, QString* selectedFilter)
{
    return QFileDialog::getOpenFileNames(parent, title, folder, filter, selectedFilter);
}

QString Prompts::openFileName(QWidget* parent, const QString& title, const QString& folder,
                              const QString& filter, QString* selectedFilter)
{
    return QFileDialog::getOpenFileName(parent, title, folder, filter, selectedFilter);
}

QString Prompts::saveFileName(QWidget* parent, const QString& title, const QString& folder,
                              const QString& filter, QString* selectedFilter,
                              const QString& defaultSuffix)
{
    if (defaultSuffix.isEmpty())
        return QFileDialog::getSaveFileName(parent, title, folder, filter, selectedFilter);
    // The static function has no default suffix: the dialog's own, which it adds before
    // its question about replacing a file, so that the question is about the real name.
    QFileDialog dialog(parent, title, folder, filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(defaultSuffix);
    if (selectedFilter && !selectedFilter->isEmpty())
        dialog.selectNameFilter(*selectedFilter);
    if (dialog.exec() != QDialog::Accepted)
        return QString();
    if (selectedFilter)
        *selectedFilter = dialog.selectedNameFilter();
    return dialog.selectedFiles().value(0);
}

QString Prompts::existingDirectory(QWidget* parent, const QString& title, const QString& folder)
{
    return QFileDialog::getExistingDirectory(parent, title, folder);
}

Prompts::Answer Prompts::message(QWidget* parent, const Message& message)
{
    QMessageBox box(message.icon, message.title, message.text, message.buttons, parent);
    box.setInformativeText(message.informativeText);
    box.setDetailedText(message.detailedText);
    if (!message.iconPixmap.isNull())
        box.setIconPixmap(message.iconPixmap);
    if (message.defaultButton != QMessageBox::NoButton)
        box.setDefaultButton(message.defaultButton);
    for (auto it = message.buttonIcons.cbegin(); it != message.buttonIcons.cend(); ++it) {
        if (QAbstractButton* button = box.button(it.key()))
            button->setIcon(QIcon(it.value()));
    }
    QCheckBox* check = nullptr;
    if (!message.checkBoxText.isEmpty()) {
        check = new QCheckBox(message.checkBoxText, &box);
        box.setCheckBox(check);
    }
    Answer answer;
    answer.button = QMessageBox::StandardButton(box.exec());
    answer.checked = check && check->isChecked();
    return answer;
}

int Prompts::elementType(QWidget* parent)
{
    std::unique_ptr<QComboWidget> dialog(ChoiceDialogs::elementType(parent));
    dialog->exec();
    return dialog->chosenIndex();
}

int Prompts::vxCharacterCount(QWidget* parent)
{
    std::unique_ptr<QComboWidget> dialog(ChoiceDialogs::vxCharacterCount(parent));
    dialog->exec();
    return dialog->chosenIndex();
}

QMessageBox::StandardButton Prompts::closeWithChanges(QWidget* parent, const QString& name,
                                                      const QPixmap& thumbnail, bool withSaveAll)
{
    std::unique_ptr<QMessageBox> box(
        ChoiceDialogs::closeMessage(name, thumbnail, withSaveAll, parent));
    return QMessageBox::StandardButton(box->exec());
}

void Prompts::defaultCharacter(QWidget* parent, const std::function<void()>& openHelp,
                               const std::function<void()>& assignDefault)
{
    std::unique_ptr<QComboWidget> dialog(
        ChoiceDialogs::defaultCharacter(openHelp, assignDefault, parent));
    dialog->exec();
}

std::optional<QColor> Prompts::colour(QWidget* parent, const QString& title, const QColor& initial)
{
    bool accepted = false;
    const QColor colour = QColorBox::getColor(initial, parent, title, &accepted);
    if (!accepted)
        return std::nullopt;
    return colour;
}

std::optional<GradientRecord> Prompts::gradient(QWidget* parent, const QString& title,
                                                const GradientRecord& gradient,
                                                const QColor& newColor)
{
    return QGradientEditor::getGradient(parent, title, gradient, newColor);
}

int Prompts::item(QWidget* parent, const QString& title, const QString& label,
                  const QStringList& items)
{
    bool accepted = false;
    const QString chosen = QInputDialog::getItem(parent, title, label, items, 0, false, &accepted);
    return accepted ? int(items.indexOf(chosen)) : -1;
}

int Prompts::dropAction(QWidget* parent, const QString& path)
{
    QDropWidget dialog(path, parent);
    dialog.exec();
    return dialog.action();
}

int Prompts::doYouNeedHelp(QWidget* parent)
{
    std::unique_ptr<QComboWidget> dialog(ChoiceDialogs::doYouNeedHelp(parent));
    dialog->exec();
    return dialog->chosenIndex();
}

void Prompts::critical(QWidget* parent, const QString& title, const QString& text)
{
    Message box;
    box.icon = QMessageBox::Critical;
    box.title = title;
    box.text = text;
    message(parent, box);
}

void Prompts::information(QWidget* parent, const QString& title, const QString& text)
{
    Message box;
    box.icon = QMessageBox::Information;
    box.title = title;
    box.text = text;
    message(parent, box);
}

QList<RecoveryOffer::Choice> Prompts::recovery(QWidget* parent, const QList<RecoveryOffer>& offers)
{
    return QRecoveryDialog::ask(parent, offers);
}
