#include "app/qcombowidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {
// Icons larger than this are scaled down, so that one huge icon does not push the
// texts of every row to the right.
constexpr int LargestIcon = 48;
constexpr int IconGutter = 16;
} // namespace

QComboWidget::QComboWidget(const QString& title, const QString& subtitle, QWidget* parent)
    : QDialog(parent)
{
    buildHead(QPixmap(), title, subtitle);
}

QComboWidget::QComboWidget(const QPixmap& pixmap, const QString& title, const QString& subtitle,
                           QWidget* parent)
    : QDialog(parent)
{
    buildHead(pixmap, title, subtitle);
}

QComboWidget::~QComboWidget() = default;

void QComboWidget::buildHead(const QPixmap& pixmap, const QString& title, const QString& subtitle)
{
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 12, 14, 14);
    layout->setSpacing(10);

    auto* head = new QHBoxLayout;
    head->setSpacing(12);
    if (!pixmap.isNull()) {
        m_pixmapLabel = new QLabel(this);
        m_pixmapLabel->setPixmap(pixmap);
        m_pixmapLabel->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
        head->addWidget(m_pixmapLabel, 0, Qt::AlignTop);
    }
    auto* texts = new QVBoxLayout;
    texts->setSpacing(4);
    m_titleLabel = new QLabel(title, this);
    m_subtitleLabel = new QLabel(subtitle, this);
    texts->addWidget(m_titleLabel);
    texts->addWidget(m_subtitleLabel);
    texts->addStretch();
    head->addLayout(texts, 1);
    layout->addLayout(head);

    m_rowLayout = new QVBoxLayout;
    m_rowLayout->setSpacing(2);
    layout->addLayout(m_rowLayout);
}

const QComboWidget::Option* QComboWidget::addOption(const QPixmap& pixmap, const QString& caption,
                                                    const QString& text, bool closes)
{
    m_options.push_back(std::make_unique<Option>(Option{pixmap, text, caption, closes}));
    auto* row = new QOptionWidget(pixmap, caption, text, this);
    row->setPixmapSize(QSize(LargestIcon, LargestIcon));
    row->setScaled(pixmap.width() > LargestIcon || pixmap.height() > LargestIcon);
    m_rows.append(row);
    m_rowLayout->addWidget(row);
    QObject::connect(row, &QOptionWidget::clicked, this, &QComboWidget::valid);
    alignTexts();
    return m_options.back().get();
}

// Every row gets the same left part, as wide as the widest icon needs, so that the
// captions of all rows start on one line whatever the sizes of their icons.
void QComboWidget::alignTexts()
{
    int widest = 0;
    for (const QOptionWidget* row : std::as_const(m_rows))
        widest = std::max(widest, row->shownIcon().width());
    for (QOptionWidget* row : std::as_const(m_rows)) {
        row->setPixmapMargin(false);
        row->setLeftMargin(widest + IconGutter);
    }
}

int QComboWidget::indexOf(const Option* option) const
{
    const auto found = std::find_if(m_options.begin(), m_options.end(),
                                    [option](const auto& owned) { return owned.get() == option; });
    return found == m_options.end() ? -1 : int(found - m_options.begin());
}

QString QComboWidget::titleText() const
{
    return m_titleLabel->text();
}

QString QComboWidget::subtitleText() const
{
    return m_subtitleLabel->text();
}

QPixmap QComboWidget::headPixmap() const
{
    return m_pixmapLabel ? m_pixmapLabel->pixmap() : QPixmap();
}

void QComboWidget::fitToContents()
{
    layout()->activate();
    setFixedSize(sizeHint());
}

void QComboWidget::setVisible(bool visible)
{
    if (visible)
        fitToContents();
    QDialog::setVisible(visible);
}

void QComboWidget::valid()
{
    const int index = int(m_rows.indexOf(qobject_cast<QOptionWidget*>(sender())));
    if (index < 0)
        return;
    m_chosenIndex = index;
    if (m_options.at(index)->closes)
        accept();
}
