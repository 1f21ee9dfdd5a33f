#pragma once

#include "batch/qprogresswindow.h"

#include <QPixmap>
#include <QPointer>
#include <QStringList>
#include <QWidget>

class Fusioner;
class QLabel;

class QPushButton;
class QScrollArea;
class QTilesetView;

// The window in which the user lists the tilesets to merge, puts them in order, and
// starts the merge, which runs under a progress window over the whole application.
class QFusionTileset : public QWidget
{
    Q_OBJECT

public:
    explicit QFusionTileset(QWidget* parent = nullptr);

    QTilesetView* tilesetView() const { return m_tilesetView; }
    QPushButton* fusionButton() const { return m_fusionButton; }
    QLabel* preview() const { return m_preview; }
    QProgressWindow* progressWindow() const { return m_progressWindow; }
    // Whether the last merge was stopped before it wrote anything.
    bool stopped() const { return m_stopped; }

signals:
    // A job's worker is about to start, under its progress window.
    void workerStarting(QThread* worker);

public slots:
    void addFiles();
    void updateFileName(const QString& str);
    void setEnabledButton(bool b);
    void fusionInterface();
    void setAvancement(uint value, const QString& info);
    void setConclusion(const QStringList& info);

private:
    static QPixmap emptyPreview();

    QTilesetView* m_tilesetView;
    QLabel* m_preview;
    QScrollArea* m_previewArea;
    QPushButton* m_fusionButton;
    QPointer<QProgressWindow> m_progressWindow;
    QPointer<Fusioner> m_fusioner;
    bool m_stopped = false;
};
