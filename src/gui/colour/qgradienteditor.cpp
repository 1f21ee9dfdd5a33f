#include "colour/qgradienteditor.h"

#include "app/prompts.h"
#include "app/qlabelclickable.h"
#include "colour/qgradientcreator.h"
#include "colour/qgradientrender.h"
#include "formats/filenames.h"
#include "formats/gradientfile.h"
#include "imaging/imagechecks.h"
#include "settings/datafolder.h"
#include "settings/settings.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

const QString QGradientEditor::Filter = QStringLiteral("Dégradé Zenkora (*.zkd)");

QGradientEditor::QGradientEditor(const GradientRecord& gradient, const QColor& newColor,
                                 QWidget* parent)
    : QDialog(parent), m_creator(new QGradientCreator(newColor, this)),
      m_render(new QGradientRender(this))
{
    setWindowIcon(QIcon(QStringLiteral(":/icon/ZK.png")));
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->addWidget(m_creator);
    QHBoxLayout* middle = new QHBoxLayout;
    middle->addWidget(m_render, 0, Qt::AlignTop);
    middle->addWidget(createControls());
    layout->addLayout(middle);
    layout->addWidget(createButtons());
    connectParts();

    // Opens on the given gradient; the type box shows nothing new when the type is
    // linear, so the legend is set up directly.
    m_render->setRecord(gradient);
    m_typeBox->setCurrentIndex(gradient.type);
    m_spreadBox->setCurrentIndex(gradient.spread);
    updateJoiner(gradient.type);
    m_creator->setGradient(gradient.stops);
    updateLabel();
    m_result = gradient;
}

QWidget* QGradientEditor::createControls()
{
    QWidget* controls = new QWidget(this);
    QGridLayout* grid = new QGridLayout(controls);
    grid->setContentsMargins(0, 0, 0, 0);

    m_typeBox = new QComboBox(controls);
    m_typeBox->setObjectName(QStringLiteral("typeBox"));
    m_typeBox->addItem(QIcon(QStringLiteral(":/icon/lgradient.png")),
                       QStringLiteral("Dégradé linéaire"));
    m_typeBox->addItem(QIcon(QStringLiteral(":/icon/rgradient.png")),
                       QStringLiteral("Dégradé radial"));
    m_typeBox->addItem(QIcon(QStringLiteral(":/icon/cgradient.png")),
                       QStringLiteral("Dégradé conique"));
    m_spreadBox = new QComboBox(controls);
    m_spreadBox->setObjectName(QStringLiteral("spreadBox"));
    m_spreadBox->addItem(QIcon(QStringLiteral(":/icon/normalspread.png")),
                         QStringLiteral("Normale"));
    m_spreadBox->addItem(QIcon(QStringLiteral(":/icon/reflectspread.png")),
                         QStringLiteral("Réfléchie"));
    m_spreadBox->addItem(QIcon(QStringLiteral(":/icon/repeatspread.png")),
                         QStringLiteral("Répétée"));
    grid->addWidget(new QLabel(QStringLiteral("Type de dégradé"), controls), 0, 0);
    grid->addWidget(m_typeBox, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("Type de diffusion"), controls), 1, 0);
    grid->addWidget(m_spreadBox, 1, 1);
    grid->addWidget(createLegend(), 2, 0, 1, 2);

    m_swatch = new QLabelClickable(controls);
    m_swatch->setObjectName(QStringLiteral("colorSwatch"));
    m_swatch->setFixedSize(75, 20);
    m_swatch->setCursor(Qt::PointingHandCursor);
    grid->addWidget(new QLabel(QStringLiteral("Couleur"), controls), 3, 0);
    grid->addWidget(m_swatch, 3, 1);

    m_position = new QSpinBox(controls);
    m_position->setObjectName(QStringLiteral("positionBox"));
    m_position->setRange(0, 100);
    m_position->setSuffix(QStringLiteral(" %"));
    grid->addWidget(new QLabel(QStringLiteral("Position"), controls), 4, 0);
    grid->addWidget(m_position, 4, 1);

    m_delete = new QPushButton(QStringLiteral("Supprimer"), controls);
    grid->addWidget(m_delete, 5, 1);

    QPushButton* options = new QPushButton(QStringLiteral("Options"), controls);
    QMenu* menu = new QMenu(options);
    m_save = menu->addAction(QStringLiteral("Enregistrer le dégradé"));
    m_load = menu->addAction(QStringLiteral("Ouvrir un dégradé"));
    menu->addSeparator();
    m_restore = menu->addAction(QStringLiteral("Restaurer la position des points"));
    m_deleteAll = menu->addAction(QStringLiteral("Supprimer tous les curseurs"));
    menu->addSeparator();
    m_join = menu->addAction(QStringLiteral("Superposer le centre et la focale"));
    options->setMenu(menu);
    grid->addWidget(options, 6, 0, 1, 2);
    grid->setRowStretch(7, 1);
    return controls;
}

