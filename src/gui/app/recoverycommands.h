#pragma once

#include <QHash>
#include <QString>

#include <memory>

class MainWindow;
class QLayer;
class RecoveryKeeper;

// The window's side of recovery copies: every document is watched from its opening to
// its closing, a failed copy is told in the status bar, and the copies of a program
// that did not close are offered at start-up.
class RecoveryCommands
{
public:
    RecoveryCommands(MainWindow& window, const QString& folder);
    ~RecoveryCommands();

    RecoveryKeeper* keeper() const { return m_keeper.get(); }
    void watch(QLayer* layer);
    // Asks about the copies whose program is gone, and opens those the user recovers.
    void offerAbandoned();

private:
    MainWindow& m_window;
    std::unique_ptr<RecoveryKeeper> m_keeper;
    QHash<const QLayer*, int> m_documents;
};
