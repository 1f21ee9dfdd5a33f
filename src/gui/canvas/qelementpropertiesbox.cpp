#include "canvas/qelementpropertiesbox.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

QElementPropertiesBox::QElementPropertiesBox(const QString& name, bool hidden, QWidget* parent)
    : QDialog(parent), m_nameEdit(new QLineEdit(name, this)),
      m_hideBox(new QCheckBox(QStringLiteral("Cacher l'élément"), this)),
      m_validButton(
          new QPushButton(QIcon(QStringLiteral(":/icon/ok.png")), QStringLiteral("Valider"), this)),
      m_cancelButton(new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")),
                                     QStringLiteral("Annuler"), this))
{
    setWindowTitle(QStringLiteral("Propriétés de l'élément"));
    setWindowIcon(QIcon(QStringLiteral(":/icon/book.png")));
    m_hideBox->setChecked(hidden);
    QGridLayout* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("Nom"), this), 0, 0);
    layout->addWidget(m_nameEdit, 0, 1, 1, 2);
    layout->addWidget(m_hideBox, 1, 0, 1, 3);
    layout->addWidget(m_validButton, 2, 1);
    layout->addWidget(m_cancelButton, 2, 2);
    connect(m_cancelButton, &QPushButton::clicked, this, &QDialog::close);
}
