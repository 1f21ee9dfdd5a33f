#pragma once

#include "app/qoptionwidget.h"

#include <QDialog>
#include <QList>
#include <QPixmap>
#include <QString>

#include <memory>
#include <vector>

class QLabel;
class QVBoxLayout;

// The program's choice dialog: a head, a subtitle and a column of large rows, one per
// answer. The index of the row clicked is the answer, -1 while none was.
class QComboWidget : public QDialog
{
    Q_OBJECT

public:
    // What a row was made from. A row that does not close leaves the dialog open
    // once its slots have run, for answers that are actions rather than choices.
    struct Option
    {
        QPixmap pixmap;
        QString text;
        QString caption;
        bool closes = true;
    };

    QComboWidget(const QString& title, const QString& subtitle, QWidget* parent = nullptr);
    QComboWidget(const QPixmap& pixmap, const QString& title, const QString& subtitle,
                 QWidget* parent = nullptr);
    ~QComboWidget() override;

    // The record stays valid for the life of the dialog.
    const Option* addOption(const QPixmap& pixmap, const QString& caption, const QString& text,
                            bool closes = true);

    int optionCount() const { return int(m_rows.size()); }
    const Option* option(int index) const { return m_options.at(index).get(); }
    QOptionWidget* row(int index) const { return m_rows.at(index); }
    int indexOf(const Option* option) const;
    int chosenIndex() const { return m_chosenIndex; }

    QString titleText() const;
    QString subtitleText() const;
    QPixmap headPixmap() const;

    // Fixes the size to what the rows need. Showing the dialog does it on its own.
    void fitToContents();

    // Reach through to a row's signal, so that a caller attaches its own slot to it:
    // combo->connect(0, &QOptionWidget::clicked, window, &MainWindow::showHelp).
    template <typename Signal, typename Receiver, typename Slot>
    QMetaObject::Connection connect(int index, Signal signal, const Receiver* receiver, Slot slot)
    {
        return QObject::connect(row(index), signal, receiver, slot);
    }
    template <typename Signal, typename Receiver, typename Slot>
    QMetaObject::Connection connect(const Option* option, Signal signal, const Receiver* receiver,
                                    Slot slot)
    {
        return connect(indexOf(option), signal, receiver, slot);
    }
    template <typename Signal, typename Receiver, typename Slot>
    bool disconnect(int index, Signal signal, const Receiver* receiver, Slot slot)
    {
        return QObject::disconnect(row(index), signal, receiver, slot);
    }
    template <typename Signal, typename Receiver, typename Slot>
    bool disconnect(const Option* option, Signal signal, const Receiver* receiver, Slot slot)
    {
        return disconnect(indexOf(option), signal, receiver, slot);
    }

    void setVisible(bool visible) override;

public slots:
    void valid();

private:
    void buildHead(const QPixmap& pixmap, const QString& title, const QString& subtitle);
    void alignTexts();

    std::vector<std::unique_ptr<Option>> m_options;
    QList<QOptionWidget*> m_rows;
    QVBoxLayout* m_rowLayout = nullptr;
    QLabel* m_pixmapLabel = nullptr;
    QLabel* m_titleLabel = nullptr;
    QLabel* m_subtitleLabel = nullptr;
    int m_chosenIndex = -1;
};
