#pragma once

#include "app/recoveryoffer.h"

#include <QDialog>
#include <QList>

class QComboBox;

// "Récupération des documents": the copies left by a program that did not close, each
// with its thumbnail, where it came from, when it was made, and what to do with it.
class QRecoveryDialog : public QDialog
{
    Q_OBJECT

public:
    QRecoveryDialog(const QList<RecoveryOffer>& offers, QWidget* parent = nullptr);

    // One choice per offer; closing the dialog keeps every copy for the next start.
    QList<RecoveryOffer::Choice> choices() const;

    static QList<RecoveryOffer::Choice> ask(QWidget* parent, const QList<RecoveryOffer>& offers);

private:
    QList<QComboBox*> m_boxes;
};
