#include "batch/qprogresswindow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>

QProgressWindow::QProgressWindow(const QString& title, QWidget* parent)
    : QDialog(parent), m_label(new QLabel(this)), m_bar(new QProgressBar(this)),
      m_stopButton(new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")),
                                   QStringLiteral("Annuler"), this))
{
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    m_bar->setRange(0, 100);
    m_bar->setValue(0);
    m_bar->setFixedSize(300, 30);
    // Long paths are cut in the middle rather than widening the window at each file.
    m_label->setFixedWidth(300);
    m_stopButton->setAutoDefault(false);
    m_stopButton->setMinimumWidth(
        m_stopButton->fontMetrics().horizontalAdvance(QStringLiteral("Arrêt en cours...")) + 48);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_stopButton);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(m_stopButton, &QPushButton::clicked, this, &QProgressWindow::stop);
}

void QProgressWindow::start(QThread* worker)
{
    m_worker = worker;
    emit starting(worker);
    worker->start(QThread::InheritPriority);
}

void QProgressWindow::setProgress(int value, const QString& info)
{
    m_bar->setValue(value);
    m_label->setText(m_label->fontMetrics().elidedText(info, Qt::ElideMiddle, m_label->width()));
    m_label->setToolTip(info);
}

void QProgressWindow::stop()
{
    if (m_closing || !m_worker || !m_stopButton->isEnabled())
        return;
    m_worker->requestInterruption();
    m_stopButton->setText(QStringLiteral("Arrêt en cours..."));
    m_stopButton->setEnabled(false);
}

void QProgressWindow::reject()
{
    if (m_closing)
        QDialog::reject();
    else
        stop();
}

void QProgressWindow::closeWhenFinished(QWidget* owner)
{
    m_closing = true;
    done(Accepted);
    QPointer<QWidget> guardedOwner(owner);
    const auto go = [this, guardedOwner] {
        if (m_gone)
            return;
        m_gone = true;
        deleteLater();
        if (guardedOwner)
            guardedOwner->close();
    };
    // Connected before the test, so that an end between the two isn't missed; the
    // flag keeps the second call from acting.
    if (m_worker)
        connect(m_worker, &QThread::finished, this, go);
    if (!m_worker || m_worker->isFinished())
        go();
}
