#pragma once

#include "vomap/VOColorSchemeTeam.h"
#include "vomap/VOStoreHistory.h"

#include <QDialog>

#include <vector>

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace mapviewer {

/// The earlier states of the store: when each was saved, how its schemes differ from the present
/// ones, and buttons that bring them back. What comes back is saved at once, and what was there
/// before becomes the newest state.
class HistoryDialog : public QDialog
{
    Q_OBJECT
public:
    explicit HistoryDialog(QWidget *parent);
    void done(int result) override;

Q_SIGNALS:
    /// Schemes of the store are others now.
    void restored();

private:
    /// Keeps the state that was chosen, if the team still has it.
    void showStates();
    void showDifferences();
    void addRow(const QString &group, const VTObjects::VOColorScheme *then,
                const VTObjects::VOColorScheme *now);
    QTreeWidgetItem *groupRow(const QString &group);
    void updateButtons();
    void restoreSelected();
    void restoreTeam();
    void finishRestoring(bool done);

    VTObjects::VOStoreHistory history;
    std::vector<VTObjects::VOSavedState> states;
    QComboBox *teamBox;
    QListWidget *stateList;
    QLabel *hint;
    QTreeWidget *tree;
    QPushButton *restoreButton;
    QPushButton *restoreTeamButton;
};

} // namespace mapviewer