QWidget* QGradientEditor::createLegend()
{
    QWidget* legend = new QWidget(this);
    QHBoxLayout* row = new QHBoxLayout(legend);
    row->setContentsMargins(0, 4, 0, 4);
    const char* pictures[] = {":/icon/pointR.png", ":/icon/pointV.png", ":/icon/pointB.png"};
    const QString texts[] = {QStringLiteral("Début"), QStringLiteral("Fin"),
                             QStringLiteral("Focale")};
    for (int i = 0; i < 3; ++i) {
        m_pictures[i] = new QLabel(legend);
        m_pictures[i]->setPixmap(QPixmap(QString::fromLatin1(pictures[i])));
        m_legends[i] = new QLabel(texts[i], legend);
        row->addWidget(m_pictures[i]);
        row->addWidget(m_legends[i]);
    }
    row->addStretch();
    return legend;
}

QWidget* QGradientEditor::createButtons()
{
    QWidget* buttons = new QWidget(this);
    QHBoxLayout* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch();
    QPushButton* ok =
        new QPushButton(QIcon(QStringLiteral(":/icon/ok.png")), QStringLiteral("Valider"), buttons);
    QPushButton* cancel = new QPushButton(QIcon(QStringLiteral(":/icon/remove.png")),
                                          QStringLiteral("Annuler"), buttons);
    ok->setDefault(true);
    row->addWidget(ok);
    row->addWidget(cancel);
    connect(ok, &QPushButton::clicked, this, &QGradientEditor::finishCG);
    connect(cancel, &QPushButton::clicked, this, &QGradientEditor::close);
    return buttons;
}

void QGradientEditor::connectParts()
{
    connect(m_swatch, &QLabelClickable::clicked, this, &QGradientEditor::updateColor);
    connect(m_position, &QSpinBox::valueChanged, m_creator, &QGradientCreator::setPos);
    connect(m_delete, &QPushButton::clicked, m_creator, &QGradientCreator::destroy);
    connect(m_deleteAll, &QAction::triggered, m_creator, &QGradientCreator::destroyAll);
    connect(m_creator, &QGradientCreator::changeIndex, this, &QGradientEditor::updateOption);
    connect(m_creator, &QGradientCreator::changeGradient, m_render,
            &QGradientRender::setGradientData);
    connect(m_typeBox, &QComboBox::currentIndexChanged, m_render,
            &QGradientRender::setGradientType);
    connect(m_typeBox, &QComboBox::currentIndexChanged, this, &QGradientEditor::updateJoiner);
    connect(m_restore, &QAction::triggered, m_render, &QGradientRender::reset);
    connect(m_join, &QAction::triggered, m_render, &QGradientRender::join);
    connect(m_spreadBox, &QComboBox::currentIndexChanged, m_render,
            &QGradientRender::setSpreadType);
    connect(m_save, &QAction::triggered, this, &QGradientEditor::save);
    connect(m_load, &QAction::triggered, this, &QGradientEditor::load);
}

std::optional<GradientRecord> QGradientEditor::getGradient(QWidget* parent, const QString& title,
                                                           const GradientRecord& gradient,
                                                           const QColor& newColor)
{
    QGradientEditor editor(gradient, newColor, parent);
    editor.setWindowTitle(title);
    editor.setFixedSize(editor.sizeHint());
    if (editor.exec() != QDialog::Accepted)
        return std::nullopt;
    return editor.m_result;
}

GradientRecord QGradientEditor::gradient() const
{
    GradientRecord record = m_render->record();
    record.stops = m_creator->stops();
    return record;
}

void QGradientEditor::finishCG()
{
    m_result = gradient();
    accept();
}

void QGradientEditor::updateLabel()
{
    QImage swatch;
    fillChecker(swatch, m_swatch->size(), 5, true, Qt::white, Qt::gray);
    QPainter painter(&swatch);
    painter.fillRect(swatch.rect().adjusted(1, 1, -1, -1), m_color);
    painter.end();
    m_swatch->setPixmap(QPixmap::fromImage(swatch));
}

