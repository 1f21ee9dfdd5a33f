#pragma once

#include "app/prompts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QQueue>
#include <QTemporaryDir>

// Answers the editor's questions from a script instead of modal dialogs, and records
// every question asked, in order. An unscripted question fails the test's expectations
// by answering Cancel / nothing, and is recorded all the same.
class ScriptedPrompts : public Prompts
{
public:
    struct FileAnswer
    {
        QStringList files;
        QString filter;
    };

    ScriptedPrompts() { Prompts::install(this); }
    ~ScriptedPrompts() override { Prompts::install(nullptr); }

    QStringList openFileNames(QWidget*, const QString& title, const QString& folder,
                              const QString& filter, QString* selectedFilter) override
    {
        asked.append(QStringLiteral("open:") + title);
        lastFolder = folder;
        lastFilter = filter;
        const FileAnswer answer = fileAnswers.isEmpty() ? FileAnswer() : fileAnswers.dequeue();
        if (selectedFilter)
            *selectedFilter = answer.filter;
        return answer.files;
    }

    QString openFileName(QWidget*, const QString& title, const QString& folder,
                         const QString& filter, QString* selectedFilter) override
    {
        return openFileNames(nullptr, title, folder, filter, selectedFilter).value(0);
    }

    // A name without a suffix takes defaultSuffix, as the toolkit's dialog gives it.
    QString saveFileName(QWidget*, const QString& title, const QString& folder,
                         const QString& filter, QString* selectedFilter,
                         const QString& defaultSuffix) override
    {
        asked.append(QStringLiteral("save:") + title);
        lastFolder = folder;
        lastFilter = filter;
        const FileAnswer answer = fileAnswers.isEmpty() ? FileAnswer() : fileAnswers.dequeue();
        if (selectedFilter)
            *selectedFilter = answer.filter;
        const QString name = answer.files.value(0);
        if (name.isEmpty() || defaultSuffix.isEmpty() || !QFileInfo(name).suffix().isEmpty())
            return name;
        return name + QLatin1Char('.') + defaultSuffix;
    }

    QString existingDirectory(QWidget*, const QString& title, const QString& folder) override
    {
        asked.append(QStringLiteral("folder:") + title);
        lastFolder = folder;
        return fileAnswers.isEmpty() ? QString() : fileAnswers.dequeue().files.value(0);
    }

    int vxCharacterCount(QWidget*) override
    {
        asked.append(QStringLiteral("vxCharacterCount"));
        return counts.isEmpty() ? -1 : counts.dequeue();
    }

    Answer message(QWidget*, const Message& message) override
    {
        asked.append(QStringLiteral("message:") + message.title + QLatin1Char(':') + message.text);
        messages.append(message);
        return answers.isEmpty() ? Answer{QMessageBox::Cancel, false} : answers.dequeue();
    }

    int elementType(QWidget*) override
    {
        asked.append(QStringLiteral("elementType"));
        return kinds.isEmpty() ? -1 : kinds.dequeue();
    }

    QMessageBox::StandardButton closeWithChanges(QWidget*, const QString& name, const QPixmap&,
                                                 bool withSaveAll) override
    {
        asked.append(QStringLiteral("changes:") + name +
                     (withSaveAll ? QStringLiteral(":all") : QString()));
        return closeAnswers.isEmpty() ? QMessageBox::Cancel : closeAnswers.dequeue();
    }

    void defaultCharacter(QWidget*, const std::function<void()>&,
                          const std::function<void()>&) override
    {
        asked.append(QStringLiteral("defaultCharacter"));
    }

    std::optional<QColor> colour(QWidget*, const QString& title, const QColor&) override
    {
        asked.append(QStringLiteral("colour:") + title);
        if (colours.isEmpty())
            return std::nullopt;
        return colours.dequeue();
    }

    // The editor's answer: a gradient, or nothing for "Annuler".
    std::optional<GradientRecord> gradient(QWidget*, const QString& title,
                                           const GradientRecord& current,
                                           const QColor& newColor) override
    {
        asked.append(QStringLiteral("gradient:") + title);
        gradientShown = current;
        gradientNewColor = newColor;
        return gradients.isEmpty() ? std::nullopt : gradients.dequeue();
    }

    QList<RecoveryOffer::Choice> recovery(QWidget*, const QList<RecoveryOffer>& offers) override
    {
        asked.append(QStringLiteral("recovery"));
        recoveryOffers = offers;
        return recoveryChoices.isEmpty()
                   ? QList<RecoveryOffer::Choice>(offers.size(), RecoveryOffer::Ignore)
                   : recoveryChoices;
    }

    int item(QWidget*, const QString& title, const QString&, const QStringList&) override
    {
        asked.append(QStringLiteral("item:") + title);
        return items.isEmpty() ? -1 : items.dequeue();
    }

    // Answers 3, "Annuler", when nothing is scripted.
    int dropAction(QWidget*, const QString& path) override
    {
        asked.append(QStringLiteral("drop:") + path);
        return dropActions.isEmpty() ? 3 : dropActions.dequeue();
    }

    int doYouNeedHelp(QWidget*) override
    {
        asked.append(QStringLiteral("doYouNeedHelp"));
        return helpRows.isEmpty() ? -1 : helpRows.dequeue();
    }

    QQueue<FileAnswer> fileAnswers;
    QQueue<Answer> answers;
    QQueue<int> kinds;
    QQueue<int> items;
    QQueue<int> counts;
    QQueue<QMessageBox::StandardButton> closeAnswers;
    QQueue<QColor> colours;
    QQueue<int> dropActions;
    QQueue<int> helpRows;
    QQueue<std::optional<GradientRecord>> gradients;
    QList<RecoveryOffer> recoveryOffers;
    QList<RecoveryOffer::Choice> recoveryChoices;
    GradientRecord gradientShown;
    QColor gradientNewColor;
    QStringList asked;
    QList<Message> messages;
    QString lastFolder;
    QString lastFilter;
};

// Runs a test inside a fresh folder holding an empty "zenkora.ini", so that the
// settings the editor reads and writes are the test's own.
class SettingsSandbox
{
public:
    SettingsSandbox() : m_previous(QDir::currentPath())
    {
        QDir::setCurrent(m_dir.path());
        QFile ini(m_dir.filePath(QStringLiteral("zenkora.ini")));
        ini.open(QIODevice::WriteOnly);
    }
    ~SettingsSandbox() { QDir::setCurrent(m_previous); }

    QString folder() const { return m_dir.path(); }
    QString path(const QString& name) const { return m_dir.filePath(name); }
    QByteArray ini() const
    {
        QFile file(path(QStringLiteral("zenkora.ini")));
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

private:
    QTemporaryDir m_dir;
    QString m_previous;
};
