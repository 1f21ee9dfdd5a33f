#pragma once

#include "document/character.h"

#include "batch/qprogresswindow.h"

#include <QDialog>
#include <QList>
#include <QPointer>

#include <memory>

class QCheckBox;
class QLayerListSelectable;
class QLineEdit;

class QPushButton;
class QSpinBox;
class SaveMassSystem;

// The window that saves a character many times over in varied hues: the elements
// whose hue turns are moved from the left list to the right one; the elements of one
// element file count as one row while grouped. It works on copies of the character:
// the lists read one, the worker gets another, and the document is never touched.
class QSaveWindow : public QDialog
{
    Q_OBJECT

public:
    // folder is the caller's folder, taken unless a folder chosen before still exists;
    // prefix starts every file's name.
    QSaveWindow(const Character& character, const QString& folder, const QString& prefix,
                QWidget* parent = nullptr);
    ~QSaveWindow() override;

    bool isGrouped() const { return m_grouped; }
    QLayerListSelectable* leftList() const { return m_leftList; }
    QLayerListSelectable* rightList() const { return m_rightList; }
    QLineEdit* folderEdit() const { return m_folderEdit; }
    QLineEdit* prefixEdit() const { return m_prefixEdit; }
    QSpinBox* stepBox() const { return m_stepBox; }
    QCheckBox* redefineBox() const { return m_redefineBox; }
    QPushButton* addButton() const { return m_addButton; }
    QPushButton* subButton() const { return m_subButton; }
    QPushButton* saveButton() const { return m_saveButton; }
    QPushButton* groupButton() const { return m_groupButton; }
    QWidget* controls() const { return m_controls; }
    QProgressWindow* progressWindow() const { return m_progressWindow; }
    // Whether the last save was stopped before its end.
    bool stopped() const { return m_stopped; }

signals:
    // A job's worker is about to start, under its progress window.
    void workerStarting(QThread* worker);

public slots:
    void updateAddEnable(int i);
    void updateSubEnable(int i);
    void addElement();
    void subElement();
    void searchDir();
    void changeELZK();
    void beginSave();
    void setProgress(uchar percent, const QString& info);

protected:
    void reject() override;

private:
    // The row that stands for element e: itself, or the last element of its group
    // while grouped.
    int rowOf(int e) const;
    void rebuildLists();
    void moveCurrent(QLayerListSelectable* from, int side);
    void updateSaveEnable();
    void saveFinished();
    bool running() const;

    Character m_character;
    std::unique_ptr<Character> m_workCopy;
    bool m_grouped = true;
    // For each element: 0 on the left, 1 on the right, -1 inside a group's row.
    QList<int> m_sides;
    QWidget* m_controls;
    QLineEdit* m_folderEdit;
    QLineEdit* m_prefixEdit;
    QCheckBox* m_redefineBox;
    QSpinBox* m_stepBox;
    QPushButton* m_addButton;
    QPushButton* m_subButton;
    QPushButton* m_saveButton;
    QPushButton* m_groupButton;
    QLayerListSelectable* m_leftList;
    QLayerListSelectable* m_rightList;
    QPointer<QProgressWindow> m_progressWindow;
    QPointer<SaveMassSystem> m_worker;
    bool m_stopped = false;
    bool m_saveEnded = false;
};