void QGradientEditor::updateColor()
{
    const std::optional<QColor> chosen =
        Prompts::instance()->colour(this, QStringLiteral("Choisir une couleur"), m_color);
    if (!chosen)
        return;
    m_color = *chosen;
    updateLabel();
    m_creator->setColor(m_color);
}

void QGradientEditor::updateOption(const GradientData& gd)
{
    const bool none = gd.pos == -1.0;
    m_swatch->setEnabled(!none);
    m_position->setEnabled(!none);
    m_delete->setEnabled(!none);
    if (none)
        return;
    m_color = gd.color;
    updateLabel();
    // The box holds 0 to 100; a stop made left of the strip shows as 0. Only a value
    // that really changes comes back through valueChanged, so only then is the strip
    // told to ignore it: otherwise the user's next edit would be the one ignored.
    const int shown = int(qBound(0.0, gd.pos * 100, 100.0));
    if (m_position->value() != shown) {
        m_creator->setPositionEnabled(false);
        m_position->setValue(shown);
    }
}

void QGradientEditor::updateJoiner(int ii)
{
    m_join->setEnabled(ii == 1);
    m_legends[0]->setText(ii == 0 ? QStringLiteral("Début") : QStringLiteral("Centre"));
    m_legends[1]->setText(ii == 0   ? QStringLiteral("Fin")
                          : ii == 1 ? QStringLiteral("Rayon")
                                    : QStringLiteral("Angle"));
    m_pictures[2]->setEnabled(ii == 1);
    m_legends[2]->setEnabled(ii == 1);
    m_spreadBox->setEnabled(ii != 2);
}

void QGradientEditor::updateModeLinear()
{
    m_typeBox->setCurrentIndex(GradientRecord::Linear);
}

void QGradientEditor::updateModeRadial()
{
    m_typeBox->setCurrentIndex(GradientRecord::Radial);
}

void QGradientEditor::updateModeConical()
{
    m_typeBox->setCurrentIndex(GradientRecord::Conical);
}

void QGradientEditor::warn(const QString& text)
{
    Prompts::Message message;
    message.icon = QMessageBox::Warning;
    message.title = QStringLiteral("Erreur");
    message.text = text;
    Prompts::instance()->message(this, message);
}

void QGradientEditor::save()
{
    Settings settings;
    QString folder = QStringLiteral("degrade/");
    settings.get(QStringLiteral("pathSaveDegrade"), folder);
    const QString path =
        Prompts::instance()->saveFileName(this, QStringLiteral("Sauvegarder une palette"),
                                          DataFolder::locate(folder), Filter, nullptr);
    if (path.isEmpty())
        return;
    const QString directory = directoryOf(path);
    if (!directory.contains(QLatin1Char('?')))
        settings.set(QStringLiteral("Path"), QStringLiteral("pathSaveDegrade"), directory);
    settings.set(QStringLiteral("Color"), QStringLiteral("degrade"), path);
    settings.save();
    if (!GradientFile::save(gradient(), path))
        warn(QStringLiteral("Impossible de sauvegarder le dégradé."));
}

void QGradientEditor::load()
{
    Settings settings;
    QString folder = QStringLiteral("degrade/");
    settings.get(QStringLiteral("pathLoadDegrade"), folder);
    const QString path = Prompts::instance()->openFileName(
        this, QStringLiteral("Ouvrir un dégradé"), DataFolder::locate(folder), Filter, nullptr);
    if (path.isEmpty())
        return;
    const QString directory = directoryOf(path);
    if (!directory.contains(QLatin1Char('?')))
        settings.set(QStringLiteral("Path"), QStringLiteral("pathLoadDegrade"), directory);
    settings.set(QStringLiteral("Color"), QStringLiteral("degrade"), path);
    settings.save();
    if (!loadFile(path))
        warn(m_errorMessage);
}

bool QGradientEditor::loadFile(const QString& path)
{
    const GradientFile::Reading reading = GradientFile::load(path);
    const GradientRecord& read = reading.record;
    if (reading.reached >= GradientFile::Type)
        m_typeBox->setCurrentIndex(read.type);
    if (reading.reached >= GradientFile::Spread)
        m_spreadBox->setCurrentIndex(read.spread);
    if (reading.reached >= GradientFile::Handles) {
        QList<QPoint> handles;
        for (const QPointF& point : read.handles())
            handles.append(point.toPoint());
        m_render->setHandles(handles);
    }
    if (!reading.ok()) {
        m_errorMessage = reading.errorText;
        return false;
    }
    m_creator->setGradient(read.stops);
    return true;
}
