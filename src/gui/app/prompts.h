#pragma once

#include "app/recoveryoffer.h"
#include "imaging/gradientrecord.h"

#include <QColor>
#include <QMap>
#include <QMessageBox>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// Every question the editor asks the user goes through one Prompts object: file
// dialogs, message boxes, colour and choice dialogs. The default asks with the
// toolkit's modal dialogs; tests install their own to answer without a modal loop.
class Prompts
{
public:
    struct Message
    {
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QString title;
        QString text;
        QString informativeText;
        QString detailedText;
        QString checkBoxText; // empty: no check box
        QPixmap iconPixmap;   // replaces the icon when not null
        QMessageBox::StandardButtons buttons = QMessageBox::Ok;
        QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
        QMap<QMessageBox::StandardButton, QString> buttonIcons;
    };

    struct Answer
    {
        QMessageBox::StandardButton button = QMessageBox::NoButton;
        bool checked = false;
    };

    virtual ~Prompts() = default;

    static Prompts* instance();
    // Installs a replacement (tests); null puts the toolkit's dialogs back.
    static void install(Prompts* prompts);

    virtual QStringList openFileNames(QWidget* parent, const QString& title, const QString& folder,
                                      const QString& filter, QString* selectedFilter);
    virtual QString openFileName(QWidget* parent, const QString& title, const QString& folder,
                                 const QString& filter, QString* selectedFilter = nullptr);
    // A name typed without a suffix gets defaultSuffix, when given, before the dialog
    // asks whether to replace an existing file.
    virtual QString saveFileName(QWidget* parent, const QString& title, const QString& folder,
                                 const QString& filter, QString* selectedFilter,
                                 const QString& defaultSuffix = QString());
    // A folder, or an empty string when the dialog was cancelled.
    virtual QString existingDirectory(QWidget* parent, const QString& title, const QString& folder);
    virtual Answer message(QWidget* parent, const Message& message);
    // The kind of an element read from an image: 0 XP, 1 VX, -1 when the dialog was
    // closed without a choice.
    virtual int elementType(QWidget* parent);
    // How many characters each VX file holds: 0 look at the name, 1 one, 2 eight; -1
    // when the dialog was closed without a choice.
    virtual int vxCharacterCount(QWidget* parent);
    // The question about a document with unsaved changes: Save, Discard or Cancel,
    // and Save All when withSaveAll.
    virtual QMessageBox::StandardButton closeWithChanges(QWidget* parent, const QString& name,
                                                         const QPixmap& thumbnail,
                                                         bool withSaveAll);
    // The dialog shown when "default.zk" cannot be read: its first two rows run
    // openHelp and assignDefault and leave it open.
    virtual void defaultCharacter(QWidget* parent, const std::function<void()>& openHelp,
                                  const std::function<void()>& assignDefault);
    // The program's colour dialog; nothing when the user cancels.
    virtual std::optional<QColor> colour(QWidget* parent, const QString& title,
                                         const QColor& initial);
    // The gradient editor opened on gradient; nothing when it is cancelled. Stops made
    // by a click take newColor.
    virtual std::optional<GradientRecord> gradient(QWidget* parent, const QString& title,
                                                   const GradientRecord& gradient,
                                                   const QColor& newColor);
    // The copies left by a program that did not close: one choice for each.
    virtual QList<RecoveryOffer::Choice> recovery(QWidget* parent,
                                                  const QList<RecoveryOffer>& offers);

    // One of items, chosen from a list that takes no typing: its index, or -1 when the
    // user cancels.
    virtual int item(QWidget* parent, const QString& title, const QString& label,
                     const QStringList& items);

    // The question about one dropped file: 0 add it to the active document, 1 open
    // it, 2 skip it, 3 stop the whole drop (also when the dialog is closed).
    virtual int dropAction(QWidget* parent, const QString& path);
    // The first-run offer of help: the row chosen, -1 when the dialog was closed.
    virtual int doYouNeedHelp(QWidget* parent);

    // Shorthands over message().
    void critical(QWidget* parent, const QString& title, const QString& text);
    void information(QWidget* parent, const QString& title, const QString& text);
};
