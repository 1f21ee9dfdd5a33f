#pragma once

#include <QDialog>
#include <QPointer>
#include <QThread>

class QLabel;
class QProgressBar;
class QPushButton;

// The window that stands over the whole application while a batch job runs: a line
// of text, a bar, and "Annuler", which asks the worker to stop, as Escape and the
// frame's close button do; the worker decides when it can. The worker is this
// window's child, and the window goes only once the worker has finished: deleting a
// running thread would end the program.
class QProgressWindow : public QDialog
{
    Q_OBJECT

public:
    QProgressWindow(const QString& title, QWidget* parent);

    QLabel* label() const { return m_label; }
    QProgressBar* bar() const { return m_bar; }
    QPushButton* stopButton() const { return m_stopButton; }
    QThread* worker() const { return m_worker; }

    // Takes the worker, made with this window as parent, and starts it.
    void start(QThread* worker);
    void setProgress(int value, const QString& info);
    // Hides the window at once; it is deleted, with its worker, when the worker has
    // finished, and owner, if given, closes then too.
    void closeWhenFinished(QWidget* owner = nullptr);

signals:
    // The worker is about to start: the last moment to connect to it before it runs.
    void starting(QThread* worker);

public slots:
    void stop();

protected:
    // Escape and the frame's button ask for a stop instead of closing.
    void reject() override;

private:
    QLabel* m_label;
    QProgressBar* m_bar;
    QPushButton* m_stopButton;
    QPointer<QThread> m_worker;
    bool m_closing = false;
    bool m_gone = false;
};
