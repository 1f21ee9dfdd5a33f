#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStringList>
#include <QThread>
#include <QWidget>

class Converter;
class QProgressWindow;

// The conversion wizard. Step 1, this window, chooses between files and a folder;
// step 2 the direction and the sources; step 3 shows the converter's progress until it
// reports. Each step hides the one before; closing step 2 brings step 1 back, with the
// sources chosen kept while the mode stays the same.
class QConvertChara : public QWidget
{
    Q_OBJECT

public:
    explicit QConvertChara(QWidget* parent = nullptr);

    QRadioButton* fileRadio() const { return m_fileRadio; }
    QRadioButton* folderRadio() const { return m_folderRadio; }
    QPushButton* firstNextButton() const { return m_firstNextButton; }
    // Step 2's or step 3's window, while one is open.
    QDialog* stepDialog() const { return m_stepDialog; }
    QLineEdit* pathEdit() const { return m_pathEdit; }
    QPushButton* nextButton() const { return m_nextButton; }
    QComboBox* directionBox() const { return m_directionBox; }
    const QStringList& paths() const { return m_paths; }
    // Whether the last run was stopped before its end.
    bool stopped() const;

signals:
    // A job's worker is about to start, under its progress window.
    void workerStarting(QThread* worker);

public slots:
    void convertWindow();
    void closeAll();
    void searchFileNames();
    void convert();
    void fatalError(const QString& error);
    void setAvancement(uint value, const QString& info);
    void setConclusion(const QStringList& info, const QString& infoDir);

private:
    void stepTwoClosed();
    void showPaths();
    void startConversion(uchar direction, uchar characterCount);
    QProgressWindow* progressWindow() const;
    void finishRun();

    QRadioButton* m_fileRadio;
    QRadioButton* m_folderRadio;
    QPushButton* m_firstNextButton;
    QPointer<QLineEdit> m_pathEdit;
    QPointer<QPushButton> m_nextButton;
    QPointer<QComboBox> m_directionBox;
    QPointer<QDialog> m_stepDialog;
    QPointer<Converter> m_converter;
    QStringList m_paths;
    bool m_pathsAreFiles = true;
    int m_direction = 0;
    bool m_leavingStepTwo = false;
    bool m_stopped = false;
};
