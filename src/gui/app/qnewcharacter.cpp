#include "app/qnewcharacter.h"

#include "canvas/qlayer.h"
#include "canvas/qscrolllayer.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {
const QString& readyMessage()
{
    static const QString message =
        QStringLiteral("<font color=\"#009900\">Choisissez les paramètres et validez.</font>");
    return message;
}

QSpinBox* sizeBox(const QString& name, QWidget* parent)
{
    auto* box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setSuffix(QStringLiteral(" pixels"));
    return box;
}
} // namespace

int QNewCharacter::s_createdCount = 0;

QNewCharacter::QNewCharacter(int kind, const QString& name, bool editMode,
                             QScrollLayer* scrollLayer, int width, int height, QWidget* parent)
    : QDialog(parent), m_kind(kind), m_scrollLayer(scrollLayer), m_editMode(editMode)
{
    setModal(true);
    const bool xp = kind == 0;
    if (editMode)
        setWindowTitle(QStringLiteral("Editer le character"));
    else
        setWindowTitle(xp ? QStringLiteral("Nouveau character (RPG Maker XP)")
                          : QStringLiteral("Nouveau character (RPG Maker VX)"));
    setWindowIcon(
        QIcon(xp ? QStringLiteral(":/icon/newXP.png") : QStringLiteral(":/icon/newVX.png")));
    setMinimumSize(500, 197);
    buildForm();
    setUpSizes(width, height);

    m_nameEdit->setText(name.isEmpty()
                            ? QStringLiteral("Sans titre ") + QString::number(s_createdCount + 1)
                            : name);
    m_nameEdit->selectAll();
    m_nameEdit->setFocus();
    changeValue(0);
}

void QNewCharacter::buildForm()
{
    m_nameEdit = new QLineEdit(this);
    m_nameEdit->setObjectName(QStringLiteral("nameEdit"));
    m_widthBox = sizeBox(QStringLiteral("widthBox"), this);
    m_heightBox = sizeBox(QStringLiteral("heightBox"), this);
    m_cellWidthLabel = new QLabel(this);
    m_cellWidthLabel->setObjectName(QStringLiteral("cellWidthLabel"));
    m_cellHeightLabel = new QLabel(this);
    m_cellHeightLabel->setObjectName(QStringLiteral("cellHeightLabel"));
    m_messageLabel = new QLabel(readyMessage(), this);
    m_messageLabel->setObjectName(QStringLiteral("messageLabel"));

    auto* group = new QGroupBox(QStringLiteral("Informations"), this);
    auto* groupLayout = new QVBoxLayout(group);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Nom"), m_nameEdit);
    form->addRow(QStringLiteral("Largeur"), m_widthBox);
    form->addRow(QStringLiteral("Hauteur"), m_heightBox);
    groupLayout->addLayout(form);
    groupLayout->addWidget(m_cellWidthLabel);
    groupLayout->addWidget(m_cellHeightLabel);

    m_validButton =
        new QPushButton(QIcon(QStringLiteral(":/icon/ok.png")), QStringLiteral("Valider"), this);
    m_validButton->setObjectName(QStringLiteral("validButton"));
    m_validButton->setDefault(true);
    auto* cancelButton = new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")),
                                         QStringLiteral("Annuler"), this);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_messageLabel, 1);
    buttons->addWidget(m_validButton);
    buttons->addWidget(cancelButton);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group);
    layout->addLayout(buttons);

    connect(m_validButton, &QPushButton::clicked, this, &QNewCharacter::create);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_nameEdit, &QLineEdit::textChanged, this, &QNewCharacter::activeButton);
}

void QNewCharacter::setUpSizes(int width, int height)
{
    // XP sheets are 4 cells across, VX sheets 3: the width steps by whole columns.
    const bool xp = m_kind == 0;
    // A sheet larger than the usual maximum (an opened tileset) keeps its size when
    // the dialog is validated unchanged: the maxima never cut the current sheet.
    m_widthBox->setRange(xp ? 64 : 48, qMax(xp ? 512 : 384, width));
    m_widthBox->setSingleStep(xp ? 4 : 3);
    m_heightBox->setRange(64, qMax(512, height));
    m_heightBox->setSingleStep(4);
    const bool given = width > 0 && height > 0;
    m_widthBox->setValue(given ? width : xp ? 128 : 96);
    m_heightBox->setValue(given ? height : xp ? 192 : 128);
    connect(m_widthBox, &QSpinBox::valueChanged, this, &QNewCharacter::changeValue);
    connect(m_heightBox, &QSpinBox::valueChanged, this, &QNewCharacter::changeValue);
}

int QNewCharacter::columnCount() const
{
    return m_kind == 0 ? 4 : 3;
}

int QNewCharacter::roundedWidth() const
{
    const int width = m_widthBox->value();
    return width - width % columnCount();
}

int QNewCharacter::roundedHeight() const
{
    const int height = m_heightBox->value();
    return height - height % 4;
}

// Both boxes come here; the value sent is not needed, as both are read again.
void QNewCharacter::changeValue(int)
{
    m_cellWidthLabel->setText(QStringLiteral("Largeur d'une cellule : ") +
                              QString::number(roundedWidth() / columnCount()) +
                              QStringLiteral(" pixels."));
    m_cellHeightLabel->setText(QStringLiteral("Hauteur d'une cellule : ") +
                               QString::number(roundedHeight() / 4) + QStringLiteral(" pixels."));
}

void QNewCharacter::activeButton()
{
    const bool empty = m_nameEdit->text().trimmed().isEmpty();
    m_validButton->setEnabled(!empty);
    m_messageLabel->setText(
        empty ? QStringLiteral("<font color=\"#FF0000\">Le nom ne doit pas être vide.</font>")
              : readyMessage());
}

void QNewCharacter::create()
{
    // A size typed by hand that is no whole number of cells is silently lowered.
    const QSize size(roundedWidth(), roundedHeight());
    const QString name = m_nameEdit->text();
    if (m_editMode) {
        editDocument(name, size);
    } else {
        emit validNewChar(name, size.width(), size.height(), m_kind);
        ++s_createdCount;
    }
    accept();
}

void QNewCharacter::editDocument(const QString& name, QSize size)
{
    if (!m_scrollLayer)
        return;
    QLayer* layer = m_scrollLayer->layer();
    if (QWidget* subWindow = m_scrollLayer->parentWidget())
        subWindow->setWindowTitle(name);
    layer->setTitle(name);
    // Cells grow or shrink around the elements, which stay centred in them.
    layer->character()->resizeSheet(size, true);
    layer->recordStep(QByteArrayLiteral("Changement de la taille des cellules"));
    layer->resizeToSheet();
}
